// The themes that come with the library.

#include <kxgraph/look/Kxtheme.h>

#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <array>
#include <utility>

namespace kx {

namespace {

constexpr const char* CPrint = R"(
Ink = #000000
Grid = #cccccc, #e6e6e6
TKx2DGraph.Margin = 3
TKx2DGraph.Font.Size = 9
TKxAxis.Font.Size = 7
TKxAxis.CaptionFont.Size = 8
TKxAxis.MajorTickLength = 4
TKxAxis.TickLength = 2
TKxAxis.CaptionScalingsGap = 2
TKxAxis.BorderCaptionGap = 3
TKxAxis.ExponentScalingsGap = 6
TKxLegend.Font.Size = 7
TKxLegend.SampleWidth = 16
TKxDataSeries.PointStyle.Size = 2
TKxCalculatedSeries.LineStyle.Width = 1
)";

constexpr const char* CDark = R"(
Ink = #d8d8d8
Ground = #1e1e1e
Grid = #3c3c3c, #2c2c2c
Colors = #56b4e9, #ff8a4c, #2ec99b, #e58fc0, #f0e442, #e69f00, #e8e8e8, #8fa8ff
TKxLegend.FrameLine.Color = #5a5a5a
)";

constexpr const char* CPresentation = R"(
Ink = #000000
TKx2DGraph.Margin = 16
TKx2DGraph.Font.Size = 22
TKxAxis.Font.Size = 16
TKxAxis.CaptionFont.Size = 18
TKxAxis.MajorTickLength = 10
TKxAxis.TickLength = 5
TKxAxis.CaptionScalingsGap = 8
TKxLegend.Font.Size = 16
TKxLegend.SampleWidth = 40
TKxSeries.LineStyle.Width = 3
TKxDataSeries.PointStyle.Size = 5
TKxDataSeries.PointStyle.Width = 2
TKxCalculatedSeries.LineStyle.Width = 4
)";

constexpr std::array<std::pair<std::string_view, const char*>, 4> CThemes{
    {{"standard", ""}, {"print", CPrint}, {"dark", CDark}, {"presentation", CPresentation}}};

} // namespace

std::vector<std::string_view> TKxTheme::Names() {
    std::vector<std::string_view> names;
    for (const auto& [name, text] : CThemes) names.push_back(name);
    return names;
}

const TKxTheme& TKxTheme::Named(std::string_view Name) {
    static std::array<TKxTheme, CThemes.size()> themes;
    static std::array<bool, CThemes.size()> known{};
    for (std::size_t i = 0; i < CThemes.size(); ++i) {
        if (!SameText(CThemes[i].first, Name)) continue;
        if (!known[i]) themes[i] = Parse(CThemes[i].second, std::string(CThemes[i].first));
        known[i] = true;
        return themes[i];
    }
    throw EThemeError("there is no theme '" + Abridged(Name) + "'" + DidYouMean(Name, Names()));
}

} // namespace kx
