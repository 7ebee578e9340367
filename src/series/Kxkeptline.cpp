#include <kxgraph/series/Kxkeptline.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

bool HasGaps(const TKxChannel& Channel, int First, int End) {
    const auto& vector = *Channel.GetVector();
    if (!vector.AreNumbers(First, End)) return true;
    const auto ends = vector.GetEnds(First, End);
    return !Channel.HasPlace(ends.Low) || !Channel.HasPlace(ends.High);
}

/// Gathers what is kept, column by column.
class TColumns {
public:
    /// Runs gets where the runs of a line that gaps interrupt end among the kept points.
    TColumns(int ColumnsPerPixel, const TKxChannel& X, const TKxChannel& Y, std::vector<int>& Kept,
             std::vector<TRealPoint>& Places, std::vector<int>& Runs)
        : FX(X), FY(Y), FColumns(ColumnsPerPixel, X, Y), FKept(Kept), FPlaces(Places), FRuns(Runs) {}

    TKxSection Section(int Count, TKxStretch Stretch) const { return FColumns.Section(Count, Stretch); }

    /// Returns where the last column begins. One that was gathered before may be given as From.
    TKxColumnStart Gather(TKxColumnStart From, int Last) {
        FIsOpen = !FKept.empty();
        FColumns.Begin(From);
        for (int i = From.First; i < Last;) {
            const int end = FColumns.Next(Last);
            KeepColumn(i, end, end == Last);
            FIsOpen = true;
            i = end;
        }
        return FColumns.Start();
    }
    /// The same of a line that is interrupted; not of what has no place along X.
    void GatherRuns(TKxSection Section) {
        FColumns.Begin({Section.First, Section.First});
        for (int i = Section.First; i < Section.Last;) {
            const int end = FColumns.Next(Section.Last);
            const bool ends = end == Section.Last || IsGap(end);
            if (HasGaps(FY, i, end)) {
                KeepPieces(i, end, ends);
            } else {
                KeepColumn(i, end, ends);
                FIsOpen = true;
            }
            i = end;
        }
        CloseRun();
    }

private:
    /// The values between which a column is painted all over.
    struct TPainted {
        double Low = 0, High = -1;
        bool Holds(double From, double To) const { return Low <= From && To <= High; }
        void Add(double From, double To) {
            if (From <= High && To >= Low) {
                Low = std::min(Low, From);
                High = std::max(High, To);
            } else if (To - From > High - Low) {
                *this = {From, To};
            }
        }
    };

    bool AreParts() const { return FColumns.AreParts(); }
    bool IsNumber(int Index) const { return FColumns.IsNumber(Index); }
    bool IsGap(int Index) const { return !FY.HasPlace(FY.GetValue(Index)); }
    void CloseRun() {
        if (FIsOpen) FRuns.push_back(int(FKept.size()));
        FIsOpen = false;
    }

    // A piece that begins and ends in the column is not to be seen where others have painted all of it.
    void KeepPieces(int First, int End, bool EndsThere) {
        TPainted painted;
        for (int i = First; i < End;) {
            if (IsGap(i)) {
                CloseRun();
                ++i;
                continue;
            }
            int end = i + 1;
            while (end < End && !IsGap(end)) ++end;
            const bool ends = end < End || EndsThere, isWithin = !FIsOpen && ends && end > i + 1;
            const auto [low, high] = FewEnds(i, end);
            if (!isWithin || !painted.Holds(FY.GetValue(low), FY.GetValue(high))) {
                KeepColumn(i, end, ends);
                FIsOpen = true;
                if (isWithin) AddPainted(painted, i, StartOfEnd(i, end));
            }
            i = end;
        }
        PointsTouched += std::uint64_t(End - First);
    }
    /// The first ones of the least and the greatest of values that all have a place.
    std::pair<int, int> FewEnds(int First, int End) const {
        int low = First, high = First;
        for (int i = First + 1; i < End; ++i) {
            if (FY.GetValue(i) < FY.GetValue(low)) low = i;
            if (FY.GetValue(i) > FY.GetValue(high)) high = i;
        }
        return {low, high};
    }
    void AddPainted(TPainted& Painted, int First, int End) const {
        if (First == End) return;
        const auto [low, high] = FewEnds(First, End);
        Painted.Add(FY.GetValue(low), FY.GetValue(high));
    }

    /// The point that the last part of a line leads to: it and those behind it stand in one pixel, which is
    /// left out unless the line was there before.
    int StartOfEnd(int First, int End) const {
        if (AreParts()) return End; // nothing is left out
        int start = End - 1;
        const int pixel = FY.PixelOf(start);
        for (int i = start; i-- > First;) {
            if (!IsNumber(i)) continue;
            if (FY.PixelOf(i) != pixel) break;
            start = i;
        }
        return start;
    }
    /// The last column of a line: what passes the pixel that it ends in, and how it leads there.
    void KeepEnd(int First, int End) {
        if (!Trim(First, End)) return;
        const int last = StartOfEnd(First, End);
        if (last > First) {
            int before = last - 1;
            while (!IsNumber(before)) --before;
            const auto [a, b] = EndsOf(First, last);
            for (const int i : {First, a, b, before}) Keep(i);
        }
        Keep(last);
        Keep(End - 1); // with one point alone it would be a dot
    }

    double Across(int Index) const { return AreParts() ? FY.PlaceOf(Index) : FY.PixelOf(Index); }

