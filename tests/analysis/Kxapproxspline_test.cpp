#include <kxgraph/analysis/Kxapproxspline.h>

#include "support/reference.h"
#include "support/testing.h"

namespace kx::test::approxspline {

constexpr double CFar = 1e300;

/// Vectors of points, and the spline that is made of them.
struct TFixture {
    explicit TFixture(const TReals& Xs = {}, const TReals& Ys = {}, const TReals& Ws = {}) {
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

/// Values and slopes at the knots that minimise the sum of squares plus the integral of the squared second
/// derivative of the cubic pieces between them: dense normal equations, elimination with pivoting.
std::vector<long double> DenseMinimum(const TReals& X, const TReals& Y, const TReals& W) {
    const std::size_t n = X.size(), size = 2 * n;
    std::vector<std::vector<long double>> m(size, std::vector<long double>(size + 1));
    for (std::size_t i = 0; i < n; ++i) {
        m[2 * i][2 * i] += W[i];
        m[2 * i][size] += (long double)(W[i]) * Y[i];
        if (i + 1 == n) break;
        const long double h = (long double)(X[i + 1]) - X[i];
        const long double energy[4][4] = {{12 / h / h, 6 / h, -12 / h / h, 6 / h},
                                          {6 / h, 4, -6 / h, 2},
                                          {-12 / h / h, -6 / h, 12 / h / h, -6 / h},
                                          {6 / h, 2, -6 / h, 4}};
        for (std::size_t j = 0; j < 4; ++j)
            for (std::size_t k = 0; k < 4; ++k) m[2 * i + j][2 * i + k] += energy[j][k] / h;
    }
    for (std::size_t k = 0; k < size; ++k) {
        const auto larger = [k](const auto& a, const auto& b) { return std::abs(a[k]) < std::abs(b[k]); };
        std::swap(m[k], *std::max_element(m.begin() + std::ptrdiff_t(k), m.end(), larger));
        for (std::size_t i = 0; i < size; ++i) {
            const long double factor = i == k ? 0 : m[i][k] / m[k][k];
            for (std::size_t j = k; factor != 0 && j <= size; ++j) m[i][j] -= factor * m[k][j];
        }
    }
    std::vector<long double> result;
    for (std::size_t k = 0; k < size; ++k) result.push_back(m[k][size] / m[k][k]);
    return result;
}

void ExpectMinimum(TFixture& F, const TReals& W, const std::string& Name) {
    const TReals x(F.X.Values().begin(), F.X.Values().end()), y(F.Y.Values().begin(), F.Y.Values().end());
    const auto expected = DenseMinimum(x, y, W);
    EXPECT_TRUE(F.Spline.C[0] == 0 && F.Spline.C[F.Spline.Count - 1] == 0) << Name;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const int k = int(i);
        const double g = double(expected[2 * i]), slope = double(expected[2 * i + 1]);
        EXPECT_NEAR(F.Spline.A[k], g, 1e-9) << Name << ", knot " << i;
        if (i + 1 == x.size()) break;
        EXPECT_NEAR(F.Spline.B[k], slope, 1e-9 * (1 + std::abs(slope))) << Name << ", knot " << i;
        const double h = x[i + 1] - x[i], middle = x[i] + h / 2;
        const double between = double((expected[2 * i] + expected[2 * i + 2]) / 2 +
                                      h * (expected[2 * i + 1] - expected[2 * i + 3]) / 8);
        EXPECT_NEAR(F.Spline.Interpolate(middle), between, 1e-9) << Name << ", behind knot " << i;
    }
}

TEST(ApproxSpline, MinimisesDistancesAndCurvature) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> uniform(0.5, 1.5);
    for (const int n : {6, 7, 40})
        for (const double unit : {0.05, 1.0, 30.0})
            for (const double weight : {1e-3, 0.02, 1.0, 1e6})
                for (const int every : {1, 2, 3, 100}) { // the weight of how many knots is zero
                    TReals x, y, w;
                    for (int i = 0; i < n; ++i) {
                        x.push_back((i ? x.back() : -7) + unit * uniform(random));
                        y.push_back(std::sin(i) + 0.2 * uniform(random));
                        w.push_back(every > 1 && i % every == 0 ? 0 : weight * uniform(random));
                    }
                    TFixture f(x, y, w);
                    f.Calculate();
                    ExpectMinimum(f, w,
                                  std::to_string(n) + " knots, unit " + std::to_string(unit) + ", weight " +
                                      std::to_string(weight) + ", every " + std::to_string(every));
                }
}

const TReals CX = {0, 1, 2.5, 3, 4, 5, 7};
const TReals CY = {1, 3, 2, 0, 1, 4, 2};

TEST(ApproxSpline, TakesExtremeWeightsForLimits) {
    const auto cases = Cases<std::string, TReals, TReals, double>("curves", "extreme weights");
    for (const auto& [name, weights, same, factor] : cases) {
        TFixture f(CX, CY, weights), g(CX, CY, same);
        f.Spline.WeightFactor = factor;
        f.Calculate();
        g.Calculate();
        for (double x = 0; x <= 7; x += 0.25)
            EXPECT_NEAR(f.Spline.Interpolate(x), g.Spline.Interpolate(x), 1e-9) << name << ", x = " << x;
    }
}

TEST(ApproxSpline, LetsRootsOfWeightsVanish) {
    TFixture f({0, 1e-9, 2e-9, 3e-9, 4e-9, 5e-9}, {9, 5, 1, 1, 1, 1},
               {5e-324, 1e-323, 1e290, 1e300, 1e300, 5e-324});
    f.Calculate();
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(f.Spline.A[i], 1, 1e-9) << i;
}

TEST(ApproxSpline, KeepsTheDigitsOfTheBandSystemThatItCannotSolve) {
    std::mt19937 random(9);
    std::uniform_real_distribution<double> uniform(0.5, 1.5);
    for (const double distance : {1e-3, 1e-5})
        for (const int n : {6, 7, 1000, 5001}) {
            TReals x, y, w;
            for (int i = 0; i < n; ++i) {
                x.push_back((i ? x.back() : 5) + distance * uniform(random));
                y.push_back(std::sin(0.01 * i) + 0.1 * uniform(random));
                w.push_back(uniform(random));
            }
            TFixture f(x, y, w);
            f.Calculate();
            const auto expected = SmoothedBySpline(x, y, w);
            for (std::size_t i = 0; i < x.size(); ++i)
                ASSERT_NEAR(f.Spline.A[int(i)], expected[i], 1e-14) << n << ", " << i;
        }
}

// The minimum is where slopes are continuous and each point pulls as hard as g''' jumps.
TEST(ApproxSpline, KeepsItsDigitsWithManyCloseKnots) {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 0.1);
    for (const int n : {1000, 100000}) {
        TFixture f;
        for (int i = 0; i < n; ++i) {
            f.X.Add(double(i) / n);
            f.Y.Add(std::sin(12.0 * i / n) + noise(random));
        }
        f.Calculate();
        const TKxApproxSpline& s = f.Spline;
        for (int i = 1; i < n - 1; ++i) {
            const double h = s.X[i] - s.X[i - 1];
            ASSERT_NEAR(s.B[i - 1] + h * (2 * s.C[i - 1] + 3 * h * s.D[i - 1]), s.B[i], 1e-8)
                << n << ", " << i;
            ASSERT_NEAR(f.Y.GetValue(i) - s.A[i], 6 * (s.D[i] - s.D[i - 1]), 1e-6) << n << ", " << i;
        }
    }
}

