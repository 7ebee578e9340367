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

namespace {

constexpr int CBlock = TKxExtremes::CBlock, CLargeBlock = TKxExtremes::CLargeBlock, CManyBlocks = 2;
constexpr double CNarrow = 0.5; // of a column: what may stand in the one beside

} // namespace

int TKxLineColumns::Next(int Last) {
    FStart = FNext;
    const bool isBlock = FStart.First == FStart.At && FStart.At == FX.GetVector()->GetBlockStart(FStart.At);
    FColumn = isBlock && AreParts() ? ColumnOf(PlaceOfBlock(FStart.At), FPerPixel) : Column(FStart.At);
    FEdge = EdgeOfColumn();
    const int end = EndOfBlocks(Last);
    FAreBlocks = end > 0;
    if (FAreBlocks) {
        FNext = {end, end};
    } else {
        const int behind = FirstBehindColumn(FStart.At, Last);
        FNext = {behind < Last ? EndAtBlock(FStart.At, behind) : Last, behind};
    }
    FLength = FNext.At - FStart.At;
    return FNext.First;
}

double TKxLineColumns::EdgeOfColumn() const {
    const TKxAxisMap& map = FX.GetAxis()->GetMap();
    if (!AreParts()) return map.PlaceToReal(FColumn + (FIsAscending == map.Forward ? 0.5 : -0.5));
    return map.PlaceToReal((FIsAscending == map.Forward ? FColumn + 1 : FColumn) / FPerPixel);
}

double TKxLineColumns::PlaceOfBlock(int Index) const {
    return FX.GetAxis()->GetMap().RealToPlace(FX.GetVector()->GetBlockFirst(Index, FIsAscending));
}

/// The end of a column that begins with a block and has many of them, as the one before had, found without a
/// look at values; 0 if there is none like that.
int TKxLineColumns::EndOfBlocks(int Last) const {
    const auto& x = *FX.GetVector();
    const int first = FStart.First;
    if (!AreParts() || FLength < CManyBlocks * CBlock || x.GetBlockStart(first) != first) return 0;
    const int block = FLength < CManyBlocks * CLargeBlock ? CBlock : CLargeBlock;
    const auto start = [&x, block](int Index) { return x.GetBlockStart(Index, block); };
    const auto isBehind = [&](int Index) { return IsBehind(x.GetBlockFirst(Index, FIsAscending)); };
    int end = start(std::min(first + FLength, Last - 1));
    while (end > first && isBehind(end)) end -= block;
    do end += block;
    while (end < Last && !isBehind(end));
    if (end >= Last || end - first < CManyBlocks * CBlock) return 0;
    const double over = std::abs(PlaceOfBlock(end) - PlaceOfBlock(start(end - 1)));
    return over * FPerPixel < CNarrow ? end : 0;
}

/// The extremes of a long column are found without its values if it ends with a block of them. What is over
/// stands so near to the next column that it may as well be in that.
int TKxLineColumns::EndAtBlock(int First, int End) const {
    if (!AreParts() || End - First < CManyBlocks * CBlock) return End;
    const int start = FY.GetVector()->GetBlockStart(End);
    const double over = std::abs(FX.PlaceOf(End - 1) - FX.PlaceOf(start));
    return over * FPerPixel < CNarrow ? start : End;
}

bool TKxLineColumns::IsBehindColumn(int Index) const {
    if (!AreParts()) return Column(Index) != FColumn;
    ++PointsTouched;
    return IsBehind(FX.GetValue(Index));
}

/// Where values are as far apart as they were: found at once. Else they are measured anew.
int TKxLineColumns::FirstBehindColumn(int First, int Last) {
    constexpr int CMany = 3;
    const double start = FX.GetValue(First), steps = std::ceil((FEdge - start) / FSpacing);
    if (steps >= 1 && steps < Last - First) {
        const int end = First + int(steps);
        if (!IsBehindColumn(end - 1) && IsBehindColumn(end)) return end;
    }
    const int end = SearchBehindColumn(First, Last);
    if (end - First >= CMany) FSpacing = (FX.GetValue(end - 1) - start) / (end - 1 - First);
    return end;
}

/// In ever longer steps, then by halving: sparse points cost one step each, many in a column little more.
/// Steps begin where a column as long as the one before would nearly end.
int TKxLineColumns::SearchBehindColumn(int First, int Last) const {
    constexpr int CMany = 16, CAlmost = 2;
    const auto isBehind = [this](int i) { return IsBehindColumn(i); };
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
