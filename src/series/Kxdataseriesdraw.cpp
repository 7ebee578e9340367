// Symbols, and what a series looks like in a legend.

#include <kxgraph/series/Kxdataseries.h>

#include <kxgraph/platform/drawing/recording.h>

#include <algorithm>

namespace kx {

bool TKxDataSeries::PrepareMarks(TCanvas& Canvas) {
    if (!FPointStyle.GetVisible() || !PrepareDrawing()) return false;
    UseSymbolPen(Canvas);
    return true;
}

void TKxDataSeries::ForMarkedPoints(TCanvas& Canvas, const TDrawPoint& Draw) {
    if (PrepareMarks(Canvas)) ForPlacedPoints(Canvas, MarkReach(), Draw);
}

void TKxDataSeries::ForMarkedPlaces(TCanvas& Canvas, const TDrawPlace& Draw) {
    if (PrepareMarks(Canvas)) ForPlaces(Canvas, MarkReach(), Draw);
}

void TKxDataSeries::DrawPoints(TCanvas& Canvas) {
    if (Canvas.IsSmooth()) {
        std::vector<TRealPoint> places;
        ForMarkedPlaces(Canvas, [&](int, TRealPoint At) { places.push_back(At); });
        DrawSymbols(Canvas, places);
    } else {
        std::vector<TPoint> places;
        ForMarkedPoints(Canvas, [&](int, TPoint At) { places.push_back(At); });
        DrawSymbols(Canvas, places);
    }
}

// Many symbols are one picture at many places: a raster paints it once and leaves out what is covered.
template <class P>
void TKxDataSeries::DrawSymbols(TCanvas& Canvas, const std::vector<P>& Places) {
    constexpr std::size_t CMany = 100;
    if (Places.empty()) return;
    const auto draw = [this](P At, TCanvas& On) {
        DrawPointSymbol(At, FPointStyle.GetSize(), FPointStyle.GetStyle(), On);
    };
    const TCanvas::TSaved saved(Canvas);
    if (!IsZoomed()) Canvas.SetClip(std::nullopt);
    if (Places.size() < CMany) {
        for (const P p : Places) draw(p, Canvas);
        return;
    }
    TRecorder symbol({}, Canvas.GetDevice()->PixelsPerInch(), false, Canvas.IsSmooth());
    TCanvas one(&symbol);
    UseSymbolPen(one);
    draw({}, one);
    Canvas.Stamps(Places, symbol.Recording);
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
