// Building the two piecewise cubics from the same points: the approximating spline, where its band system is
// good (few points in a unit of x) and where it falls back to rotations, beside Akima's interpolation.

#include <kxgraph/analysis/Kxakima.h>
#include <kxgraph/analysis/Kxapproxspline.h>
#include <kxgraph/numeric/Kxvector.h>

#include "support/reference.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace {

/// The largest error of a knot beside the band system in doubled arithmetic.
double ErrorOf(const kx::TKxApproxSpline& Spline, const kx::TKxRealVector& X, const kx::TKxRealVector& Y) {
    const auto valuesOf = [](const kx::TKxRealVector& Vector) {
        return std::vector<double>(Vector.Values().begin(), Vector.Values().end());
    };
    double error = 0;
    int i = 0;
    for (const double expected : kx::test::SmoothedBySpline(
             valuesOf(X), valuesOf(Y), std::vector<double>(std::size_t(X.GetCount()), 1)))
        error = std::max(error, std::abs(Spline.A[i++] - expected));
    return error;
}

template <class T, bool Close>
void Build(benchmark::State& State) {
    const auto n = static_cast<int>(State.range(0));
    kx::TKxRealVector x(nullptr), y(nullptr);
    for (int i = 0; i < n; ++i) {
        x.Add(Close ? double(i) / n : i);
        y.Add(std::sin(0.001 * i) + 0.1 * std::sin(7.0 * i));
    }
    T polynom;
    for (auto _ : State) {
        polynom.RecalculateCoeffs(-1, n, &x, &y, nullptr);
        benchmark::DoNotOptimize(polynom.A.Data());
    }
    State.SetItemsProcessed(State.iterations() * std::int64_t(n));
    if constexpr (std::is_same_v<T, kx::TKxApproxSpline>)
        if (n <= 100000) State.counters["error"] = ErrorOf(polynom, x, y);
}

#define KX_SPLINE_SIZES Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(Build<kx::TKxAkima, false>)->KX_SPLINE_SIZES;
BENCHMARK(Build<kx::TKxApproxSpline, false>)->KX_SPLINE_SIZES;
BENCHMARK(Build<kx::TKxApproxSpline, true>)->KX_SPLINE_SIZES;

} // namespace
