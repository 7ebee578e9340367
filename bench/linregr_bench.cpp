// Straight lines through a million points, beside those of GSL, whose running means divide at every point.

#include <kxgraph/analysis/Kxlinregr.h>

#include "support/reference.h"

#include <benchmark/benchmark.h>
#include <gsl/gsl_fit.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace kx {
namespace {

constexpr double CInf = std::numeric_limits<double>::infinity();

struct TData {
    std::vector<double> X, Y, W;
};

TData DataOf(benchmark::State& State) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> noise(-1, 1), weight(0.5, 2);
    TData data;
    for (std::int64_t i = 0; i < State.range(0); ++i) {
        data.X.push_back(static_cast<double>(i) * 0.001);
        data.Y.push_back(3 + 2 * data.X.back() + noise(random));
        data.W.push_back(weight(random));
    }
    return data;
}

template <class F>
void Run(benchmark::State& State, F Fit) {
    for (auto _ : State) benchmark::DoNotOptimize(Fit());
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

/// The error of the slope beside plain doubled arithmetic.
void ReportError(benchmark::State& State, const TData& Data, const std::vector<double>& W, double Slope) {
    State.counters["error"] = std::abs(Slope / test::FittedPolynomial(Data.X, Data.Y, W, 1)[1] - 1);
}

void LineByKx(benchmark::State& State) {
    const TData data = DataOf(State);
    TKxLinearRegessionResults results;
    Run(State, [&] { return LinReg(-CInf, CInf, data.X, data.Y, results), results.Slope; });
    ReportError(State, data, {}, results.Slope);
}
void LineByGsl(benchmark::State& State) {
    const TData data = DataOf(State);
    double offset, slope, c00, c01, c11, chi;
    Run(State, [&] {
        return gsl_fit_linear(data.X.data(), 1, data.Y.data(), 1, data.X.size(), &offset, &slope, &c00, &c01,
                              &c11, &chi);
    });
}

void WeightedLineByKx(benchmark::State& State) {
    const TData data = DataOf(State);
    TKxLinearRegessionResults results;
    Run(State, [&] { return LinRegWithWeight(-CInf, CInf, data.X, data.Y, data.W, results), results.Slope; });
    ReportError(State, data, data.W, results.Slope);
}
void WeightedLineByGsl(benchmark::State& State) {
    const TData data = DataOf(State);
    double offset, slope, c00, c01, c11, chi;
    Run(State, [&] {
        return gsl_fit_wlinear(data.X.data(), 1, data.W.data(), 1, data.Y.data(), 1, data.X.size(), &offset,
                               &slope, &c00, &c01, &c11, &chi);
    });
}

void LineThroughOriginByKx(benchmark::State& State) {
    const TData data = DataOf(State);
    TKxLinearRegessionResults results;
    Run(State, [&] { return OfsReg(-CInf, CInf, data.X, data.Y, results), results.Slope; });
}
void LineThroughOriginByGsl(benchmark::State& State) {
    const TData data = DataOf(State);
    double slope, c11, chi;
    Run(State,
        [&] { return gsl_fit_mul(data.X.data(), 1, data.Y.data(), 1, data.X.size(), &slope, &c11, &chi); });
}

/// One value in a hundred is missing and a tenth of the points lies outside.
void LineWithGapsByKx(benchmark::State& State) {
    TData data = DataOf(State);
    for (std::size_t i = 50; i < data.Y.size(); i += 100)
        data.Y[i] = std::numeric_limits<double>::quiet_NaN();
    TKxLinearRegessionResults results;
    const double stop = 0.9 * data.X.back();
    Run(State, [&] { return LinReg(0, stop, data.X, data.Y, results), results.Slope; });
}

BENCHMARK(LineByKx)->Arg(100)->Arg(1000000);
BENCHMARK(LineByGsl)->Arg(100)->Arg(1000000);
BENCHMARK(WeightedLineByKx)->Arg(1000000);
BENCHMARK(WeightedLineByGsl)->Arg(1000000);
BENCHMARK(LineThroughOriginByKx)->Arg(1000000);
BENCHMARK(LineThroughOriginByGsl)->Arg(1000000);
BENCHMARK(LineWithGapsByKx)->Arg(1000000);

} // namespace
} // namespace kx
