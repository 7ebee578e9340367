#include "analysis/Kxapproxspline.h"

#include "numeric/Kxvector.h"
#include "platform/exceptions.h"
#include "support/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace kx {
namespace {

using TNumbers = std::vector<double>;

constexpr double CFar = 1e300;

/// Vectors of points, and the spline that is made of them.
struct TFixture {
    explicit TFixture(const TNumbers& Xs = {}, const TNumbers& Ys = {}, const TNumbers& Ws = {}) {
        X.AddValues(Xs);
        Y.AddValues(Ys);
        W.AddValues(Ws);
    }
    void Calculate(double Start = -CFar, double Stop = CFar) {
        Spline.RecalculateCoeffs(Start, Stop, &X, &Y, W.GetCount() ? &W : nullptr);
    }
    TKxRealVector X{nullptr}, Y{nullptr}, W{nullptr};
    TKxApproxSpline Spline;
};

/// The minimum is the curve with continuous value, slope and curvature whose third derivative jumps at each
/// knot as hard as its point pulls.
void ExpectMinimum(const TFixture& F, const TNumbers& W, double Tolerance, const std::string& Name) {
    const TKxApproxSpline& s = F.Spline;
    const int last = s.Count - 1;
    ASSERT_EQ(s.Count, F.X.GetCount()) << Name;
    const double largest = std::abs(*std::ranges::max_element(s.D, {}, [](double d) { return std::abs(d); }));
    ASSERT_TRUE(s.C[0] == 0 && s.C[last] == 0 && s.D[last] == 0) << Name;
    for (int i = 0; i <= last; ++i) {
        const double w = W.empty() ? 1 : W[std::size_t(i)], jump = s.D[i] - (i ? s.D[i - 1] : 0);
        const double digits = Tolerance * std::min(w, 1.0) + 1e-11 * largest;
        ASSERT_NEAR(w * (F.Y.GetValue(i) - s.A[i]), 6 * jump, digits) << Name << ", knot " << i;
        if (i == last) break;
        const double h = s.X[i + 1] - s.X[i], c = s.C[i], d = s.D[i];
        ASSERT_NEAR(s.A[i] + h * (s.B[i] + h * (c + h * d)), s.A[i + 1], 1e-12) << Name << ", knot " << i;
        ASSERT_NEAR(c + 3 * h * d, s.C[i + 1], 1e-12 * (1 + std::abs(c))) << Name << ", knot " << i;
        if (i + 1 == last) continue; // the last knot has the slope of the one before
        ASSERT_NEAR(s.B[i] + h * (2 * c + 3 * h * d), s.B[i + 1], Tolerance * (1 + std::abs(s.B[i])))
            << Name << ", knot " << i;
    }
}

TEST(ApproxSpline, MinimisesDistancesAndCurvature) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> uniform(0.5, 1.5);
    for (const int n : {6, 7, 40})
        for (const double unit : {0.05, 1.0, 30.0})
            for (const double weight : {1e-3, 0.02, 1.0, 1e6})
                for (const int every : {1, 2, 3, 100}) { // the weight of how many knots is zero
                    TNumbers x, y, w;
                    for (int i = 0; i < n; ++i) {
                        x.push_back((i ? x.back() : -7) + unit * uniform(random));
                        y.push_back(std::sin(i) + 0.2 * uniform(random));
                        w.push_back(every > 1 && i % every == 0 ? 0 : weight * uniform(random));
                    }
                    TFixture f(x, y, w);
                    f.Calculate();
                    ExpectMinimum(f, w, 1e-9,
                                  std::to_string(n) + " knots, unit " + std::to_string(unit) + ", weight " +
                                      std::to_string(weight) + ", every " + std::to_string(every));
                }
}

const TNumbers CX = {0, 1, 2.5, 3, 4, 5, 7};
const TNumbers CY = {1, 3, 2, 0, 1, 4, 2};

TEST(ApproxSpline, ExtremeWeightsAreLimits) {
    const struct {
        const char* Name;
        TNumbers Weights, Same; // Same gives the same curve
        double Factor;
    } cases[] = {
        {"tiny", {1, 1e-200, 1e-90, 1, 1e-60, 1e-300, 5}, {1, 0, 0, 1, 0, 0, 5}, 1},
        {"huge", {1.7e308, 0, 1.7e308, 1e300, 0, 1, 1.7e308}, {1e14, 0, 1e14, 1e14, 0, 1, 1e14}, 1},
        {"all tiny", {3e-200, 1e-200, 0, 1e-200, 1e-199, 0, 0}, {3e-13, 1e-13, 0, 1e-13, 1e-12, 0, 0}, 1},
        {"product beyond doubles", TNumbers(7, 1e300), TNumbers(7, 1e14), 1e10},
        {"factor and signs", {-1, 2, -3, 4, 5, 6, 7}, {2, 4, 6, 8, 10, 12, 14}, -2},
    };
    for (const auto& c : cases) {
        TFixture f(CX, CY, c.Weights), g(CX, CY, c.Same);
        f.Spline.WeightFactor = c.Factor;
        f.Calculate();
        g.Calculate();
        for (double x = 0; x <= 7; x += 0.25)
            EXPECT_NEAR(f.Spline.Interpolate(x), g.Spline.Interpolate(x), 1e-9) << c.Name << ", x = " << x;
    }
}

