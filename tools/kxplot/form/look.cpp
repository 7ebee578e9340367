#include "kxplot/form/look.h"

namespace kxplot {

using namespace kx;

void DressSeries(TKxDataWithErrorSeries& Series, int Number, const TPointsPlan& Plan, const TKxTheme& Theme) {
    DressPoints(Series, Number, Theme);
    const bool symbols = Plan.Style != TStyle::Line;
    Series.SetBreakAtGaps(true);
    Series.GetLineStyle().SetVisible(Plan.Style != TStyle::Points);
    if (Plan.SmallSymbols) Series.GetPointStyle().SetSize(1);
    // Error bars come with the symbols: a point on the line is a symbol that does not show.
    Series.GetPointStyle().SetVisible(symbols || Plan.HasErrors());
    if (!symbols) Series.GetPointStyle().SetStyle(SyPoint);
}

TColor AnalysisColor(const TAnalysisPlace& Place, const TKxTheme& Theme) {
    return Theme.GetColor(Place.SeveralSeries ? Place.Series
                                              : 1 + Place.Number % (Theme.GetColorCount() - 1));
}

void DressAnalysis(TKxSeries& Line, const TAnalysisPlace& Place, bool HasOwnAxis, const TKxTheme& Theme) {
    const bool solid = HasOwnAxis && !Place.SeveralSeries;
    DressCurve(Line, AnalysisColor(Place, Theme), solid ? 0 : Place.Number);
}

} // namespace kxplot
