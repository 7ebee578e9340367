#include "kxplot/stylespec.h"

#include <kxgraph/platform/text/text.h>

#include <array>
#include <utility>

namespace kxplot {

namespace {

constexpr std::array<std::pair<const char*, TStyle>, 6> CStyles{{{"line", TStyle::Line},
                                                                 {"points", TStyle::Points},
                                                                 {"both", TStyle::Both},
                                                                 {"bars", TStyle::Bars},
                                                                 {"bars3d", TStyle::Bars3D},
                                                                 {"arrows", TStyle::Arrows}}};

constexpr std::array<std::pair<const char*, kx::TKxLegendPlacement>, 8> CPlaces{
    {{"top-left", kx::lgInsideTopLeft},
     {"top-right", kx::lgInsideTopRight},
     {"bottom-left", kx::lgInsideBottomLeft},
     {"bottom-right", kx::lgInsideBottomRight},
     {"right", kx::lgRight},
     {"left", kx::lgLeft},
     {"top", kx::lgTop},
     {"bottom", kx::lgBottom}}};

template <class T>
auto Find(const char* Option, const std::string& Text, const T& Words) {
    std::string list;
    for (std::size_t k = 0; k < Words.size(); ++k) {
        if (Text == Words[k].first) return Words[k].second;
        list += (k == 0 ? "" : k + 1 == Words.size() ? " or " : ", ") + std::string(Words[k].first);
    }
    throw TUsageError(std::string(Option) + ": '" + kx::Abridged(Text) + "' is not " + list);
}

void Refuse(bool Given, const char* Message) {
    if (Given) throw TUsageError(Message);
}

} // namespace

TStyle ParseStyle(const std::string& Text) { return Find("--style", Text, CStyles); }

kx::TKxLegendPlacement ParseLegendPlace(const std::string& Text) { return Find("--legend", Text, CPlaces); }

void CheckTogether(const TOptions& Options) {
    const TStyle style = Options.Style.value_or(TStyle::Bars);
    Refuse(Options.Bins && style != TStyle::Bars && style != TStyle::Bars3D,
           "--hist: is drawn with --style bars or bars3d");
    Refuse(Options.Bins && Options.X, "-x: --hist takes the columns of -y alone");
    Refuse(Options.Stack && Options.Shift, "--stack: does not go with --shift");
    Refuse(Options.NoLegend && Options.Legend, "--legend: does not go with --no-legend");
    Refuse(Options.HasArrows() && (Options.VX.empty() || Options.VY.empty()),
           "--style arrows: needs --vx and --vy");
    if (!Options.HasBars() && !Options.HasArrows()) return;
    for (const auto& [option, columns] : {std::pair{"--dx", &Options.DX},
                                          {"--dy", &Options.DY},
                                          {"--dx-minus", &Options.DXMinus},
                                          {"--dy-minus", &Options.DYMinus}})
        if (!columns->empty())
            throw TUsageError(std::string(option) + ": there are no error bars on " +
                              (Options.HasBars() ? "bars" : "arrows"));
}

} // namespace kxplot
