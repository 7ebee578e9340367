// Extents and screen points of bars. Everything that one value or edge touches is brought up to date with it:
// an edge bounds two bars, and in a box the distance to the edge before is part of the extent.

#include <kxgraph/series/Kxbarseries.h>

#include <algorithm>

namespace kx {

void TKxBarSeries::SetPointsCount() {
    if (FStackIsOld) RebuildStack();
    FPointsCount = std::max(0, std::min(Edges().GetCount() - 1, Lengths().GetCount()));
    FPoints.SetCount(FPointsCount + 1);
}

int TKxBarSeries::IdxNeeded(const TKxChannel& Channel) const {
    return std::min(FPointsCount + (&Channel == &Edges()), Channel.GetCount());
}

TKxInterval TKxBarSeries::WithDepth(double Value, double Depth, const TKxChannel& Channel) const {
    if (!TakesPart(Value, Channel)) return TKxInterval::None();
    if (!TakesPart(Value + Depth, Channel)) return {Value, Value};
    return {std::min(Value, Value + Depth), std::max(Value, Value + Depth)};
}

void TKxBarSeries::GetIntervals(const TKxChannel& Channel, int First,
                                std::span<TKxInterval> Intervals) const {
    const bool alongX = &Channel == &FX, isEdge = &Channel == &Edges();
    for (TKxInterval& interval : Intervals) {
        const double value = isEdge ? Channel.GetValue(First) : LengthAt(First);
        interval = WithDepth(value, alongX ? GetDX(First) : GetDY(First), Channel);
        ++First;
    }
}

TKxInterval TKxBarSeries::GetLeastExtent(const TKxChannel& Channel) const {
    const bool beginsAtZero = &Channel == &Lengths() && !Channel.IsLogarithmic();
    return beginsAtZero ? TKxInterval{0, 0} : TKxInterval::Empty();
}

void TKxBarSeries::CalcBarValue(const TKxChannel& Channel, int Index) {
    const auto take = [this](TKxChannel& Of, int At) {
        if (At < IdxNeeded(Of)) TakeValue(Of, At);
    };
    if (&Channel == &Lengths()) return take(Lengths(), Index);
    for (int i = Index; i <= Index + 1; ++i) {
        take(Edges(), i);
        if (FShow3DBars) take(Lengths(), i);
    }
}

int TKxBarSeries::PixelOf(const TKxChannel& Channel, int Index) const {
    if (Index >= Channel.GetCount()) return 0;
    return Channel.GetAxis()->GetMap().EndPosition(&Channel == &FX ? GetX(Index) : GetY(Index));
}

void TKxBarSeries::CalculatePoint(int Index) {
    if (!GetXAxis() || !GetYAxis() || !GetXData() || !GetYData()) return;
    for (int i = std::max(Index, 0); i <= std::min(Index + 1, FPointsCount); ++i)
        *FPoints.GetPointer(i) = {PixelOf(FX, i), PixelOf(FY, i)};
}

void TKxBarSeries::CalculateAllPoints() {
    const int count = FPointsCount + 1;
    const auto edges = Edges().GetVector()->Values(), lengths = Lengths().GetVector()->Values();
    const auto edgeCount = std::min(edges.size(), std::size_t(count)),
               lengthCount = std::min(lengths.size(), std::size_t(count));
    std::fill_n(FPoints.GetPointer(0), count, TPoint{});
    TPoint& first = *FPoints.GetPointer(0);
    BarPixels(Edges().GetAxis()->GetMap(), edges.first(edgeCount), &Edges().In(first), 2);

    const auto below = ValuesBelow();
    FSums.assign(lengths.begin(), lengths.begin() + std::ptrdiff_t(lengthCount));
    for (std::size_t i = 0; !below.empty() && i < lengthCount; ++i) FSums[i] += StackStart(below, int(i));
    BarPixels(Lengths().GetAxis()->GetMap(), FSums, &Lengths().In(first), 2);
}

} // namespace kx
