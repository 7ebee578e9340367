#include <kxgraph/numeric/Kxextremes.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace kx {

namespace {

constexpr int CShift = 6, CFan = 1 << CShift;
static_assert(CFan == TKxExtremes::CBlock);
constexpr double CInfinity = std::numeric_limits<double>::infinity();

int BlocksOf(int Count, int Shift = CShift) { return (Count >> Shift) + ((Count & ((1 << Shift) - 1)) != 0); }

// Comparisons with what is not a number are false: it never becomes an extreme.
double Lower(double A, double B) { return A < B ? A : B; }
double Higher(double A, double B) { return A > B ? A : B; }

} // namespace

/// The best value so far and the block that it was met in: on level -1 the value itself.
struct TKxExtremes::TBest {
    double Value;
    int Level = -1, At = -1;
};

void TKxExtremes::TLevel::Mark(int Node) {
    Flags[std::size_t(Node)] |= CStale;
    if (StaleFirst > StaleLast) StaleFirst = StaleLast = Node;
    StaleFirst = std::min(StaleFirst, Node);
    StaleLast = std::max(StaleLast, Node);
}

// Whether a block is sorted looks back at the last value of the one before.
void TKxExtremes::Change(int Index) noexcept {
    const int place = Index + FSkipped;
    if (place >= FKnown) return;
    FLevels[0].Mark(place >> CShift);
    if (place + 1 < FKnown) FLevels[0].Mark((place + 1) >> CShift);
}

void TKxExtremes::Cut(int Count) noexcept { CutAt(Count + FSkipped); }

void TKxExtremes::CutAt(int Place) noexcept {
    if (Place >= FKnown) return;
    FKnown = Place & ~(CFan - 1); // the block that is cut is made anew
    if (FKnown <= FSkipped) FKnown = FSkipped = 0;
}

void TKxExtremes::DropFront(int Count) noexcept {
    const int first = FSkipped >> CShift;
    FSkipped += Count;
    if (FSkipped >= CFan && FSkipped >= FKnown / 2)
        FKnown = FSkipped = 0;
    else
        for (int leaf = first; leaf <= FSkipped >> CShift && leaf < BlocksOf(FKnown); ++leaf)
            FLevels[0].Mark(leaf);
}

