#include <kxgraph/qt/Kxqtsmoothrect.h>

#include <QVarLengthArray>

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
    const bool isWhole = Inner.isEmpty();
    const auto [left, right] = Touched(Outer.left(), Outer.right(), Window.Left, Window.Right);
    const auto [top, bottom] = Touched(Outer.top(), Outer.bottom(), Window.Top, Window.Bottom);
    // Of 256, in a row that lies in Outer and in Inner to these parts.
    const auto part = [&](int X, double InOuter, double InInner) {
        const double taken = InInner > 0 ? InInner * PartIn(X, Inner.left(), Inner.right()) : 0;
        const double mixed = InOuter * PartIn(X, Outer.left(), Outer.right()) - taken;
        return unsigned(std::lround(256 * std::max(0.0, mixed)));
    };
    // Nearly all rows lie wholly in both and are alike.
    QVarLengthArray<std::pair<int, unsigned>, 64> alike;
    for (int x = left; x < right; ++x)
        if (const unsigned of256 = part(x, 1, isWhole ? 0 : 1); of256 > 0) alike.append({x, of256});
    for (int y = top; y < bottom; ++y) {
        const double outer = PartIn(y, Outer.top(), Outer.bottom()),
                     inner = isWhole ? 0 : PartIn(y, Inner.top(), Inner.bottom());
        QRgb* const row = Image.At(0, y);
        if (outer == 1 && (isWhole || inner == 1))
            for (const auto& [x, of256] : alike) Mix(row[x], Color, of256);
        else
            for (int x = left; x < right; ++x) Mix(row[x], Color, part(x, outer, inner));
    }
}

} // namespace kx::qt
