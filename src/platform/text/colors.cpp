#include <kxgraph/platform/text/colors.h>

#include <kxgraph/platform/text/colornames.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace kx {

namespace {

struct TNamedColor {
    std::string_view Name;
    TColor Color;
};

constexpr auto CNamedColors = std::to_array<TNamedColor>({{"clBlack", clBlack},
                                                          {"clMaroon", clMaroon},
                                                          {"clGreen", clGreen},
                                                          {"clOlive", clOlive},
                                                          {"clNavy", clNavy},
                                                          {"clPurple", clPurple},
                                                          {"clTeal", clTeal},
                                                          {"clGray", clGray},
                                                          {"clSilver", clSilver},
                                                          {"clRed", clRed},
                                                          {"clLime", clLime},
                                                          {"clYellow", clYellow},
                                                          {"clBlue", clBlue},
                                                          {"clFuchsia", clFuchsia},
                                                          {"clAqua", clAqua},
                                                          {"clWhite", clWhite},
                                                          {"clWindow", clWindow},
                                                          {"clWindowText", clWindowText},
                                                          {"clHighlight", clHighlight},
                                                          {"clHighlightText", clHighlightText},
                                                          {"clBtnFace", clBtnFace},
                                                          {"clBtnShadow", clBtnShadow},
                                                          {"clGrayText", clGrayText},
                                                          {"clBtnText", clBtnText},
                                                          {"clBtnHighlight", clBtnHighlight}});

std::string HexText(unsigned Value, std::size_t Digits) {
    std::array<char, 8> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), Value, 16);
    const std::string text(buffer.data(), end);
    return std::string(Digits - std::min(Digits, text.size()), '0') + text;
}

/// All of Text as hexadecimal digits, MinDigits to MaxDigits of them.
std::optional<unsigned> HexFromText(std::string_view Text, std::size_t MinDigits, std::size_t MaxDigits) {
    if (Text.size() < MinDigits || Text.size() > MaxDigits) return std::nullopt;
    unsigned value = 0;
    const char* end = Text.data() + Text.size();
    if (std::from_chars(Text.data(), end, value, 16).ptr != end) return std::nullopt;
    return value;
}

/// Red and blue change places.
constexpr unsigned Swapped(unsigned Value) {
    return (Value & 0x00FF00u) | (Value >> 16 & 0xFFu) | (Value & 0xFFu) << 16;
}

} // namespace

TColor ColorToRGB(TColor Color) {
    if (Color >= 0) return Color & 0xFFFFFF;
    switch (Color) {
    case clWindow:
    case clHighlightText:
    case clBtnHighlight: return clWhite;
    case clHighlight: return RGB(0, 120, 215);
    case clBtnFace: return RGB(240, 240, 240);
    case clBtnShadow: return RGB(160, 160, 160);
    case clGrayText: return RGB(109, 109, 109);
    default: return clBlack; // the texts among others
    }
}

std::string ColorToText(TColor Color) {
    const auto found = std::find_if(CNamedColors.begin(), CNamedColors.end(),
                                    [&](const TNamedColor& Named) { return Named.Color == Color; });
    if (found != CNamedColors.end()) return std::string(found->Name);
    return "$" + UpperCase(HexText(static_cast<unsigned>(Color), 8));
}

std::vector<std::string_view> ColorNames() {
    std::vector<std::string_view> names;
    names.reserve(CNamedColors.size());
    for (const TNamedColor& named : CNamedColors) names.push_back(named.Name);
    return names;
}

std::optional<TColor> ColorFromText(std::string_view Text) {
    const std::string_view text = Trimmed(Text);
    const auto found = std::find_if(CNamedColors.begin(), CNamedColors.end(),
                                    [&](const TNamedColor& Named) { return SameText(Named.Name, text); });
    if (found != CNamedColors.end()) return found->Color;
    if (text.starts_with('$')) {
        const auto value = HexFromText(text.substr(1), 1, 8);
        return value ? std::optional(static_cast<TColor>(*value)) : std::nullopt;
    }
    if (text.starts_with('#')) {
        const auto value = HexFromText(text.substr(1), 6, 6);
        return value ? std::optional(static_cast<TColor>(Swapped(*value))) : std::nullopt;
    }
    int position = 0;
    const TColor value = ValInt(text, position);
    return position == 0 ? std::optional(value) : std::nullopt;
}

std::string ColorToHtml(TColor Color) {
    return "#" + HexText(Swapped(static_cast<unsigned>(ColorToRGB(Color))), 6);
}

} // namespace kx
