#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqthost.h>
#include <kxgraph/qt/Kxqtvectors.h>

namespace kx::qt {

namespace {

/// Draws characters at their places on the screen, whole pixels. Origin is the top left of the first cell.
class TTextLine {
public:
    TTextLine(QPainter& Painter, TQtFont& Font, QPointF Origin, double Scale)
        : FPainter(Painter), FFont(Font), FOrigin(Origin), FScale(Scale),
          FBaseline(Origin + QPointF(0, Font.Ascent() * Scale)) {}

    /// A combining mark is drawn together with the character that it stands on.
    void Draw(std::string_view Text) {
        TShapes& shapes = FFont.At(FScale);
        TGlyphLine line;
        int x = 0;
        for (std::size_t i = 0; i < Text.size();) {
            const int begin = x;
            const std::size_t first = i;
            do {
                const TCodePoint character = DecodeAt(Text, i);
                x += FFont.Advance(character.Value);
                i += std::size_t(character.Length);
            } while (i < Text.size() && QChar::isMark(DecodeAt(Text, i).Value));
            line.Add(shapes.Of(Text.substr(first, i - first)), begin * FScale);
        }
        line.Paint(FPainter, FBaseline);
        FWidth = x;
    }
    /// As the font's design has them.
    void DrawExactly(std::string_view Text) {
        TGlyphLine line;
        FWidth = FFont.ForExactPieces(Text, [&](const TShape& Piece, double X) { line.Add(Piece, X); });
        line.Paint(FPainter, FBaseline);
    }
    /// The same as text, which can be searched for and copied where it is shown.
    void Write(std::string_view Text) {
        FPainter.setFont(FFont.Exact().Font());
        FPainter.drawText(FBaseline, FFont.Shown(Text));
        FWidth = FFont.ExactWidth(Text);
    }
    void Rule(const TQtFont::TRule& Rule, const QColor& Color) {
        const QRectF rule(0, (Rule.Middle - Rule.Thickness / 2) * FScale, FWidth * FScale,
                          Rule.Thickness * FScale);
        FPainter.fillRect(rule.translated(FOrigin), Color);
    }

private:
    QPainter& FPainter;
    TQtFont& FFont;
    QPointF FOrigin;
    double FScale;
    QPointF FBaseline;
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
    const QPointF place(pos.X * FScale, pos.Y * FScale);
    const bool isPlain = Face.Angle == 0 && (!IsSmooth() || FScale == 1);
    if (!isPlain) {
        FPainter.save();
        FPainter.translate(place);
        FPainter.rotate(-Face.Angle / 10.0);
        if (IsSmooth()) FPainter.scale(FScale, FScale);
    }
    FPainter.setPen(color);
    TTextLine line(FPainter, font, isPlain ? place : QPointF(), IsSmooth() ? 1 : FScale);
    if (!IsSmooth())
        line.Draw(Text);
    else if (FRaster)
        line.DrawExactly(Text);
    else
        line.Write(Text);
    if (Face.Style & fsUnderline) line.Rule(font.Underline(), color);
    if (Face.Style & fsStrikeOut) line.Rule(font.StrikeOut(), color);
    if (!isPlain) FPainter.restore();
}

} // namespace kx::qt
