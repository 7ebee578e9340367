#include <kxgraph/editing/Kxsamples.h>

#include <array>
#include <utility>

namespace kx {

namespace {

bool IsUpper(char C) { return C >= 'A' && C <= 'Z'; }

void DrawLineSample(TCanvas& Canvas, const TRect& Rect, TPenStyle Style, int Width, TColor Color) {
    TKxLineStyle line(nullptr);
    line.SetStyle(Style);
    line.SetWidth(Width);
    line.SetColor(Color);
    UseLinePen(Canvas, line);
    const int middle = (Rect.Top + Rect.Bottom) / 2, inset = 2 + Width / 2; // the ends are round
    Canvas.Polyline(std::array{TPoint{Rect.Left + inset, middle}, TPoint{Rect.Right - inset, middle}});
}

} // namespace

std::string WordsOf(std::string_view ValueName) {
    static constexpr std::pair<std::string_view, const char*> others[] = {
        {"bsFDiagonal", "Falling"}, {"bsBDiagonal", "Rising"}, {"bsDiagCross", "Diagonal cross"}};
    for (const auto& [name, words] : others)
        if (name == ValueName) return words;
    constexpr std::size_t prefix = 2; // of all these enumerations
    std::string words;
    for (const char c : ValueName.substr(std::min(prefix, ValueName.size()))) {
        if (IsUpper(c) && !words.empty()) words += ' ';
        words += IsUpper(c) && !words.empty() ? char(c - 'A' + 'a') : c;
    }
    return words;
}

void TKxBrushStyles::Draw(TCanvas& Canvas, const TRect& Rect, TBrushStyle Style, const TKxSampleLook& Look) {
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(0);
    Canvas.Pen.SetColor(Look.Color);
    Canvas.Brush.SetColor(Look.Color);
    Canvas.Brush.SetStyle(Style);
    Canvas.Rectangle(TRect{Rect.Left + 2, Rect.Top + 2, Rect.Right - 2, Rect.Bottom - 2});
}

void TKxLineStyles::Draw(TCanvas& Canvas, const TRect& Rect, TPenStyle Style, const TKxSampleLook& Look) {
    DrawLineSample(Canvas, Rect, Style, Look.Width, Look.Color);
}

void TKxPointSymbols::Draw(TCanvas& Canvas, const TRect& Rect, TKxPointSymbol Symbol,
                           const TKxSampleLook& Look) {
    Canvas.Pen.SetColor(Look.Color);
    Canvas.Pen.SetWidth(Look.Width);
    Canvas.Brush.SetColor(clWhite);
    DrawPointSymbol((Rect.Left + Rect.Right) / 2, (Rect.Top + Rect.Bottom) / 2, Look.Size, Symbol, Canvas);
}

void TKxLineWidths::Draw(TCanvas& Canvas, const TRect& Rect, int Width, const TKxSampleLook& Look) {
    DrawLineSample(Canvas, Rect, psSolid, Width, Look.Color);
}

} // namespace kx
