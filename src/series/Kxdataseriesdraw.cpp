// Symbols, and what a series looks like in a legend.

#include <kxgraph/series/Kxdataseries.h>

#include <kxgraph/platform/drawing/recording.h>

#include <algorithm>

namespace kx {

void TKxDataSeries::ForMarkedPoints(TCanvas& Canvas, const TDrawPoint& Draw) {
    if (!FPointStyle.GetVisible() || !PrepareDrawing()) return;
    UseSymbolPen(Canvas);
    ForPlacedPoints(Canvas, FPointStyle.GetSize() + FPointStyle.GetWidth() + 1, Draw);
}

// Many symbols are one picture at many places: a raster paints it once and leaves out what is covered.
void TKxDataSeries::DrawPoints(TCanvas& Canvas) {
    constexpr std::size_t CMany = 100;
    std::vector<TPoint> places;
    ForMarkedPoints(Canvas, [&](int, TPoint At) { places.push_back(At); });
    if (places.empty()) return;
    const auto draw = [this](TPoint At, TCanvas& On) {
        DrawPointSymbol(At.X, At.Y, FPointStyle.GetSize(), FPointStyle.GetStyle(), On);
    };
    const TCanvas::TSaved saved(Canvas);
    if (!IsZoomed()) Canvas.SetClip(std::nullopt);
    if (places.size() < CMany) {
        for (const TPoint p : places) draw(p, Canvas);
        return;
    }
    TRecorder symbol({});
    TCanvas one(&symbol);
    UseSymbolPen(one);
    draw({}, one);
    Canvas.Stamps(places, symbol.Recording);
}

void TKxDataSeries::UseSymbolPen(TCanvas& Canvas) const {
    Canvas.Pen.SetMode(pmCopy);
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(FPointStyle.GetWidth());
    Canvas.Pen.SetColor(FPointStyle.GetColor());
    if (const auto* graph = GetGraph()) Canvas.Brush.SetColor(graph->GetSymbolGround());
}

void TKxDataSeries::DrawSampleMark(TCanvas& Canvas, const TRect& Rect) {
    if (!FPointStyle.GetVisible()) return;
    UseSymbolPen(Canvas);
    const int room = std::max(0, std::min(Rect.Width(), Rect.Height()) / 2 - 1);
    DrawPointSymbol((Rect.Left + Rect.Right) / 2, (Rect.Top + Rect.Bottom) / 2,
                    std::min(FPointStyle.GetSize(), room), FPointStyle.GetStyle(), Canvas);
}

} // namespace kx
