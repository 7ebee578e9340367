#include <kxgraph/series/Kxlinegather.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace kx {

namespace {

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

} // namespace

void TKxKeptPoints::ReserveAs(const TKxKeptPoints& Other) {
    Points.reserve(Other.Points.size());
    Places.reserve(Other.Places.size());
    Columns.reserve(Other.Columns.size());
}

void TKxKeptPoints::Shorten(int Before) {
    while (!Columns.empty() && Columns.back().Start.First >= Before) Columns.pop_back();
    while (!Points.empty() && Points.back() >= Before) Points.pop_back();
    Places.resize(Points.size());
}

void TKxKeptPoints::Append(const TKxKeptPoints& Other, std::size_t First, std::size_t Last, TRealPoint By) {
    const int begin = Other.Columns[First].Begin, end = Other.Columns[Last].Begin;
    const int shift = int(Points.size()) - begin;
    Points.insert(Points.end(), Other.Points.begin() + begin, Other.Points.begin() + end);
    for (int i = begin; i < end; ++i) Places.push_back(Other.Places[std::size_t(i)] + By);
    for (std::size_t i = First; i < Last; ++i)
        Columns.push_back({Other.Columns[i].Start, Other.Columns[i].Begin + shift});
}

bool HasGaps(const TKxChannel& Channel, int First, int End) {
    const auto& vector = *Channel.GetVector();
    if (!vector.AreNumbers(First, End)) return true;
    const auto bounds = vector.GetBounds(First, End);
    if (bounds.IsEmpty()) return false;
    return !Channel.HasPlace(bounds.Low) || !Channel.HasPlace(bounds.High);
}

void TKxLineGatherer::GatherAll(int First, int Last) {
    constexpr int CTogether = 32;
    std::array<TRealPoint, CTogether> places;
    for (int i = First; i < Last; i += CTogether) {
        const std::span together(places.data(), std::size_t(std::min(CTogether, Last - i)));
        FX.Place(i, together);
        FY.Place(i, together);
        FKept.Columns.push_back({{i, i}, int(FKept.Points.size())});
        for (std::size_t k = 0; k < together.size(); ++k) {
            if (!IsPlace(together[k])) continue;
            FKept.Places.push_back(together[k]);
            FKept.Points.push_back(i + int(k));
        }
    }
}

void TKxLineGatherer::Gather(TKxColumnStart From, int Last, bool EndsThere) {
    if (FKeepsAll) return GatherAll(From.First, Last);
    FIsOpen = !FKept.Points.empty();
    FColumns.Begin(From);
    for (int i = From.First; i < Last;) {
        const int end = FColumns.Next(Last);
        FetchAhead(end - i, end, Last);
        FKept.Columns.push_back({FColumns.Start(), int(FKept.Points.size())});
        KeepColumn(i, end, EndsThere && end == Last);
        FIsOpen = true;
        i = end;
    }
}

// If columns go on being Length points long: what the end of one behind End will be found by, and the values
// of the block that it cuts, or all of a short one, are on their way from memory meanwhile.
void TKxLineGatherer::FetchAhead(int Length, int End, int Last) const {
    constexpr int CFew = 16, CFar = 512, CLine = 64 / sizeof(double); // values; so many in a line of a cache
    constexpr int CBlock = TKxExtremes::CBlock;
    if (Length < CFew || !FColumns.LooksAtValues()) return;
    const int at = End + Length * std::max(1, CFar / Length);
    if (at + CBlock >= Last) return;
    const auto &x = *FX.GetVector(), &y = *FY.GetVector();
    const int first = Length < CBlock ? at - Length / 2 : y.GetBlockStart(at);
    for (int i = first; i < first + std::min(Length, CBlock); i += CLine) __builtin_prefetch(y.begin() + i);
    __builtin_prefetch(x.begin() + at - 1);
    __builtin_prefetch(x.begin() + at + 1);
}