    void KeepColumn(int First, int End, bool EndsThere) {
        if (EndsThere && !AreParts()) return KeepEnd(First, End);
        const bool isInside = FIsOpen && !EndsThere; // at an end x decides what comes first
        if (AreParts() && isInside && KeepAbout(First, End)) return;
        if (!Trim(First, End)) return;
        if (AreParts()) return KeepPart(First, End, EndsThere);
        const int last = End - 1;
        const auto [a, b] = EndsOf(First, last);
        for (const int i : {First, a, b, last}) Keep(i);
    }
    /// First and last stand between the extremes, and lines lead from column to column.
    void KeepPart(int First, int End, bool EndsThere) {
        if (!FIsOpen) Keep(First);
        const auto [a, b] = EndsOf(First, End);
        for (const int i : {a, b}) Keep(i);
        if (EndsThere) Keep(End - 1);
    }
    /// The extremes of very many in the middle of the column, without a look at those who hold them.
    bool KeepAbout(int First, int End) {
        constexpr int CMany = 4 * TKxExtremes::CBlock;
        if (End - First < CMany) return false;
        const auto ends = FY.GetVector()->GetEndsInBlocks(First, End);
        if (ends.IsEmpty()) return true;
        if (FY.IsLogarithmic() && !(ends.Low > 0)) return false;
        const TKxAxisMap& map = FY.GetAxis()->GetMap();
        TRealPoint a{FColumns.Middle(), map.RealToPlace(ends.Low)}, b{a.X, map.RealToPlace(ends.High)};
        if (ends.HighAt < ends.LowAt) std::swap(a, b);
        for (const TRealPoint place : {a, b}) {
            FPlaces.push_back(place);
            FKept.push_back(First);
        }
        return true;
    }
    /// Leaves out what is no number at both ends. Few points are kept all; then nothing is left to do.
    bool Trim(int& First, int& End) {
        constexpr int CFew = 4;
        while (End > First && !IsNumber(End - 1)) --End;
        while (First < End && !IsNumber(First)) ++First;
        if (End - First > CFew) return true;
        for (int i = First; i < End; ++i) Keep(i);
        return false;
    }

    /// Least and greatest of First..Last - 1 as they come.
    std::pair<int, int> EndsOf(int First, int Last) const {
        const auto ends = FY.GetVector()->GetEnds(First, Last);
        if (FY.IsLogarithmic() && !(ends.Low > 0)) return EndsByPixel(First, Last);
        return std::minmax({ends.LowAt, ends.HighAt});
    }

    /// On a logarithmic axis values without a logarithm stand beside the start, whatever is less than what.
    std::pair<int, int> EndsByPixel(int First, int Last) const {
        int low = First, high = First;
        for (int i = First; i < Last; ++i) {
            if (!IsNumber(i)) continue;
            if (Across(i) < Across(low)) low = i;
            if (Across(i) > Across(high)) high = i;
        }
        PointsTouched += std::uint64_t(Last - First);
        return std::minmax({low, high});
    }

    void Keep(int Index) {
        if (!FKept.empty() && FKept.back() >= Index) return;
        if (AreParts()) {
            const TRealPoint place{FX.PlaceOf(Index), FY.PlaceOf(Index)};
            if (!IsPlace(place)) return;
            FPlaces.push_back(place);
        }
        FKept.push_back(Index);
    }

    const TKxChannel &FX, &FY;
    TKxLineColumns FColumns;
    std::vector<int>& FKept;
    std::vector<TRealPoint>& FPlaces; // of those, if columns are parts of a pixel
    std::vector<int>& FRuns;
    bool FIsOpen = false; // the run goes on in the next column
};

} // namespace

// More of the same, under the same maps.
bool TKxKeptLine::IsAppendedTo(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing) const {
    TKxPlacing before = Placing;
    before.VersionX = FPlacing.VersionX;
    before.VersionY = FPlacing.VersionY;
    before.Count = FPlacing.Count;
    return FIsKept && before == FPlacing && Placing.Count >= FPlacing.Count &&
           X.GetVector()->HasOnlyGrownSince(FPlacing.VersionX) &&
           Y.GetVector()->HasOnlyGrownSince(FPlacing.VersionY);
}

bool TKxKeptLine::Keep(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing,
                       TKxStretch Stretch) {
    if (Placing == FPlacing && Stretch == FStretch) return FIsKept;
    const bool appended = Stretch == FStretch && FRuns.empty() && IsAppendedTo(X, Y, Placing);
    FPlacing = {};
    FIsKept = Placing.Count > 0 && IsSorted(X, Placing.Count) && Gather(X, Y, Placing, Stretch, appended);
    FPlacing = Placing;
    FStretch = Stretch;
    return FIsKept;
}

/// Leaves the points in front of Before.
void TKxKeptLine::Shorten(int Before) {
    while (!FPoints.empty() && FPoints.back() >= Before) FPoints.pop_back();
    if (FColumnsPerPixel > 0) FPlaces.resize(FPoints.size());
}

bool TKxKeptLine::Gather(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing,
                         TKxStretch Stretch, bool Appended) {
    TColumns columns(FColumnsPerPixel, X, Y, FPoints, FPlaces, FRuns);
    const TKxSection section = columns.Section(Placing.Count, Stretch);
    const bool breaks = Placing.BreaksAtGaps;
    if (breaks && HasGaps(X, section.First, section.Last)) return false;
    const TKxColumnStart start{section.First, section.First};
    const TKxColumnStart from = Appended && FLastColumn.First > section.First ? FLastColumn : start;
    Shorten(Appended ? from.First : 0);
    FRuns.clear();
    if (breaks && HasGaps(Y, section.First, section.Last)) {
        Shorten(0);
        columns.GatherRuns(section);
        return true;
    }
    FLastColumn = columns.Gather(from, section.Last);
    return true;
}

} // namespace kx
