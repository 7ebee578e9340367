#pragma once
// What a picture needs of a long line: a few points of every column.

#include <kxgraph/series/Kxlinegather.h>

#include <cstdint>
#include <optional>
#include <span>

namespace kx {

/// All that decides where the points of a series stand. Points that were placed for an equal one stay.
struct TKxPlacing {
    TKxAxisMap MapX, MapY;
    std::uint64_t VersionX = 0, VersionY = 0; ///< of the vectors
    int Count = -1;
    bool BreaksAtGaps = false;
    friend bool operator==(const TKxPlacing&, const TKxPlacing&) = default;
    /// The same points, under whatever maps.
    bool HasPointsOf(const TKxPlacing& Other) const {
        return VersionX == Other.VersionX && VersionY == Other.VersionY && Count == Other.Count &&
               BreaksAtGaps == Other.BreaksAtGaps;
    }
};

/// The points that a solid line over sorted x values needs, so that a stretch along X looks as all points
/// would make it: of those in one column the first, the least, the greatest and the last one, of which the
/// second and the third are enough where columns are parts of a pixel. Found by
/// halving and by the extremes that vectors keep (Kxextremes.h): a new view costs its columns, not the
/// points, a view that has only moved the columns that come in, an append the last column, and what is as
/// before costs nothing.
class TKxKeptLine {
public:
    /// Columns are pixels, and the line shows the very pixels of all points; or there are so many in each
    /// pixel (ColumnOf), for smooth devices, and no point is farther than one from the line; half as many
    /// do where they would be crowded, and a quarter where there are hundreds of points to each, unless there
    /// are CColumnsPerPixel, which are for pictures that stay.
    explicit TKxKeptLine(int ColumnsPerPixel = 0) : FColumnsPerPixel(ColumnsPerPixel) {}
    int GetColumnsPerPixel() const { return FColumnsPerPixel; }

    /// Finds the points, where they are not known. Placing is that of X and Y, which have an axis and a
    /// vector each. Returns false where the line cannot be kept so: x values that are not sorted, or without
    /// a place on their axis where that interrupts the line.
    bool Keep(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing, TKxStretch Stretch);
    /// The values of the points along both axes, with such that are no numbers among them; or, if columns are
    /// parts of a pixel, where the points stand, within one of their columns.
    std::span<const TRealPoint> Places() const { return FKept.Places; }
    /// Where the runs end among them that gaps part the line into; none for a line that is not interrupted.
    std::span<const int> RunEnds() const { return FKept.RunEnds; }

private:
    /// Columns First..Last - 1 of those that were kept stand By further.
    struct TMoved {
        std::size_t First, Last;
        TRealPoint By;
    };

    bool Gather(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Before, const TKxPlacing& Placing,
                TKxStretch Stretch);
    bool IsAppendedTo(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Before,
                      const TKxPlacing& Placing) const;
    double Density(TKxSection Section, TKxStretch Stretch) const;
    int ColumnsFor(TKxSection Section, TKxStretch Stretch) const;
    bool AreFew(TKxSection Section, TKxStretch Stretch) const;
    std::optional<TMoved> Moved(const TKxChannel& X, const TKxPlacing& Before, const TKxPlacing& Placing,
                                TKxSection Section) const;
    std::optional<double> MovedAlong(const TKxChannel& X, const TKxAxisMap& Before, const TKxAxisMap& Map,
                                     std::size_t First, std::size_t Last) const;

    int FColumnsPerPixel;
    int FColumns = FColumnsPerPixel; // those that are kept
    bool FKeepsAll = false;          // points, as they come
    TKxPlacing FPlacing;
    TKxStretch FStretch;
    bool FIsKept = false;
    TKxKeptPoints FKept;
};

} // namespace kx
