// Akima's curve and the triangular average, against GSL's Akima spline and the direct sum.

#include <kxgraph/analysis/Kxakima.h>
#include <kxgraph/analysis/Kxsmoothing.h>

#include "support/reference.h"

#include <benchmark/benchmark.h>
#include <gsl/gsl_spline.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace kx {
namespace {

using TValues = std::vector<double>;
constexpr int CPoints = 1000000;

struct TData {
    explicit TData(int Points) {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> step(0.5, 1.5);
        std::normal_distribution<double> noise;
        for (double at = 0; int(X.size()) < Points; at += step(random)) {
            X.push_back(at);
            Y.push_back(std::sin(at / 50) + 0.1 * noise(random));
        }
    }
    TValues X, Y;
};

struct TCurve {
    explicit TCurve(const TData& Data) : X(nullptr), Y(nullptr) {
        X.AddValues(Data.X);
        Y.AddValues(Data.Y);
        Build();
    }
    void Build() { Akima.RecalculateCoeffs(-1e300, 1e300, &X, &Y, nullptr); }
    TKxRealVector X, Y;
    TKxAkima Akima;
};

struct TGslCurve {
    explicit TGslCurve(const TData& Data)
        : Data(Data), Spline(gsl_spline_alloc(gsl_interp_akima, Data.X.size()), &gsl_spline_free),
          Accelerator(gsl_interp_accel_alloc(), &gsl_interp_accel_free) {
        Build();
    }
    void Build() { gsl_spline_init(Spline.get(), Data.X.data(), Data.Y.data(), Data.X.size()); }
    const TData& Data;
    std::unique_ptr<gsl_spline, decltype(&gsl_spline_free)> Spline;
    std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> Accelerator;
};

template <class T>
void AkimaBuild(benchmark::State& State) {
    const TData data(CPoints);
    T curve(data);
    for (auto _ : State) {
        curve.Build();
        benchmark::ClobberMemory();
    }
    State.SetItemsProcessed(State.iterations() * CPoints);
}
BENCHMARK(AkimaBuild<TCurve>)->Unit(benchmark::kMillisecond);
BENCHMARK(AkimaBuild<TGslCurve>)->Unit(benchmark::kMillisecond);

double Value(TCurve& Curve, double x) { return Curve.Akima.Interpolate(x); }
double Value(TGslCurve& Curve, double x) {
    return gsl_spline_eval(Curve.Spline.get(), x, Curve.Accelerator.get());
}

/// A million ascending abscissae over range(0) knots.
template <class T>
void AkimaEvaluate(benchmark::State& State) {
    const TData data(int(State.range(0)));
    T curve(data);
    TValues x(CPoints), y(CPoints);
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = data.X.back() * (double(i) + 0.5) / CPoints;
    for (auto _ : State) {
        for (std::size_t i = 0; i < x.size(); ++i) y[i] = Value(curve, x[i]);
        benchmark::ClobberMemory();
    }
    State.SetItemsProcessed(State.iterations() * CPoints);
}
BENCHMARK(AkimaEvaluate<TCurve>)->Arg(1000)->Arg(100000)->Arg(CPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(AkimaEvaluate<TGslCurve>)->Arg(1000)->Arg(100000)->Arg(CPoints)->Unit(benchmark::kMillisecond);

/// Windows of so many points on each side, and the largest error at some points beside the direct sum.
void TriangularAverage(benchmark::State& State) {
    const TData data(CPoints);
    TKxRealArray x(CPoints), y(CPoints);
    std::copy(data.X.begin(), data.X.end(), x.begin());
    const double m = data.X.back() / CPoints * double(State.range(0));
    for (auto _ : State) {
        std::copy(data.Y.begin(), data.Y.end(), y.begin());
        SmoothVector(m, x, y);
    }
    State.SetItemsProcessed(State.iterations() * CPoints);
    double error = 0;
    for (std::size_t i = 0; i < CPoints; i += 99991)
        error = std::max(error, std::abs(y[int(i)] - test::TriangularMean(m, data.X, data.Y, i)));
    State.counters["error"] = error;
}
BENCHMARK(TriangularAverage)->Arg(1)->Arg(5)->Arg(5000)->Arg(CPoints)->Unit(benchmark::kMillisecond);

/// The same by the direct sum, for every thousandth point: to be multiplied by 1000.
void TriangularAverageByDirectSum(benchmark::State& State) {
    const TData data(CPoints);
    const double m = data.X.back() * 0.005;
    for (auto _ : State)
        for (std::size_t i = 0; i < data.X.size(); i += 1000) {
            std::size_t lo = i, hi = i;
            while (lo > 0 && data.X[i] - data.X[lo] < m) --lo;
            while (hi + 1 < data.X.size() && data.X[hi] - data.X[i] < m) ++hi;
            double sum = 0, weights = 0;
            for (std::size_t l = lo; l <= hi; ++l) {
                const double w = 1 - std::abs(data.X[i] - data.X[l]) / m;
                if (w <= 0) continue;
                sum += w * data.Y[l];
                weights += w;
            }
            benchmark::DoNotOptimize(sum / weights);
        }
    State.SetItemsProcessed(State.iterations() * CPoints / 1000);
}
BENCHMARK(TriangularAverageByDirectSum)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kx
