#pragma once
// What a picture needs of a long line: a few points of every column.

#include <kxgraph/series/Kxlinecolumns.h>

#include <cstdint>
#include <span>
#include <vector>

namespace kx {

/// All that decides where the points of a series stand. Points that were placed for an equal one stay.
struct TKxPlacing {
    TKxAxisMap MapX, MapY;
    std::uint64_t VersionX = 0, VersionY = 0; ///< of the vectors
    int Count = -1;
    bool BreaksAtGaps = false;
    friend bool operator==(const TKxPlacing&, const TKxPlacing&) = default;
};

/// The points that a solid line over sorted x values needs, so that a stretch along X looks as all points
/// would make it: of those in one column the first, the least, the greatest and the last one, of which the
/// second and the third are enough where columns are parts of a pixel. Found by
/// halving and by the extremes that vectors keep (Kxextremes.h): a new view costs its columns, not the
/// points, an append the last column, and what is as before costs nothing.
class TKxKeptLine {
public:
    /// Columns are pixels, and the line shows the very pixels of all points; or there are so many in each
    /// pixel (ColumnOf), for smooth devices, and no point is farther than one from the line.
    explicit TKxKeptLine(int ColumnsPerPixel = 0) : FColumnsPerPixel(ColumnsPerPixel) {}
    int GetColumnsPerPixel() const { return FColumnsPerPixel; }

    /// Finds the points, where they are not known. Placing is that of X and Y, which have an axis and a
    /// vector each. Returns false where the line cannot be kept so: x values that are not sorted, or without
    /// a place on their axis where that interrupts the line.
    bool Keep(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing, TKxStretch Stretch);
    /// Indices of the points, ascending. With values that are no numbers among them.
    std::span<const int> Points() const { return FPoints; }
    /// Where the points stand, if columns are parts of a pixel; they are within one of their columns, and
    /// their indices may be only near.
    std::span<const TRealPoint> Places() const { return FPlaces; }
    /// Where the runs end among them that gaps part the line into; none for a line that is not interrupted.
    std::span<const int> RunEnds() const { return FRuns; }

private:
    bool Gather(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing, TKxStretch Stretch,
                bool Appended);
    bool IsAppendedTo(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing) const;

    void Shorten(int Before);

    int FColumnsPerPixel;
    TKxPlacing FPlacing;
    TKxStretch FStretch;
    TKxColumnStart FLastColumn;
    bool FIsKept = false;
    std::vector<int> FPoints, FRuns;
    std::vector<TRealPoint> FPlaces;
};

} // namespace kx
