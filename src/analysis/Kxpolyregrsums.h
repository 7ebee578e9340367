#pragma once
// The sums over the points that a polynomial fit is made of, for Kxpolyregr alone. Everything runs over the
// points block by block: those that take part are gathered into a small buffer, so no copy of the data is
// made.

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/numeric/Kxdoubled.h>

#include <cstddef>
#include <span>
#include <vector>

namespace kx {

/// What the points that take part span.
struct TKxFitExtent {
    std::size_t Count = 0;      ///< of the points
    std::size_t WithWeight = 0; ///< of those whose weight is not 0; only they count in what follows
    double LowX = 0, HighX = 0;
    double LowY = 0, HighY = 0;
    double LargestWeight = 0; ///< in magnitude
    double WeightSum = 0;
    bool Whole = false; ///< whether all points there are take part and have a weight
};
TKxFitExtent ExtentOf(const TKxFitPoints& Points);

/// Whether the points whose weight is not 0 have at least Wanted different x. Stops as soon as that is known.
bool HasDistinctX(const TKxFitPoints& Points, std::size_t Wanted);

/// The inner coordinates: t = (x - Origin) / 2^ExponentX, exact as a pair of doubles and not above 2 in
/// magnitude; y and weights divided by powers of two, so that they do not exceed 1.
struct TKxFitFrame {
    double Origin = 0;
    int ExponentX = 0;
    int ExponentY = 0;
    int ExponentW = 0;  ///< even
    bool Whole = false; ///< as in the extent: no point needs to be looked at again
};

struct TKxFitSums {
    std::vector<TKxDoubled> Powers;   ///< sums of w t^k, k = 0 to the highest asked for
    std::vector<TKxDoubled> Products; ///< sums of w r t^k, k = 0 to Order
    TKxDoubled Squares;               ///< sum of w r^2
};
/// The sums of a fit of degree Order in inner coordinates. r is y less the polynomial Coefficients in t; with
/// none it is y.
TKxFitSums SumsOfPowers(const TKxFitPoints& Points, const TKxFitFrame& Frame, int Order, int HighestPower,
                        std::span<const TKxDoubled> Coefficients = {});

struct TKxFitSquares {
    TKxDoubled Residuals;  ///< sum of w (y - P(t))^2
    TKxDoubled Deviations; ///< sum of w (y - Average)^2
};
TKxFitSquares SumsOfSquares(const TKxFitPoints& Points, const TKxFitFrame& Frame,
                            std::span<const TKxDoubled> Coefficients, TKxDoubled Average);

} // namespace kx
