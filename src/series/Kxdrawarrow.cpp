// Arrows.

#include <kxgraph/series/Kxdraw.h>

#include <kxgraph/platform/base/matherror.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kx {

namespace {

/// The head's length, TipLength, as its parts along the two axes, both positive.
struct THeadParts {
    double Along; // X
    double Down;  // Y
};

THeadParts HeadParts(double SquareX, double SquareY, double TipLength) {
    // Parallel to an axis there is nothing to compute, and no rounding error whose root would tilt the head.
    if (SquareY == 0) return {TipLength, 0};
    if (SquareX == 0) return {0, TipLength};
    const double square = TipLength * TipLength;
    const double q = square / (SquareX + SquareY);
    return {std::sqrt(std::max(square - q * SquareY, 0.0)), std::sqrt(std::max(square - q * SquareX, 0.0))};
}

double Itself(double Place) { return Place; }

/// A head from its tip: the middle of its base first, then the corners. Each is rounded by Round.
struct THead {
    TRealPoint Base;
    std::array<TRealPoint, 3> Corners;
};

template <class F>
THead HeadAt(TRealPoint Tip, TRealPoint Way, int TipLength, int TipWidth, F Round) {
    const double r = TipWidth / CheckedDivisor(double(TipLength));
    const THeadParts head = HeadParts(Way.X * Way.X, Way.Y * Way.Y, TipLength);
    const double signX = Way.X > 0 ? -1 : 1;
    const double signY = Way.Y > 0 ? -1 : 1;
    const double baseX = Round(Tip.X + signX * head.Along);
    const double baseY = Round(Tip.Y + signY * head.Down);
    const double sideX = r * head.Down * signY;
    const double sideY = r * head.Along * signX;
    return {
        {baseX, baseY},
        {{Tip, {Round(baseX - sideX), Round(baseY + sideY)}, {Round(baseX + sideX), Round(baseY - sideY)}}}};
}

} // namespace

void DrawArrow(int X1, int Y1, int X2, int Y2, int TipLength, int TipWidth, TCanvas& Canvas) {
    Canvas.Brush.SetStyle(bsClear);
    const TRealPoint way{double(X2) - X1, double(Y2) - Y1};
    if (way == TRealPoint()) return DrawLine(X1, Y1, X1, Y1 + 1, Canvas);
    DrawLine(X1, Y1, X2, Y2, Canvas);
    const THead head = HeadAt({X2, Y2}, way, TipLength, TipWidth, RoundToInt);
    std::array<TPoint, 3> corners;
    std::ranges::transform(head.Corners, corners.begin(), RoundToPixel);
    Canvas.Brush.SetColor(Canvas.Pen.GetColor());
    Canvas.Polygon(corners);
}

void DrawArrow(TRealPoint From, TRealPoint To, int TipLength, int TipWidth, TCanvas& Canvas) {
    Canvas.Brush.SetStyle(bsClear);
    const TRealPoint way = To - From;
    if (std::hypot(way.X, way.Y) < 0.01)
        return DrawLine(TRealPoint{From.X, From.Y - 0.5}, {From.X, From.Y + 0.5}, Canvas);
    const THead head = HeadAt(To, way, TipLength, TipWidth, Itself);
    if (std::hypot(way.X, way.Y) > TipLength) DrawLine(From, head.Base, Canvas);
    Canvas.Brush.SetColor(Canvas.Pen.GetColor());
    Canvas.Polygon(head.Corners);
}

} // namespace kx
