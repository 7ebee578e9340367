#pragma once
// How symbols, error bars and arrows come onto the drawing world: the bodies of templates that the sources of
// the series share. Included by those sources only.

#include <kxgraph/series/Kxdataseries.h>

namespace kx {

template <class F>
void TKxSeries::ForPlacedPoints(TCanvas& Canvas, F Draw) {
    const bool zoomed = IsZoomed();
    const TRect world{0, 0, GetDrawingWorld()->GetWidth(), GetDrawingWorld()->GetHeight()};
    const TCanvas::TSaved saved(Canvas);
    if (!zoomed) Canvas.SetClip(std::nullopt);
    const auto points = FPoints.Values();
    for (int i = 0; i < FPointsCount; ++i) {
        if (!HasPlace(i)) continue;
        if (!zoomed && !world.Contains(points[std::size_t(i)])) continue;
        Draw(i);
    }
}

template <class F>
void TKxDataSeries::ForMarkedPoints(TCanvas& Canvas, F Draw) {
    auto* graph = GetGraph();
    if (!graph || !graph->NotUpdating() || !FPointStyle.GetVisible() || !GetXAxis() || !GetYAxis()) return;
    const TComponentRef<TKxSeries> self(this);
    if (NeedsCalculation()) CalculatePoints();
    if (!self || !GetGraph() || !GetXAxis() || !GetYAxis()) return; // taken away by a handler
    UseSymbolPen(Canvas);
    ForPlacedPoints(Canvas, Draw);
}

} // namespace kx
