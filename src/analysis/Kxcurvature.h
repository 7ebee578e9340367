#pragma once
// How well the coefficients of a fit are determined, from the curvature of its sum of squares at the minimum.

#include <kxgraph/numeric/Kxconsts.h>

#include <functional>
#include <span>

namespace kx {

/// Fills Values with the model's y at every point, for the given coefficients.
using TKxModelValues = std::function<void(std::span<const double> Coefficients, std::span<double> Values)>;

/// The standard errors of the fitted Coefficients c: square roots of the diagonal of s^2 * inverse(J' W J),
/// where J holds the derivatives of the model by the coefficients at the N points, W the weights |w|, and
/// s^2 = SumOfSquares / (N - n), n the number of coefficients. J' W J is half the curvature of the sum of
/// squares but for the terms with second derivatives of the model, which are left out: near a minimum their
/// residuals cancel, and far from it they are noise (so does, for one, NIST for its certified values).
///
/// SumOfSquares is the sum of w * (y - Model)^2 over the points, whatever measure the fit used. Weights holds
/// one weight for each point, or is empty for weights of 1; a point of weight 0 counts for nothing, not even
/// in N. Points is the number of points. The derivatives are central differences improved by Richardson's
/// rule, with steps in proportion to each coefficient as long as that works; the model is called 4 n times
/// in good cases.
///
/// A standard error is CMaxReal when it cannot be told: all of them when N <= n, when SumOfSquares is not a
/// finite number or a derivative cannot be had; else those of the coefficients that have no influence on the
/// model, or that other coefficients could make up for (a and b of a * b * x).
TKxRealArray StandardErrors(std::span<const double> Coefficients, const TKxModelValues& Model, int Points,
                            std::span<const double> Weights, double SumOfSquares);

} // namespace kx
