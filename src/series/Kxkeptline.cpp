#include <kxgraph/series/Kxkeptline.h>

#include <kxgraph/platform/drawing/simplification.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double CSamePlace = 1e-9; // pixels

/// How far a view has moved, if value A has moved as far as value B.
std::optional<double> ShiftOf(const TKxAxisMap& Before, const TKxAxisMap& Map, double A, double B) {
    if (Before == Map) return 0;
    if (Before.Scaling != Map.Scaling) return std::nullopt;
    const double a = Map.RealToPlace(A) - Before.RealToPlace(A),
                 b = Map.RealToPlace(B) - Before.RealToPlace(B);
    if (!(std::abs(a - b) <= CSamePlace)) return std::nullopt;
    return a;
}

} // namespace

bool TKxKeptLine::Keep(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Placing,
                       TKxStretch Stretch) {
    if (Placing == FPlacing && Stretch == FStretch) return FIsKept;
    const TKxPlacing before = std::exchange(FPlacing, {});
    FIsKept = Placing.Count > 0 && IsSorted(X, Placing.Count) && Gather(X, Y, before, Placing, Stretch);
    FPlacing = Placing;
    FStretch = Stretch;
    return FIsKept;
}

bool TKxKeptLine::Gather(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Before,
                         const TKxPlacing& Placing, TKxStretch Stretch) {
    TKxKeptPoints kept;
    kept.ReserveAs(FKept);
    const TKxSection section = TKxLineColumns(FColumnsPerPixel, X, Y).Section(Placing.Count, Stretch);
    if (Placing.BreaksAtGaps && HasGaps(X, section.First, section.Last)) return false;
    const int before = std::exchange(FColumns, ColumnsFor(section, Stretch));
    const bool wereAll = std::exchange(FKeepsAll, AreFew(section, Stretch));
    const bool isPlain = FIsKept && FColumns == before && FKeepsAll == wereAll && FKept.RunEnds.empty() &&
                         !FKept.Columns.empty();
    TKxLineGatherer gatherer(FColumns, X, Y, kept, FKeepsAll);
    TKxColumnStart from{section.First, section.First};
    if (Placing.BreaksAtGaps && HasGaps(Y, section.First, section.Last)) {
        gatherer.GatherRuns(section);
        FKept = std::move(kept);
        return true;
    }
    if (isPlain && Stretch == FStretch && IsAppendedTo(X, Y, Before, Placing)) {
        const TKxColumnStart last = FKept.Columns.back().Start;
        kept = std::exchange(FKept, {});
        if (last.First > section.First) from = last;
        kept.Shorten(last.First > section.First ? last.First : 0);
    } else if (const auto moved = isPlain ? Moved(X, Before, Placing, section) : std::nullopt) {
        gatherer.Gather(from, FKept.Columns[moved->First].Start.First, false);
        kept.Append(FKept, moved->First, moved->Last, moved->By);
        from = FKept.Columns[moved->Last].Start;
    }
    gatherer.Gather(from, section.Last);
    FKept = std::move(kept);
    return true;
}

/// Points in a column.
double TKxKeptLine::Density(TKxSection Section, TKxStretch Stretch) const {
    const double columns = double(FColumnsPerPixel) * (double(Stretch.Right) - Stretch.Left + 1);
    return (Section.Last - Section.First) / columns;
}

int TKxKeptLine::ColumnsFor(TKxSection Section, TKxStretch Stretch) const {
    constexpr double CCrowd = 4, CThrong = 8 * CCrowd;
    if (FColumnsPerPixel >= CColumnsPerPixel) return FColumnsPerPixel;
    const double density = Density(Section, Stretch);
    const int share = density >= CThrong ? 4 : density >= CCrowd ? 2 : 1;
    return (FColumnsPerPixel + share - 1) / share;
}

/// So few that to look for columns would take longer than to draw them all.
bool TKxKeptLine::AreFew(TKxSection Section, TKxStretch Stretch) const {
    constexpr double CFew = 4;
    return FColumnsPerPixel > 0 && Density(Section, Stretch) <= CFew;
}

// More of the same, under the same maps.
bool TKxKeptLine::IsAppendedTo(const TKxChannel& X, const TKxChannel& Y, const TKxPlacing& Before,
                               const TKxPlacing& Placing) const {
    TKxPlacing same = Placing;
    same.VersionX = Before.VersionX;
    same.VersionY = Before.VersionY;
    same.Count = Before.Count;
    return same == Before && Placing.Count >= Before.Count &&
           X.GetVector()->HasOnlyGrownSince(Before.VersionX) &&
           Y.GetVector()->HasOnlyGrownSince(Before.VersionY);
}

/// The columns that have only moved: neither the first nor the last, now or before, where lines are kept in
/// another way. What lies between the extremes of a column is the same wherever they stand along a linear Y.
std::optional<TKxKeptLine::TMoved> TKxKeptLine::Moved(const TKxChannel& X, const TKxPlacing& Before,
                                                      const TKxPlacing& Placing, TKxSection Section) const {
    if (!Placing.HasPointsOf(Before)) return std::nullopt;
    const TKxAxisMap &from = Before.MapY, &to = Placing.MapY;
    if (from != to && (from.IsLogarithmic() || to.IsLogarithmic())) return std::nullopt;
    const auto startsBefore = [](int Point) {
        return [Point](const TKxKeptPoints::TColumn& Column) { return Column.Start.First < Point; };
    };
    const auto begin = FKept.Columns.begin() + 1, end = FKept.Columns.end();
    const auto first = std::partition_point(begin, end, startsBefore(Section.First + 1));
    const auto behind = std::partition_point(first, end, startsBefore(Section.Last));
    if (behind - first < 2) return std::nullopt;
    const auto index = [this](auto At) { return std::size_t(At - FKept.Columns.begin()); };
    const auto x = MovedAlong(X, Before.MapX, Placing.MapX, index(first), index(behind - 1));
    if (!x) return std::nullopt;
    TRealPoint by; // values stay what they are
    if (FColumns > 0) {
        const auto y = ShiftOf(from, to, to.Start, to.Stop);
        if (!y) return std::nullopt;
        by = {*x, *y};
    }
    return TMoved{index(first), index(behind - 1), by};
}

/// How far columns First..Last have moved along X, all alike. Rounding decides which pixel a point between
/// two stands in: where columns are pixels, one point at either side of a border may be in the other column
/// now; all that both need is kept.
std::optional<double> TKxKeptLine::MovedAlong(const TKxChannel& X, const TKxAxisMap& Before,
                                              const TKxAxisMap& Map, std::size_t First,
                                              std::size_t Last) const {
    const auto start = [&](std::size_t Column) { return FKept.Columns[Column].Start.First; };
    const auto shift = ShiftOf(Before, Map, X.GetValue(start(First)), X.GetValue(start(Last)));
    if (!shift) return std::nullopt;
    const int parts = std::max(FColumns, 1);
    const double by = std::round(*shift * parts) / parts;
    if (std::abs(*shift - by) > CSamePlace) return std::nullopt;
    const auto stays = [&](int Point) {
        const double value = X.GetValue(Point);
        return Map.RealToIntPosition(value) == Before.RealToIntPosition(value) + int(by);
    };
    if (FColumns == 0)
        for (std::size_t i = First; i <= Last; ++i)
            if (!stays(std::max(start(i) - 2, 0)) || !stays(std::min(start(i) + 1, X.GetCount() - 1)))
                return std::nullopt;
    return by;
}

} // namespace kx
