#pragma once
// Straight lines through the points of two vectors: y = a + b x by least squares, with or without weights,
// with a free or a given offset a. Pure: numbers in, numbers out.
//
// Only points with Start <= x <= Stop take part, in any order, and of those only the ones whose x, y (and
// weight) are finite; the vectors are paired index by index up to the shortest count.
//
// Sums of squares are taken about the means and residuals as (y - mean y) - b (x - mean x), so that x far
// from zero (seconds since 1970, years) costs no digits. Data are gone through once, in blocks that stay in
// the cache: each gives its means, its moments about them and its residuals from its own line, and these are
// put together for the whole by the shift rules of moments (Chan, Golub, LeVeque, The American Statistician
// 37 (1983) 242, taken on to residuals), with compensated sums. The slope is corrected once by the residuals.

#include <kxgraph/analysis/Kxbands.h>
#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxweightmeaning.h>
#include <kxgraph/numeric/Kxvector.h>

#include <span>

namespace kx {

/// What a straight-line fit found. CMaxReal marks a value that could not be computed.
struct TKxLinearRegessionResults { // the spelling is part of the interface
    double Slope = 0;              ///< b
    double DeltaSlope = 0;         ///< standard error of b, scaled by the reduced chi-square
    double Offset = 0;             ///< a; given to the fits with a fixed offset
    double DeltaOffset = 0;   ///< standard error of a, scaled by the reduced chi-square; 0 for a fixed one
    double AverageX = 0;      ///< (weighted) mean of x
    double AverageY = 0;      ///< (weighted) mean of y
    double VarianceX = 0;     ///< sample variance of x: Sxx / (N - 1); see the rules for weights
    double VarianceY = 0;     ///< sample variance of y, likewise
    double Determination = 0; ///< 1 - ChiSquare / Syy
    double R = 0;             ///< correlation coefficient
    double ChiSquare = 0;     ///< (weighted) sum of squared residuals

    int Points = 0;                ///< how many points took part
    double Freedom = 0;            ///< degrees of freedom; up to 0 there are no standard errors
    double Counted = 0;            ///< what degrees of freedom are counted from: the sum of weights, or N
    double SumOfWeights = 0;       ///< of the points that took part
    bool HasDetermination = false; ///< whether Determination, with a free offset also R, is no marker
};

/// How to fit where there is a choice. N is the number of points of a weight other than 0, Sw the sum of all.
struct TKxLinRegRules {
    /// wmCounts: variances Sxx / (Sw - 1), degrees of freedom Sw - 2, or Sw - 1 with a fixed offset.
    /// wmPrecisions: variances N / (N - 1) Sxx / Sw, degrees of freedom N - 2, or N - 1.
    TKxWeightMeaning Weights = wmCounts;
    /// Through equal y there is a line of slope 0; otherwise markers.
    bool LevelLines = false;
};

// All raise EMathError "Not enough data!" for fewer than two points (one for a fixed offset) and when all
// weights are zero. Every field is written; the fits with a fixed offset keep Offset and leave R and
// DeltaOffset 0. No result is NaN or infinite; what overflows counts as not to be computed.
//
// Without a line (all x equal, all y equal but for LevelLines, a sum of weights <= 0, an overflow) nothing is
// raised: Slope and Offset become CMaxReal, R and Determination 1, ChiSquare 0. An average that cannot be
// computed is CMaxReal. Without degrees of freedom standard errors become 0, and with a free offset ChiSquare
// too. With a fixed offset there is no line when all x are 0; with all y equal only Determination has no
// value and becomes 1. Variances stay 0 for N = 1, for a sum of weights <= 1 that are counts, and where there
// is no line because all x are equal.

/// Weighted where the points have weights.
void LinReg(const TKxFitPoints& Points, TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules = {});
/// A line through (0, Results.Offset).
void OfsReg(const TKxFitPoints& Points, TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules = {});

inline void LinReg(double Start, double Stop, std::span<const double> X, std::span<const double> Y,
                   TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules = {}) {
    LinReg(TKxFitPoints::Of(X, Y).Within(Start, Stop), Results, Rules);
}
inline void LinRegWithWeight(double Start, double Stop, std::span<const double> X, std::span<const double> Y,
                             std::span<const double> W, TKxLinearRegessionResults& Results,
                             const TKxLinRegRules& Rules = {}) {
    LinReg(TKxFitPoints::Of(X, Y, W).Within(Start, Stop), Results, Rules);
}
inline void OfsReg(double Start, double Stop, std::span<const double> X, std::span<const double> Y,
                   TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules = {}) {
    OfsReg(TKxFitPoints::Of(X, Y).Within(Start, Stop), Results, Rules);
}
inline void OfsRegWithWeight(double Start, double Stop, std::span<const double> X, std::span<const double> Y,
                             std::span<const double> W, TKxLinearRegessionResults& Results,
                             const TKxLinRegRules& Rules = {}) {
    OfsReg(TKxFitPoints::Of(X, Y, W).Within(Start, Stop), Results, Rules);
}

/// What is known of the line at X; a further point has the weight 1, or the mean one where weights are
/// precisions. Freedom is 0 where nothing is known.
TKxCurveValue ValueAt(const TKxLinearRegessionResults& Results, double X, bool FixedOffset);

} // namespace kx
