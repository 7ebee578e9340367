#pragma once
// What a picture needs of a long line, gathered column by column.

#include <kxgraph/series/Kxlinecolumns.h>

#include <utility>
#include <vector>

namespace kx {

/// What is kept of a line.
struct TKxKeptPoints {
    struct TColumn {
        TKxColumnStart Start;
        int Begin = 0; ///< of its points among Points
    };
    std::vector<int> Points;        ///< indices, ascending; of a least and a greatest one they are only near
    std::vector<TRealPoint> Places; ///< where they stand, if columns are parts of a pixel; else their values
    std::vector<int> RunEnds;       ///< among Points; none for a line that is not interrupted
    std::vector<TColumn> Columns;   ///< of a line that is not interrupted

    /// Room for as many as Other has.
    void ReserveAs(const TKxKeptPoints& Other);
    /// Leaves the points in front of point Before, and their columns.
    void Shorten(int Before);
    /// Columns First..Last - 1 of Other, By further along both axes.
    void Append(const TKxKeptPoints& Other, std::size_t First, std::size_t Last, TRealPoint By);
};

/// Whether values among First..End - 1 may interrupt a line that breaks at gaps; false is certain.
bool HasGaps(const TKxChannel& Channel, int First, int End);

/// Gathers what is kept behind what Kept has already.
class TKxLineGatherer {
public:
    /// ColumnsPerPixel as in TKxKeptLine. KeepsAll, only where columns are parts of a pixel: every point that
    /// has a place is kept, in columns of equally many.
    TKxLineGatherer(int ColumnsPerPixel, const TKxChannel& X, const TKxChannel& Y, TKxKeptPoints& Kept,
                    bool KeepsAll = false)
        : FX(X), FY(Y), FColumns(ColumnsPerPixel, X, Y), FKept(Kept), FKeepsAll(KeepsAll) {}

    /// From a column that begins there up to point Last - 1, where the line ends or the next column begins.
    void Gather(TKxColumnStart From, int Last, bool EndsThere = true);
    /// The same of a line that is interrupted; not of what has no place along X.
    void GatherRuns(TKxSection Section);

private:
    class TChain;
    bool AreParts() const { return FColumns.AreParts(); }
    bool IsNumber(int Index) const { return FColumns.IsNumber(Index); }
    bool IsGap(int Index) const { return !FY.HasPlace(FY.GetValue(Index)); }
    double Across(int Index) const { return AreParts() ? FY.PlaceOf(Index) : FY.PixelOf(Index); }
    void CloseRun();
    void GatherAll(int First, int Last);
    void FetchAhead(int Length, int End, int Last) const;

    void KeepColumn(int First, int End, bool EndsThere);
    void KeepWhole(int First, int End);
    void KeepPart(int First, int End, bool EndsThere);
    bool KeepBounds(int First, int End);
    void KeepEnd(int First, int End);
    void KeepPieces(int First, int End, bool EndsThere);
    void Keep(int Index);

    bool Trim(int& First, int& End);
    int StartOfEnd(int First, int End) const;
    std::pair<int, int> EndsOf(int First, int Last) const;
    std::pair<int, int> EndsByPixel(int First, int Last) const;
    std::pair<int, int> FewEnds(int First, int End) const;

    const TKxChannel &FX, &FY;
    TKxLineColumns FColumns;
    TKxKeptPoints& FKept;
    bool FKeepsAll;
    bool FIsOpen = false; // the run goes on in the next column
};

} // namespace kx
