#include <kxgraph/numeric/Kxextremes.h>

#include <kxgraph/numeric/Kxlanes.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace kx {

namespace {

// Blocks of values, and of blocks: where a stretch cuts blocks of any size, all within are looked at.
constexpr int CShift = 6, CFanShift = 4;
static_assert(1 << CShift == TKxExtremes::CBlock && 1 << (CShift + CFanShift) == TKxExtremes::CLargeBlock);
/// From those on Level, -1 for values, to what holds them.
int ShiftAbove(int Level) { return Level < 0 ? CShift : CFanShift; }
constexpr double CInfinity = std::numeric_limits<double>::infinity();

int BlocksOf(int Count, int Shift = CShift) { return (Count >> Shift) + ((Count & ((1 << Shift) - 1)) != 0); }

// Comparisons with what is not a number are false: it never becomes an extreme.
double Lower(double A, double B) { return A < B ? A : B; }
double Higher(double A, double B) { return A > B ? A : B; }

} // namespace

/// The best value so far and where the run of blocks of one level begins, of values on level -1, that it was
/// met in.
struct TKxExtremes::TBest {
    double Value;
    int Level = -1, From = -1;
    bool IsNone() const { return From < 0; }
};

void TKxExtremes::TLevel::Mark(int Node) {
    Flags[std::size_t(Node)] |= CStale;
    if (StaleFirst > StaleLast) StaleFirst = StaleLast = Node;
    StaleFirst = std::min(StaleFirst, Node);
    StaleLast = std::max(StaleLast, Node);
}

// Whether a block is sorted looks back at the last value of the one before.
void TKxExtremes::ChangeAt(int Place) noexcept {
    FLevels[0].Mark(Place >> CShift);
    if (Place + 1 < FKnown) FLevels[0].Mark((Place + 1) >> CShift);
}

void TKxExtremes::Cut(int Count) noexcept { CutAt(Count + FSkipped); }

void TKxExtremes::CutAt(int Place) noexcept {
    if (Place >= FKnown) return;
    FKnown = Place & ~(CBlock - 1); // the block that is cut is made anew
    if (FKnown <= FSkipped) FKnown = FSkipped = 0;
}

void TKxExtremes::DropFront(int Count) noexcept {
    const int first = FSkipped >> CShift;
    FSkipped += Count;
    if (FSkipped >= CBlock && FSkipped >= FKnown / 2)
        FKnown = FSkipped = 0;
    else
        for (int leaf = first; leaf <= FSkipped >> CShift && leaf < BlocksOf(FKnown); ++leaf)
            FLevels[0].Mark(leaf);
}

void TKxExtremes::MakeRoom(int Count) {
    std::size_t level = 0;
    for (int nodes = BlocksOf(Count); nodes > 0;
         nodes = nodes > 1 << CFanShift ? BlocksOf(nodes, CFanShift) : 0) {
        if (level == FLevels.size()) FLevels.emplace_back();
        TLevel& at = FLevels[level++];
        at.Nodes.resize(std::size_t(nodes));
        at.Flags.resize(std::size_t(nodes));
        at.StaleLast = std::min(at.StaleLast, nodes - 1);
    }
    FLevels.resize(level);
}

void TKxExtremes::Update(std::span<const double> Values) {
    const auto places = [&] { return int(Values.size()) + FSkipped; };
    if (FKnown != places() || FSized != places()) {
        CutAt(places());
        const int known = FKnown, count = places();
        const std::size_t levels = FLevels.size();
        FKnown = 0; // where memory fails, nothing is known
        FSized = -1;
        MakeRoom(count);
        const int leaves = BlocksOf(count); // the last one also tells those above of blocks that have gone
        for (int leaf = std::min(known >> CShift, leaves - 1); leaf < leaves; ++leaf)
            if (leaf >= 0) FLevels[0].Mark(leaf);
        for (std::size_t level = std::max<std::size_t>(levels, 1); level < FLevels.size(); ++level)
            for (int node = 0; node < int(FLevels[level].Nodes.size()); ++node) FLevels[level].Mark(node);
        FKnown = FSized = count;
    }
    if (FLevels.empty() || FLevels[0].StaleFirst > FLevels[0].StaleLast) return;
    for (std::size_t level = 0; level < FLevels.size(); ++level) Renew(level, Values);
}

