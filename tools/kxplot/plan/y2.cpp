#include "kxplot/plan/y2.h"

#include <algorithm>
#include <cmath>

namespace kxplot {

namespace {

double LargestMagnitude(const std::vector<double>& Values) {
    double largest = 0;
    for (const double value : Values)
        if (std::isfinite(value)) largest = std::max(largest, std::abs(value));
    return largest;
}

} // namespace

std::vector<std::size_t> SeriesForY2(std::span<const std::vector<double>> Series) {
    constexpr double decades = 2;
    std::vector<std::size_t> off;
    double first = 0;
    for (std::size_t k = 0; k < Series.size(); ++k) {
        const double own = LargestMagnitude(Series[k]);
        if (first == 0) first = own;
        if (own > 0 && std::abs(std::log10(own) - std::log10(first)) > decades) off.push_back(k);
    }
    return off;
}

} // namespace kxplot
