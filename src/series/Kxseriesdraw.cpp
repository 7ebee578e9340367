// Painting: area and line.

#include <kxgraph/series/Kxseries.h>

#include <kxgraph/platform/drawing/reduction.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

/// Longer lines are handed over in runs, each beginning at the last point of the one before.
constexpr std::size_t CRunLength = 2000;

} // namespace

void TKxSeries::Draw(TCanvas& Canvas) {
    DrawLine(Canvas);
    DrawMarks(Canvas);
    ForChildren([&](TKxSeries* Child) { Guarded([&] { Child->Draw(Canvas); }); });
}

// The stretches of points that are joined to one another: all of them as a rule.
std::vector<std::span<const TPoint>> TKxSeries::DrawableRuns() {
    if (KeepsLine()) return KeptRuns();
    const auto points = FPoints.Values().first(std::size_t(FPointsCount));
    const auto gap = std::find_if_not(points.begin(), points.end(), IsPlaced);
    if (gap == points.end()) return {points};
    if (!BreaksAtGaps()) {
        FScratch.clear();
        std::copy_if(points.begin(), points.end(), std::back_inserter(FScratch), IsPlaced);
        return {FScratch};
    }
    std::vector<std::span<const TPoint>> runs;
    for (auto begin = points.begin(); begin != points.end();) {
        const auto end = std::find_if_not(begin, points.end(), IsPlaced);
        if (begin != end) runs.push_back({begin, end});
        begin = std::find_if(end, points.end(), IsPlaced);
    }
    return runs;
}

std::vector<std::span<const TPoint>> TKxSeries::KeptRuns() {
    FScratch.clear();
    for (const int i : FKept.Points())
        if (const TPoint point{FX.PixelOf(i), FY.PixelOf(i)}; IsPlaced(point)) FScratch.push_back(point);
    if (FKept.RunEnds().empty()) return {FScratch};
    std::vector<std::span<const TPoint>> runs;
    runs.reserve(FKept.RunEnds().size());
    std::size_t begin = 0;
    for (const int end : FKept.RunEnds()) {
        runs.push_back(std::span(FScratch).subspan(begin, std::size_t(end) - begin));
        begin = std::size_t(end);
    }
    return runs;
}

bool TKxSeries::PrepareDrawing() {
    if (!GetXAxis() || !GetYAxis() || !GetGraph() || !GetGraph()->NotUpdating()) return false;
    if (!FPointsDirty && !GoesByValues()) return true;
    SetPointsCount();
    PlacePoints();
    return true;
}

bool TKxSeries::IsZoomed() const { return GetXAxis()->CanZoomBack() && GetYAxis()->CanZoomBack(); }

void TKxSeries::DrawLine(TCanvas& Canvas) {
    if (!PrepareDrawing()) return;
    if (!DrawsLine() || FPointsCount < 2) return;
    const auto runs = DrawableRuns();
    if (FAreaStyle.GetVisible()) DrawArea(Canvas, runs);
    if (FLineStyle.GetVisible()) DrawPolylines(Canvas, runs);
}

void TKxSeries::DrawArea(TCanvas& Canvas, const std::vector<std::span<const TPoint>>& Runs) {
    // A logarithmic axis has no zero; its lower end stands in for it.
    const double base = GetYAxis()->GetScaling() == AxNormal ? 0 : GetYAxis()->GetStart();
    const int y0 = GetYAxis()->RealToIntPosition(base);
    Canvas.Pen.SetWidth(0);
    Canvas.Pen.SetStyle(psClear);
    TColor color = FAreaStyle.GetColor();
    if (FAreaStyle.GetDrawXOred() && Canvas.CanXor()) {
        Canvas.Pen.SetMode(pmXor);
        color = ColorToRGB(color) ^ ColorToRGB(GetGraph()->GetDataGround());
    }
    Canvas.Brush.SetColor(color);
    Canvas.Brush.SetStyle(FAreaStyle.GetStyle());
    std::vector<TPoint> closed;
    for (const auto& run : Runs) {
        if (run.size() < 2) continue;
        closed.assign(run.begin(), run.end());
        closed.push_back({run.back().X, y0});
        closed.push_back({run.front().X, y0});
        Canvas.Polygon(closed);
    }
    Canvas.Pen.SetMode(pmCopy);
}

void TKxSeries::DrawPolylines(TCanvas& Canvas, const std::vector<std::span<const TPoint>>& Runs) {
    UseLinePen(Canvas, FLineStyle);
    for (const auto& run : Runs) {
        if (run.size() == 1) {
            const TPoint p = run.front(); // between two gaps: a dot, or it would not show at all
            Canvas.Polyline(std::vector<TPoint>{p, {p.X + 1, p.Y}});
        }
        for (std::size_t start = 0; start + 1 < run.size(); start += CRunLength - 1)
            Canvas.Polyline(run.subspan(start, std::min(CRunLength, run.size() - start)));
    }
}

void TKxSeries::ForPlacedPoints(TCanvas& Canvas, int Reach, const TDrawPoint& Draw) const {
    const bool zoomed = IsZoomed();
    const TRect world{0, 0, GetDrawingWorld()->GetWidth(), GetDrawingWorld()->GetHeight()};
    const TCanvas::TSaved saved(Canvas);
    if (!zoomed) Canvas.SetClip(std::nullopt);
    TKxSection shown{0, FPointsCount};
    if (GoesByValues() && FPointsCount >= CReductionThreshold)
        shown = SectionIn(FX, FPointsCount, WorldStretch(zoomed ? Reach : 0));
    std::array<TPoint, CPointsAtOnce> block;
    for (int first = shown.First; first < shown.Last; first += CPointsAtOnce) {
        const auto points = std::span(block).first(std::size_t(std::min(CPointsAtOnce, shown.Last - first)));
        PointsFrom(first, points);
        int index = first;
        for (const TPoint p : points) {
            if (IsPlaced(p) && (zoomed || world.Contains(p))) Draw(index, p);
            ++index;
        }
    }
}

void TKxSeries::DrawSample(TCanvas& Canvas, const TRect& Rect) {
    if (FAreaStyle.GetVisible()) {
        Canvas.Brush.SetColor(FAreaStyle.GetColor());
        Canvas.Brush.SetStyle(FAreaStyle.GetStyle());
        Canvas.FillRect(Rect);
    }
    if (FLineStyle.GetVisible()) {
        const int middle = (Rect.Top + Rect.Bottom) / 2;
        UseLinePen(Canvas, FLineStyle);
        Canvas.Polyline(std::array{TPoint{Rect.Left, middle}, TPoint{Rect.Right, middle}});
    }
    DrawSampleMark(Canvas, Rect);
}

} // namespace kx
