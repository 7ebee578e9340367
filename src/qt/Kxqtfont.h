#pragma once
// Fonts: which installed family stands for a name, and metrics that are looked up once per face and
// character. The metrics are those of the screen at 96 per inch, whole pixels, hinted; layout uses no others.

#include <kxgraph/platform/drawing/device.h>
#include <kxgraph/qt/Kxqtglyphs.h>

#include <QFont>
#include <QString>

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kx::qt {

/// The first installed family among Name, the usual stand-ins for a font of its kind (Liberation, DejaVu),
/// and the system's choice.
QString InstalledFamily(const std::string& Name, TFontPitch Pitch);

/// A face with its metrics. Lives until the Qt application ends.
class TQtFont {
public:
    /// The font of Face; its angle, underline and strike-out are the device's business. Needs a
    /// QGuiApplication.
    static TQtFont& Of(const TFontFace& Face);

    explicit TQtFont(const TFontFace& Face);

    int Ascent() const { return FAscent; }
    int CellHeight() const { return FCellHeight; }
    /// What is drawn for a character: variants of Greek letters that no installed font has are drawn as the
    /// plain letters.
    char32_t Shown(char32_t Character) const;
    /// The same for a text in UTF-8, whose foreign bytes are Latin-1.
    QString Shown(std::string_view Text) const;
    /// Whole pixels; 0 for a combining mark.
    int Advance(char32_t Character);
    /// Advances summed character by character: no kerning, so that captions measured in pieces fit.
    TSize Measure(std::string_view Text);
    /// The same as the font's design has it, with fractions of a pixel.
    double ExactWidth(std::string_view Text);
    /// Texts without hinting: letters stand where ExactWidth has them, at every scale.
    TShapes& Exact() { return FExact; }
    /// Calls Use(piece, X) for pieces of Text that are shaped each by itself, as each is in so many texts,
    /// with the places of their left ends; returns where the last one ends.
    template <class F>
    double ForExactPieces(std::string_view Text, F Use);
    /// Those for a device of that many pixels per logical pixel.
    TShapes& At(double Scale);
    /// Distance of the line's middle from the top of the cell and its thickness, in logical pixels.
    struct TRule {
        double Middle, Thickness;
    };
    TRule Underline() const { return FUnderline; }
    TRule StrikeOut() const { return FStrikeOut; }

private:
    static bool IsNumber(std::string_view Text);
    TShapes ShapesIn(const QFont& Font) const;

    QFont FFont;
    TShapes FScaled, FExact;
    double FScale = 1;
    int FAscent = 0, FCellHeight = 0;
    TRule FUnderline{}, FStrikeOut{};
    std::array<int, 128> FAscii;
    std::unordered_map<char32_t, int> FAdvances;
};

template <class F>
double TQtFont::ForExactPieces(std::string_view Text, F Use) {
    const std::size_t length = IsNumber(Text) ? 1 : Text.size();
    double x = 0;
    for (std::size_t i = 0; i < Text.size(); i += length) {
        const TShape& piece = FExact.Of(Text.substr(i, length));
        Use(piece, x);
        x += piece.Width;
    }
    return x;
}

} // namespace kx::qt
