#pragma once
// Writing past a painter into the image that it stands on, where that comes to what the painter would do: one
// of its calls costs as much as hundreds of pixels.

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/drawing/graphics.h>

#include <QImage>
#include <QPainter>
#include <QRect>

#include <cstdint>
#include <optional>
#include <span>

namespace kx::qt {

/// The pixels of an image in memory.
struct TPixels {
    QRgb* First;
    qsizetype Stride; // in pixels
    QRgb* At(int X, int Y) const { return First + Y * Stride + X; }
    /// How many pixels of the first row stand before that at X in the same line of the cache.
    int BehindLine(int X) const {
        return int(reinterpret_cast<std::uintptr_t>(At(X, 0)) / sizeof(QRgb) % CLine);
    }
    static constexpr int CLine = 64 / sizeof(QRgb); ///< pixels in a line of the cache

    /// Paints the rectangles, which lie inside the image, with an opaque colour.
    void Fill(std::span<const QRect> Rects, QRgb Color, TPenMode Mode) const;
};

/// Moves a pixel towards Color by Part of 256, 0 to 256, all four channels alike: transparent ones are
/// premultiplied.
inline void Mix(QRgb& Pixel, QRgb Color, unsigned Part) {
    constexpr QRgb CEven = 0x00ff00ff, CHalf = 0x00800080; // two channels at a time
    const unsigned rest = 256 - Part;
    const QRgb even = (Pixel & CEven) * rest + (Color & CEven) * Part + CHalf;
    const QRgb odd = (Pixel >> 8 & CEven) * rest + (Color >> 8 & CEven) * Part + CHalf;
    Pixel = (even >> 8 & CEven) | (odd & ~CEven);
}

/// The same for Parts.size() pixels side by side.
void MixPartly(QRgb* First, std::span<const unsigned> Parts, QRgb Color);
/// The same, the faster the more of them stay as they are or become Color.
void MixRow(QRgb* First, std::span<const unsigned> Parts, QRgb Color);

/// Knows whether a painter stands directly on an image with 32 bits a pixel.
class TRasterAccess {
public:
    /// Refers to Painter, which is active and stays on its device.
    explicit TRasterAccess(const QPainter& Painter);

    /// The pixels, if one that is written inside Window is what the painter would paint there now; nothing
    /// for another kind of device (a window), a painter that is moved, scaled or translucent, a window that
    /// leaves the image, and where pmXor is more than inverting bits. Who writes keeps to the clip.
    std::optional<TPixels> Pixels(const TRect& Window, TPenMode Mode) const;

    /// The same for who mixes with what is there: all four channels of it alike.
    std::optional<TPixels> MixedPixels(const TRect& Window) const { return Pixels(Window, pmXor); }

private:
    const QPainter& FPainter;
    QImage* FImage;
};

} // namespace kx::qt
