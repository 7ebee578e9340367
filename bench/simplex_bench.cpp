// A nonlinear fit by the downhill simplex: what one point costs in one evaluation, beside GSL's simplex with
// the same model and the same data; as a bare simplex, and as a fitted line with a function and with a parsed
// formula.

#include <kxgraph/analysis/Kxsimplex.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/host/application.h>

#include <gsl/gsl_multimin.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace {

constexpr double CStart[] = {3, 0.5, 0.7};
constexpr int CIterations = 100;

double Decay(double X, const double* C) { return C[0] * std::exp(-C[1] * X) + C[2]; }

/// Points beside a decay, and the sum of squares that both simplexes lessen.
struct TFit {
    explicit TFit(std::int64_t Points) {
        for (std::int64_t i = 0; i < Points; ++i) {
            X.push_back(10.0 * double(i) / double(Points));
            const double c[] = {2, 0.8, 1};
            Y.push_back(Decay(X.back(), c) + 0.01 * std::sin(double(i)));
        }
    }
    double Sum(const double* C) {
        ++Evaluations;
        double sum = 0;
        for (std::size_t i = 0; i < X.size(); ++i) {
            const double rest = Y[i] - Model(X[i], C);
            sum += rest * rest;
        }
        return sum;
    }
    void Report(benchmark::State& State, double Least) const {
        State.SetItemsProcessed(Evaluations * std::int64_t(X.size()));
        State.counters["evaluations"] =
            benchmark::Counter(double(Evaluations), benchmark::Counter::kAvgIterations);
        State.counters["least"] = Least;
    }

    std::vector<double> X, Y;
    double (*volatile Model)(double, const double*) = Decay; // volatile: as foreign as a program's own
    std::int64_t Evaluations = 0;
};

void FitSimplex(benchmark::State& State) {
    TFit fit(State.range(0));
    double least = 0;
    for (auto _ : State) {
        kx::TKxSimplex simplex([&fit](std::span<const double> c) { return fit.Sum(c.data()); });
        simplex.Run(CStart, CIterations);
        least = simplex.BestValue();
    }
    fit.Report(State, least);
}

void FitGsl(benchmark::State& State) {
    TFit fit(State.range(0));
    const auto sum = [](const gsl_vector* c, void* f) { return static_cast<TFit*>(f)->Sum(c->data); };
    gsl_multimin_function function{sum, 3, &fit};
    gsl_vector* start = gsl_vector_alloc(3);
    gsl_vector* step = gsl_vector_alloc(3);
    double least = 0;
    for (auto _ : State) {
        for (std::size_t i = 0; i < 3; ++i) {
            gsl_vector_set(start, i, CStart[i]);
            gsl_vector_set(step, i, CStart[i] * 1.05);
        }
        auto* simplex = gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, 3);
        gsl_multimin_fminimizer_set(simplex, &function, start, step);
        for (int i = 0; i <= CIterations; ++i) gsl_multimin_fminimizer_iterate(simplex);
        least = simplex->fval;
        gsl_multimin_fminimizer_free(simplex);
    }
    gsl_vector_free(start);
    gsl_vector_free(step);
    fit.Report(State, least);
}

/// A fitted line on a series of the same points, without a graph.
struct TLine {
    explicit TLine(std::int64_t Points) : Data(Points) {
        X.AddValues(Data.X);
        Y.AddValues(Data.Y);
        Series.SetXData(&X);
        Series.SetYData(&Y);
        Line.SetName("Line1");
        Line.SetOrder(3);
        Line.SetIterations(CIterations);
    }
    void Calculate() {
        for (int i = 0; i < 3; ++i) Line.SetCoefficient(i, CStart[i]);
        Line.Calculate();
    }
    /// Points times evaluations of one calculation.
    std::int64_t CountCalls() {
        std::int64_t calls = 0;
        Line.SetFittingFunction([&](double x, const kx::TKxRealArray& c) {
            ++calls;
            return Decay(x, c.Data());
        });
        Line.SetParentSeries(&Series);
        calls = 0;
        Calculate();
        return calls;
    }
    TFit Data;
    kx::TKxLiveVector X{&kx::TApplication::Instance()}, Y{&kx::TApplication::Instance()};
    kx::TKxLineSeries Series{nullptr};
    kx::TKxFittedLine Line{nullptr};
};

template <class F>
void FitLine(benchmark::State& State, F SetModel) {
    TLine fit(State.range(0));
    const std::int64_t calls = fit.CountCalls();
    SetModel(fit);
    for (auto _ : State) fit.Calculate();
    State.SetItemsProcessed(calls * std::int64_t(State.iterations()));
    State.counters["least"] = fit.Line.GetChiSquare();
}

void FitLineByFunction(benchmark::State& State) {
    FitLine(State, [](TLine& Fit) {
        Fit.Line.SetFittingFunction(
            [&Fit](double x, const kx::TKxRealArray& c) { return Fit.Data.Model(x, c.Data()); });
    });
}

void FitLineByFormula(benchmark::State& State) {
    FitLine(State, [](TLine& Fit) { kx::SetFormula(Fit.Line, "a*exp(-b*x)+c"); });
}

/// A model of two exponentials at many points, for what one evaluation of one point costs.
template <class F>
void TwoDecays(benchmark::State& State, F Evaluate) {
    const TFit fit(State.range(0));
    std::vector<double> y(fit.X.size());
    for (auto _ : State) {
        Evaluate(std::span(fit.X), std::span(y));
        benchmark::DoNotOptimize(y.data());
        benchmark::ClobberMemory();
    }
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

constexpr double CDecays[] = {2, 0.8, 1, 0.1};

void TwoDecaysByFunction(benchmark::State& State) {
    double (*volatile model)(double, const double*) = [](double x, const double* c) {
        return c[0] * std::exp(-c[1] * x) + c[2] * std::exp(-c[3] * x);
    };
    TwoDecays(State, [&](std::span<const double> x, std::span<double> y) {
        for (std::size_t i = 0; i < x.size(); ++i) y[i] = model(x[i], CDecays);
    });
}

template <bool InBlocks>
void TwoDecaysByFormula(benchmark::State& State) {
    kx::TKxFormula formula("a*exp(-b*x)+c*exp(-d*x)");
    TwoDecays(State, [&](std::span<const double> x, std::span<double> y) {
        if (InBlocks)
            formula.Evaluate(x, CDecays, y);
        else
            for (std::size_t i = 0; i < x.size(); ++i) y[i] = formula.Evaluate(x[i], CDecays);
    });
}

BENCHMARK(TwoDecaysByFunction)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(TwoDecaysByFormula<true>)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(TwoDecaysByFormula<false>)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FitLineByFunction)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FitLineByFormula)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FitSimplex)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FitGsl)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace
