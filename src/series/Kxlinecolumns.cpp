#include <kxgraph/series/Kxlinecolumns.h>

#include <kxgraph/platform/drawing/simplification.h>

#include <algorithm>
#include <cmath>

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

} // namespace

bool IsSorted(const TKxChannel& X, int Count) {
    const auto& vector = *X.GetVector();
    if (!vector.IsAscending() && !vector.IsDescending()) return false;
    return !X.IsLogarithmic() || (vector.GetValue(0) > 0 && vector.GetValue(Count - 1) > 0);
}

TKxSection SectionIn(const TKxChannel& X, int Count, TKxStretch Stretch) {
    if (Count == 0 || !IsSorted(X, Count)) return {0, Count};
    return SortedIn(X, Count, Stretch);
}

TKxSection TKxLineColumns::Section(int Count, TKxStretch Stretch) const {
    auto [first, last] = SortedIn(FX, Count, Stretch);
    while (first > 0 && !IsNumber(--first)) {
    }
    while (last < Count && !IsNumber(last)) ++last;
    last = std::min(last + 1, Count);
    while (last > first && !IsNumber(last - 1)) --last;
    return {first, last};
}

double TKxLineColumns::Column(int Index) const {
    if (!AreParts()) return PixelX(FX, Index);
    ++PointsTouched;
    return ColumnOf(FX.PlaceOf(Index), FPerPixel);
}

int TKxLineColumns::Next(int Last) {
    FStart = FNext;
    const int behind = FirstBehindColumn(FStart.At, Last);
    FLength = behind - FStart.At;
    FNext = {behind < Last ? EndAtBlock(FStart.At, behind) : Last, behind};
    return FNext.First;
}

/// The extremes of a long column are found without its values if it ends with a block of them. What is over
/// stands so near to the next column that it may as well be in that.
int TKxLineColumns::EndAtBlock(int First, int End) const {
    constexpr int CManyBlocks = 8;
    if (!AreParts() || End - First < CManyBlocks * TKxExtremes::CBlock) return End;
    const int start = FY.GetVector()->GetBlockStart(End);
    const double over = std::abs(FX.PlaceOf(End - 1) - FX.PlaceOf(start));
    return over * FPerPixel < 0.5 ? start : End;
}

/// In ever longer steps, then by halving: sparse points cost one step each, many in a column little more.
/// Steps begin where a column as long as the one before would nearly end.
int TKxLineColumns::FirstBehindColumn(int First, int Last) const {
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

} // namespace kx
