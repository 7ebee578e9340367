#pragma once
// Many ranges and the one that holds all of them, kept up to date range by range.

#include <kxgraph/numeric/Kxrange.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace kx {

/// A list of ranges that knows their union without looking at all of them whenever one changes: a change
/// takes at most as many steps as the number of ranges has binary digits.
class TKxRangeUnion : public TRangeList {
public:
    struct TEnds {
        double Start = CMaxReal, Stop = -CMaxReal;
        friend bool operator==(const TEnds&, const TEnds&) = default;
    };

    int Add(TRange* Range) override;
    int Remove(TRange* Range) override;

    /// To be called after every change of a range in the list; of another one nothing is taken.
    void Update(const TRange& Range);
    /// Looks at all ranges, whatever was told of them.
    void UpdateAll();
    /// What holds all ranges that are not empty; Start above Stop where there are none. A range with an end
    /// that is not a number counts as empty.
    const TEnds& Union() {
        if (!IsComplete()) UpdateAll();
        return FNodes[1];
    }

private:
    static TEnds EndsOf(double Start, double Stop);
    static TEnds Both(const std::vector<TEnds>& Nodes, std::size_t Node);
    void Put(std::size_t Leaf, double Start, double Stop);
    std::size_t LeafOf(const TRange& Range);
    void Enter(const TRange* Range);
    /// The list has operations that tell nobody.
    bool IsComplete() const { return FLeaves.size() == static_cast<std::size_t>(GetCount()); }

    // Node k holds nodes 2k and 2k + 1, and node 1 all; the second half of them are the ranges.
    std::vector<TEnds> FNodes{2};
    std::unordered_map<const TRange*, std::size_t> FLeaves;
    const TRange* FLast = nullptr; // the one of the last change, which is that of the next one as a rule
    std::size_t FLastLeaf = 0;
    std::vector<std::size_t> FFree; // has room for all leaves
};

} // namespace kx