void TKxLineGatherer::GatherRuns(TKxSection Section) {
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

void TKxLineGatherer::CloseRun() {
    if (FIsOpen) FKept.RunEnds.push_back(int(FKept.Points.size()));
    FIsOpen = false;
}

/// Pieces of a line that begin and end in one column and paint it all over between two values: each ends
/// among what the next one paints, so that one line through all of them paints the same.
class TKxLineGatherer::TChain {
public:
    explicit TChain(TKxLineGatherer& Gatherer) : FGatherer(Gatherer) {}
    /// What piece First..End - 1 shows.
    void Take(int First, int End) {
        const TPainted all = Between(First, End);
        if (FPainted.Holds(all.Low, all.High)) { // not to be seen
            if (!FOwn.Holds(all.Low, all.High)) Keep();
            return;
        }
        const int last = FGatherer.StartOfEnd(First, End);
        const TPainted painted = last > First ? Between(First, last) : TPainted();
        if (const double end = FEnd > 0 ? Value(FEnd - 1) : 0; FEnd == 0 || !painted.Holds(end, end)) {
            Keep();
            FFirst = First;
            FOwn = painted;
        }
        FEnd = End;
        if (last == First) return;
        FOwn.Add(painted.Low, painted.High);
        FPainted.Add(painted.Low, painted.High);
    }
    void Keep() {
        if (FEnd == 0) return;
        FGatherer.KeepColumn(FFirst, std::exchange(FEnd, 0), true);
        FGatherer.FIsOpen = true;
        FGatherer.CloseRun();
    }

private:
    double Value(int Index) const { return FGatherer.FY.GetValue(Index); }
    TPainted Between(int First, int End) const {
        const auto [low, high] = FGatherer.FewEnds(First, End);
        return {Value(low), Value(high)};
    }

    TKxLineGatherer& FGatherer;
    TPainted FPainted, FOwn; // by any of the column, by this one
    int FFirst = 0, FEnd = 0;
};

void TKxLineGatherer::KeepPieces(int First, int End, bool EndsThere) {
    TChain chain(*this);
    for (int i = First; i < End;) {
        if (IsGap(i)) {
            CloseRun();
            if (IsNumber(i)) chain.Keep(); // that has no place here
            ++i;
            continue;
        }
        int end = i + 1;
        while (end < End && !IsGap(end)) ++end;
        const bool ends = end < End || EndsThere;
        if (!FIsOpen && ends && end > i + 1) {
            chain.Take(i, end);
        } else {
            chain.Keep();
            KeepColumn(i, end, ends);
            FIsOpen = true;
        }
        i = end;
    }
    chain.Keep();
    PointsTouched += std::uint64_t(End - First);
}

/// The first ones of the least and the greatest of values that all have a place.
std::pair<int, int> TKxLineGatherer::FewEnds(int First, int End) const {
    int low = First, high = First;
    for (int i = First + 1; i < End; ++i) {
        if (FY.GetValue(i) < FY.GetValue(low)) low = i;
        if (FY.GetValue(i) > FY.GetValue(high)) high = i;
    }
    return {low, high};
}

/// The point that the last part of a line leads to: it and those behind it stand in one pixel, which is left
/// out unless the line was there before.
int TKxLineGatherer::StartOfEnd(int First, int End) const {
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
void TKxLineGatherer::KeepEnd(int First, int End) {
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

void TKxLineGatherer::KeepColumn(int First, int End, bool EndsThere) {
    if (EndsThere && !AreParts()) return KeepEnd(First, End);
    const bool isInside = FIsOpen && !EndsThere; // at an end x decides what comes first
    constexpr int CMany = 7;
    if (AreParts() && isInside && End - First >= CMany && KeepBounds(First, End)) return;
    if (!Trim(First, End)) return;
    AreParts() ? KeepPart(First, End, EndsThere) : KeepWhole(First, End);
}

/// Two points at either side: a view that moves may round the one at the border into the column beside.
void TKxLineGatherer::KeepWhole(int First, int End) {
    const int last = End - 1;
    int second = First + 1, before = last - 1;
    while (second < last && !IsNumber(second)) ++second;
    while (before > second && !IsNumber(before)) --before;
    for (const int i : {First, second}) Keep(i);
    if (second + 1 < before && !KeepBounds(second + 1, before)) {
        const auto [a, b] = EndsByPixel(second + 1, before);
        for (const int i : {a, b}) Keep(i);
    }
    for (const int i : {before, last}) Keep(i);
}

/// First and last stand between the extremes, and lines lead from column to column.
void TKxLineGatherer::KeepPart(int First, int End, bool EndsThere) {
    if (!FIsOpen) Keep(First);
    const auto [a, b] = EndsOf(First, End);
    for (const int i : {a, b}) Keep(i);
    if (EndsThere) Keep(End - 1);
}

/// Least and greatest, first the one nearer to the line so far, without a look at those who hold them: in the
/// middle of a column that is a part of a pixel, else where the first one stands.
bool TKxLineGatherer::KeepBounds(int First, int End) {
    const auto bounds = FY.GetVector()->GetBounds(First, End);
    if (bounds.IsEmpty()) return true;
    if (FY.IsLogarithmic() && !(bounds.Low > 0)) return false;
    const auto place = [&](double Y) -> TRealPoint {
        if (AreParts()) return {FColumns.Middle(), FY.GetAxis()->GetMap().RealToPlace(Y)};
        return {FX.GetValue(First), Y};
    };
    auto& places = FKept.Places;
    TRealPoint a = place(bounds.Low), b = place(bounds.High);
    const double before = places.empty() ? a.Y : places.back().Y;
    if (std::abs(b.Y - before) < std::abs(a.Y - before)) std::swap(a, b);
    for (const TRealPoint at : {a, b}) {
        places.push_back(at);
        FKept.Points.push_back(First);
    }
    return true;
}

/// Leaves out what is no number at both ends. Few points are kept all; then nothing is left to do.
bool TKxLineGatherer::Trim(int& First, int& End) {
    const int CFew = AreParts() ? 4 : 6;
    while (End > First && !IsNumber(End - 1)) --End;
    while (First < End && !IsNumber(First)) ++First;
    if (End - First > CFew) return true;
    for (int i = First; i < End; ++i)
        if (IsNumber(i)) Keep(i);
    return false;
}

/// Least and greatest of First..Last - 1 as they come.
std::pair<int, int> TKxLineGatherer::EndsOf(int First, int Last) const {
    const auto ends = FY.GetVector()->GetEnds(First, Last);
    if (FY.IsLogarithmic() && !(ends.Low > 0)) return EndsByPixel(First, Last);
    return std::minmax({ends.LowAt, ends.HighAt});
}

/// On a logarithmic axis values without a logarithm stand beside the start, whatever is less than what.
std::pair<int, int> TKxLineGatherer::EndsByPixel(int First, int Last) const {
    int low = First, high = First;
    for (int i = First; i < Last; ++i) {
        if (!IsNumber(i)) continue;
        if (Across(i) < Across(low)) low = i;
        if (Across(i) > Across(high)) high = i;
    }
    PointsTouched += std::uint64_t(Last - First);
    return std::minmax({low, high});
}

void TKxLineGatherer::Keep(int Index) {
    auto& points = FKept.Points;
    if (!points.empty() && points.back() >= Index) return;
    const TRealPoint place = AreParts() ? TRealPoint{FX.PlaceOf(Index), FY.PlaceOf(Index)}
                                        : TRealPoint{FX.GetValue(Index), FY.GetValue(Index)};
    if (AreParts() && !IsPlace(place)) return;
    FKept.Places.push_back(place);
    points.push_back(Index);
}

} // namespace kx
