// Painting: area and line.

#include <kxgraph/series/Kxseries.h>

#include <kxgraph/platform/drawing/reduction.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <type_traits>
#include <utility>

namespace kx {

namespace {

/// Longer lines in whole pixels are handed over in runs, each beginning at the last point of the one before.
constexpr std::size_t CRunLength = 2000;

} // namespace

void TKxSeries::DrawBeneath(TCanvas& Canvas) {
    ForChildren([&](TKxSeries* Child) { Guarded([&] { Child->DrawBeneath(Canvas); }); });
}

void TKxSeries::Draw(TCanvas& Canvas) {
    if (FVisible) {
        DrawLine(Canvas);
        DrawMarks(Canvas);
    }
    ForChildren([&](TKxSeries* Child) { Guarded([&] { Child->Draw(Canvas); }); });
}

namespace {

bool IsThere(TPoint P) { return IsPlaced(P); }
bool IsThere(TRealPoint P) { return IsPlace(P); }

/// The stretches of points that are joined to one another: all of them as a rule.
template <class P>
std::vector<std::span<const P>> RunsOf(std::span<const P> Points, bool BreaksAtGaps,
                                       std::vector<P>& Scratch) {
    const auto isThere = [](P Point) { return IsThere(Point); };
    const auto gap = std::find_if_not(Points.begin(), Points.end(), isThere);
    if (gap == Points.end()) return {Points};
    if (!BreaksAtGaps) {
        std::vector<P> placed;
        std::copy_if(Points.begin(), Points.end(), std::back_inserter(placed), isThere);
        Scratch = std::move(placed);
        return {Scratch};
    }
    std::vector<std::span<const P>> runs;
    for (auto begin = Points.begin(); begin != Points.end();) {
        const auto end = std::find_if_not(begin, Points.end(), isThere);
        if (begin != end) runs.push_back({begin, end});
        begin = std::find_if(end, Points.end(), isThere);
    }
    return runs;
}

template <class P>
std::vector<std::span<const P>> RunsUpTo(std::span<const int> Ends, std::span<const P> Points) {
    if (Ends.empty()) return {Points};
    std::vector<std::span<const P>> runs;
    runs.reserve(Ends.size());
    std::size_t begin = 0;
    for (const int end : Ends) {
        runs.push_back(Points.subspan(begin, std::size_t(end) - begin));
        begin = std::size_t(end);
    }
    return runs;
}

} // namespace

// Of a part of the world that is painted anew the columns alone.
TKxStretch TKxSeries::PaintedStretch(const TCanvas& Canvas, TKxStretch Stretch) const {
    const TRect clip = Canvas.GetClipRect();
    const int reach = DrawnReach();
    return {std::max(Stretch.Left, clip.Left - OriginX() - reach),
            std::min(Stretch.Right, clip.Right - OriginX() + reach)};
}

// With a point more at either side, to which the line leads. PixelOf is that of an item of the line's.
template <class T, class F>
std::span<const T> TKxSeries::PaintedOf(const TCanvas& Canvas, std::span<const T> Line, F PixelOf) const {
    const TKxStretch world = WorldStretch(0), painted = PaintedStretch(Canvas, world);
    if (Line.empty() || painted == world) return Line;
    const bool forward = PixelOf(Line.front()) <= PixelOf(Line.back());
    const auto isBefore = [&](const T& Item) {
        const int pixel = PixelOf(Item);
        return forward ? pixel < painted.Left : pixel > painted.Right;
    };
    const auto isNotBehind = [&](const T& Item) {
        const int pixel = PixelOf(Item);
        return forward ? pixel <= painted.Right : pixel >= painted.Left;
    };
    const auto first = std::ranges::partition_point(Line, isBefore);
    const auto last = std::partition_point(first, Line.end(), isNotBehind);
    return {first - (first != Line.begin()), last + (last != Line.end())};
}

std::vector<std::span<const TPoint>> TKxSeries::DrawableRuns(const TCanvas& Canvas) {
    if (KeepsLine()) return KeptRuns(Canvas);
    return RunsOf(GetPoints().Values().first(std::size_t(FPointsCount)), BreaksAtGaps(), FScratch);
}

// Those of a line that is not kept are made for every painting: a smooth device is painted once, as a rule.
std::vector<std::span<const TRealPoint>> TKxSeries::ExactRuns(const TCanvas& Canvas,
                                                              std::vector<TRealPoint>& Points) {
    if (KeepsFineLine(Canvas.ColumnsPerPixel())) {
        const auto places = FFineKept->Places();
        if (!FFineKept->RunEnds().empty()) return RunsUpTo(FFineKept->RunEnds(), places);
        return {PaintedOf(Canvas, places, [](TRealPoint P) { return RoundToInt(P.X); })};
    }
    Points.resize(std::size_t(FPointsCount));
    if (FPointsCount > 0) PlacesFrom(0, Points);
    return RunsOf(std::span<const TRealPoint>(Points), BreaksAtGaps(), Points);
}

std::vector<std::span<const TPoint>> TKxSeries::KeptRuns(const TCanvas& Canvas) {
    const auto pixelX = [this](TRealPoint Values) { return FX.GetAxis()->RealToIntPosition(Values.X); };
    auto values = FKept.Places();
    if (FKept.RunEnds().empty() && !values.empty() && FX.HasPlace(values.front().X))
        values = PaintedOf(Canvas, values, pixelX);
    FScratch.clear();
    for (const TRealPoint at : values)
        if (const TPoint point{pixelX(at), FY.GetAxis()->RealToIntPosition(at.Y)}; IsPlaced(point))
            FScratch.push_back(point);
    return RunsUpTo(FKept.RunEnds(), std::span<const TPoint>(FScratch));
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
    if (Canvas.GetClipRect().IsEmpty()) return;
    if (!Canvas.IsSmooth()) return DrawRuns(Canvas, DrawableRuns(Canvas));
    std::vector<TRealPoint> points;
    DrawRuns(Canvas, ExactRuns(Canvas, points));
}

template <class P>
void TKxSeries::DrawRuns(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const {
    if (FAreaStyle.GetVisible()) DrawArea(Canvas, Runs);
    if (FLineStyle.GetVisible()) DrawPolylines(Canvas, Runs);
}

namespace {

/// What a point between two gaps shows, or it would not show at all.
std::array<TPoint, 2> DotAt(TPoint P) { return {P, TPoint{P.X + 1, P.Y}}; }
std::array<TRealPoint, 2> DotAt(TRealPoint P) {
    return {TRealPoint{P.X - 0.5, P.Y}, TRealPoint{P.X + 0.5, P.Y}};
}

} // namespace

template <class P>
void TKxSeries::DrawArea(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const {
    // A logarithmic axis has no zero; its lower end stands in for it.
    const double base = GetYAxis()->GetScaling() == AxNormal ? 0 : GetYAxis()->GetStart();
    P foot{};
    foot.Y = std::is_same_v<P, TPoint> ? GetYAxis()->RealToIntPosition(base)
                                       : GetYAxis()->GetMap().RealToPlace(base);
    Canvas.Pen.SetWidth(0);
    Canvas.Pen.SetStyle(psClear);
    TColor color = FAreaStyle.GetColor();
    if (FAreaStyle.GetDrawXOred() && Canvas.CanXor()) {
        Canvas.Pen.SetMode(pmXor);
        color = ColorToRGB(color) ^ ColorToRGB(GetGraph()->GetDataGround());
    }
    Canvas.Brush.SetColor(color);
    Canvas.Brush.SetStyle(FAreaStyle.GetStyle());
    std::vector<P> closed;
    for (const auto& run : Runs) {
        if (run.size() < 2) continue;
        closed.assign(run.begin(), run.end());
        for (const P end : {run.back(), run.front()}) {
            foot.X = end.X;
            closed.push_back(foot);
        }
        Canvas.Polygon(closed);
    }
    Canvas.Pen.SetMode(pmCopy);
}

template <class P>
void TKxSeries::DrawPolylines(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const {
    UseLinePen(Canvas, FLineStyle);
    for (const auto& run : Runs) {
        if (run.size() == 1) Canvas.Polyline(DotAt(run.front()));
        const std::size_t most =
            std::is_same_v<P, TPoint> ? CRunLength : std::max<std::size_t>(2, run.size());
        for (std::size_t start = 0; start + 1 < run.size(); start += most - 1)
            Canvas.Polyline(run.subspan(start, std::min(most, run.size() - start)));
    }
}

namespace {

void PlacesOf(const TKxSeries& Series, int First, std::span<TPoint> Points) {
    Series.PointsFrom(First, Points);
}
void PlacesOf(const TKxSeries& Series, int First, std::span<TRealPoint> Places) {
    Series.PlacesFrom(First, Places);
}
TPoint PixelAt(TPoint P) { return P; }
TPoint PixelAt(TRealPoint P) { return RoundToPixel(P); }

} // namespace

template <class P, class F>
void TKxSeries::ForAllPlaced(TCanvas& Canvas, int Reach, F Draw) const {
    const bool zoomed = IsZoomed();
    const TRect world{0, 0, GetDrawingWorld()->GetWidth(), GetDrawingWorld()->GetHeight()};
    const TCanvas::TSaved saved(Canvas);
    if (!zoomed) Canvas.SetClip(std::nullopt);
    TKxSection shown{0, FPointsCount};
    if (GoesByValues() && FPointsCount >= CReductionThreshold)
        shown = SectionIn(FX, FPointsCount, PaintedStretch(Canvas, WorldStretch(zoomed ? Reach : 0)));
    std::array<P, CPointsAtOnce> block;
    for (int first = shown.First; first < shown.Last; first += CPointsAtOnce) {
        const auto points = std::span(block).first(std::size_t(std::min(CPointsAtOnce, shown.Last - first)));
        PlacesOf(*this, first, points);
        int index = first;
        for (const P p : points) {
            if (IsThere(p) && (zoomed || world.Contains(PixelAt(p)))) Draw(index, p);
            ++index;
        }
    }
}

void TKxSeries::ForPlacedPoints(TCanvas& Canvas, int Reach, const TDrawPoint& Draw) const {
    ForAllPlaced<TPoint>(Canvas, Reach, Draw);
}

void TKxSeries::ForPlaces(TCanvas& Canvas, int Reach, const TDrawPlace& Draw) const {
    ForAllPlaced<TRealPoint>(Canvas, Reach, Draw);
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