void TKxExtremes::MakeRoom(int Count) {
    std::size_t level = 0;
    for (int nodes = BlocksOf(Count); nodes > 0; nodes = nodes > CFan ? BlocksOf(nodes) : 0) {
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
    for (std::size_t level = 0; level < FLevels.size(); ++level) Renew(level, Values);
}

void TKxExtremes::Renew(std::size_t Level, std::span<const double> Values) {
    TLevel& at = FLevels[Level];
    for (int node = at.StaleFirst; node <= at.StaleLast; ++node) {
        if ((at.Flags[std::size_t(node)] & CStale) == 0) continue;
        Level == 0 ? RenewLeaf(node, Values) : RenewNode(Level, node);
        if (Level + 1 < FLevels.size()) FLevels[Level + 1].Mark(node >> CShift);
    }
    at.StaleLast = at.StaleFirst - 1;
}

// In lanes, so that compilers use vectors.
void TKxExtremes::RenewLeaf(int Leaf, std::span<const double> Values) {
    constexpr std::size_t CLanes = 4;
    const int start = (Leaf << CShift) - FSkipped; // those in front are gone
    const auto first = std::size_t(std::max(start, 0)),
               last = std::min(std::size_t(std::max(start + CFan, 0)), Values.size());
    double low[CLanes], high[CLanes];
    std::fill_n(low, CLanes, CInfinity);
    std::fill_n(high, CLanes, -CInfinity);
    std::size_t i = first;
    for (; i + CLanes <= last; i += CLanes) {
        for (std::size_t lane = 0; lane < CLanes; ++lane) {
            low[lane] = Lower(Values[i + lane], low[lane]);
            high[lane] = Higher(Values[i + lane], high[lane]);
        }
    }
    for (; i < last; ++i) {
        low[0] = Lower(Values[i], low[0]);
        high[0] = Higher(Values[i], high[0]);
    }
    FLevels[0].Nodes[std::size_t(Leaf)] = {*std::min_element(low, low + CLanes),
                                           *std::max_element(high, high + CLanes)};
    std::int64_t falls = 0, rises = 0, strange = 0;
    for (i = std::max<std::size_t>(first, 1); i < last; ++i) {
        falls += !(Values[i - 1] <= Values[i]);
        rises += !(Values[i - 1] >= Values[i]);
    }
    for (i = first; i < last; ++i) strange += Values[i] != Values[i];
    if (strange > 0) falls = rises = 1; // also a first value that is no number
    FLevels[0].Flags[std::size_t(Leaf)] =
        std::uint8_t((falls > 0 ? CFalls : 0) | (rises > 0 ? CRises : 0) | (strange > 0 ? CNotANumber : 0));
    PointsTouched += std::max(last, first) - first;
}

void TKxExtremes::RenewNode(std::size_t Level, int Node) {
    const TLevel& below = FLevels[Level - 1];
    const std::size_t first = std::size_t(Node) << CShift,
                      last = std::min(first + std::size_t(CFan), below.Nodes.size());
    TNode node{CInfinity, -CInfinity};
    std::uint8_t flags = 0;
    for (std::size_t i = first; i < last; ++i) {
        node = {Lower(below.Nodes[i].Low, node.Low), Higher(below.Nodes[i].High, node.High)};
        flags |= below.Flags[i];
    }
    FLevels[Level].Nodes[std::size_t(Node)] = node;
    FLevels[Level].Flags[std::size_t(Node)] = flags;
}

/// The ends of First..Last - 1, in lanes so that one comparison does not wait for the other. Without a number
/// Low is above High.
template <class F>
TKxExtremes::TNode TKxExtremes::Ends(int First, int Last, F At) {
    TNode a{CInfinity, -CInfinity}, b = a;
    const auto take = [&At](TNode& Ends, int Index) {
        const TNode node = At(Index);
        Ends = {Lower(node.Low, Ends.Low), Higher(node.High, Ends.High)};
    };
    int i = First;
    for (; i + 1 < Last; i += 2) {
        take(a, i);
        take(b, i + 1);
    }
    if (i < Last) take(a, i);
    return {Lower(a.Low, b.Low), Higher(a.High, b.High)};
}

/// Takes First..Last - 1 of one level for what is better than Low and High.
template <class F>
void TKxExtremes::Take(int Level, int First, int Last, F At, TBest& Low, TBest& High) {
    const TNode ends = Ends(First, Last, At);
    if (!(ends.Low <= ends.High)) return;
    const auto first = [&](auto Is) {
        int i = First;
        while (!Is(At(i))) ++i;
        return i;
    };
    if (ends.Low < Low.Value || Low.At < 0)
        Low = {ends.Low, Level,
               first([&](const TNode& Node) { return Node.Low == ends.Low && Node.Low <= Node.High; })};
    if (ends.High > High.Value || High.At < 0)
        High = {ends.High, Level,
                first([&](const TNode& Node) { return Node.High == ends.High && Node.Low <= Node.High; })};
}

// From the first value to the last one by the largest blocks that fit.
std::pair<TKxExtremes::TBest, TKxExtremes::TBest> TKxExtremes::Best(std::span<const double> Values, int First,
                                                                    int Last) {
    Update(Values);
    TBest low{CInfinity}, high{-CInfinity};
    const auto value = [&](int Place) {
        const double at = Values[std::size_t(Place - FSkipped)];
        return TNode{at, at};
    };
    const int end = Last + FSkipped;
    for (int i = First + FSkipped; i < end;) {
        int level = -1, shift = 0;
        const auto fits = [&](int Shift) {
            const int mask = (1 << Shift) - 1;
            return (i & mask) == 0 && (i + mask < end || end == FKnown);
        };
        while (level + 1 < int(FLevels.size()) && fits(shift + CShift)) {
            ++level;
            shift += CShift;
        }
        // All of that size up to the next larger one.
        const int first = i >> shift, next = (first | (CFan - 1)) + 1;
        const int last = end == FKnown ? BlocksOf(end, shift) : end >> shift;
        const int stop = std::min(next, last);
        if (level < 0) {
            PointsTouched += std::uint64_t(stop - first);
            Take(level, first, stop, value, low, high);
        } else {
            const auto& nodes = FLevels[std::size_t(level)].Nodes;
            Take(
                level, first, stop, [&](int At) { return nodes[std::size_t(At)]; }, low, high);
        }
        i = stop < last || end != FKnown ? stop << shift : end;
    }
    return {low, high};
}

TKxExtremes::TEnds TKxExtremes::Of(std::span<const double> Values, int First, int Last) {
    const auto [low, high] = Best(Values, First, Last);
    if (low.At < 0) return {};
    return {low.Value, high.Value, Find<false>(Values, low), Find<true>(Values, high)};
}

TKxExtremes::TEnds TKxExtremes::InBlocks(std::span<const double> Values, int First, int Last) {
    const auto [low, high] = Best(Values, First, Last);
    if (low.At < 0) return {};
    return {low.Value, high.Value, BlockOf(low), BlockOf(high)};
}

int TKxExtremes::BlockOf(const TBest& Best) const {
    return std::max(0, (Best.At << (CShift * (Best.Level + 1))) - FSkipped);
}

/// The first value of a block that is the best one.
template <bool High>
int TKxExtremes::Find(std::span<const double> Values, const TBest& Best) const {
    std::size_t at = std::size_t(Best.At);
    for (int level = Best.Level; level > 0; --level) {
        at <<= CShift;
        const auto& nodes = FLevels[std::size_t(level) - 1].Nodes;
        while ((High ? nodes[at].High : nodes[at].Low) != Best.Value) ++at;
    }
    const auto skipped = std::size_t(FSkipped);
    if (Best.Level < 0) return int(at - skipped);
    at <<= CShift;
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
