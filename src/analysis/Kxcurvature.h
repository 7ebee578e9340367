#pragma once
// How well the coefficients of a fit are determined, from the curvature of its sum of squares at the minimum.

#include <kxgraph/analysis/Kxderivatives.h>
#include <kxgraph/numeric/Kxconsts.h>

#include <cstddef>
#include <span>
#include <vector>

namespace kx {

/// A fit whose coefficients are found.
struct TKxFitAtRest {
    TKxModelValues Model;
    TKxModelDerivatives Derivatives; ///< empty: by differences of the model
    std::vector<double> Coefficients;
    int Points = 0;
    std::span<const double> Weights; ///< magnitudes count; one for each point, or none for weights of 1
    double SumOfSquares = 0;         ///< of w (y - Model)^2 over the points, whatever measure the fit used
    std::vector<TKxCoefficientLimits> Limits; ///< empty: none
};

/// The covariance of the fitted coefficients: s^2 * inverse(J' W J), where J holds the derivatives of the
/// model by the coefficients at the N points, W the weights |w|, and s^2 = SumOfSquares / (N - n), n the
/// number of coefficients that are not fixed. J' W J is half the curvature of the sum of squares but for the
/// terms with second derivatives of the model, which are left out: near a minimum their residuals cancel, and
/// far from it they are noise (so does, for one, NIST for its certified values). A point of weight 0 counts
/// for nothing, not even in N. The matrix is kept as the product of a root and its transpose, by an
/// orthogonal decomposition, so that nothing is lost where coefficients depend on one another.
///
/// CMaxReal stands for what cannot be told: everything when N <= n, when SumOfSquares is not a finite number
/// or a derivative cannot be had; else what concerns coefficients that have no influence on the model, that
/// other coefficients could make up for (a and b of a * b * x), or that are held at a limit. A fixed
/// coefficient has the error 0.
class TKxCovariance {
public:
    TKxCovariance() = default; ///< of nothing
    /// Calls the model 4 n times in good cases.
    explicit TKxCovariance(const TKxFitAtRest& Fit);

    std::size_t Count() const { return FKnown.size(); }
    /// The standard error of a coefficient.
    double ErrorOf(std::size_t Index) const;
    double Between(std::size_t I, std::size_t J) const;
    /// The standard error of the sum of Factors times coefficients, as of the model where Factors are its
    /// derivatives. What other coefficients make up for does no harm here. CMaxReal when nothing can be told.
    double ErrorAlong(std::span<const double> Factors) const;
    /// s, the standard deviation of a point of weight 1, and the degrees of freedom N - n it comes from; 0
    /// where there are none.
    double GetDeviation() const { return FDeviation; }
    int GetFreedom() const { return FFreedom; }

private:
    void Decompose(std::vector<std::vector<double>>& Columns, const std::vector<std::size_t>& Indices);

    std::vector<std::vector<double>> FRoots; ///< the rows of the root, by coefficient; empty for zeros
    std::vector<bool> FKnown;
    double FDeviation = 0;
    int FFreedom = 0;
};

/// The errors of a TKxCovariance without limits.
TKxRealArray StandardErrors(std::span<const double> Coefficients, const TKxModelValues& Model, int Points,
                            std::span<const double> Weights, double SumOfSquares);

} // namespace kx
