#pragma once
// Antialiased lines that run from left to right, written into an image: the painter takes a time for each
// point of a dense line, this one for each column.

#include <kxgraph/qt/Kxqtraster.h>

#include <QPointF>

#include <array>
#include <span>
#include <vector>

namespace kx::qt {

/// What a solid line with round joints and ends covers. Between two places along x it covers all from the
/// highest to the lowest one, whatever it does between them; so a column of pixels is as many narrow bars.
class TLineCoverage {
public:
    /// Whether x goes one way all along the line.
    static bool IsFor(std::span<const TRealPoint> Line);

    /// Paints Line, Width pixels wide, inside Window, which lies in the image. Places are device pixels; the
    /// middle of the first one is 0.5. A pixel has as many bars as it need have columns, at most 32; of a
    /// window fewer where the line goes up and down within each.
    void Paint(const TPixels& Image, const TRect& Window, std::span<const QPointF> Line, int Columns,
               double Width, QRgb Color);

private:
    struct TBar {
        float Top, Bottom; ///< none where Top is greater
    };
    static constexpr int CMixed = TPixels::CLine, CTogether = 4 * CMixed; // columns
    /// Of each column, how many bars more (or less) are covered than in the row before.
    struct TRow {
        bool IsStep = false; ///< else they are as many
        std::array<float, CTogether> Steps{};
    };
    struct TCovered {
        std::array<float, CTogether> Bars{};
        std::array<unsigned, CTogether> Of256{};
        std::array<unsigned, CTogether / CMixed> Any{}, All{}; // bits in Of256, of CMixed columns
    };
    void KeepReach(double Radius);
    bool Gather(int Left, int Columns);
    void AddSegment(QPointF From, QPointF To);
    void Widen();
    void PaintColumns(const TPixels& Image, const TRect& Window, QRgb Color);
    void AddBar(TBar Bar, int Top, std::size_t Column);
    void Step(TCovered& Covered, const TRow& Row) const;
    static void PaintRow(QRgb* First, const TCovered& Covered, int Columns, QRgb Color);
    /// From left to right.
    QPointF Point(std::size_t Index) const { return FLine[FIsBackward ? FLine.size() - 1 - Index : Index]; }
    /// Bars beside those of the columns that the pen reaches from there.
    std::size_t Beyond() const { return FReach.size() / 2 + 1; }

    std::span<const QPointF> FLine;
    std::size_t FPassed = 0; // points on the left of the columns
    bool FIsBackward = false;
    int FParts = 1;            // bars a pixel
    std::vector<float> FReach; // of the pen, at the halves beside its middle
    // Of some columns together, which stay near to the processor.
    double FFirst = 0;                        // where the first bar begins
    std::array<std::vector<float>, 4> FEdges; // tops of even and of odd halves, and negative bottoms of both
    std::vector<float> FTops, FBottoms;       // of what the pen covers, the latter negative
    std::vector<TRow> FRows;
};

} // namespace kx::qt
