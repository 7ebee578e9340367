#pragma once
// The triangular average of ascending points, for Kxsmoothing alone.

#include <span>
#include <vector>

namespace kx {

/// The mean of all Y[l] with X[l] nearer to X[i] than M, weighted by 1 - |X[i] - X[l]| / M, for each i. All
/// are finite; M is positive.
std::vector<double> SmoothAscending(double M, std::span<const double> X, std::span<const double> Y);

/// 1, or the power of two that brings the greatest value to about 1 when sums might overflow or vanish.
double SafeScale(std::span<const double> Values);

} // namespace kx
