#pragma once
// Certified regressions: Statistical Reference Datasets of NIST/ITL, in tests/data/nist.

#include "support/cases.h"

#include <kxgraph/analysis/Kxderivatives.h>

#include <cmath>
#include <span>

namespace kx::test {

struct TNistSet {
    explicit TNistSet(const std::string& Name);
    TReals X, Y;
    TReals Starts[2]; ///< of nonlinear ones
    TReals Coefficients, Deviations;
    double SumOfSquares = 0, R2 = 0;
};

using TModel = double (*)(double X, const double* C);

/// The model at the abscissae.
inline TKxModelValues Over(const TReals& X, TModel Model) {
    return [X, Model](std::span<const double> C, std::span<double> Values) {
        for (std::size_t i = 0; i < X.size(); ++i) Values[i] = Model(X[i], C.data());
    };
}

struct TNistNonlinear : TNistSet {
    TNistNonlinear(const char* Name, TModel Model) : TNistSet(Name), Name(Name), Model(Model) {}
    std::string Name;
    TModel Model;
};

inline std::vector<TNistNonlinear> NistNonlinear() {
    return {
        {"Misra1a", [](double x, const double* c) { return c[0] * (1 - std::exp(-c[1] * x)); }},
        {"Chwirut2", [](double x, const double* c) { return std::exp(-c[0] * x) / (c[1] + c[2] * x); }},
        {"DanWood", [](double x, const double* c) { return c[0] * std::pow(x, c[1]); }},
        {"Misra1b", [](double x, const double* c) { return c[0] * (1 - std::pow(1 + c[1] * x / 2, -2)); }},
        {"Rat42", [](double x, const double* c) { return c[0] / (1 + std::exp(c[1] - c[2] * x)); }},
        {"BoxBOD", [](double x, const double* c) { return c[0] * (1 - std::exp(-c[1] * x)); }},
        {"Thurber", [](double x, const double* c) {
             return (c[0] + x * (c[1] + x * (c[2] + x * c[3]))) / (1 + x * (c[4] + x * (c[5] + x * c[6])));
         }}};
}

} // namespace kx::test
