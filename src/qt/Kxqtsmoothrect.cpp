#include <kxgraph/qt/Kxqtsmoothrect.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx::qt {

namespace {

/// How much of Low..High lies in the pixel.
double PartIn(int Pixel, double Low, double High) {
    return std::clamp(std::min(High, Pixel + 1.0) - std::max(Low, double(Pixel)), 0.0, 1.0);
}

/// The pixels of First..Last - 1 that Low..High touches.
std::pair<int, int> Touched(double Low, double High, int First, int Last) {
    const auto inside = [&](double Edge) { return int(std::clamp(Edge, double(First), double(Last))); };
    return {inside(std::floor(Low)), inside(std::ceil(High))};
}

} // namespace

void MixFrame(const TPixels& Image, const TRect& Window, const QRectF& Outer, const QRectF& Inner,
              QRgb Color) {
    const auto [left, right] = Touched(Outer.left(), Outer.right(), Window.Left, Window.Right);
    const auto [top, bottom] = Touched(Outer.top(), Outer.bottom(), Window.Top, Window.Bottom);
    for (int y = top; y < bottom; ++y) {
        const double outer = PartIn(y, Outer.top(), Outer.bottom()),
                     inner = Inner.isEmpty() ? 0 : PartIn(y, Inner.top(), Inner.bottom());
        QRgb* pixel = Image.At(left, y);
        for (int x = left; x < right; ++x, ++pixel) {
            double part = outer * PartIn(x, Outer.left(), Outer.right());
            if (inner > 0) part -= inner * PartIn(x, Inner.left(), Inner.right());
            Mix(*pixel, Color, int(256 * part + 0.5));
        }
    }
}

} // namespace kx::qt
