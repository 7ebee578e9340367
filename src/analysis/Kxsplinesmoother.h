#pragma once
// The smoothing spline by orthogonal transformations: what the approximating spline falls back to where its
// band matrix is too ill-conditioned, or where points without pull leave no such matrix.

#include <span>

namespace kx {

/// Minimises the sum of Weights * (Y - g)^2 plus the integral of g''^2 over all functions g: a cubic spline
/// with knots at X and natural ends. On return Y holds g and Curvatures half of g'' at the knots, 0 at both
/// ends; what stands in Room and MoreRoom is used up. All spans are of the same length, at least 2; X ascends
/// strictly; weights are finite and not negative. A point of weight 0 has no pull: the curve is the one
/// through or near the others.
///
/// The information smoother (G. J. Bierman, Factorization Methods for Discrete Sequential Estimation, 1977)
/// of value and slope, with the second derivatives at both ends of a piece as its noise; by rotations without
/// roots (W. M. Gentleman, J. Inst. Maths Applics 12 (1973) 329), so the result is as good as the data even
/// where the normal equations of the same problem have no correct digit left (a range of 1 with 1e5 points of
/// weight 1). From both ends at once. O(N) time and memory.
///
/// Returns false, and leaves Y and Curvatures undefined, if less than two points have pull, which determine
/// no curve.
bool SmoothSpline(std::span<const double> X, std::span<const double> Weights, std::span<double> Y,
                  std::span<double> Curvatures, std::span<double> Room, std::span<double> MoreRoom);

} // namespace kx
