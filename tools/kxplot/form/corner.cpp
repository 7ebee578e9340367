#include "kxplot/form/corner.h"

#include <kxgraph/series/Kxdataseries.h>

#include <algorithm>
#include <cmath>

namespace kxplot {

using namespace kx;

namespace {

/// The length of a line within a rectangle (Liang and Barsky, ACM Trans. Graphics 3 (1984) 1).
double LengthWithin(TPoint A, TPoint B, const TRect& Rect) {
    double from = 0, to = 1;
    const auto cut = [&](double Start, double Step, double Low, double High) {
        if (Step == 0) return Start >= Low && Start <= High;
        const double a = (Low - Start) / Step, b = (High - Start) / Step;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from <= to;
    };
    const double dx = double(B.X) - A.X, dy = double(B.Y) - A.Y;
    if (!cut(A.X, dx, Rect.Left, Rect.Right) || !cut(A.Y, dy, Rect.Top, Rect.Bottom)) return 0;
    return (to - from) * std::hypot(dx, dy);
}

TRect Grown(const TRect& Rect, int By) {
    return {Rect.Left - By, Rect.Top - By, Rect.Right + By, Rect.Bottom + By};
}

std::span<const TPoint> PointsOf(const TKxSeries& Series) {
    const auto points = Series.GetPoints().Values();
    return points.first(std::min(points.size(), std::size_t(Series.GetPointsCount())));
}

/// How many pixels of the line lie in the rectangle.
double LineWithin(TKxSeries& Series, const TRect& Rect) {
    if (!Series.GetLineStyle().GetVisible()) return 0;
    const auto points = PointsOf(Series);
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        if (IsPlaced(points[i - 1]) && IsPlaced(points[i]))
            length += LengthWithin(points[i - 1], points[i], Rect);
    return length;
}

double BarsWithin(const TKxDataWithErrorSeries& Series, int Index, TPoint At, const TRect& Rect) {
    const auto along = [](const TKxAxis& Axis, double Value) {
        return Axis.RealToIntPosition(Axis.GetScaling() == AxNormal || Value > 0 ? Value : Axis.GetStart());
    };
    double length = 0;
    if (const double plus = Series.GetYPlusD(Index), minus = Series.GetYMinusD(Index);
        plus > 0 || minus > 0) {
        const double y = Series.GetYData()->GetValue(Index);
        length += LengthWithin({At.X, along(*Series.GetYAxis(), y - minus)},
                               {At.X, along(*Series.GetYAxis(), y + plus)}, Rect);
    }
    if (const double plus = Series.GetXPlusD(Index), minus = Series.GetXMinusD(Index);
        plus > 0 || minus > 0) {
        const double x = Series.GetXData()->GetValue(Index);
        length += LengthWithin({along(*Series.GetXAxis(), x - minus), At.Y},
                               {along(*Series.GetXAxis(), x + plus), At.Y}, Rect);
    }
    return length;
}

/// A symbol that the rectangle touches counts with its width.
double SymbolsWithin(TKxDataWithErrorSeries& Series, const TRect& Rect, const TRect& World) {
    const auto& style = Series.GetPointStyle();
    if (!style.GetVisible() || !Series.GetXAxis() || !Series.GetYAxis()) return 0;
    const int reach = Series.GetPointStyle().GetStyle() == SyPoint ? 0 : style.GetSize();
    const TRect touched = Grown(Rect, reach);
    const auto points = PointsOf(Series);
    double covered = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!IsPlaced(points[i]) || !World.Contains(points[i])) continue;
        if (touched.Contains(points[i])) covered += 2 * reach + 1;
        covered += BarsWithin(Series, int(i), points[i], Rect);
    }
    return covered;
}

double CoveredBy(const TRect& Rect, TKx2DGraph& Graph) {
    const TRect world = Graph.GetDrawingWorld().GetClientRect();
    double covered = 0;
    for (auto* item : Graph.GetSeriesList()) {
        if (auto* measured = dynamic_cast<TKxDataWithErrorSeries*>(item))
            covered += SymbolsWithin(*measured, Rect, world);
        if (auto* series = dynamic_cast<TKxSeries*>(item)) {
            covered += LineWithin(*series, Rect);
            for (auto* child : series->GetChildren()) covered += LineWithin(*child, Rect);
        }
    }
    return covered;
}

} // namespace

TPoint FreestCorner(TKx2DGraph& Graph, TSize Size, int Gap, const TRect& Taken) {
    const TRect world = Graph.GetDrawingWorld().GetBoundsRect();
    const int left = Gap, top = Gap;
    const int right = std::max(left, world.Width() - Gap - Size.Width);
    const int bottom = std::max(top, world.Height() - Gap - Size.Height);
    TPoint freest;
    double least = HUGE_VAL;
    for (const TPoint corner : {TPoint{left, top}, {right, top}, {left, bottom}, {right, bottom}}) {
        constexpr int air = 12; // what comes near disturbs too
        const TRect block = TRect::Bounds(corner.X, corner.Y, Size.Width, Size.Height);
        const TRect hidden = Taken.Intersected({block.Left + world.Left, block.Top + world.Top,
                                                block.Right + world.Left, block.Bottom + world.Top});
        constexpr double much = 1e6;
        const double covered = CoveredBy(Grown(block, air), Graph) +
                               (hidden.IsEmpty() ? 0 : much * hidden.Width() * hidden.Height());
        if (covered >= least) continue;
        least = covered;
        freest = corner;
    }
    return freest + world.TopLeft();
}

} // namespace kxplot
