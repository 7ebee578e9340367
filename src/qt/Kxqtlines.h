#pragma once
// Scan conversion of lines one device pixel wide. The painter's own thin lines leave out the right or lower
// end, whichever way they run; these leave out the last pixel, and a clip never moves a pixel.

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/drawing/graphics.h>

#include <QRect>

#include <cstdint>
#include <span>
#include <vector>

namespace kx::qt {

/// Lengths of dashes and gaps in turn, in pen widths; empty for a solid line.
std::span<const int> DashesOf(TPenStyle Style);

/// Appends to Runs the pixels of lines inside Window, as rectangles one pixel wide or high. A line and the
/// same line backwards have the same pixels but for the ends. Points reach +-CMaxPixel.
class TLineScanner {
public:
    TLineScanner(const TRect& Window, TPenStyle Style, bool Join, std::vector<QRect>& Runs);

    /// The lines through Points without the very last pixel; each joint is one pixel of one line.
    void Polyline(std::span<const TPoint> Points);
    /// The closed outline; a polygon without extent is one pixel.
    void Polygon(std::span<const TPoint> Points);

private:
    struct TSlope;
    class TRises;
    void Segment(TPoint From, TPoint To);
    void Scan(const TSlope& Line);
    void Run(const TSlope& Line, std::int64_t First, std::int64_t Last, std::int64_t Step);
    void Emit(const TSlope& Line, std::int64_t First, std::int64_t Last, std::int64_t Step);

    void EmitColumn(int X, int Top, int Bottom);

    TRect FWindow;
    bool FJoin;
    std::vector<QRect>& FRuns;
    unsigned FPattern = 1; // bit n tells whether the nth pixel of the period is drawn
    int FPeriod = 1;
    std::int64_t FDone = 0; // pixels of the lines before
};

} // namespace kx::qt
