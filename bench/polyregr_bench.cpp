// A polynomial of degree 5 through many points, beside what a general least-squares routine takes for it,
// filling the matrix included. Numbers from pairs of doubles must not be slower than from plain ones solved
// safely.

#include <kxgraph/analysis/Kxpolyregr.h>

#include "support/reference.h"

#include <Eigen/Dense>
#include <benchmark/benchmark.h>
#include <gsl/gsl_multifit.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kx {
namespace {

constexpr int COrder = 5;

struct TCurve {
    std::vector<double> X, Y, W;
    explicit TCurve(std::int64_t Count) {
        for (std::int64_t i = 0; i < Count; ++i) {
            const double x = 20.0 * static_cast<double>(i) / static_cast<double>(Count);
            X.push_back(x);
            Y.push_back(std::sin(x) + 0.01 * std::cos(1e3 * x));
            W.push_back(1 + 0.5 * std::cos(x));
        }
    }
};

/// The largest error of a coefficient beside plain doubled arithmetic, where that takes less than a second.
void ReportError(benchmark::State& State, const TCurve& Curve, const std::vector<double>& W,
                 const TKxPolynomRegessionResults& Results) {
    if (State.range(0) > 100000) return;
    double error = 0;
    const auto expected = test::FittedPolynomial(Curve.X, Curve.Y, W, COrder);
    for (int k = 0; k <= COrder; ++k)
        error = std::max(error, std::abs(Results.Coefficients[k] / expected[std::size_t(k)] - 1));
    State.counters["error"] = error;
}

void Report(benchmark::State& State) { State.SetItemsProcessed(State.iterations() * State.range(0)); }

void PolynomialFit(benchmark::State& State) {
    const TCurve curve(State.range(0));
    TKxPolynomRegessionResults results;
    results.Order = COrder;
    for (auto _ : State) {
        PolynomRegression(curve.X, curve.Y, 0, 20, results);
        benchmark::DoNotOptimize(results.ChiSquare);
    }
    Report(State);
    ReportError(State, curve, {}, results);
}
BENCHMARK(PolynomialFit)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void PolynomialFitWithWeight(benchmark::State& State) {
    const TCurve curve(State.range(0));
    TKxPolynomRegessionResults results;
    results.Order = COrder;
    for (auto _ : State) {
        PolynomRegressionWithWeight(curve.X, curve.Y, curve.W, 0, 20, results);
        benchmark::DoNotOptimize(results.ChiSquare);
    }
    Report(State);
    ReportError(State, curve, curve.W, results);
}
BENCHMARK(PolynomialFitWithWeight)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void PolynomialFitByGsl(benchmark::State& State) {
    const TCurve curve(State.range(0));
    const std::size_t count = curve.X.size();
    constexpr std::size_t columns = COrder + 1;
    for (auto _ : State) {
        gsl_matrix* design = gsl_matrix_alloc(count, columns);
        gsl_matrix* covariance = gsl_matrix_alloc(columns, columns);
        gsl_vector* coefficients = gsl_vector_alloc(columns);
        gsl_multifit_linear_workspace* workspace = gsl_multifit_linear_alloc(count, columns);
        for (std::size_t i = 0; i < count; ++i) {
            double power = 1;
            for (std::size_t k = 0; k < columns; ++k, power *= curve.X[i])
                gsl_matrix_set(design, i, k, power);
        }
        const gsl_vector_const_view y = gsl_vector_const_view_array(curve.Y.data(), count);
        double chiSquare = 0;
        gsl_multifit_linear(design, &y.vector, coefficients, covariance, &chiSquare, workspace);
        benchmark::DoNotOptimize(chiSquare);
        gsl_multifit_linear_free(workspace);
        gsl_vector_free(coefficients);
        gsl_matrix_free(covariance);
        gsl_matrix_free(design);
    }
    Report(State);
}
BENCHMARK(PolynomialFitByGsl)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// Fast, but in plain doubles: the normal equations lose twice the digits of the matrix.
void PolynomialFitByEigenNormalEquations(benchmark::State& State) {
    const TCurve curve(State.range(0));
    const auto count = static_cast<Eigen::Index>(curve.X.size());
    for (auto _ : State) {
        Eigen::MatrixXd design(count, COrder + 1);
        const Eigen::Map<const Eigen::VectorXd> x(curve.X.data(), count);
        const Eigen::Map<const Eigen::VectorXd> y(curve.Y.data(), count);
        design.col(0).setOnes();
        for (int k = 1; k <= COrder; ++k) design.col(k) = design.col(k - 1).cwiseProduct(x);
        const Eigen::VectorXd solution = (design.transpose() * design).ldlt().solve(design.transpose() * y);
        double chiSquare = (y - design * solution).squaredNorm();
        benchmark::DoNotOptimize(chiSquare);
    }
    Report(State);
}
BENCHMARK(PolynomialFitByEigenNormalEquations)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kx
