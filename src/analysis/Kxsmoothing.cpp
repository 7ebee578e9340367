#include <kxgraph/analysis/Kxsmoothing.h>

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxsmoothascending.h>
#include <kxgraph/platform/base/matherror.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace kx {

namespace {

using TValues = std::vector<double>;

TValues SmoothDirectly(double M, std::span<const double> X, std::span<const double> Y) {
    TValues result(X.size());
    const double scale = SafeScale(Y);
    for (std::size_t i = 0; i < X.size(); ++i) {
        std::size_t lo = i, hi = i;
        while (lo > 0 && std::abs(X[i] - X[lo]) < M) --lo;
        while (hi + 1 < X.size() && std::abs(X[i] - X[hi]) < M) ++hi;
        double sum = 0, weights = 0;
        for (std::size_t l = lo; l <= hi; ++l) {
            const double w = 1 - std::abs(X[i] - X[l]) / M;
            if (!(w > 0)) continue;
            sum += w * (Y[l] * scale);
            weights += w;
        }
        result[i] = sum / weights / scale;
    }
    return result;
}

TValues LogarithmsOf(std::span<const double> X) {
    TValues logs(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        logs[i] = std::log10(CheckedPositive(X[i]));
        // Log10 is not certain to keep the order of neighbours.
        if (i > 0 && X[i - 1] <= X[i]) logs[i] = std::max(logs[i], logs[i - 1]);
    }
    return logs;
}

/// For finite values.
TValues SmoothFinite(double M, std::span<const double> X, std::span<const double> Y, bool Log) {
    if (X.size() < 3) RaiseNotEnoughData();
    if (X.front() > X.back() && std::is_sorted(X.rbegin(), X.rend())) {
        const TValues x(X.rbegin(), X.rend()), y(Y.rbegin(), Y.rend());
        TValues result = SmoothFinite(M, x, y, Log);
        std::reverse(result.begin(), result.end());
        return result;
    }
    const TValues logs = Log ? LogarithmsOf(X) : TValues();
    if (Log) X = logs;
    TValues result = std::is_sorted(X.begin(), X.end()) ? SmoothAscending(M, X, Y) : SmoothDirectly(M, X, Y);
    constexpr double most = std::numeric_limits<double>::max();
    for (double& y : result)
        y = std::clamp(y, -most, most); // a mean of the largest may be rounded beyond them
    return result;
}

void Smooth(double M, const TKxRealArray& X, TKxRealArray& Y, bool Log) {
    const int n = std::min(X.Length(), Y.Length());
    if (n < 3) RaiseNotEnoughData();
    if (!(M > 0)) return;
    M = std::min(M, std::numeric_limits<double>::max());
    const std::span<const double> allX(X.Data(), std::size_t(n));
    const std::span<double> allY(Y.Data(), std::size_t(n));
    const auto takesPart = [=](std::size_t i) { return std::isfinite(allX[i]) && std::isfinite(allY[i]); };

    std::size_t leading = 0; // all, as a rule
    while (leading < allX.size() && takesPart(leading)) ++leading;
    if (leading == allX.size()) {
        const TValues result = SmoothFinite(M, allX, allY, Log);
        std::copy(result.begin(), result.end(), allY.begin());
        return;
    }
    TValues x, y;
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < allX.size(); ++i) {
        if (!takesPart(i)) continue;
        indices.push_back(i);
        x.push_back(allX[i]);
        y.push_back(allY[i]);
    }
    const TValues result = SmoothFinite(M, x, y, Log);
    for (std::size_t k = 0; k < indices.size(); ++k) allY[indices[k]] = result[k];
}

} // namespace

void SmoothVector(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, false); }

void SmoothVectorLog(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, true); }

} // namespace kx
