#include "kxplot/plan/bins.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kxplot {

void TFiniteRange::Include(const std::vector<double>& Values) {
    for (const double value : Values) {
        if (!std::isfinite(value)) continue;
        const bool first = IsEmpty();
        Low = first ? value : std::min(Low, value);
        High = first ? value : std::max(High, value);
    }
}

std::vector<double> EqualBins(const TFiniteRange& Range, int Count) {
    constexpr double most = std::numeric_limits<double>::max(), part = 1e-6;
    double low = Range.Low, high = Range.High;
    if (low == high) {
        const double half = std::max(0.5, std::abs(low) * part); // more than the digits of a large value
        low = std::max(low - half, -most);
        high = std::min(high + half, most);
    }
    const double width = high - low;
    const bool exact = std::isfinite(width * Count); // else the ends are too far apart to be subtracted
    std::vector<double> edges(std::size_t(Count) + 1);
    for (int i = 0; i <= Count; ++i)
        edges[std::size_t(i)] = exact ? low + width * i / Count : std::lerp(low, high, double(i) / Count);
    edges.back() = high;
    return edges;
}

std::vector<double> CountInBins(std::span<const double> Edges, const std::vector<double>& Values) {
    std::vector<double> counts(Edges.size() - 1);
    for (const double value : Values) {
        if (!(value >= Edges.front() && value <= Edges.back())) continue;
        const auto above = std::upper_bound(Edges.begin(), Edges.end(), value) - Edges.begin();
        ++counts[std::min(std::size_t(above) - 1, counts.size() - 1)];
    }
    return counts;
}

std::vector<double> WithLastEdge(const std::vector<double>& Values) {
    std::vector<double> edges = Values;
    const std::size_t count = Values.size();
    if (count == 0) return edges;
    const double width = count > 1 ? Values[count - 1] - Values[count - 2] : 1;
    edges.push_back(Values.back() + (std::isfinite(width) && width != 0 ? width : 1));
    return edges;
}

} // namespace kxplot
