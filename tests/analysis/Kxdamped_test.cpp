#include <kxgraph/analysis/Kxcurvature.h>
#include <kxgraph/analysis/Kxdamped.h>

#include "support/nist.h"
#include "support/testing.h"

namespace kx::test::damped {

TEST(Damped, ReachesCertifiedCoefficientsAndErrorsFromBothStarts) {
    for (const auto& set : NistNonlinear())
        for (const TReals& start : set.Starts) {
            TKxDamped fit({Over(set.X, set.Model), {}, set.Y, {}, {}});
            fit.Run(start, 1000);
            EXPECT_TRUE(fit.HasConverged()) << set.Name;
            EXPECT_NEAR(fit.BestValue() / set.SumOfSquares, 1, 1e-10) << set.Name;
            const TKxCovariance covariance(
                {Over(set.X, set.Model), {}, fit.Best(), int(set.X.size()), {}, fit.BestValue(), {}});
            for (std::size_t k = 0; k < start.size(); ++k) {
                EXPECT_NEAR(fit.Best()[k] / set.Coefficients[k], 1, 5e-10) << set.Name << k;
                EXPECT_NEAR(covariance.ErrorOf(k) / set.Deviations[k], 1, 1e-8) << set.Name << k;
                EXPECT_NEAR(covariance.Between(k, k), std::pow(covariance.ErrorOf(k), 2),
                            1e-14 * covariance.Between(k, k));
            }
        }
}

/// A bent valley and two coefficients, of which one is to stay within 0.1 to 0.4 or fixed at 0.3.
struct TProblem {
    TReals X = {0, .5, 1, 1.5, 2, 3, 4, 6}, Y;
    TModel Model = [](double x, const double* c) { return c[0] * std::exp(-c[1] * x) + c[2]; };
    TProblem() {
        const double truth[] = {5, .7, 0};
        for (const double x : X) Y.push_back(Model(x, truth));
    }
};

TEST(Damped, KeepsLimitsAndStartsAtZero) {
    const TProblem p;
    const struct {
        const char* Name;
        TReals Start;
        double Rate; ///< the second coefficient
        TKxCoefficientLimits Limits;
    } cases[] = {
        {"zeros", {0, 0, 0}, .7, {}},
        {"inside", {1, 2, 0}, .7, {.1, 3}},
        {"held below", {1, .2, 0}, .4, {.1, .4}},
        {"held above", {1, 1, 0}, .9, {.9, INFINITY}},
        {"moved into its limits", {1, 99, 0}, .7, {.7, 2}},
        {"fixed", {1, .3, 0}, .3, {.3, .3}},
    };
    for (const auto& [name, start, rate, limits] : cases) {
        bool left = false;
        const auto model = [&, &allowed = limits](std::span<const double> C, std::span<double> Values) {
            left = left || !allowed.Contains(C[1]);
            Over(p.X, p.Model)(C, Values);
        };
        TKxDamped fit({model, {}, p.Y, {}, {{}, limits, {}}});
        fit.Run(start, 200);
        EXPECT_TRUE(fit.HasConverged()) << name;
        EXPECT_NEAR(fit.Best()[1], rate, 1e-11) << name;
        EXPECT_FALSE(left) << name;
        // The other two are those of the straight line in exp(-b x).
        double sums[5] = {};
        for (std::size_t i = 0; i < p.X.size(); ++i) {
            const double t = std::exp(-rate * p.X[i]);
            const double terms[] = {1, t, t * t, p.Y[i], t * p.Y[i]};
            for (int k = 0; k < 5; ++k) sums[k] += terms[k];
        }
        const auto [n, st, stt, sy, sty] = sums;
        const double slope = (n * sty - st * sy) / (n * stt - st * st);
        EXPECT_NEAR(fit.Best()[0], slope, 1e-9) << name;
        const TKxCovariance covariance(
            {model, {}, fit.Best(), int(p.X.size()), {}, fit.BestValue(), {{}, limits, {}}});
        if (limits.IsFixed()) {
            EXPECT_EQ(std::tuple(covariance.ErrorOf(1), covariance.GetFreedom()), std::tuple(0, 6));
            const double s = std::sqrt(fit.BestValue() / 6);
            EXPECT_NEAR(covariance.ErrorOf(0) / (s / std::sqrt(stt - st * st / n)), 1, 1e-8);
            EXPECT_NEAR(covariance.ErrorAlong(TReals{st / n, 7, 1}) / (s / std::sqrt(n)), 1, 1e-8);
        } else if (rate != .7) {
            EXPECT_EQ(covariance.ErrorOf(1), CMaxReal) << name;
        }
    }
}

TEST(Damped, TakesDerivativesAndSkipsPointsOfNoWeight) {
    TProblem p;
    p.X.push_back(9);
    p.Y.push_back(1e9);
    TReals weights(p.X.size(), -2);
    weights.back() = 0;
    int calls = 0, derivatives = 0;
    const auto model = [&](std::span<const double> C, std::span<double> Values) {
        ++calls;
        Over(p.X, p.Model)(C, Values);
        Values.back() = NAN;
    };
    const auto given = [&](std::span<const double> C, std::span<const std::span<double>> Columns) {
        ++derivatives;
        for (std::size_t i = 0; i < p.X.size(); ++i) {
            Columns[0][i] = std::exp(-C[1] * p.X[i]);
            Columns[1][i] = -p.X[i] * C[0] * Columns[0][i];
            Columns[2][i] = i + 1 == p.X.size() ? NAN : 1;
        }
    };
    TKxDamped fit({model, given, p.Y, weights, {}});
    fit.Run(TReals{1, 1, 1}, 200);
    EXPECT_TRUE(fit.HasConverged());
    EXPECT_NEAR(fit.Best()[1], .7, 1e-12);
    EXPECT_GT(derivatives, 3);
    EXPECT_LT(calls, 60) << "none for differences";
}

TEST(Damped, SaysWhenItHasNotArrived) {
    const TProblem p;
    int seen = 0;
    const auto stopAfter = [&](int Most) {
        seen = 0;
        return [&seen, Most](const TKxDamped&) { return ++seen < Most; };
    };
    TKxDamped fit({Over(p.X, p.Model), {}, p.Y, {}, {}});
    fit.Run(TReals{1, 3, 1}, 3);
    EXPECT_FALSE(fit.HasConverged()) << "too few steps";
    fit.Run(TReals{1, 3, 1}, 100, stopAfter(2));
    EXPECT_FALSE(fit.HasConverged());
    EXPECT_EQ(seen, 2);
    fit.Run(TReals{5, .7, 0}, 100, stopAfter(9));
    EXPECT_EQ(std::pair(fit.HasConverged(), fit.BestValue()), std::pair(true, 0.0));
    TKxDamped nowhere({Over(p.X, [](double, const double* c) { return std::log(c[0]); }), {}, p.Y, {}, {}});
    nowhere.Run(TReals{-1}, 100);
    EXPECT_EQ(std::pair(nowhere.HasConverged(), nowhere.BestValue()), std::pair(false, double(INFINITY)));
}

} // namespace kx::test::damped