void TKxExtremes::Renew(std::size_t Level, std::span<const double> Values) {
    TLevel& at = FLevels[Level];
    for (int node = at.StaleFirst; node <= at.StaleLast; ++node) {
        if ((at.Flags[std::size_t(node)] & CStale) == 0) continue;
        Level == 0 ? RenewLeaf(node, Values) : RenewNode(Level, node);
        if (Level + 1 < FLevels.size()) FLevels[Level + 1].Mark(node >> CFanShift);
    }
    at.StaleLast = at.StaleFirst - 1;
}

/// Without a number Low is above High. Of eight at once; the last eight overlap those before, which changes
/// nothing.
TKxExtremes::TBounds TKxExtremes::BoundsOf(std::span<const double> Values) {
    constexpr std::size_t CAtOnce = 4 * CLanes;
    const double *at = Values.data(), *const end = at + Values.size();
    if (Values.size() < CAtOnce) {
        TBounds bounds{CInfinity, -CInfinity};
        for (; at < end; ++at) bounds = {Lower(*at, bounds.Low), Higher(*at, bounds.High)};
        return bounds;
    }
    TKxLanes low[4], high[4];
    std::fill_n(low, 4, AllLanes(CInfinity));
    std::fill_n(high, 4, AllLanes(-CInfinity));
    const auto take = [&](const double* From) {
        for (std::size_t i = 0; i < 4; ++i) {
            const TKxLanes values = LoadLanes(From + i * CLanes);
            low[i] = Lower(values, low[i]);
            high[i] = Higher(values, high[i]);
        }
    };
    for (; end - at >= std::ptrdiff_t(CAtOnce); at += CAtOnce) take(at);
    if (at < end) take(end - CAtOnce);
    const TKxLanes least = Lower(Lower(low[0], low[1]), Lower(low[2], low[3])),
                   greatest = Higher(Higher(high[0], high[1]), Higher(high[2], high[3]));
    return {Lower(least[0], least[1]), Higher(greatest[0], greatest[1])};
}

void TKxExtremes::RenewLeaf(int Leaf, std::span<const double> Values) {
    const int start = (Leaf << CShift) - FSkipped; // those in front are gone
    const auto first = std::size_t(std::max(start, 0)),
               last = std::min(std::size_t(std::max(start + CBlock, 0)), Values.size());
    FLevels[0].Nodes[std::size_t(Leaf)] = BoundsOf(Values.subspan(first, std::max(last, first) - first));
    std::int64_t falls = 0, rises = 0, strange = 0;
    for (std::size_t i = std::max<std::size_t>(first, 1); i < last; ++i) {
        falls += !(Values[i - 1] <= Values[i]);
        rises += !(Values[i - 1] >= Values[i]);
    }
    for (std::size_t i = first; i < last; ++i) strange += Values[i] != Values[i];
    if (strange > 0) falls = rises = 1; // also a first value that is no number
    FLevels[0].Flags[std::size_t(Leaf)] =
        std::uint8_t((falls > 0 ? CFalls : 0) | (rises > 0 ? CRises : 0) | (strange > 0 ? CNotANumber : 0));
    PointsTouched += std::max(last, first) - first;
}

void TKxExtremes::RenewNode(std::size_t Level, int Node) {
    const TLevel& below = FLevels[Level - 1];
    const std::size_t first = std::size_t(Node) << CFanShift,
                      last = std::min(first + (std::size_t(1) << CFanShift), below.Nodes.size());
    TBounds node{CInfinity, -CInfinity};
    std::uint8_t flags = 0;
    for (std::size_t i = first; i < last; ++i) {
        node = {Lower(below.Nodes[i].Low, node.Low), Higher(below.Nodes[i].High, node.High)};
        flags |= below.Flags[i];
    }
    FLevels[Level].Nodes[std::size_t(Node)] = node;
    FLevels[Level].Flags[std::size_t(Node)] = flags;
}

/// The same of blocks, in two lanes so that one comparison does not wait for the
/// other.
TKxExtremes::TBounds TKxExtremes::BoundsOf(std::span<const TBounds> Blocks) {
    TBounds a{CInfinity, -CInfinity}, b = a;
    const auto take = [](TBounds& Bounds, const TBounds& Block) {
        Bounds = {Lower(Block.Low, Bounds.Low), Higher(Block.High, Bounds.High)};
    };
    std::size_t i = 0;
    for (; i + 1 < Blocks.size(); i += 2) {
        take(a, Blocks[i]);
        take(b, Blocks[i + 1]);
    }
    if (i < Blocks.size()) take(a, Blocks[i]);
    return {Lower(a.Low, b.Low), Higher(a.High, b.High)};
}

