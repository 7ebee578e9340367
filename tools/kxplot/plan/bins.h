#pragma once
// The bins that bars stand in: of a histogram, and of values that begin at an x.

#include <span>
#include <vector>

namespace kxplot {

/// Smallest and largest finite value of some; Low > High when there is none.
struct TFiniteRange {
    double Low = 1, High = 0;
    bool IsEmpty() const { return Low > High; }
    void Include(const std::vector<double>& Values);
};

/// The edges of Count equal bins over a range that is not empty. Around a single value they take at least
/// one.
std::vector<double> EqualBins(const TFiniteRange& Range, int Count);
/// How many of the values lie in each bin. A value on an edge counts above it, the largest edge of all below;
/// what is not finite or lies outside of the edges does not count.
std::vector<double> CountInBins(std::span<const double> Edges, const std::vector<double>& Values);
/// The edges of bars that begin at the values: one more, as far off as the last is from the one before, or by
/// 1 where that is no distance.
std::vector<double> WithLastEdge(const std::vector<double>& Values);

} // namespace kxplot