TEST(ApproxSpline, GivesCollinearPointsTheirLine) {
    for (const TReals& weights : {TReals{}, TReals{1, 9, 1e-5, 3, 2, 100}, TReals{1, 0, 0, 1, 0, 0}}) {
        TFixture f({3, 1, 2, 6, 5, 4}, {-5, -1, -3, -11, -9, -7}, weights);
        f.Calculate();
        for (int i = 0; i < 6; ++i) EXPECT_NEAR(f.Spline.C[i], 0, 1e-12);
        for (const double x : {-2.0, 1.0, 2.2, 5.999, 6.0, 8.0})
            EXPECT_NEAR(f.Spline.Interpolate(x), 1 - 2 * x, 1e-12);
    }
}

TEST(ApproxSpline, FindsAnExtremumThatLiesOnAKnot) {
    for (const double shift : {0.0, 0.1, 1 / 3.0, 1e6}) {
        TReals x, y;
        for (int i = 0; i < 9; ++i) {
            x.push_back(i + shift);
            y.push_back(-std::abs(i - 4) * 0.7);
        }
        for (const double factor : {0.1, 1.0, 7.0, 1e9}) {
            TFixture f(x, y, {});
            f.Spline.WeightFactor = factor;
            f.Calculate();
            f.Spline.FindExtrema();
            ASSERT_EQ(f.Spline.Maxima.Length(), 1) << shift << " " << factor;
            EXPECT_NEAR(f.Spline.Maxima[0].X, 4 + shift, 1e-8);
        }
    }
}

