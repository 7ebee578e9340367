#include "analysis/Kxsmoothing.h"

#include "platform/matherror.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

namespace kx {

namespace {

using TValues = std::vector<double>;

/// What is summed up of weights, and of values times weights.
#if defined(__GNUC__)
using TLanes [[gnu::vector_size(16)]] = double;
#else
struct TLanes {
    double Weight, Value;
    friend TLanes operator+(TLanes a, TLanes b) { return {a.Weight + b.Weight, a.Value + b.Value}; }
    friend TLanes operator-(TLanes a, TLanes b) { return {a.Weight - b.Weight, a.Value - b.Value}; }
    friend TLanes operator*(TLanes a, TLanes b) { return {a.Weight * b.Weight, a.Value * b.Value}; }
};
#endif

/// A number of about 32 digits as an unevaluated sum.
template <class T>
struct TPair {
    T Hi{};
    T Lo{};
};

/// Knuth's exact sum.
template <class T>
TPair<T> Sum(T a, T b) {
    const T sum = a + b, part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

template <class T>
TPair<T> Sum(const TPair<T>& a, const TPair<T>& b) {
    const TPair<T> hi = Sum(a.Hi, b.Hi);
    return {hi.Hi, hi.Lo + (a.Lo + b.Lo)};
}

/// Dekker's exact product of factors below 1e299, and what the lower parts add.
TPair<TLanes> Product(const TPair<TLanes>& a, const TPair<TLanes>& b) {
    const auto upper = [](TLanes v) {
        const TLanes c = TLanes{134217729, 134217729} * v;
        return c - (c - v);
    };
    const TLanes a1 = upper(a.Hi), a2 = a.Hi - a1, b1 = upper(b.Hi), b2 = b.Hi - b1, product = a.Hi * b.Hi;
    const TLanes rest = a2 * b2 - (((product - a1 * b1) - a2 * b1) - a1 * b2);
    return {product, rest + (a.Hi * b.Lo + a.Lo * b.Hi)};
}

/// Sums over points, of 1 and y and of both times the distance t from the anchor.
struct TSums {
    TPair<TLanes> Plain, Moment;

    void Add(double t, double y) {
        Accumulate(Plain, TLanes{1, y});
        Accumulate(Moment, TLanes{t, t * y});
    }
    friend TSums operator+(const TSums& a, const TSums& b) {
        return {Sum(a.Plain, b.Plain), Sum(a.Moment, b.Moment)};
    }

private:
    static void Accumulate(TPair<TLanes>& Total, TLanes Value) {
        const TPair<TLanes> sum = Sum(Total.Hi, Value);
        Total = {sum.Hi, Total.Lo + sum.Lo};
    }
};

/// Points in ascending or, for the other side of the window, descending order of x; M and all distances
/// multiplied by the power of two Scale.
struct TSide {
    const double* X;
    const double* Y;
    std::ptrdiff_t Step;
    double M;
    double Scale;

    double DistanceOf(std::ptrdiff_t i, std::ptrdiff_t Anchor) const {
        return std::abs(X[i * Step] - X[Anchor * Step]) * Scale;
    }
    /// M less the distance of i from the anchor, exactly.
    TPair<TLanes> Rest(std::ptrdiff_t i, std::ptrdiff_t Anchor) const {
        const TPair<double> d = Sum(X[i * Step], -X[Anchor * Step]);
        const double scale = d.Hi < 0 ? Scale : -Scale;
        const TPair<double> rest = Sum(M, d.Hi * scale);
        const double lo = rest.Lo + d.Lo * scale;
        return {TLanes{rest.Hi, rest.Hi}, TLanes{lo, lo}};
    }
};

/// Adds to Means[i] the points before i that are nearer than M. The window is a queue of two stacks: sums
/// from each of its older points up to the anchor, and one of the points since. When the last older point
/// leaves, the newest one becomes the anchor and all points of the window older ones: each once.
void AddPointsBefore(const TSide& Side, std::ptrdiff_t n, TLanes* Means) {
    std::vector<TSums> older; // [k]: of the points from anchor - k to the anchor
    TSums newer;
    std::ptrdiff_t lo = 0, anchor = -1;
    for (std::ptrdiff_t i = 1; i < n; ++i) {
        while (lo < i && !(Side.DistanceOf(i, lo) < Side.M)) ++lo;
        if (lo > anchor) {
            anchor = i - 1;
            newer = {};
            older.clear();
            TSums sums;
            for (std::ptrdiff_t l = anchor; l >= lo; --l) {
                sums.Add(-Side.DistanceOf(l, anchor), Side.Y[l * Side.Step]);
                older.push_back(sums);
            }
        } else {
            newer.Add(Side.DistanceOf(i - 1, anchor), Side.Y[(i - 1) * Side.Step]);
        }
        if (lo == i) continue;
        const TSums all = older[std::size_t(anchor - lo)] + newer;
        const TPair<TLanes> total = Sum(Product(all.Plain, Side.Rest(i, anchor)), all.Moment);
        Means[i * Side.Step] = Means[i * Side.Step] + (total.Hi + total.Lo);
    }
}

/// 1, or the power of two that brings values of this magnitude to about 1 when sums of them might overflow or
/// vanish.
double SafeScale(double Magnitude) {
    const int exponent = Magnitude > 0 ? std::ilogb(Magnitude) : 0;
    return std::abs(exponent) > 800 ? std::ldexp(1, -std::max(exponent, -1000)) : 1;
}

TValues SmoothAscending(double M, const TValues& X, TValues Y) {
    double greatest = 0;
    for (const double y : Y) greatest = std::max(greatest, std::abs(y));
    const double yScale = SafeScale(greatest);
    for (double& y : Y) y *= yScale;

    const double scale = std::ldexp(1, -std::clamp(std::ilogb(M), -1000, 1000));
    const auto n = static_cast<std::ptrdiff_t>(X.size());
    std::vector<TLanes> means(X.size(), TLanes{});
    AddPointsBefore({X.data(), Y.data(), 1, M * scale, scale}, n, means.data());
    AddPointsBefore({&X.back(), &Y.back(), -1, M * scale, scale}, n, &means.back());
    const double own = M * scale;
    for (std::size_t i = 0; i < X.size(); ++i) {
        const auto [weights, values] = std::bit_cast<std::array<double, 2>>(means[i]);
        if (weights > 0) Y[i] = (own * Y[i] + values) / (own + weights);
        Y[i] /= yScale;
    }
    return Y;
}

TValues SmoothDirectly(double M, const TValues& X, const TValues& Y) {
    TValues result(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        std::size_t lo = i, hi = i;
        while (lo > 0 && std::abs(X[i] - X[lo]) < M) --lo;
        while (hi + 1 < X.size() && std::abs(X[i] - X[hi]) < M) ++hi;
        double sum = 0, weights = 0;
        for (std::size_t l = lo; l <= hi; ++l) {
            const double w = 1 - std::abs(X[i] - X[l]) / M;
            if (!(w > 0)) continue;
            sum += w * Y[l];
            weights += w;
        }
        result[i] = sum / weights;
    }
    return result;
}

/// Log10 is not certain to keep the order of neighbours.
void KeepOrder(const TValues& X, TValues& Positions) {
    for (std::size_t i = 1; i < X.size(); ++i)
        if (X[i - 1] <= X[i]) Positions[i] = std::max(Positions[i], Positions[i - 1]);
}

void Smooth(double M, const TKxRealArray& X, TKxRealArray& Y, bool Log) {
    const int n = std::min(X.Length(), Y.Length());
    if (n < 3) throw EMathError("Not enough data!");
    if (!(M > 0)) return;
    const auto takesPart = [&](int i) { return std::isfinite(X[i]) && std::isfinite(Y[i]); };
    TValues x, y;
    for (int i = 0; i < n; ++i) {
        if (!takesPart(i)) continue;
        x.push_back(X[i]);
        y.push_back(Y[i]);
    }
    if (x.size() < 3) throw EMathError("Not enough data!");
    if (Log) {
        TValues positions;
        for (const double v : x) positions.push_back(std::log10(CheckedPositive(v)));
        KeepOrder(x, positions);
        x.swap(positions);
    }
    M = std::min(M, std::numeric_limits<double>::max());
    y = std::is_sorted(x.begin(), x.end()) ? SmoothAscending(M, x, std::move(y)) : SmoothDirectly(M, x, y);
    auto next = y.begin();
    for (int i = 0; i < n; ++i)
        if (takesPart(i)) Y[i] = *next++;
}

} // namespace

void SmoothVector(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, false); }

void SmoothVectorLog(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, true); }

} // namespace kx
