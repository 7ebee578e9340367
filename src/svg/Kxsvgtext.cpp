#include <kxgraph/svg/Kxsvgtext.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kx::svg {

namespace {

constexpr double CAscent = 0.905, CCell = 1.117; // of the em square

bool ContainsText(std::string_view Text, std::string_view Part) {
    return UpperCase(Text).find(UpperCase(Part)) != std::string::npos;
}

/// Viewers without the font take the generic one behind it.
std::string GenericFamily(const TFontFace& Face) {
    if (Face.Pitch == fpFixed || ContainsText(Face.Name, "mono") || ContainsText(Face.Name, "courier"))
        return "monospace";
    if (ContainsText(Face.Name, "sans")) return "sans-serif";
    for (const char* part : {"times", "serif", "roman", "georgia"})
        if (ContainsText(Face.Name, part)) return "serif";
    return "sans-serif";
}

std::string FamilyList(const TFontFace& Face) {
    std::string generic = GenericFamily(Face);
    // A symbol font has another encoding than the Unicode text that reaches a device.
    if (Face.Name.empty() || SameText(Face.Name, generic) || SameText(Face.Name, "Symbol")) return generic;
    std::string quoted = "'";
    for (char c : Face.Name) {
        if (c == '\'' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return EscapedXml(quoted + "'") + "," + generic;
}

} // namespace

void TSvgText::Begin(TRealPoint Pos, const TFontFace& Face, TColor Color, const std::optional<TRect>& Clip) {
    FPieces.clear();
    FStart = Pos;
    FFace = Face;
    FColor = Color;
    FClip = Clip;
    FEnd = 0;
}

TSvgText::TOffset TSvgText::OffsetOf(TRealPoint Pos) const {
    const double angle = FFace.Angle * std::numbers::pi / 1800, c = std::cos(angle), s = std::sin(angle);
    const double dx = Pos.X - FStart.X, dy = Pos.Y - FStart.Y;
    return {dx * c - dy * s, dx * s + dy * c};
}

bool TSvgText::ContinuesAt(TRealPoint Pos, const TFontFace& Face, TColor Color,
                           const std::optional<TRect>& Clip) const {
    if (IsEmpty() || Face != FFace || Color != FColor || Clip != FClip) return false;
    if (FIsRun) return false;
    const TOffset offset = OffsetOf(Pos);
    const double tolerance = FFace.Angle % 900 == 0 ? 0.5 : 1.5;
    return std::abs(offset.Across) <= tolerance && std::abs(offset.Along - FEnd) <= EmSquare() / 4;
}

void TSvgText::Append(TRealPoint Pos, std::string_view Text, int Width) {
    const double along = OffsetOf(Pos).Along;
    FIsRun = CharacterCount(Text) > 1;
    FPieces.push_back({along, std::string(Text)});
    FEnd = along + Width;
}

double TSvgText::EmSquare() const {
    return std::max(1.0, FFace.Height > 0 ? FFace.Height / CCell : -double(FFace.Height));
}

std::string TSvgText::Positions() const {
    std::string list;
    for (const TPiece& piece : FPieces) (list += list.empty() ? "" : " ") += Decimal(FStart.X + piece.Along);
    return list;
}

std::string TSvgText::Head() const {
    std::string head = "<text" + Attribute("x", Positions()) +
                       Attribute("y", Decimal(FStart.Y + std::round(EmSquare() * CAscent)));
    if (FFace.Angle % 3600 != 0)
        head += Attribute("transform", "rotate(" + Decimal(-(FFace.Angle % 3600) / 10.0) + " " +
                                           Number(EdgeOf(FStart.X)) + " " + Number(EdgeOf(FStart.Y)) + ")");
    const bool blanks = std::any_of(FPieces.begin(), FPieces.end(),
                                    [](const TPiece& P) { return P.Text.find(' ') != std::string::npos; });
    if (blanks) head += Attribute("xml:space", "preserve");
    return head;
}

std::string TSvgText::Style() const {
    std::string style = Attribute("font-family", FamilyList(FFace)) +
                        Attribute("font-size", Decimal(EmSquare())) + Attribute("fill", ColorToHtml(FColor));
    if (FFace.Style & fsBold) style += Attribute("font-weight", "bold");
    if (FFace.Style & fsItalic) style += Attribute("font-style", "italic");
    const bool under = FFace.Style & fsUnderline, through = FFace.Style & fsStrikeOut;
    if (under && through)
        style += Attribute("text-decoration", "underline line-through");
    else if (under)
        style += Attribute("text-decoration", "underline");
    else if (through)
        style += Attribute("text-decoration", "line-through");
    return style;
}

std::string TSvgText::Tail() const {
    std::string tail = ">";
    for (const TPiece& piece : FPieces) tail += EscapedXml(piece.Text);
    return tail + "</text>";
}

} // namespace kx::svg
