#pragma once
// Columns along x that the points of a long line stand in, where x values are sorted.

#include <kxgraph/series/Kxchannel.h>

#include <cmath>

namespace kx {

/// A stretch of pixels along X, both ends included.
struct TKxStretch {
    int Left = 0, Right = 0;
    friend bool operator==(const TKxStretch&, const TKxStretch&) = default;
};

/// The points First..Last - 1.
struct TKxSection {
    int First = 0, Last = 0;
};
/// Those of the first Count points that may stand in Stretch: all of them unless the x values are sorted.
TKxSection SectionIn(const TKxChannel& X, int Count, TKxStretch Stretch);
/// Whether x values stand one behind the other wherever they have a place.
bool IsSorted(const TKxChannel& X, int Count);

/// Where a column of a line begins: with point First, in the column that point At stands in. What lies
/// between the two is over from the column before.
struct TKxColumnStart {
    int First = 0, At = 0;
};

/// Walks along a line from column to column. Columns are pixels; or there are so many in each pixel
/// (ColumnOf).
class TKxLineColumns {
public:
    TKxLineColumns(int PerPixel, const TKxChannel& X, const TKxChannel& Y)
        : FX(X), FY(Y), FPerPixel(PerPixel) {}

    bool AreParts() const { return FPerPixel > 0; }
    bool IsNumber(int Index) const { return !std::isnan(FY.GetValue(Index)); }
    /// The points that stand in Stretch and one with a number on either side; a number is the last.
    TKxSection Section(int Count, TKxStretch Stretch) const;
    void Begin(TKxColumnStart Start) { FStart = FNext = Start; }
    /// The present column, or the first one.
    TKxColumnStart Start() const { return FStart; }
    /// The first point behind the present column, at most Last; the next column begins there. Where columns
    /// are parts of a pixel, one of very many points may end a little earlier, where a block of Y's extremes
    /// ends (Kxextremes.h).
    int Next(int Last);
    /// Whether values told where the present column ends, and will where the next one does, as a rule.
    bool LooksAtValues() const { return !FAreBlocks; }
    /// The middle along X of the present column, if columns are parts.
    double Middle() const { return (FColumn + 0.5) / FPerPixel; }

private:
    double Column(int Index) const;
    bool IsBehind(double Value) const { return FIsAscending ? Value >= FEdge : Value <= FEdge; }
    bool IsBehindColumn(int Index) const;
    double EdgeOfColumn() const;
    int FirstBehindColumn(int First, int Last);
    int SearchBehindColumn(int First, int Last) const;
    int EndAtBlock(int First, int End) const;
    double PlaceOfBlock(int Index) const;
    int EndOfBlocks(int Last) const;

    const TKxChannel &FX, &FY;
    int FPerPixel;
    TKxColumnStart FStart, FNext;
    int FLength = 0;         // of the column before
    bool FAreBlocks = false; // it was found by blocks
    double FColumn = 0;      // the present one
    double FEdge = 0;        // the value where it ends, but for rounding where columns are pixels
    double FSpacing = 0;     // of values, where it was measured last
    bool FIsAscending = FX.GetVector()->IsAscending();
};

} // namespace kx