TEST(ApproxSpline, KeepsItsDigitsWithManyCloseKnots) {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 0.1);
    TFixture f;
    for (int i = 0; i < 100000; ++i) {
        f.X.Add(i / 1e5);
        f.Y.Add(std::sin(12e-5 * i) + noise(random));
    }
    f.Calculate();
    ExpectMinimum(f, {}, 1e-6, "many");
}

TEST(ApproxSpline, CollinearPointsGiveTheirLine) {
    for (const TNumbers& weights : {TNumbers{}, {1, 9, 1e-5, 3, 2, 100}, {1, 0, 0, 1, 0, 0}}) {
        TFixture f({3, 1, 2, 6, 5, 4}, {-5, -1, -3, -11, -9, -7}, weights);
        f.Calculate();
        for (const double x : {-2.0, 1.0, 2.2, 5.999, 6.0, 8.0})
            EXPECT_NEAR(f.Spline.Interpolate(x), 1 - 2 * x, 1e-12);
    }
}

TEST(ApproxSpline, FindsAnExtremumThatLiesOnAKnot) {
    for (const double shift : {0.0, 1 / 3.0, 1e6})
        for (const double factor : {0.1, 1.0, 1e9}) {
            TFixture f;
            for (int i = 0; i < 9; ++i) {
                f.X.Add(i + shift);
                f.Y.Add(-std::abs(i - 4) * 0.7);
            }
            f.Spline.WeightFactor = factor;
            f.Calculate();
            f.Spline.FindExtrema();
            ASSERT_EQ(f.Spline.Maxima.Length(), 1) << shift << " " << factor;
            EXPECT_NEAR(f.Spline.Maxima[0].X, 4 + shift, 1e-8);
        }
}

TEST(ApproxSpline, TakesMergesAndRefusesPoints) {
    TFixture f({7, 5, 9, 2, 2, NAN, 1, 3, 4, 2, 6, 8}, {1, NAN, 5, 1, 5, 1, 0, 2, 2, 3, INFINITY, 7},
               {1, 1, 1, 2, 4, 1, 1, 1, 1, 6, 1, NAN});
    f.Spline.WeightFactor = 1e6;
    f.Calculate(1, 9);
    const TNumbers knots = {1, 2, 3, 4, 7, 9}; // the three at 2 are averaged in the order of the sort
    ASSERT_EQ(f.Spline.Count, 6);
    EXPECT_TRUE(std::equal(knots.begin(), knots.end(), f.Spline.X.begin()));
    EXPECT_EQ(f.Spline.W[1], 3.5e6);
    EXPECT_NEAR(f.Spline.A[1], 2.5, 1e-5);
    EXPECT_EQ(f.Spline.X[6], 9);
    EXPECT_EQ(f.Spline.Interpolate(12), f.Spline.A[5] + 3 * f.Spline.B[4]) << "goes on straight";

    const TNumbers six = {1, 2, 3, 4, 5, 6};
    const struct {
        TNumbers X, W;
        double Start, Factor;
    } cases[] = {{{1, 2, 3, 3, 4, 5}, {}, 0, 1},
                 {six, {}, 1.5, 1},
                 {six, {0, 0, 0, 1, 0, 0}, 0, 1},
                 {six, {}, 0, INFINITY}};
    for (const auto& c : cases) {
        TFixture few(c.X, c.X, c.W);
        few.Spline.WeightFactor = c.Factor;
        few.Spline.Count = 99;
        EXPECT_EQ(test::MessageOf<EMathError>([&] { few.Calculate(c.Start); }), "Not enough data!");
        EXPECT_EQ(few.Spline.Count, 0);
    }
    TFixture close({0, 1e-320, 1, 2, 3, 4}, {0, 1, 0, 1, 0, 1}, TNumbers(6, 1e100));
    EXPECT_THROW(close.Calculate(), EMathError) << "a slope that no double can hold";
    EXPECT_EQ(close.Spline.Count, 0);
}

TEST(ApproxSpline, AShorterCalculationLeavesNothingBehind) {
    TFixture used(CX, CY), fresh(CX, CY);
    used.Calculate();
    used.Spline.Interpolate(7);
    used.Spline.Minima.SetLength(3);
    used.Calculate(0, 5);
    fresh.Calculate(0, 5);
    EXPECT_EQ(used.Spline.Minima.Length(), 0);
    EXPECT_EQ(used.Spline.Index, 0);
    for (const double x : {5.5, 100.0, -1.0, 2.0})
        EXPECT_EQ(used.Spline.Interpolate(x), fresh.Spline.Interpolate(x));
}

} // namespace
} // namespace kx
