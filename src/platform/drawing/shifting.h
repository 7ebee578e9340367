#pragma once
// Sums of pixels that saturate at +-CMaxPixel instead of overflowing: for origins, offsets and nested bounds.

#include <kxgraph/platform/drawing/geometry.h>

namespace kx {

inline int Shifted(int Pixel, int By) {
    const long long sum = static_cast<long long>(Pixel) + By;
    return static_cast<int>(std::clamp<long long>(sum, -CMaxPixel, CMaxPixel));
}
inline TPoint Shifted(TPoint Point, TPoint By) { return {Shifted(Point.X, By.X), Shifted(Point.Y, By.Y)}; }
inline TRect Shifted(const TRect& Rect, TPoint By) {
    return {Shifted(Rect.Left, By.X), Shifted(Rect.Top, By.Y), Shifted(Rect.Right, By.X),
            Shifted(Rect.Bottom, By.Y)};
}
inline double Shifted(double Place, double By) {
    return std::clamp(Place + By, -double(CMaxPixel), double(CMaxPixel));
}
inline TRealPoint Shifted(TRealPoint Point, TRealPoint By) {
    return {Shifted(Point.X, By.X), Shifted(Point.Y, By.Y)};
}
inline TRealRect Shifted(const TRealRect& Rect, TRealPoint By) {
    return {Shifted(Rect.Left, By.X), Shifted(Rect.Top, By.Y), Shifted(Rect.Right, By.X),
            Shifted(Rect.Bottom, By.Y)};
}

} // namespace kx
