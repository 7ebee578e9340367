#include <kxgraph/analysis/Kxfitpoints.h>

#include <kxgraph/platform/base/matherror.h>

#include <algorithm>

namespace kx {

void RaiseNotEnoughData() { throw EMathError("Not enough data!"); }

TKxFitPoints TKxFitPoints::Of(std::span<const double> X, std::span<const double> Y) {
    return {.X = X.data(), .Y = Y.data(), .Count = std::min(X.size(), Y.size())};
}

TKxFitPoints TKxFitPoints::Of(std::span<const double> X, std::span<const double> Y,
                              std::span<const double> W) {
    return {.X = X.data(), .Y = Y.data(), .W = W.data(), .Count = std::min({X.size(), Y.size(), W.size()})};
}

TKxFitPoints TKxFitPoints::Of(const TKxCustomRealVector& X, const TKxCustomRealVector& Y,
                              const TKxCustomRealVector* W) {
    return W ? Of(X.Values(), Y.Values(), W->Values()) : Of(X.Values(), Y.Values());
}

TKxFitPoints TKxFitPoints::Within(double From, double To) const {
    constexpr double CLowest = std::numeric_limits<double>::lowest(), CLargest = -CLowest;
    return {X, Y, W, Count, From < CLowest ? CLowest : From, To > CLargest ? CLargest : To};
}

TKxFitPoints TKxFitPoints::Part(std::size_t First, std::size_t Most) const {
    return {X + First, Y + First, W ? W + First : nullptr, std::min(Most, Count - First), Start, Stop};
}

TKxFitCopies::TKxFitCopies(const TKxFitPoints& From) {
    for (std::size_t i = 0; i < From.Count; ++i) {
        if (!From.Takes(i)) continue;
        X.push_back(From.X[i]);
        Y.push_back(From.Y[i]);
        if (From.W) W.push_back(From.W[i]);
    }
}

} // namespace kx
