// What of a bar series is kept.

#include <kxgraph/platform/objects/published.h>
#include <kxgraph/series/Kxbarseries.h>

namespace kx {

const TPropertyTable& TKxBarSeries::Properties() {
    using T = TKxBarSeries;
    static const TPropertyTable table(
        "TKxBarSeries", &TKxLineSeries::Properties(),
        {
            Published<&T::GetShow3DBars, &T::SetShowAs3D>("Show3DBars", false,
                                                          "bars are boxes with a top and a side face"),
            Published<&T::GetBarHorizontal, &T::SetBarHorizontal>(
                "BarHorizontal", false, "bars grow along x; YData holds the edges of the bins"),
            Published<&T::GetShiftOverlays, &T::SetShiftOverlays>(
                "ShiftOverlays", false, "stands beside the other bar series that have this set"),
            Published<&T::GetStackOverlays, &T::SetStackOverlays>("StackOverlays", false,
                                                                  "stands on the bar series before it"),
            Published<&T::GetStackSignsApart, &T::SetStackSignsApart>(
                "StackSignsApart", false, "in a stack values grow away from zero, each sign on its own side"),
            Published<&T::GetDepthPercent, &T::Set3DDepthPercent>("DepthPercent", 50.0,
                                                                  "depth of boxes in percent of their width"),
            Published<&T::GetBarsGapPercent, &T::SetBarsGapPercent>(
                "BarsGapPercent", 0.0, "percentage of a bin that stays free, half of it at each side"),
        },
        {"ShiftOverlays", "StackOverlays", "Show3DBars", "BarHorizontal", "DepthPercent", "BarsGapPercent",
         "StackSignsApart"});
    return table;
}

} // namespace kx
