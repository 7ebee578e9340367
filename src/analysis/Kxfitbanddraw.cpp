// How a band looks.

#include <kxgraph/analysis/Kxfitband.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kx {

/// A stretch of the band: both edges, from left to right.
struct TKxFitBand::TRun {
    std::vector<TRealPoint> Low, High;
};

// A logarithmic axis has no place for a lower edge that is not positive; its lower end stands in for it.
std::vector<TKxFitBand::TRun> TKxFitBand::Runs() const {
    std::vector<TRun> runs(1);
    const TKxAxisMap &mapX = GetXAxis()->GetMap(), &mapY = GetYAxis()->GetMap();
    const auto x = const_cast<TKxFitBand*>(this)->DisplayX().Values();
    const auto y = const_cast<TKxFitBand*>(this)->DisplayY().Values();
    const bool logarithmic = GetYAxis()->GetScaling() != AxNormal;
    for (std::size_t i = 0; i < std::min({x.size(), y.size(), FLow.size()}); ++i) {
        const bool shown = mapX.HasPlace(x[i]) && mapY.HasPlace(y[i]) && std::isfinite(FLow[i]);
        if (!shown) {
            if (!runs.back().High.empty()) runs.emplace_back();
            continue;
        }
        const double low = logarithmic && FLow[i] <= 0 ? GetYAxis()->GetStart() : FLow[i];
        const double place = mapX.RealToPlace(x[i]) + OriginX();
        runs.back().Low.push_back({place, mapY.RealToPlace(low) + OriginY()});
        runs.back().High.push_back({place, mapY.RealToPlace(y[i]) + OriginY()});
    }
    return runs;
}

void TKxFitBand::DrawBeneath(TCanvas& Canvas) {
    if (!GetVisible() || !PrepareDrawing()) return;
    const auto runs = Runs();
    if (AreaStyle().GetVisible()) {
        Canvas.Pen.SetWidth(0);
        Canvas.Pen.SetStyle(psClear);
        Canvas.Brush.SetColor(AreaStyle().GetColor());
        Canvas.Brush.SetStyle(AreaStyle().GetStyle());
        for (const TRun& run : runs) {
            std::vector<TRealPoint> closed = run.High;
            closed.insert(closed.end(), run.Low.rbegin(), run.Low.rend());
            if (run.High.size() > 1) Canvas.Polygon(closed);
        }
    }
    if (!LineStyle().GetVisible()) return;
    UseLinePen(Canvas, LineStyle());
    for (const TRun& run : runs)
        for (const auto* edge : {&run.Low, &run.High}) Canvas.Polyline(*edge);
}

// A pixel is left at the top and at the bottom, so that samples one upon the other stay apart.
void TKxFitBand::DrawSample(TCanvas& Canvas, const TRect& Rect) {
    const TRect band{Rect.Left, Rect.Top + 1, Rect.Right, Rect.Bottom - 1};
    if (AreaStyle().GetVisible()) {
        Canvas.Brush.SetColor(AreaStyle().GetColor());
        Canvas.Brush.SetStyle(AreaStyle().GetStyle());
        Canvas.FillRect(band);
    }
    if (!LineStyle().GetVisible()) return;
    UseLinePen(Canvas, LineStyle());
    for (const int y : {band.Top, band.Bottom - 1})
        Canvas.Polyline(std::array{TPoint{band.Left, y}, TPoint{band.Right, y}});
}

} // namespace kx
