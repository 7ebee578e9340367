// Extents and screen points of bars. Everything that one value or edge touches is brought up to date with it:
// an edge bounds two bars, and in a box the distance to the edge before is part of the extent.

#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxextents.h>

#include <algorithm>
#include <cmath>

namespace kx {

void TKxBarSeries::SetPointsCount() {
    if (FStackIsOld) RebuildStack();
    const auto *edges = Edges(), *lengths = Lengths();
    FPointsCount = edges && lengths ? std::max(0, std::min(edges->GetCount() - 1, lengths->GetCount())) : 0;
    FPoints.SetCount(FPointsCount + 1);
}

int TKxBarSeries::XIdxNeeded() const {
    return GetXData() ? std::min(FPointsCount + !FBarHorizontal, GetXData()->GetCount()) : 0;
}

int TKxBarSeries::YIdxNeeded() const {
    return GetYData() ? std::min(FPointsCount + FBarHorizontal, GetYData()->GetCount()) : 0;
}

TKxSeries::TInterval TKxBarSeries::WithDepth(double Value, double Depth, const TKxAxis* Axis) const {
    if (!TakesPart(Value, Axis) || !TakesPart(Value + Depth, Axis)) return PointInterval(Value, Axis);
    return {std::min(Value, Value + Depth), std::max(Value, Value + Depth)};
}

TKxSeries::TInterval TKxBarSeries::EdgeInterval(int Index) const {
    return WithDepth(Edges()->GetValue(Index), FBarHorizontal ? GetDY(Index) : GetDX(Index), EdgeAxis());
}

TKxSeries::TInterval TKxBarSeries::LengthInterval(int Index) const {
    return WithDepth(LengthAt(Index), FBarHorizontal ? GetDX(Index) : GetDY(Index), LengthAxis());
}

void TKxBarSeries::ScanEdges() {
    const TSide side = EdgeSide();
    ScanExtents(side.Range, side.MinIndex, side.MaxIndex, EdgesNeeded(),
                [this](int i) { return EdgeInterval(i); });
    Modified();
}

// Bars begin at zero, which a logarithmic axis does not have.
void TKxBarSeries::ScanLengths() {
    const bool logarithmic = LengthAxis() && LengthAxis()->GetScaling() != AxNormal;
    const TSide side = LengthSide();
    ScanExtents(
        side.Range, side.MinIndex, side.MaxIndex, LengthsNeeded(),
        [this](int i) { return LengthInterval(i); }, logarithmic ? CEmptyInterval : TInterval{0, 0});
    Modified();
}

void TKxBarSeries::GetNewXStartStop() { FBarHorizontal ? ScanLengths() : ScanEdges(); }
void TKxBarSeries::GetNewYStartStop() { FBarHorizontal ? ScanEdges() : ScanLengths(); }

void TKxBarSeries::UpdateEdge(int Index) {
    const TSide side = EdgeSide();
    UpdateExtents(side.Range, side.MinIndex, side.MaxIndex, Index, EdgeInterval(Index),
                  [this] { ScanEdges(); });
}

void TKxBarSeries::UpdateLength(int Index) {
    const TSide side = LengthSide();
    UpdateExtents(side.Range, side.MinIndex, side.MaxIndex, Index, LengthInterval(Index),
                  [this] { ScanLengths(); });
}

void TKxBarSeries::CalcEdge(int Index) {
    for (int i = Index; i <= Index + 1; ++i) {
        if (i < EdgesNeeded()) UpdateEdge(i);
        if (FShow3DBars && i < LengthsNeeded()) UpdateLength(i);
    }
}

void TKxBarSeries::CalcLength(int Index) {
    if (Index < LengthsNeeded()) UpdateLength(Index);
}

void TKxBarSeries::CalcXValue(int Index) { FBarHorizontal ? CalcLength(Index) : CalcEdge(Index); }
void TKxBarSeries::CalcYValue(int Index) { FBarHorizontal ? CalcEdge(Index) : CalcLength(Index); }

int TKxBarSeries::EdgeAt(int Index) const {
    const TPoint p = FPoints.Values()[std::size_t(Index)];
    return FBarHorizontal ? p.Y : p.X;
}

int TKxBarSeries::EndAt(int Index) const {
    const TPoint p = FPoints.Values()[std::size_t(Index)];
    return FBarHorizontal ? p.X : p.Y;
}

void TKxBarSeries::CalculatePoint(int Index) {
    if (!GetXAxis() || !GetYAxis() || !GetXData() || !GetYData()) return;
    for (int i = std::max(Index, 0); i <= std::min(Index + 1, FPointsCount); ++i)
        *FPoints.GetPointer(i) = {i < GetXData()->GetCount() ? BarPixel(GetXAxis()->GetMap(), GetX(i)) : 0,
                                  i < GetYData()->GetCount() ? BarPixel(GetYAxis()->GetMap(), GetY(i)) : 0};
}

void TKxBarSeries::CalculateAllPoints() {
    const int count = FPointsCount + 1;
    const auto edges = Edges()->Values(), lengths = Lengths()->Values();
    const auto edgeCount = std::min(edges.size(), std::size_t(count)),
               lengthCount = std::min(lengths.size(), std::size_t(count));
    std::fill_n(FPoints.GetPointer(0), count, TPoint{});
    TPoint& first = *FPoints.GetPointer(0);
    BarPixels(EdgeAxis()->GetMap(), edges.first(edgeCount), FBarHorizontal ? &first.Y : &first.X, 2);

    const auto below = ValuesBelow();
    FSums.assign(lengths.begin(), lengths.begin() + std::ptrdiff_t(lengthCount));
    for (std::size_t i = 0; !below.empty() && i < lengthCount; ++i) FSums[i] += StackStart(below, int(i));
    BarPixels(LengthAxis()->GetMap(), FSums, FBarHorizontal ? &first.X : &first.Y, 2);
}

} // namespace kx
