#include <kxgraph/series/Kxkeptline.h>

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

/// Gathers what is kept, column by column.
class TColumns {
public:
    TColumns(const TKxChannel& X, const TKxChannel& Y, std::vector<int>& Kept) : FX(X), FY(Y), FKept(Kept) {}

    /// The points that stand in Stretch and one with a number on either side.
    TKxSection Section(int Count, TKxStretch Stretch) const {
        auto [first, last] = SortedIn(FX, Count, Stretch);
        while (first > 0 && !IsNumber(--first)) {
        }
        while (last < Count && !IsNumber(last)) ++last;
        return {first, std::min(last + 1, Count)};
    }
    /// Returns the first point of the last column.
    int Gather(TKxSection Section) {
        int column = Section.First;
        for (int i = Section.First; i < Section.Last;) {
            column = i;
            i = EndOfColumn(i, Section.Last);
            KeepColumn(column, i);
        }
        return column;
    }

private:
    bool IsNumber(int Index) const { return !std::isnan(FY.GetValue(Index)); }

    /// In ever longer steps, then by halving: sparse points cost one step each, many in a column little more.
    int EndOfColumn(int First, int Last) const {
        const int pixel = PixelX(FX, First);
        const auto isBehind = [&](int i) { return PixelX(FX, i) != pixel; };
        int known = First;
        for (int step = 1; known < Last; known += step, step *= 2) {
            const int next = step < Last - known ? known + step : Last;
            if (next == Last || isBehind(next)) return FirstBehind(known + 1, next, isBehind);
        }
        return Last;
    }

    // The very last pixel of a line is left out unless it was passed before: what passes it must be there.
    void KeepColumn(int First, int End) {
        constexpr int CFew = 4;
        while (End > First && !IsNumber(End - 1)) --End;
        while (First < End && !IsNumber(First)) ++First;
        if (End - First <= CFew) {
            for (int i = First; i < End; ++i) Keep(i);
            return;
        }
        const int last = End - 1;
        const auto [a, b] = EndsOf(First, last);
        for (const int i : {First, a, b, last}) Keep(i);
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
            if (FY.PixelOf(i) < FY.PixelOf(low)) low = i;
            if (FY.PixelOf(i) > FY.PixelOf(high)) high = i;
        }
        PointsTouched += std::uint64_t(Last - First);
        return std::minmax({low, high});
    }

    void Keep(int Index) {
        if (FKept.empty() || FKept.back() < Index) FKept.push_back(Index);
    }

    const TKxChannel &FX, &FY;
    std::vector<int>& FKept;
};

bool HasGaps(const TKxChannel& Channel, int First, int End) {
    const auto& vector = *Channel.GetVector();
    if (!vector.AreNumbers(First, End)) return true;
    const auto ends = vector.GetEnds(First, End);
    return !Channel.HasPlace(ends.Low) || !Channel.HasPlace(ends.High);
}

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
    const bool appended = Stretch == FStretch && IsAppendedTo(X, Y, Placing);
    FPlacing = {};
    FIsKept = Placing.Count > 0 && IsSorted(X, Placing.Count);
    if (FIsKept) {
        TColumns columns(X, Y, FPoints);
        const TKxSection section = columns.Section(Placing.Count, Stretch);
        const auto hasGaps = [&](const TKxChannel& C) { return HasGaps(C, section.First, section.Last); };
        const int from = appended ? std::max(FLastColumn, section.First) : section.First;
        if (!appended) FPoints.clear();
        while (!FPoints.empty() && FPoints.back() >= from) FPoints.pop_back();
        FIsKept = !Placing.BreaksAtGaps || (!hasGaps(X) && !hasGaps(Y));
        if (FIsKept) FLastColumn = columns.Gather({from, section.Last});
    }
    FPlacing = Placing;
    FStretch = Stretch;
    return FIsKept;
}

} // namespace kx