TEST(ApproxSpline, TakesMergesAndRefusesPoints) {
    const double nan = NAN, inf = INFINITY;
    TFixture f({7, 5, 9, 2, 2, nan, 1, 3, 4, -inf, 2, 6, 8}, {1, nan, 5, 1, 5, 1, 0, 2, 2, 1, 3, inf, 7},
               {1, 1, 1, 2, 4, 1, 1, 1, 1, 1, 6, 1, nan});
    f.Spline.WeightFactor = 1e6;
    f.Calculate(1, 9);
    const TReals knots = {1, 2, 3, 4, 7, 9}; // the three at 2 are averaged in the order of the sort
    ASSERT_EQ(f.Spline.Count, 6);
    EXPECT_TRUE(std::equal(knots.begin(), knots.end(), f.Spline.X.begin()));
    EXPECT_EQ(f.Spline.W[1], 3.5e6);
    EXPECT_NEAR(f.Spline.A[1], 2.5, 1e-5);
    EXPECT_EQ(f.Spline.X[6], 9);
    EXPECT_EQ(f.Spline.Interpolate(12), f.Spline.A[5] + 3 * f.Spline.B[4]) << "goes on straight";

    const auto cases = Cases<TReals, TReals, double, double>("curves", "not enough for a spline");
    for (const auto& [x, w, start, factor] : cases) {
        TFixture few(x, x, w);
        few.Spline.WeightFactor = factor;
        few.Spline.Count = 99;
        EXPECT_EQ(MessageOf<EMathError>([&, from = start] { few.Calculate(from); }), "Not enough data!");
        EXPECT_EQ(few.Spline.Count, 0);
    }
    TFixture close({0, 1e-320, 1, 2, 3, 4}, {0, 1, 0, 1, 0, 1}, TReals(6, 1e100));
    EXPECT_THROW(close.Calculate(), EMathError) << "a slope that no double can hold";
    EXPECT_EQ(close.Spline.Count, 0);
}

TEST(ApproxSpline, LeavesNothingOfALongerCalculationBehind) {
    TFixture used(CX, CY), fresh(CX, CY);
    used.Calculate();
    used.Spline.Interpolate(7);
    used.Spline.Minima.SetLength(3);
    used.Calculate(0, 5);
    fresh.Calculate(0, 5);
    EXPECT_EQ(std::tuple(used.Spline.Minima.Length(), used.Spline.Index), std::tuple(0, 0));
    for (const double x : {5.5, 100.0, -1.0, 2.0})
        EXPECT_EQ(used.Spline.Interpolate(x), fresh.Spline.Interpolate(x));
}

} // namespace kx::test::approxspline
