#include "analysis/Kxcurvature.h"

#include "analysis/nistnonlinear.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace kx {
namespace {

using TNumbers = std::vector<double>;

TKxModelValues OverPoints(const std::vector<test::TNistPoint>& Points,
                          double (*Model)(double, const double*)) {
    return [&Points, Model](std::span<const double> C, std::span<double> Values) {
        for (std::size_t i = 0; i < Points.size(); ++i) Values[i] = Model(Points[i].X, C.data());
    };
}

TEST(Curvature, StandardErrorsAreTheCertifiedOnes) {
    for (const auto& set : test::NistNonlinear()) {
        const auto errors = StandardErrors(set.Coefficients, OverPoints(set.Points, set.Model),
                                           int(set.Points.size()), {}, set.SumOfSquares);
        for (int k = 0; k < errors.Length(); ++k)
            EXPECT_NEAR(errors[k] / set.Deviations[std::size_t(k)], 1, 2e-7)
                << set.Name << ", coefficient " << k;
    }
}

const std::vector<test::TNistPoint> CPoints = {{1, 2.1}, {2, 3.9}, {3, 6.2}, {4, 7.8}, {5, 1000}};

TKxRealArray ErrorsOf(double (*Model)(double, const double*), const TNumbers& Coefficients,
                      const TNumbers& Weights = {}, int Points = 5, double SumOfSquares = 3) {
    return StandardErrors(Coefficients, OverPoints(CPoints, Model), Points, Weights, SumOfSquares);
}

/// Of the line a + b x, from the sums of textbooks.
TNumbers LineErrors(const TNumbers& Weights, double Freedom) {
    double s = 0, sx = 0, sxx = 0;
    for (std::size_t i = 0; i < Weights.size(); ++i) {
        s += std::abs(Weights[i]);
        sx += std::abs(Weights[i]) * CPoints[i].X;
        sxx += std::abs(Weights[i]) * CPoints[i].X * CPoints[i].X;
    }
    const double scale = 3 / Freedom / (s * sxx - sx * sx);
    return {std::sqrt(scale * sxx), std::sqrt(scale * s)};
}

TEST(Curvature, WeightsAndOddScalesOfCoefficients) {
    const auto line = [](double x, const double* c) { return c[0] + c[1] * x; };
    struct TCase {
        TNumbers Coefficients, Weights;
        double Freedom;
    };
    for (const auto& [coefficients, weights, freedom] :
         {TCase{{2, 3}, {1, 1, 1, 1, 1}, 3}, TCase{{0, 3}, {1, -4, 2, 0.5, 7}, 3},
          TCase{{1e-19, 3}, {1, 4, 2, 0.5, 0}, 2}, TCase{{-1e12, 1e-3}, {1e9, 1e9, 1e9, 1e9, 1e9}, 3}}) {
        const auto errors = ErrorsOf(line, coefficients, weights);
        const TNumbers expected = LineErrors(weights, freedom);
        for (std::size_t k = 0; k < 2; ++k)
            EXPECT_NEAR(errors[int(k)] / expected[k], 1, 1e-4) << coefficients[0] << ", coefficient " << k;
    }
}

TEST(Curvature, WhatCannotBeToldIsMarked) {
    const auto line = [](double x, const double* c) { return c[0] + c[1] * x; };
    const auto isMarked = [](const TKxRealArray& Errors) {
        std::vector<bool> marked;
        for (const double e : Errors) marked.push_back(e == CMaxReal);
        return marked;
    };
    using TMarks = std::vector<bool>;
    EXPECT_EQ(isMarked(ErrorsOf(line, {1, 1}, {}, 2)), (TMarks{true, true}))
        << "as many coefficients as points";
    EXPECT_EQ(isMarked(ErrorsOf(line, {1, 1}, {1, 1, 0, 0, 0})), (TMarks{true, true}));
    EXPECT_EQ(isMarked(ErrorsOf(line, {1, 1}, {}, 5, INFINITY)), (TMarks{true, true}));
    EXPECT_EQ(
        isMarked(ErrorsOf([](double x, const double* c) { return c[0] + x * std::sqrt(-c[1]); }, {1, 1})),
        (TMarks{true, true}))
        << "not a number";
    EXPECT_EQ(isMarked(ErrorsOf([](double x, const double* c) { return c[0] + x * c[2]; }, {1, 1, 1})),
              (TMarks{false, true, false}))
        << "no influence";
    EXPECT_EQ(isMarked(ErrorsOf(
                  [](double x, const double* c) { return c[0] * std::exp(c[2] - x) + c[1] * x; }, {3, 2, 1})),
              (TMarks{true, false, true}))
        << "one makes up for the other";
    EXPECT_EQ(isMarked(ErrorsOf([](double x, const double* c) { return c[0] + c[1] * std::sqrt(3 - x); },
                                {1, 1}, {1, 1, 1, 0, 0})),
              (TMarks{false, false}))
        << "not a number where it counts for nothing";
    for (const double e : ErrorsOf(line, {1, 1}, {}, 5, 0)) EXPECT_EQ(e, 0) << "on the model";
}

} // namespace
} // namespace kx
