#include <kxgraph/series/Kxruleseries.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <array>

namespace kx {

TKxRuleSeries::TKxRuleSeries(TComponent* Owner) : TKxNotCalculatedSeries(Owner) { TakeAxes(Owner); }

void TKxRuleSeries::SetDirection(TKxRuleDirection Direction) {
    if (FDirection == Direction) return;
    FDirection = Direction;
    RangesModified();
}

void TKxRuleSeries::GetIntervals(const TKxChannel& Channel, int First,
                                 std::span<TKxInterval> Intervals) const {
    if (&Channel == &this->Channel()) return TKxNotCalculatedSeries::GetIntervals(Channel, First, Intervals);
    std::ranges::fill(Intervals, TKxInterval::None());
}

void TKxRuleSeries::DrawBeneath(TCanvas& Canvas) {
    if (!GetVisible() || !PrepareDrawing() || !LineStyle().GetVisible()) return;
    const bool upright = FDirection == rdVertical;
    const TKxAxisMap& map = (upright ? GetXAxis() : GetYAxis())->GetMap();
    const int width = GetDrawingWorld()->GetWidth(), height = GetDrawingWorld()->GetHeight();
    UseLinePen(Canvas, LineStyle());
    for (int i = 0; i < FPointsCount; ++i) {
        const double value = Channel().GetValue(i);
        if (!map.HasPlace(value)) continue;
        const double at = map.RealToPlace(value) + (upright ? OriginX() : OriginY());
        if (upright)
            Canvas.Polyline(std::array{TRealPoint{at, 0}, TRealPoint{at, double(height)}});
        else
            Canvas.Polyline(std::array{TRealPoint{0, at}, TRealPoint{double(width), at}});
    }
}

const TPropertyTable& TKxRuleSeries::Properties() {
    using T = TKxRuleSeries;
    const TPropertyTable& base = TKxSeries::Properties();
    static const TPropertyTable table(
        "TKxRuleSeries", &base,
        {
            base.Promoted("XAxis"),
            base.Promoted("YAxis"),
            base.Promoted("XData"),
            base.Promoted("YData"),
            Published<&T::GetDirection, &T::SetDirection>(
                "Direction", rdVertical, "whether lines are vertical, at x, or horizontal, at y"),
        },
        {"Direction"});
    return table;
}

} // namespace kx
