#include "kxplot/options/words.h"

#include "kxplot/options/usageerror.h"

#include <algorithm>
#include <array>
#include <string>
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
    FailUsage(Option, Text, "is not " + list);
}

} // namespace

std::string WordOf(TStyle Style) {
    const auto found =
        std::find_if(CStyles.begin(), CStyles.end(), [&](const auto& Word) { return Word.second == Style; });
    return found->first;
}

TStyle ParseStyle(const std::string& Text) { return Find("--style", Text, CStyles); }

kx::TKxLegendPlacement ParseLegendPlace(const std::string& Text) { return Find("--legend", Text, CPlaces); }

} // namespace kxplot
