#include <kxgraph/numeric/Kxrangeunion.h>

#include <algorithm>
#include <bit>

namespace kx {

/// Of what is no range those of an empty one.
TKxRangeUnion::TEnds TKxRangeUnion::EndsOf(double Start, double Stop) {
    return Stop >= Start ? TEnds{Start, Stop} : TEnds();
}

TKxRangeUnion::TEnds TKxRangeUnion::Both(const std::vector<TEnds>& Nodes, std::size_t Node) {
    const TEnds &a = Nodes[2 * Node], &b = Nodes[2 * Node + 1];
    return {std::min(a.Start, b.Start), std::max(a.Stop, b.Stop)};
}

// Upwards as far as anything changes. Both ends are written at once: two that were written apart are slow to
// read as one, which is how compilers read them.
void TKxRangeUnion::Put(std::size_t Leaf, double Start, double Stop) {
    TEnds ends = EndsOf(Start, Stop);
    FNodes[Leaf] = ends;
    for (std::size_t at = Leaf; at > 1; at /= 2) {
        const TEnds& sibling = FNodes[at ^ 1];
        ends = {std::min(ends.Start, sibling.Start), std::max(ends.Stop, sibling.Stop)};
        TEnds& both = FNodes[at / 2];
        if (both == ends) return;
        both = ends;
    }
}

void TKxRangeUnion::UpdateAll() {
    const std::size_t leaves = std::bit_ceil(static_cast<std::size_t>(GetCount()) + 1);
    std::vector<TEnds> nodes(2 * leaves);
    std::unordered_map<const TRange*, std::size_t> places;
    std::vector<std::size_t> free;
    free.reserve(leaves);
    for (const TRange* range : *this) {
        nodes[leaves + places.size()] = EndsOf(range->GetStart(), range->GetStop());
        places.emplace(range, leaves + places.size());
    }
    for (std::size_t leaf = leaves + places.size(); leaf < 2 * leaves; ++leaf) free.push_back(leaf);
    for (std::size_t node = leaves - 1; node > 0; --node) nodes[node] = Both(nodes, node);
    FNodes.swap(nodes);
    FLeaves.swap(places);
    FFree.swap(free);
    FLast = nullptr;
}

void TKxRangeUnion::Enter(const TRange* Range) {
    if (FFree.empty()) return UpdateAll();
    FLeaves.emplace(Range, FFree.back());
    Put(FFree.back(), Range->GetStart(), Range->GetStop());
    FFree.pop_back();
}

int TKxRangeUnion::Add(TRange* Range) {
    if (!IsComplete()) UpdateAll();
    if (FLeaves.contains(Range)) Remove(Range);
    const int index = TRangeList::Add(Range);
    try {
        Enter(Range);
    } catch (...) {
        Delete(index);
        throw;
    }
    return index;
}

int TKxRangeUnion::Remove(TRange* Range) {
    const int index = TRangeList::Remove(Range);
    if (const auto place = FLeaves.find(Range); place != FLeaves.end()) {
        Put(place->second, CMaxReal, -CMaxReal);
        FFree.push_back(place->second);
        FLeaves.erase(place);
        FLast = nullptr;
    }
    return index;
}

/// 0 where the range is not in the list.
std::size_t TKxRangeUnion::LeafOf(const TRange& Range) {
    if (&Range == FLast) return FLastLeaf;
    const auto place = FLeaves.find(&Range);
    if (place == FLeaves.end()) return 0;
    FLast = &Range;
    return FLastLeaf = place->second;
}

void TKxRangeUnion::Update(const TRange& Range) {
    if (const std::size_t leaf = LeafOf(Range)) Put(leaf, Range.GetStart(), Range.GetStop());
}

} // namespace kx
