#include <kxgraph/platform/drawing/graphics.h>

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/objects/published.h>

#include <cmath>
#include <tuple>

namespace kx {

namespace {

/// To the nearest integer, half away from zero, as sizes of type are.
int RoundedSize(double Value) {
    return static_cast<int>(std::round(std::clamp(Value, -double(CMaxPixel), double(CMaxPixel))));
}

} // namespace

void TPen::Assign(const TPersistent& Source) {
    const auto* pen = dynamic_cast<const TPen*>(&Source);
    if (!pen) {
        TPersistent::Assign(Source);
        return;
    }
    const auto values = [](auto& P) { return std::tie(P.FColor, P.FStyle, P.FWidth, P.FMode); };
    if (values(*this) == values(*pen)) return;
    values(*this) = values(*pen);
    Changed();
}

void TBrush::SetColor(TColor Color) {
    const TBrushStyle style = FStyle == bsClear ? bsSolid : FStyle;
    if (FColor == Color && FStyle == style) return;
    FColor = Color;
    FStyle = style;
    Changed();
}

void TBrush::Assign(const TPersistent& Source) {
    const auto* brush = dynamic_cast<const TBrush*>(&Source);
    if (!brush) {
        TPersistent::Assign(Source);
        return;
    }
    if (FColor == brush->FColor && FStyle == brush->FStyle) return;
    FColor = brush->FColor;
    FStyle = brush->FStyle;
    Changed();
}

int TFont::GetSize() const { return RoundedSize(-72.0 * FHeight / CPixelsPerInch); }

void TFont::SetSize(int Points) { SetHeight(RoundedSize(-double(CPixelsPerInch) * Points / 72)); }

bool TFont::Equals(const TFont& Other) const {
    const auto values = [](const TFont& F) {
        return std::tie(F.FName, F.FHeight, F.FColor, F.FStyle, F.FCharset, F.FPitch, F.FOrientation);
    };
    return values(*this) == values(Other);
}

void TFont::Assign(const TPersistent& Source) {
    const auto* font = dynamic_cast<const TFont*>(&Source);
    if (!font) {
        TPersistent::Assign(Source);
        return;
    }
    if (Equals(*font)) return;
    FName = font->FName;
    FHeight = font->FHeight;
    FColor = font->FColor;
    FStyle = font->FStyle;
    FCharset = font->FCharset;
    FPitch = font->FPitch;
    FOrientation = font->FOrientation;
    Changed();
}

namespace {

TProperty FontStyleProperty() {
    static constexpr auto names =
        std::to_array<std::string_view>({"fsBold", "fsItalic", "fsUnderline", "fsStrikeOut"});
    TProperty style = Published<&TFont::GetStyle, &TFont::SetStyle>(
        "Style", std::monostate{}, "fsBold, fsItalic, fsUnderline and fsStrikeOut, joined by commas");
    style.Kind = TPropertyKind::Flags;
    style.ValueNames = names;
    return style;
}

/// A height that no whole number of points gives must not change by reading the size that it rounds to.
void SetOtherSize(TFont& Font, int Size) {
    if (Size != Font.GetSize()) Font.SetSize(Size);
}

} // namespace

const TPropertyTable& TFont::PublishedProperties() const {
    // What is stored is stored always: a default here would be lost in an owner whose font begins otherwise.
    constexpr std::monostate always;
    const auto never = [](const TPersistent&) { return false; };
    static const TPropertyTable table(
        "TFont", nullptr,
        {Published<&TFont::GetCharset, &TFont::SetCharset>("Charset", always, "Number of the character set"),
         PublishedColor<&TFont::GetColor, &TFont::SetColor>("Color", always, "Colour of the text"),
         Published<&TFont::GetHeight, &TFont::SetHeight>(
             "Height", always, "Pixels; negative: of the em square, positive: of the cell"),
         Published<&TFont::GetName, &TFont::SetName>("Name", always, "Name of the typeface"),
         Published<&TFont::GetPitch, &TFont::SetPitch>("Pitch", always, "Whether all characters are as wide"),
         FontStyleProperty(),
         Published<&TFont::GetSize, &TFont::SetSize>("Size", always, "Height in points", never)
             .LoadedBy(Into<&SetOtherSize>()),
         Published<&TFont::GetBold, &TFont::SetBold>("Bold", always, "fsBold of Style", never),
         Published<&TFont::GetItalic, &TFont::SetItalic>("Italic", always, "fsItalic of Style", never),
         Published<&TFont::GetUnderline, &TFont::SetUnderline>("Underline", always, "fsUnderline of Style",
                                                               never),
         Published<&TFont::GetStrikeOut, &TFont::SetStrikeOut>("StrikeOut", always, "fsStrikeOut of Style",
                                                               never)},
        {"Name", "Charset", "Color", "Size", "Bold", "Italic", "Underline", "StrikeOut"});
    return table;
}

} // namespace kx
