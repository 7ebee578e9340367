#include <kxgraph/numeric/Kxrangeunion.h>

#include <algorithm>
#include <bit>

namespace kx {

TKxRangeUnion::TEnds TKxRangeUnion::EndsOf(const TRange& Range) {
    if (!(Range.GetStop() >= Range.GetStart())) return {};
    return {Range.GetStart(), Range.GetStop()};
}

TKxRangeUnion::TEnds TKxRangeUnion::Both(const std::vector<TEnds>& Nodes, std::size_t Node) {
    const TEnds &a = Nodes[2 * Node], &b = Nodes[2 * Node + 1];
    return {std::min(a.Start, b.Start), std::max(a.Stop, b.Stop)};
}

// Upwards as far as anything changes.
void TKxRangeUnion::Put(std::size_t Leaf, TEnds Ends) {
    FNodes[Leaf] = Ends;
    for (std::size_t node = Leaf / 2; node > 0; node /= 2) {
        const TEnds both = Both(FNodes, node);
        if (FNodes[node] == both) return;
        FNodes[node] = both;
    }
}

void TKxRangeUnion::UpdateAll() {
    const std::size_t leaves = std::bit_ceil(static_cast<std::size_t>(GetCount()) + 1);
    std::vector<TEnds> nodes(2 * leaves);
    std::unordered_map<const TRange*, std::size_t> places;
    std::vector<std::size_t> free;
    free.reserve(leaves);
    for (const TRange* range : *this) {
        nodes[leaves + places.size()] = EndsOf(*range);
        places.emplace(range, leaves + places.size());
    }
    for (std::size_t leaf = leaves + places.size(); leaf < 2 * leaves; ++leaf) free.push_back(leaf);
    for (std::size_t node = leaves - 1; node > 0; --node) nodes[node] = Both(nodes, node);
    FNodes.swap(nodes);
    FLeaves.swap(places);
    FFree.swap(free);
}

void TKxRangeUnion::Enter(const TRange* Range) {
    if (FFree.empty()) return UpdateAll();
    FLeaves.emplace(Range, FFree.back());
    Put(FFree.back(), EndsOf(*Range));
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
        Put(place->second, {});
        FFree.push_back(place->second);
        FLeaves.erase(place);
    }
    return index;
}

void TKxRangeUnion::Update(const TRange& Range) {
    if (const auto place = FLeaves.find(&Range); place != FLeaves.end()) Put(place->second, EndsOf(Range));
}

TKxRangeUnion::TEnds TKxRangeUnion::Union() {
    if (!IsComplete()) UpdateAll();
    return FNodes[1];
}

} // namespace kx
