#include <kxgraph/design/Kxfonteditors.h>

#include <kxgraph/platform/host/fontfamilies.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace kx {

namespace {

const TProperty& StyleRow() {
    static const TFont font;
    return *font.PublishedProperties().Find("Style");
}

/// The bit of the style that bears that name; 0: none does.
TFontStyles StyleNamed(std::string_view Name) {
    const auto names = StyleRow().ValueNames;
    const auto found = std::ranges::find_if(names, [&](std::string_view N) { return SameText(N, Name); });
    return found == names.end() ? 0 : 1U << unsigned(found - names.begin());
}

std::optional<int> SizeIn(std::string_view Text) {
    int size = 0;
    const auto read = std::from_chars(Text.data(), Text.data() + Text.size(), size);
    return read.ec == std::errc() && read.ptr == Text.data() + Text.size() ? std::optional(size)
                                                                           : std::nullopt;
}

/// Families, too, may be called by a colour; whoever means one writes clRed or #ff0000.
std::optional<TColor> ColorIn(std::string_view Text) {
    const bool isColor = StartsWithText(Text, "cl") || Text.starts_with('#') || Text.starts_with('$');
    return isColor ? ColorFromText(std::string(Text)) : std::nullopt;
}

template <class T, class V>
bool TakeOnce(std::optional<T>& Field, V Value) {
    return !std::exchange(Field, std::move(Value));
}

bool TakePart(std::string_view Part, TKxFontText& Font) {
    if (const TFontStyles style = StyleNamed(Part)) return Font.Style |= style, true;
    if (const auto size = SizeIn(Part)) return *size > 0 && TakeOnce(Font.Size, *size);
    if (const auto color = ColorIn(Part)) return TakeOnce(Font.Color, *color);
    return TakeOnce(Font.Family, std::string(Part));
}

} // namespace

std::optional<TKxFontText> TKxFontText::Read(const std::string& Text) {
    TKxFontText font;
    for (std::size_t at = 0; at <= Text.size();) {
        const std::size_t end = std::min(Text.find(',', at), Text.size());
        const std::string_view part = Trimmed(std::string_view(Text).substr(at, end - at));
        if (!part.empty() && !TakePart(part, font)) return {};
        at = end + 1;
    }
    return font;
}

std::string TKxFontText::Write() const {
    std::string text = Family.value_or("");
    const auto add = [&](std::string_view Part) { text.append(text.empty() ? "" : ", ").append(Part); };
    if (Size) add(std::to_string(*Size));
    for (const std::string_view name : StyleRow().ValueNames)
        if (Style & StyleNamed(name)) add(name);
    if (!Color) return text;
    const std::string color = ColorToText(*Color);
    add(color.starts_with("cl") ? color : ColorToHtml(*Color));
    return text;
}

TKxFontText TKxFontText::Of(const TFont& Font) {
    return {Font.GetName(), Font.GetSize(), Font.GetStyle(), Font.GetColor()};
}

bool TKxFontEditor::Fits(const TKxPropertyPlace& Place) {
    return Place.GetRow().Kind == TPropertyKind::SubObject &&
           dynamic_cast<const TFont*>(std::get<TPersistent*>(Place.GetValue()));
}

TFont& TKxFontEditor::FontOf(const TKxPropertyTarget& Target) {
    return dynamic_cast<TFont&>(*std::get<TPersistent*>(Target.Get()));
}

std::string TKxFontEditor::TextOf(const TPropertyValue& Value) const {
    return TKxFontText::Of(dynamic_cast<const TFont&>(*std::get<TPersistent*>(Value))).Write();
}

void TKxFontEditor::SetText(const std::string& Text, bool IsContinued) {
    const auto wanted = TKxFontText::Read(Text);
    if (!wanted) RaiseExpected(Text, "a font such as 'Arial, 10, fsBold'");
    const TKxFontText shown = TKxFontText::Of(GetFont());
    FPlace.Run(
        [&] {
            for (const TKxPropertyTarget& target : FPlace.GetTargets()) {
                TFont& font = FontOf(target);
                if (wanted->Family && wanted->Family != shown.Family) font.SetName(*wanted->Family);
                if (wanted->Size && wanted->Size != shown.Size) font.SetSize(*wanted->Size);
                if (wanted->Style != shown.Style) font.SetStyle(wanted->Style);
                if (wanted->Color && wanted->Color != shown.Color) font.SetColor(*wanted->Color);
            }
        },
        IsContinued);
}

bool TKxFontFamilyEditor::Fits(const TKxPropertyPlace& Place) {
    return Place.GetRow().Name == "Name" && dynamic_cast<const TFont*>(&Place.GetObject());
}

std::vector<TKxPropertyChoice> TKxFontFamilyEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices;
    for (std::string& family : FontFamilies()) choices.push_back({std::move(family), ""});
    return choices;
}

} // namespace kx
