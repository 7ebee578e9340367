// Points under the mouse: where they are looked for, and what of them is told.

#include <kxgraph/series/Kxseries.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kx {

void TKxSeries::SetVisible(bool Visible) {
    if (FVisible == Visible) return;
    FVisible = Visible;
    UpdateLegend();
    InvalidateWorld();
}

TKxDrawnPoint TKxSeries::PointAt(int Index) const {
    if (!IsBound() || Index < 0 || Index >= FPointsCount) return {};
    TPoint at{CNoPixel, CNoPixel};
    PointsFrom(Index, {&at, 1});
    if (!IsPlaced(at)) return {};
    return {Index, {at.X + OriginX(), at.Y + OriginY()}, FX.GetValue(Index), FY.GetValue(Index)};
}

// The points that a search must look at: few where x values are in order.
TKxSection TKxSeries::SectionNear(TPoint At, int Reach) const {
    if (!GoesByValues()) return {0, FPointsCount};
    return SectionIn(FX, FPointsCount, {At.X - OriginX() - Reach, At.X - OriginX() + Reach});
}

namespace {

/// The nearest point so far; of equally near ones the last.
struct TNearest {
    TPoint At;
    double Least; // the square of the greatest distance
    int Index = -1;

    double AsideOf(TPoint P) const { return std::abs(double(P.X) - At.X); }
    void Take(int NewIndex, TPoint P) {
        const double dx = AsideOf(P), dy = double(P.Y) - At.Y, distance = dx * dx + dy * dy;
        if (distance > Least || (distance == Least && NewIndex < Index)) return;
        Least = distance;
        Index = NewIndex;
    }
};

} // namespace

TKxDrawnPoint TKxSeries::PointNear(TPoint At, int Reach) const {
    if (!IsBound() || !GetDrawingWorld()) return {};
    const TRect world = GetDrawingWorld()->GetClientRect();
    const TPoint origin{OriginX(), OriginY()};
    TNearest nearest{At, double(Reach) * Reach};
    std::array<TPoint, CPointsAtOnce> block;
    // Whether some of the points were near enough along x for those beyond them to be looked at.
    const auto look = [&](int First, int Last) {
        const auto points = std::span(block).first(std::size_t(Last - First));
        PointsFrom(First, points);
        bool isNear = false;
        for (int index = First; const TPoint p : points) {
            const TPoint at = p + origin;
            isNear |= !IsPlaced(p) || nearest.AsideOf(at) * nearest.AsideOf(at) <= nearest.Least;
            if (IsPlaced(p) && world.Contains(at)) nearest.Take(index, at);
            ++index;
        }
        return isNear;
    };
    // From the point in the middle to either side: where many stand in a column, few columns are enough.
    const TKxSection all = SectionNear(At, Reach), middle = SectionNear(At, 0);
    const bool sorted = GoesByValues() && FPointsCount > 0 && IsSorted(FX, FPointsCount);
    const int begin = std::clamp(middle.First, all.First, all.Last);
    for (int i = begin; i < all.Last;) {
        const int end = std::min(i + CPointsAtOnce, all.Last);
        if (!look(std::exchange(i, end), end) && sorted) break;
    }
    for (int end = begin; end > all.First;) {
        const int first = std::max(end - CPointsAtOnce, all.First);
        if (!look(first, std::exchange(end, first)) && sorted) break;
    }
    return nearest.Index < 0 ? TKxDrawnPoint() : PointAt(nearest.Index);
}

} // namespace kx
