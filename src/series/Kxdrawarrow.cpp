// Arrows.

#include <kxgraph/platform/base/matherror.h>
#include <kxgraph/series/Kxdraw.h>

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

} // namespace

void DrawArrow(int X1, int Y1, int X2, int Y2, int TipLength, int TipWidth, TCanvas& Canvas) {
    Canvas.Brush.SetStyle(bsClear);
    const double dx = double(X2) - X1;
    const double dy = double(Y2) - Y1;
    if (dx == 0 && dy == 0) return DrawLine(X1, Y1, X1, Y1 + 1, Canvas);
    DrawLine(X1, Y1, X2, Y2, Canvas);

    const double r = TipWidth / CheckedDivisor(double(TipLength));
    const THeadParts head = HeadParts(dx * dx, dy * dy, TipLength);
    const double signX = dx > 0 ? -1 : 1;
    const double signY = dy > 0 ? -1 : 1;
    const int baseX = RoundToInt(X2 + signX * head.Along);
    const int baseY = RoundToInt(Y2 + signY * head.Down);
    const double sideX = r * head.Down * signY;
    const double sideY = r * head.Along * signX;

    const TPoint corners[] = {{X2, Y2},
                              {RoundToInt(baseX - sideX), RoundToInt(baseY + sideY)},
                              {RoundToInt(baseX + sideX), RoundToInt(baseY - sideY)}};
    Canvas.Brush.SetColor(Canvas.Pen.GetColor());
    Canvas.Polygon(corners);
}

} // namespace kx
