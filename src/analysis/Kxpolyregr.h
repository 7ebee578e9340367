#pragma once
// Polynomials through the points of two vectors by least squares, with or without weights: normal equations,
// solved by a Cholesky decomposition. Pure: numbers in, numbers out.
//
// Only points with Start <= x <= Stop take part, and of those only the ones whose x, y (and weight) are
// finite; the vectors are paired index by index up to the shortest count.
//
// Normal equations square the condition of the data. So they are formed and solved in pairs of doubles, about
// an origin amid the data and in units of a power of two, and no digit is lost that the data hold; the
// coefficients in x follow from there and are rounded last. What is still too near to singular for that
// raises rather than giving a polynomial through rounding noise.

#include <kxgraph/analysis/Kxbands.h>
#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxweightmeaning.h>
#include <kxgraph/numeric/Kxdoubled.h>
#include <kxgraph/numeric/Kxvector.h>

#include <span>
#include <vector>

namespace kx {

/// What a polynomial fit found, and in Order what is asked for.
struct TKxPolynomRegessionResults { // the spelling is part of the interface
    int Order = 2;                  ///< degree, from 0
    TKxRealArray Coefficients; ///< Order + 1: y = c0 + c1 x + c2 x^2 + ..., for the reader; see EvaluateFit
    double AverageX = 0;       ///< (weighted) mean of x
    double AverageY = 0;       ///< (weighted) mean of y
    double VarianceX = 0;      ///< sample variance of x: Sxx / (N - 1); see PolynomRegressionWithWeight
    double VarianceY = 0;      ///< sample variance of y, likewise; both 0 where the divisor is not positive
    double R2 = 0;             ///< 1 - ChiSquare / Syy; 1 when all y are equal
    double QRel = 0;           ///< sqrt(ChiSquare / (N - Order)), N the number of points
    double ChiSquare = 0;      ///< (weighted) sum of squared residuals

    int Points = 0;  ///< how many points took part
    int Freedom = 0; ///< degrees of freedom: N - Order - 1

    TKxRealArray DeltaCoefficients; ///< standard errors: sqrt(ChiSquare / (N - Order - 1) * (inverse
                                    ///< M)[i][i]), M the normal matrix in x; 0 for N = Order + 1
    double AdjR2 = 0;               ///< 1 - (1 - R2) (N - 1) / (N - Order - 1); R2 for N = Order + 1
    double Origin = 0;              ///< the x about which the system was solved; exactly representable
    TKxRealArray InnerCoefficients; ///< Order + 1: y = d0 + d1 t + d2 t^2 + ... with t = (x - Origin) / Scale
    /// Polynomials of t = (x - Origin) / 2^ErrorExponent, the lowest coefficient first: their squares add up
    /// to the variance of the curve. Empty for N = Order + 1.
    std::vector<std::vector<TKxDoubled>> ErrorPolynomials;
    int ErrorExponent = 0;
    double Deviation = 0; ///< standard deviation of a point of weight 1, or of the mean one with precisions
    double Scale = 1;     ///< 1, or a power of two where d of x - Origin would not be normal numbers
};

/// The fitted polynomial at X, by Horner's rule about the inner origin: Coefficients about a far zero would
/// cancel. 0 before the first fit.
double EvaluateFit(const TKxPolynomRegessionResults& Results, double X);

/// What is known of the polynomial at X, without the loss that the coefficients' covariances would have.
TKxCurveValue ValueAt(const TKxPolynomRegessionResults& Results, double X);

/// Fits the polynomial of degree Results.Order. N counts all points that take part, as a rule also those of
/// weight 0. A coefficient too small for a double is 0. All else raises, and Results stays as it was:
/// - EMathError "Not enough data!" for Order < 0, for less than Order + 1 points (with a weight other than
/// 0),
///   and when the sum of weights is not positive;
/// - EMathError "Cholesky Decomposition ([i,i]): Matrix is not positive definite!" for less than Order + 1
///   distinct x, and for points that pairs of doubles cannot tell from such (so for every Order above 64);
///   with negative weights that, or the same with "[0,0]";
/// - EOverflow when a result is beyond the range of a double.
/// Standard errors never depend on the unit of the weights. Variances are Sxx / (Sw - 1) with weights that
/// are counts, Sw being their sum; with precisions N / (N - 1) Sxx / Sw, and points of weight 0 do not count
/// in N. Without weights both are the same.
void PolynomRegression(const TKxFitPoints& Points, TKxPolynomRegessionResults& Results,
                       TKxWeightMeaning Meaning = wmCounts);

inline void PolynomRegression(std::span<const double> X, std::span<const double> Y, double Start, double Stop,
                              TKxPolynomRegessionResults& Results) {
    PolynomRegression(TKxFitPoints::Of(X, Y).Within(Start, Stop), Results);
}
inline void PolynomRegressionWithWeight(std::span<const double> X, std::span<const double> Y,
                                        std::span<const double> W, double Start, double Stop,
                                        TKxPolynomRegessionResults& Results,
                                        TKxWeightMeaning Meaning = wmCounts) {
    PolynomRegression(TKxFitPoints::Of(X, Y, W).Within(Start, Stop), Results, Meaning);
}

} // namespace kx
