#include <kxgraph/look/Kxtheme.h>

#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kx {

namespace {

/// Whether Name is what Pattern tells: * stands for any characters, ? for one.
bool Matches(std::string_view Pattern, std::string_view Name) {
    std::size_t p = 0, n = 0, star = Pattern.npos, from = 0;
    while (n < Name.size()) {
        if (p < Pattern.size() && Pattern[p] == '*') {
            star = p++;
            from = n;
        } else if (p < Pattern.size() &&
                   (Pattern[p] == '?' || SameText(Pattern.substr(p, 1), Name.substr(n, 1)))) {
            ++p;
            ++n;
        } else if (star != Pattern.npos) {
            p = star + 1;
            n = ++from;
        } else {
            return false;
        }
    }
    while (p < Pattern.size() && Pattern[p] == '*') ++p;
    return p == Pattern.size();
}

bool IsOfClass(std::string_view Name, const TComponent& Component) {
    for (const TPropertyTable* table = &Component.PublishedProperties(); table; table = table->GetBase())
        if (SameText(table->GetClassName(), Name)) return true;
    return false;
}

bool HasProperty(const TComponent& Component, std::string_view Path) {
    const std::string_view first = Path.substr(0, Path.find('.'));
    const TPropertyTable& table = Component.PublishedProperties();
    return table.Find(first) || table.FindKey(first) || table.FindKey(Path);
}

} // namespace

TColor TKxTheme::Tinted(TColor Color, int Quarters) const {
    const auto mixed = [Quarters](int Part, int Ground) {
        return ((4 - Quarters) * Part + Quarters * Ground) / 4;
    };
    const TColor ground = ColorToRGB(FGround);
    return RGB(mixed(RedOf(Color), RedOf(ground)), mixed(GreenOf(Color), GreenOf(ground)),
               mixed(BlueOf(Color), BlueOf(ground)));
}

void TKxTheme::ApplyTo(TComponent& Component) const {
    for (const TLine& line : FLines) {
        if (!Matches(line.Who, Component.GetName()) && !IsOfClass(line.Who, Component)) continue;
        if (!HasProperty(Component, line.Property)) continue;
        try {
            SetPropertyText(Component, line.Property, line.Value);
        } catch (const EPropertyError& error) {
            throw EThemeError(line.Place + error.what());
        }
    }
}

} // namespace kx
