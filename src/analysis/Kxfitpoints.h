#pragma once
// The points that an analysis takes its numbers from, and which of them take part.

#include <kxgraph/numeric/Kxvector.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace kx {

/// Raises EMathError "Not enough data!".
[[noreturn]] void RaiseNotEnoughData();

/// Whether a point takes part: its x lies in Start..Stop, which are finite, and its numbers are finite, too.
/// Without a branch, for loops that copy points.
inline bool TakesPart(double X, double Y, double W, double Start, double Stop) {
    constexpr double CLargest = std::numeric_limits<double>::max();
    const double y = std::abs(Y), w = std::abs(W);
    return (Start <= X) & (X <= Stop) & (y <= CLargest) & (w <= CLargest);
}

/// Columns of values and, where W is not null, of weights, and the x that the analysis is limited to. Refers
/// to the values, which must outlive it.
struct TKxFitPoints {
    const double* X = nullptr;
    const double* Y = nullptr;
    const double* W = nullptr; ///< null: all weights are 1
    std::size_t Count = 0;
    double Start = std::numeric_limits<double>::lowest();
    double Stop = std::numeric_limits<double>::max();

    /// As many points as the shortest column has.
    static TKxFitPoints Of(std::span<const double> X, std::span<const double> Y);
    static TKxFitPoints Of(std::span<const double> X, std::span<const double> Y, std::span<const double> W);
    /// W may be null.
    static TKxFitPoints Of(const TKxCustomRealVector& X, const TKxCustomRealVector& Y,
                           const TKxCustomRealVector* W);
    /// Of infinite ends the largest doubles take the place.
    TKxFitPoints Within(double From, double To) const;
    /// Points First, First + 1, ..., at most Most of them.
    TKxFitPoints Part(std::size_t First, std::size_t Most) const;

    double WeightAt(std::size_t Index) const { return W ? W[Index] : 1; }
    /// Whether point Index takes part.
    bool Takes(std::size_t Index) const {
        return TakesPart(X[Index], Y[Index], WeightAt(Index), Start, Stop);
    }
};

/// Copies of the points that take part, one behind the other; W is empty without weights.
struct TKxFitCopies {
    TKxFitCopies() = default;
    explicit TKxFitCopies(const TKxFitPoints& From);

    std::vector<double> X, Y, W;
};

} // namespace kx
