// Points under the mouse: where they are looked for, and what of them is told.

#include <kxgraph/series/Kxseries.h>

#include <algorithm>
#include <array>
#include <cmath>

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

TKxDrawnPoint TKxSeries::PointNear(TPoint At, int Reach) const {
    TKxDrawnPoint nearest;
    if (!IsBound() || !GetDrawingWorld()) return nearest;
    const TRect world = GetDrawingWorld()->GetClientRect();
    double least = double(Reach) * Reach;
    const TKxSection section = SectionNear(At, Reach);
    std::array<TPoint, CPointsAtOnce> block;
    int index = -1;
    for (int first = section.First; first < section.Last; first += CPointsAtOnce) {
        const auto points =
            std::span(block).first(std::size_t(std::min(CPointsAtOnce, section.Last - first)));
        PointsFrom(first, points);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const TPoint at{points[i].X + OriginX(), points[i].Y + OriginY()};
            const double dx = double(at.X) - At.X, dy = double(at.Y) - At.Y, distance = dx * dx + dy * dy;
            if (distance > least || !IsPlaced(points[i]) || !world.Contains(at)) continue;
            least = distance;
            index = first + int(i);
        }
    }
    return index < 0 ? nearest : PointAt(index);
}

} // namespace kx
