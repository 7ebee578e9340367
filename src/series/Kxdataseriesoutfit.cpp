// The properties of the series of measured data, and which of them outfits keep.

#include <kxgraph/platform/objects/published.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx {

const TPropertyTable& TKxLineSeries::Properties() {
    using T = TKxLineSeries;
    const TPropertyTable& base = TKxSeries::Properties();
    static const TPropertyTable table(
        "TKxLineSeries", &base,
        {
            base.Promoted("XAxis"),
            base.Promoted("YAxis"),
            base.Promoted("XData"),
            base.Promoted("YData"),
            base.Promoted("Weight"),
            base.Promoted("AreaStyle"),
            Published<&T::GetBreakAtGaps, &T::SetBreakAtGaps>("BreakAtGaps", false,
                                                              "values without a place interrupt the line"),
        });
    return table;
}

const TPropertyTable& TKxDataSeries::Properties() {
    static const TPropertyTable table(
        "TKxDataSeries", &TKxLineSeries::Properties(),
        {PublishedObject<&TKxDataSeries::GetPointStyle>("PointStyle", "the symbol at each point")
             .WithKey("Point")},
        {"PointStyle"});
    return table;
}

const TPropertyTable& TKxDataWithErrorSeries::Properties() {
    using T = TKxDataWithErrorSeries;
    static const TPropertyTable table(
        "TKxDataWithErrorSeries", &TKxDataSeries::Properties(),
        {
            Published<&T::GetdXPlus, &T::SetdXPlus>("dXPlus", nullptr, "errors towards larger x"),
            Published<&T::GetdXMinus, &T::SetdXMinus>("dXMinus", nullptr, "errors towards smaller x"),
            Published<&T::GetdYPlus, &T::SetdYPlus>("dYPlus", nullptr, "errors towards larger y"),
            Published<&T::GetdYMinus, &T::SetdYMinus>("dYMinus", nullptr, "errors towards smaller y"),
            PublishedColor<&T::GetErrorIndicatorsColor, &T::SetErrorColor>("ErrorIndicatorsColor", clBlack,
                                                                           "colour of the error bars")
                .WithKey("ErrorBars.Color"),
        },
        {"dXMinus", "dXPlus", "dYMinus", "dYPlus", "ErrorIndicatorsColor"});
    return table;
}

} // namespace kx
