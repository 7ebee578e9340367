#pragma once
// When a second y axis would help.

#include <cstddef>
#include <span>
#include <vector>

namespace kxplot {

/// Which of some series lie off the first one by more than two decades, by their largest magnitudes: on one
/// axis with it either they or it would be a straight line. In order; series without a value other than 0
/// take no part.
std::vector<std::size_t> SeriesForY2(std::span<const std::vector<double>> Series);

} // namespace kxplot
