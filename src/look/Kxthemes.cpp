// The themes that come with the library.

#include <kxgraph/look/Kxtheme.h>

#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <array>
#include <iterator>
#include <utility>

namespace kx {

namespace {

constexpr std::pair<std::string_view, const char*> CThemes[] = {
    {"standard", ""},
#include <kxgraph/look/themes.inc> // made of themes/*.theme by the build
};

} // namespace

std::vector<std::string_view> TKxTheme::Names() {
    std::vector<std::string_view> names;
    for (const auto& [name, text] : CThemes) names.push_back(name);
    return names;
}

const TKxTheme& TKxTheme::Named(std::string_view Name) {
    static std::array<TKxTheme, std::size(CThemes)> themes;
    static std::array<bool, std::size(CThemes)> known{};
    for (std::size_t i = 0; i < std::size(CThemes); ++i) {
        if (!SameText(CThemes[i].first, Name)) continue;
        if (!known[i]) themes[i] = Parse(CThemes[i].second, std::string(CThemes[i].first));
        known[i] = true;
        return themes[i];
    }
    throw EThemeError("there is no theme '" + Abridged(Name) + "'" + DidYouMean(Name, Names()));
}

} // namespace kx
