#include "kxplot/form/legendplace.h"

#include <kxgraph/platform/controls/frame.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CNarrowWorld = 300; // pixels that the data want at least beside a legend
constexpr int CMostBeside = 30;   // per cent of the width that it may always have
constexpr int CMostBelow = 20;    // per cent of the height
constexpr int CMostInside = 80;   // per cent of the drawing world's width and height
constexpr TKxLegendPlacement CCorners[] = {lgInsideTopRight, lgInsideTopLeft, lgInsideBottomRight,
                                           lgInsideBottomLeft};

/// Among the data one column hides the least; beside them there are as many as the side asks for.
int ColumnsAt(TKxLegendPlacement Placement) {
    const bool beside =
        Placement == lgRight || Placement == lgLeft || Placement == lgTop || Placement == lgBottom;
    return beside ? 0 : 1;
}

/// Whether Series, a measured one or a curve, has a point in Rect, pixels of the drawing world.
bool Meets(const TKxSeries& Series, const TRect& Rect) {
    if (!Series.GetXData() || !Series.GetYData() || !Series.GetXAxis() || !Series.GetYAxis()) return false;
    const auto x = Series.GetXData()->Values(), y = Series.GetYData()->Values();
    const TKxAxisMap &mapX = Series.GetXAxis()->GetMap(), &mapY = Series.GetYAxis()->GetMap();
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
        if (!mapX.HasPlace(x[i]) || !mapY.HasPlace(y[i])) continue;
        if (Rect.Contains({mapX.RealToIntPosition(x[i]), mapY.RealToIntPosition(y[i])})) return true;
    }
    return false;
}

bool StandsFree(const TParts& Parts) {
    const TRect world = Parts.Graph->GetDrawingWorld().GetBoundsRect();
    const TRect legend = Parts.Legend->GetBoundsRect();
    if (100 * legend.Width() > CMostInside * world.Width() ||
        100 * legend.Height() > CMostInside * world.Height())
        return false;
    const int gap = Parts.Legend->GetGap();
    const TRect taken{legend.Left - world.Left - gap, legend.Top - world.Top - gap,
                      legend.Right - world.Left + gap, legend.Bottom - world.Top + gap};
    const auto meets = [&](const TKxSeries* Series) { return Meets(*Series, taken); };
    return std::ranges::none_of(Parts.Series, meets) && std::ranges::none_of(Parts.Functions, meets) &&
           std::ranges::none_of(Parts.Analyses,
                                [&](const TAnalysis& Analysis) { return meets(Analysis.Line); }) &&
           std::ranges::none_of(Parts.Bands, [&](const auto& Band) { return meets(Band.Line); });
}

void Try(const TParts& Parts, TKxLegendPlacement Place) {
    PlaceLegend(*Parts.Legend, Place);
    SettleTree(*Parts.Form);
}

} // namespace

void PlaceLegend(TKxLegend& Legend, TKxLegendPlacement Place) {
    if (Legend.GetPlacement() != Place) Legend.SetColumns(ColumnsAt(Place));
    Legend.SetPlacement(Place);
}

void LeaveWidthToTheData(const TParts& Parts) {
    const TKxLegend& legend = *Parts.Legend;
    const int width = Parts.Graph->GetWidth(), taken = legend.GetWidth();
    const bool open = !Parts.Plan.Legend.Place && Parts.Plan.Look.Outfit.empty();
    const bool small = 100 * taken > CMostBeside * width && width - taken < CNarrowWorld;
    if (!open || legend.GetPlacement() != lgRight || !small) return;
    for (const TKxLegendPlacement corner : CCorners) {
        Try(Parts, corner);
        if (StandsFree(Parts)) return;
    }
    Try(Parts, lgBottom);
    if (100 * legend.GetHeight() > CMostBelow * Parts.Graph->GetHeight()) Try(Parts, lgRight);
}

} // namespace kxplot
