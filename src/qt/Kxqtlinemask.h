#pragma once
// Antialiased lines that go to and fro, written into an image: the painter fills one shape for all of a line,
// whose edges cross one another everywhere.

#include <kxgraph/qt/Kxqtpencoverage.h>
#include <kxgraph/qt/Kxqtraster.h>

#include <QPointF>

#include <cstddef>
#include <span>
#include <vector>

namespace kx::qt {

/// What a solid line with round joints and ends covers. Each segment leaves in a mask which places of the
/// pixels along it the pen covers, so that a place counts once, however often the line comes by.
class TLineMask {
public:
    /// Lines of many points, and pens of half a pixel to two and a half.
    static bool IsFor(std::size_t Points, double Width);

    /// Paints Line, Width pixels wide, inside Window, which lies in the image. Places are device pixels; the
    /// middle of the first one is 0.5.
    void Paint(const TPixels& Image, const TRect& Window, std::span<const QPointF> Line, double Width,
               QRgb Color);

private:
    /// Places of pixels in lines: rows for segments that are rather upright and columns for the others, so
    /// that the pixels across a segment are neighbours. Lines go on Margin beyond the mask to either side.
    struct TSheet {
        void Clear(int Count, int Length, int Margin);
        TPixelPlaces* At(int Line, int Place) {
            return Places.data() + std::ptrdiff_t(Line) * Stride + Margin + Place;
        }
        int Count = 0, Length = 0, Margin = 0, Stride = 0;
        std::vector<TPixelPlaces> Places;
    };
    void AddSegment(QPointF From, QPointF To);
    void AddDot(QPointF Place);
    void Draw(bool IsSteep, double Begin, double From, double End, double To);
    void Mix(const TPixels& Image, QRgb Color);
    void MixTile(const TPixels& Image, int X, int Y, QRgb Color);

    TPenCoverage FPen;
    TRect FArea; // of the image
    TSheet FRows, FColumns;
};

} // namespace kx::qt
