#include <kxgraph/series/Kxkeptline.h>

#include <kxgraph/platform/drawing/simplification.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

/// The first of First..Last - 1 that IsBehind holds for, as for all after it; Last without one.
template <class F>
int FirstBehind(int First, int Last, F IsBehind) {
    while (First < Last) {
        const int middle = First + (Last - First) / 2;
        if (IsBehind(middle))
            Last = middle;
        else
            First = middle + 1;
    }
    return First;
}

int PixelX(const TKxChannel& X, int Index) {
    ++PointsTouched;
    return X.PixelOf(Index);
}

/// x values that stand one behind the other wherever they have a place.
bool IsSorted(const TKxChannel& X, int Count) {
    const auto& vector = *X.GetVector();
    if (!vector.IsAscending() && !vector.IsDescending()) return false;
    return !X.IsLogarithmic() || (vector.GetValue(0) > 0 && vector.GetValue(Count - 1) > 0);
}

/// Whether pixels grow with indices.
bool Rises(const TKxChannel& X) { return X.GetVector()->IsAscending() == X.GetAxis()->GetMap().Forward; }

TKxSection SortedIn(const TKxChannel& X, int Count, TKxStretch Stretch) {
    const bool rises = Rises(X);
    const auto isIn = [&](int i) {
        return rises ? PixelX(X, i) >= Stretch.Left : PixelX(X, i) <= Stretch.Right;
    };
    const auto isBehind = [&](int i) {
        return rises ? PixelX(X, i) > Stretch.Right : PixelX(X, i) < Stretch.Left;
    };
    const int first = FirstBehind(0, Count, isIn);
    return {first, FirstBehind(first, Count, isBehind)};
}

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
    TColumns(TKxLineColumns Columns, const TKxChannel& X, const TKxChannel& Y, std::vector<int>& Kept,
             std::vector<int>& Runs)
        : FX(X), FY(Y), FKept(Kept), FRuns(Runs), FAreParts(Columns == TKxLineColumns::Parts) {}

    /// The points that stand in Stretch and one with a number on either side; a number is the last.
    TKxSection Section(int Count, TKxStretch Stretch) const {
        auto [first, last] = SortedIn(FX, Count, Stretch);
        while (first > 0 && !IsNumber(--first)) {
        }
        while (last < Count && !IsNumber(last)) ++last;
        last = std::min(last + 1, Count);
        while (last > first && !IsNumber(last - 1)) --last;
        return {first, last};
    }
    /// Returns the first point of the last column.
    int Gather(TKxSection Section) {
        int column = Section.First;
        for (int i = Section.First; i < Section.Last;) {
            column = i;
            i = EndOfColumn(i, Section.Last);
            FLength = i - column;
            KeepColumn(column, i, i == Section.Last);
        }
        return column;
    }
    /// The same of a line that is interrupted; not of what has no place along X.
    void GatherRuns(TKxSection Section) {
        for (int i = Section.First; i < Section.Last;) {
            const int end = EndOfColumn(i, Section.Last);
            FLength = end - i;
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
        if (FAreParts) return End; // nothing is left out
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

    /// What tells the columns along X apart, and where a point stands across them.
    double Column(int Index) const {
        if (!FAreParts) return PixelX(FX, Index);
        ++PointsTouched;
        return ColumnOf(FX.PlaceOf(Index));
    }
    double Across(int Index) const { return FAreParts ? FY.PlaceOf(Index) : FY.PixelOf(Index); }

    bool IsNumber(int Index) const { return !std::isnan(FY.GetValue(Index)); }

    /// In ever longer steps, then by halving: sparse points cost one step each, many in a column little more.
    /// Steps begin where a column as long as the one before would nearly end.
    int EndOfColumn(int First, int Last) const {
        constexpr int CMany = 16, CAlmost = 2;
        const double column = Column(First);
        const auto isBehind = [&](int i) { return Column(i) != column; };
        int known = First;
        if (FLength >= CMany && FLength < Last - First) {
            const int near = First + FLength - CAlmost;
            if (isBehind(near)) return FirstBehind(First + 1, near, isBehind);
            known = near;
        }
        for (int step = 1; known < Last; known += step, step *= 2) {
            const int next = step < Last - known ? known + step : Last;
            if (next == Last || isBehind(next)) return FirstBehind(known + 1, next, isBehind);
        }
        return Last;
    }

    void KeepColumn(int First, int End, bool EndsThere) {
        if (EndsThere && !FAreParts) return KeepEnd(First, End);
        if (!Trim(First, End)) return;
        const int last = End - 1;
        const auto [a, b] = EndsOf(First, last);
        for (const int i : {First, a, b, last}) Keep(i);
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
        if (FKept.empty() || FKept.back() < Index) FKept.push_back(Index);
    }

    const TKxChannel &FX, &FY;
    std::vector<int>&FKept, &FRuns;
    bool FAreParts;
    int FLength = 0;      // of the last column
    bool FIsOpen = false; // the run goes on in the next column
};

} // namespace

TKxSection SectionIn(const TKxChannel& X, int Count, TKxStretch Stretch) {
    if (Count == 0 || !IsSorted(X, Count)) return {0, Count};
    return SortedIn(X, Count, Stretch);
}

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

bool TKxKeptLine::Gather(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing,
                         TKxStretch Stretch, bool Appended) {
    TColumns columns(FColumns, X, Y, FPoints, FRuns);
    const TKxSection section = columns.Section(Placing.Count, Stretch);
    const bool breaks = Placing.BreaksAtGaps;
    if (breaks && HasGaps(X, section.First, section.Last)) return false;
    const int from = Appended ? std::max(FLastColumn, section.First) : section.First;
    if (!Appended) FPoints.clear();
    FRuns.clear();
    if (breaks && HasGaps(Y, section.First, section.Last)) {
        FPoints.clear();
        columns.GatherRuns(section);
        return true;
    }
    while (!FPoints.empty() && FPoints.back() >= from) FPoints.pop_back();
    FLastColumn = columns.Gather({from, section.Last});
    return true;
}

} // namespace kx
