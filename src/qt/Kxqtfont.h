#pragma once
// Fonts: which installed family stands for a name, and metrics that are looked up once per face and
// character. The metrics are those of the screen at 96 per inch, whole pixels, hinted; layout uses no others.

#include <kxgraph/platform/drawing/device.h>

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
    double ExactWidth(std::string_view Text) const;
    /// The font without hinting: its letters stand where ExactWidth has them, at every scale.
    const QFont& Exact() const { return FExact; }
    /// The font for a device of that many pixels per logical pixel.
    const QFont& At(double Scale);
    /// Distance of the line's middle from the top of the cell and its thickness, in logical pixels.
    struct TRule {
        double Middle, Thickness;
    };
    TRule Underline() const { return FUnderline; }
    TRule StrikeOut() const { return FStrikeOut; }

private:
    QFont FFont, FScaled, FExact;
    double FScale = 1;
    int FAscent = 0, FCellHeight = 0;
    TRule FUnderline{}, FStrikeOut{};
    std::array<int, 128> FAscii;
    std::unordered_map<char32_t, int> FAdvances;
};

} // namespace kx::qt
