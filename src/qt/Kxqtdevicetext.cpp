#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqthost.h>
#include <kxgraph/qt/Kxqtvectors.h>

namespace kx::qt {

namespace {

/// Draws characters at their places on the screen, whole pixels. The painter's origin is the top left of the
/// first cell.
class TTextLine {
public:
    TTextLine(QPainter& Painter, TQtFont& Font, double Scale)
        : FPainter(Painter), FFont(Font), FScale(Scale), FBaseline(Font.Ascent() * Scale) {}

    /// A combining mark is drawn together with the character that it stands on.
    void Draw(std::string_view Text) {
        FPainter.setFont(FFont.At(FScale));
        int x = 0;
        for (std::size_t i = 0; i < Text.size();) {
            const int begin = x;
            QString cluster;
            do {
                const TCodePoint character = DecodeAt(Text, i);
                const char32_t shown = FFont.Shown(character.Value);
                cluster += QString::fromUcs4(&shown, 1);
                x += FFont.Advance(character.Value);
                i += std::size_t(character.Length);
            } while (i < Text.size() && QChar::isMark(DecodeAt(Text, i).Value));
            FPainter.drawText(QPointF(begin * FScale, FBaseline), cluster);
        }
        FWidth = x;
    }
    /// As the font's design has them.
    void DrawExactly(std::string_view Text) {
        FPainter.setFont(FFont.Exact());
        FPainter.drawText(QPointF(0, FBaseline), FFont.Shown(Text));
        FWidth = FFont.ExactWidth(Text);
    }
    void Rule(const TQtFont::TRule& Rule, const QColor& Color) {
        FPainter.fillRect(
            QRectF(0, (Rule.Middle - Rule.Thickness / 2) * FScale, FWidth * FScale, Rule.Thickness * FScale),
            Color);
    }

private:
    QPainter& FPainter;
    TQtFont& FFont;
    double FScale, FBaseline;
    double FWidth = 0;
};

} // namespace

TSize TPainterDevice::MeasureText(const TFontFace& Face, std::string_view Text) const {
    DemandInstalled();
    return TQtFont::Of(Face).Measure(Text);
}

void TPainterDevice::Text(TRealPoint Place, const TFontFace& Face, TColor Color, std::string_view Text) {
    const TVectorsCleared afterwards;
    const TRealPoint pos = IsSmooth() ? Place : TRealPoint(RoundToPixel(Place));
    DemandInstalled();
    TQtFont& font = TQtFont::Of(Face);
    const TSize size = font.Measure(Text);
    const double reach = 2.0 * (size.Width + size.Height) + 16; // slanted glyphs leave their cells
    if (pos.X < FClip.Left - reach || pos.X > FClip.Right + reach || pos.Y < FClip.Top - reach ||
        pos.Y > FClip.Bottom + reach)
        return;
    SetMode(pmCopy, Face.Angle != 0);
    const QColor color = ColorOf(Color, pmCopy);
    FPainter.save();
    FPainter.setPen(color);
    FPainter.translate(pos.X * FScale, pos.Y * FScale);
    FPainter.rotate(-Face.Angle / 10.0);
    if (IsSmooth()) FPainter.scale(FScale, FScale);
    TTextLine line(FPainter, font, IsSmooth() ? 1 : FScale);
    if (IsSmooth())
        line.DrawExactly(Text);
    else
        line.Draw(Text);
    if (Face.Style & fsUnderline) line.Rule(font.Underline(), color);
    if (Face.Style & fsStrikeOut) line.Rule(font.StrikeOut(), color);
    FPainter.restore();
}

} // namespace kx::qt
