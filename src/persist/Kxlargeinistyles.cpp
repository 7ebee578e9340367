// Fonts, line styles and area styles in a store.

#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/series/Kxdraw.h>

namespace kx {

namespace {

/// A height that no whole number of points gives must not change by reading the size that it rounds to.
void SetOtherSize(TFont& Font, int Size) {
    if (Size != Font.GetSize()) Font.SetSize(Size);
}

const TKxOutfit<TFont>& FontOutfit() {
    static const TKxOutfit<TFont> table{
        Outfit<&TFont::GetName, &TFont::SetName>(".Name"),
        Outfit<&TFont::GetCharset, &TFont::SetCharset>(".Charset"),
        Outfit<&TFont::GetColor, &TFont::SetColor>(".Color"),
        Outfit<&TFont::GetSize, &SetOtherSize>(".Size"),
        Outfit<&TFont::GetBold, &TFont::SetBold>(".Bold"),
        Outfit<&TFont::GetItalic, &TFont::SetItalic>(".Italic"),
        Outfit<&TFont::GetUnderline, &TFont::SetUnderline>(".Underline"),
        Outfit<&TFont::GetStrikeOut, &TFont::SetStrikeOut>(".StrikeOut"),
    };
    return table;
}

const TKxOutfit<TKxLineStyle>& LineOutfit() {
    static const TKxOutfit<TKxLineStyle> table{
        Outfit<&TKxLineStyle::GetVisible, &TKxLineStyle::SetVisible>(".Visible"),
        Outfit<&TKxLineStyle::GetColor, &TKxLineStyle::SetColor>(".Color"),
        Outfit<&TKxLineStyle::GetStyle, &TKxLineStyle::SetStyle>(".Style"),
        Outfit<&TKxLineStyle::GetWidth, &TKxLineStyle::SetWidth>(".Width"),
    };
    return table;
}

const TKxOutfit<TKxAreaStyle>& AreaOutfit() {
    static const TKxOutfit<TKxAreaStyle> table{
        Outfit<&TKxAreaStyle::GetVisible, &TKxAreaStyle::SetVisible>(".Visible"),
        Outfit<&TKxAreaStyle::GetColor, &TKxAreaStyle::SetColor>(".Color"),
        Outfit<&TKxAreaStyle::GetStyle, &TKxAreaStyle::SetStyle>(".Style"),
        Outfit<&TKxAreaStyle::GetDrawXOred, &TKxAreaStyle::SetDrawXOred>(".DrawXORed"),
    };
    return table;
}

} // namespace

void TKxIniList::ReadFont(std::string_view Section, std::string_view Ident, TFont& Font) const {
    LoadOutfitTable(Font, FontOutfit(), Section, *this, Ident);
}

void TKxIniList::WriteFont(std::string_view Section, std::string_view Ident, const TFont& Font) {
    SaveOutfitTable(Font, FontOutfit(), Section, *this, Ident);
}

void TKxIniList::ReadLine(std::string_view Section, std::string_view Ident, TKxLineStyle& Style) const {
    LoadOutfitTable(Style, LineOutfit(), Section, *this, Ident);
}

void TKxIniList::WriteLine(std::string_view Section, std::string_view Ident, const TKxLineStyle& Style) {
    SaveOutfitTable(Style, LineOutfit(), Section, *this, Ident);
}

void TKxIniList::ReadArea(std::string_view Section, std::string_view Ident, TKxAreaStyle& Style) const {
    LoadOutfitTable(Style, AreaOutfit(), Section, *this, Ident);
}

void TKxIniList::WriteArea(std::string_view Section, std::string_view Ident, const TKxAreaStyle& Style) {
    SaveOutfitTable(Style, AreaOutfit(), Section, *this, Ident);
}

} // namespace kx
