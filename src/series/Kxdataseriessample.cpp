// What a series looks like in a legend.

#include <kxgraph/series/Kxdataseries.h>

#include <algorithm>
#include <array>

namespace kx {

void TKxSeries::UseLinePen(TCanvas& Canvas) const {
    Canvas.Pen.SetMode(pmCopy);
    Canvas.Pen.SetStyle(FLineStyle.GetStyle());
    Canvas.Pen.SetWidth(FLineStyle.GetWidth() == 1 ? 0 : FLineStyle.GetWidth());
    Canvas.Pen.SetColor(FLineStyle.GetColor());
}

void TKxSeries::DrawSample(TCanvas& Canvas, const TRect& Rect) {
    if (FAreaStyle.GetVisible()) {
        Canvas.Brush.SetColor(FAreaStyle.GetColor());
        Canvas.Brush.SetStyle(FAreaStyle.GetStyle());
        Canvas.FillRect(Rect);
    }
    if (FLineStyle.GetVisible()) {
        const int middle = (Rect.Top + Rect.Bottom) / 2;
        UseLinePen(Canvas);
        Canvas.Polyline(std::array{TPoint{Rect.Left, middle}, TPoint{Rect.Right, middle}});
    }
    DrawSampleMark(Canvas, Rect);
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

void TKxDataWithErrorSeries::DrawSampleMark(TCanvas& Canvas, const TRect& Rect) {
    if (HasErrors() && FPointStyle.GetVisible()) {
        const int middle = (Rect.Left + Rect.Right) / 2, half = FPointStyle.GetSize();
        Canvas.Pen.SetMode(pmCopy);
        Canvas.Pen.SetStyle(psSolid);
        Canvas.Pen.SetWidth(0);
        Canvas.Pen.SetColor(FErrorColor);
        kx::DrawLine(middle, Rect.Top, middle, Rect.Bottom, Canvas);
        for (const int end : {Rect.Top, Rect.Bottom - 1})
            kx::DrawLine(middle - half, end, middle + half, end, Canvas);
    }
    TKxDataSeries::DrawSampleMark(Canvas, Rect);
}

} // namespace kx