/// From place First to place Last - 1 by the largest blocks that fit: Take gets the level, -1 for values, and
/// the first block and the one behind the last of each run.
template <class F>
void TKxExtremes::ForBlocks(int First, int Last, F Take) const {
    for (int i = First; i < Last;) {
        int level = -1, shift = 0;
        const auto fits = [&](int Shift) {
            const int mask = (1 << Shift) - 1;
            return (i & mask) == 0 && (i + mask < Last || Last == FKnown);
        };
        while (level + 1 < int(FLevels.size()) && fits(shift + ShiftAbove(level)))
            shift += ShiftAbove(level++);
        // All of that size up to the next larger one.
        const int first = i >> shift, next = (first | ((1 << ShiftAbove(level)) - 1)) + 1;
        const int last = Last == FKnown ? BlocksOf(Last, shift) : Last >> shift;
        const int stop = std::min(next, last);
        if (level < 0) PointsTouched += std::uint64_t(stop - first);
        Take(level, first, stop);
        i = stop < last || Last != FKnown ? stop << shift : Last;
    }
}

TKxExtremes::TBounds TKxExtremes::BoundsOf(std::span<const double> Values, int Level, int First,
                                           int Last) const {
    const auto count = std::size_t(Last - First);
    if (Level < 0) return BoundsOf(Values.subspan(std::size_t(First - FSkipped), count));
    return BoundsOf(std::span(FLevels[std::size_t(Level)].Nodes).subspan(std::size_t(First), count));
}

std::pair<TKxExtremes::TBest, TKxExtremes::TBest> TKxExtremes::Best(std::span<const double> Values, int First,
                                                                    int Last) {
    Update(Values);
    TBest low{CInfinity}, high{-CInfinity};
    ForBlocks(First + FSkipped, Last + FSkipped, [&](int Level, int Begin, int End) {
        const TBounds ends = BoundsOf(Values, Level, Begin, End);
        if (ends.IsEmpty()) return;
        if (ends.Low < low.Value || low.IsNone()) low = {ends.Low, Level, Begin};
        if (ends.High > high.Value || high.IsNone()) high = {ends.High, Level, Begin};
    });
    return {low, high};
}

TKxExtremes::TEnds TKxExtremes::Of(std::span<const double> Values, int First, int Last) {
    const auto [low, high] = Best(Values, First, Last);
    if (low.IsNone()) return {};
    return {low.Value, high.Value, Find<false>(Values, low), Find<true>(Values, high)};
}

TKxExtremes::TBounds TKxExtremes::Bounds(std::span<const double> Values, int First, int Last) {
    Update(Values);
    TBounds all{CInfinity, -CInfinity};
    ForBlocks(First + FSkipped, Last + FSkipped, [&](int Level, int Begin, int End) {
        const TBounds ends = BoundsOf(Values, Level, Begin, End);
        all = {Lower(ends.Low, all.Low), Higher(ends.High, all.High)};
    });
    return all;
}

/// The first value that is the best one.
template <bool High>
int TKxExtremes::Find(std::span<const double> Values, const TBest& Best) const {
    auto at = std::size_t(Best.From);
    for (int level = Best.Level; level >= 0; at <<= ShiftAbove(--level)) {
        const auto& nodes = FLevels[std::size_t(level)].Nodes;
        while ((High ? nodes[at].High : nodes[at].Low) != Best.Value || nodes[at].IsEmpty()) ++at;
    }
    const auto skipped = std::size_t(FSkipped);
    at = at > skipped ? at - skipped : 0;
    const std::size_t first = at;
    while (Values[at] != Best.Value) ++at;
    PointsTouched += at - first + 1;
    return int(at);
}

std::uint8_t TKxExtremes::FlagsOf(std::span<const double> Values) {
    Update(Values);
    std::uint8_t flags = 0;
    if (!FLevels.empty())
        for (const std::uint8_t node : FLevels.back().Flags) flags |= node;
    return flags;
}

bool TKxExtremes::AreNumbers(std::span<const double> Values, int First, int Last) {
    Update(Values);
    for (int leaf = (First + FSkipped) >> CShift; leaf < BlocksOf(Last + FSkipped); ++leaf)
        if ((FLevels[0].Flags[std::size_t(leaf)] & CNotANumber) != 0) return false;
    return true;
}

} // namespace kx
