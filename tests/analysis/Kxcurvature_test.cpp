#include <kxgraph/analysis/Kxcurvature.h>

#include "support/nist.h"
#include "support/testing.h"

namespace kx::test::curvature {

const TReals CX = {1, 2, 3, 4, 5};

TKxRealArray ErrorsOf(double (*Model)(double, const double*), const TReals& Coefficients,
                      const TReals& Weights = {}, int Points = 5, double SumOfSquares = 3) {
    return StandardErrors(Coefficients, Over(CX, Model), Points, Weights, SumOfSquares);
}

/// Of the line a + b x, from the sums of textbooks.
TReals LineErrors(const TReals& Weights, double Freedom) {
    double s = 0, sx = 0, sxx = 0;
    for (std::size_t i = 0; i < Weights.size(); ++i) {
        const double w = std::abs(Weights[i]), x = CX[i];
        s += w, sx += w * x, sxx += w * x * x;
    }
    const double scale = 3 / Freedom / (s * sxx - sx * sx);
    return {std::sqrt(scale * sxx), std::sqrt(scale * s)};
}

double Line(double x, const double* c) { return c[0] + c[1] * x; }

TEST(Curvature, HeedsWeightsAndOddScalesOfCoefficients) {
    const struct {
        TReals Coefficients, Weights;
        double Freedom;
    } cases[] = {{{0, 3}, {1, -4, 2, 0.5, 7}, 3},
                 {{1e-19, 3}, {1, 4, 2, 0.5, 0}, 2},
                 {{-1e12, 1e-3}, {1e9, 1e9, 1e9, 1e9, 1e9}, 3}};
    for (const auto& [coefficients, weights, freedom] : cases) {
        const auto errors = ErrorsOf(Line, coefficients, weights);
        const TReals expected = LineErrors(weights, freedom);
        for (std::size_t k = 0; k < 2; ++k)
            EXPECT_NEAR(errors[int(k)] / expected[k], 1, 1e-4) << coefficients[0] << ", coefficient " << k;
    }
}

TEST(Curvature, MarksWhatCannotBeTold) {
    const auto root = [](double x, const double* c) { return c[0] + c[1] * std::sqrt(3 - x); };
    const auto idle = [](double x, const double* c) { return c[0] + x * c[2]; };
    const auto twins = [](double x, const double* c) { return c[0] * std::exp(c[2] - x) + c[1] * x; };
    const struct {
        const char* Name;
        TKxRealArray Errors;
        std::vector<bool> Marked;
    } cases[] = {
        {"few points", ErrorsOf(Line, {1, 1}, {}, 2), {true, true}},
        {"few weights", ErrorsOf(Line, {1, 1}, {1, 1, 0, 0, 0}), {true, true}},
        {"infinite sum", ErrorsOf(Line, {1, 1}, {}, 5, INFINITY), {true, true}},
        {"not a number", ErrorsOf(root, {1, 1}), {true, true}},
        {"not a number where it counts for nothing", ErrorsOf(root, {1, 1}, {1, 1, 1, 0, 0}), {false, false}},
        {"no influence", ErrorsOf(idle, {1, 1, 1}), {false, true, false}},
        {"one makes up for the other", ErrorsOf(twins, {3, 2, 1}), {true, false, true}},
    };
    for (const auto& [name, errors, marked] : cases)
        for (int k = 0; k < errors.Length(); ++k)
            EXPECT_EQ(errors[k] == CMaxReal, marked[std::size_t(k)]) << name << ", coefficient " << k;
    for (const double e : ErrorsOf(Line, {1, 1}, {}, 5, 0)) EXPECT_EQ(e, 0) << "on the model";
}

} // namespace kx::test::curvature
