#include <kxgraph/analysis/Kxakima.h>

#include "support/testing.h"

namespace kx::test::akima {

void Calculate(TKxAkima& Akima, const TReals& X, const TReals& Y, const TReals& Weights = {},
               double Start = -1e300, double Stop = 1e300) {
    TKxRealVector x(nullptr), y(nullptr), w(nullptr);
    x.AddValues(X);
    y.AddValues(Y);
    w.AddValues(Weights);
    Akima.RecalculateCoeffs(Start, Stop, &x, &y, Weights.empty() ? nullptr : &w);
}

/// The slopes by the article's formulas (1), (8) and (9), which know no equal chords on both sides.
TReals PublishedSlopes(const TReals& X, const TReals& Y) {
    const std::size_t n = X.size();
    TReals m(n + 3);
    for (std::size_t i = 0; i + 1 < n; ++i) m[i + 2] = (Y[i + 1] - Y[i]) / (X[i + 1] - X[i]);
    m[1] = 2 * m[2] - m[3];
    m[0] = 2 * m[1] - m[2];
    m[n + 1] = 2 * m[n] - m[n - 1];
    m[n + 2] = 2 * m[n + 1] - m[n];
    TReals slopes;
    for (std::size_t i = 0; i < n; ++i) {
        const double left = std::abs(m[i + 3] - m[i + 2]), right = std::abs(m[i + 1] - m[i]);
        const bool straight = left == 0 && right == 0;
        slopes.push_back(straight ? m[i + 2] : (left * m[i + 1] + right * m[i + 2]) / (left + right));
    }
    return slopes;
}

/// The cubics with these values and slopes at both ends of their pieces.
void ExpectPublishedCurve(const TReals& X, const TReals& Y) {
    TKxAkima akima;
    Calculate(akima, X, Y);
    const TReals slopes = PublishedSlopes(X, Y);
    for (std::size_t i = 0; i < X.size(); ++i) {
        ASSERT_EQ(akima.Interpolate(X[i]), Y[i]);
        ASSERT_NEAR(akima.Slope(X[i]), slopes[i], 1e-10 * (1 + std::abs(slopes[i])));
        if (i + 1 == X.size()) break;
        const int k = int(i);
        const double h = X[i + 1] - X[i], b = akima.B[k], c = akima.C[k], d = akima.D[k];
        ASSERT_NEAR(Y[i] + h * (b + h * (c + h * d)), Y[i + 1], 1e-10) << "behind " << X[i];
        ASSERT_NEAR(b + h * (2 * c + 3 * h * d), slopes[i + 1], 1e-10 * (1 + std::abs(b)))
            << "behind " << X[i];
    }
}

TEST(Akima, GivesThePublishedCurve) {
    // The example of H. Akima, J. ACM 17 (1970) 589-602.
    ExpectPublishedCurve({0, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15},
                         {10, 10, 10, 10, 10, 10, 10.5, 15, 50, 60, 85});
    std::mt19937 random(2);
    std::uniform_real_distribution<double> uniform;
    for (const int n : {3, 4, 5, 40, 3000}) {
        TReals x{-3}, y{0};
        while (int(x.size()) < n) {
            x.push_back(x.back() + 0.05 + uniform(random));
            y.push_back(100 * uniform(random));
        }
        ExpectPublishedCurve(x, y);
    }
}

TEST(Akima, IsTheSameBeyondThePointsWhateverWasCalculatedBefore) {
    TKxAkima akima;
    for (int run = 0; run < 2; ++run) {
        Calculate(akima, {0, 1, 2}, {0, 1, 4});
        EXPECT_TRUE(akima.Minima.IsEmpty());
        // Chords 1, 3, then 5, 7 and none: slopes 4 at 2 and 49/9 at 3, where the last piece but one ends.
        EXPECT_NEAR(akima.Interpolate(2.5), 6 + 2.875 / 9, 1e-14);
        EXPECT_NEAR(akima.Interpolate(3), 9, 1e-14);
        EXPECT_NEAR(akima.Interpolate(4), 34.0 / 9, 1e-14);
        Calculate(akima, {0, 1, 4, 9, 16, 25, 36}, {0, 800, 900, 100, -700, -900, 3});
        akima.FindExtrema();
        EXPECT_FALSE(akima.Minima.IsEmpty());
    }
}

TEST(Akima, GivesEqualChordsStraightLinesAndTheirRightSlope) {
    TKxAkima akima;
    Calculate(akima, {0, 1, 3, 4, 8}, {1, 3, 7, 9, 17});
    for (const double x : {-1.0, 0.7, 3.0, 8.0}) {
        EXPECT_EQ(akima.Interpolate(x), 1 + 2 * x);
        EXPECT_EQ(akima.Slope(x), 2);
    }
    Calculate(akima, {0, 1, 2, 3, 4}, {0, 1, 2, 5, 8});
    EXPECT_EQ(akima.Slope(2), 3);
}

TEST(Akima, SelectsSortsAndMergesPoints) {
    const auto cases =
        Cases<std::string, TReals, TReals, TReals, double, double, TReals, TReals>("curves", "knots");
    for (const auto& [what, x, y, weights, start, stop, knots, ordinates] : cases) {
        TKxAkima akima;
        Calculate(akima, x, y, weights, start, stop);
        EXPECT_EQ(TReals(akima.X.begin(), akima.X.begin() + akima.Count), knots) << what;
        EXPECT_EQ(TReals(akima.A.begin(), akima.A.begin() + akima.Count), ordinates) << what;
    }
}

TEST(Akima, HeedsNeitherOrderNorUnusablePoints) {
    TReals x, y;
    for (int i = 0; i < 900; ++i) {
        x.push_back(i + 0.4 * std::sin(7 * i));
        y.push_back(std::cos(i * i));
    }
    TKxAkima plain, mixed;
    Calculate(plain, x, y);
    for (const std::size_t firstExchanged : {900, 700, 5}) {
        TReals otherX = x, otherY = y;
        for (std::size_t i = firstExchanged; i + 50 < x.size(); i += 11) {
            std::swap(otherX[i], otherX[i + 50]);
            std::swap(otherY[i], otherY[i + 50]);
        }
        for (const int at : {640, 200, 199, 3, 0}) {
            otherX.insert(otherX.begin() + at, at == 3 ? 1e301 : at);
            otherY.insert(otherY.begin() + at, at == 3 ? 1 : NAN);
        }
        Calculate(mixed, otherX, otherY);
        for (const auto array : {&TKxAkima::X, &TKxAkima::A, &TKxAkima::B, &TKxAkima::C, &TKxAkima::D})
            EXPECT_TRUE(std::ranges::equal(plain.*array, mixed.*array)) << firstExchanged;
    }
}

TEST(Akima, RaisesForFewerThanThreeDistinctPointsAndLeavesNoCurve) {
    TKxAkima akima;
    for (const TReals& x : {TReals{}, {1, 1, 2}, {1, NAN, 2}}) {
        Calculate(akima, {1, 2, 3}, {1, 2, 3});
        EXPECT_EQ(MessageOf<EMathError>([&] { Calculate(akima, x, {4, 5, 6}); }), "Not enough data!");
        EXPECT_EQ(akima.Count, 0);
    }
}

TEST(Akima, InterpolatesSmoothedPoints) {
    TKxAkima akima;
    akima.Smooth = true;
    akima.SmoothM = 2;
    Calculate(akima, {2, 1, 0, 0}, {8, 4, 1, 3});
    EXPECT_EQ(akima.Interpolate(1), 4.5);
    akima.SmoothLog = true;
    Calculate(akima, {1, 10, 100}, {2, 4, 8});
    EXPECT_EQ(akima.Interpolate(10), 4.5);
    EXPECT_EQ(akima.Interpolate(100), 20.0 / 3);
}

TEST(Akima, LosesNoCoefficientToOverflowOrRounding) {
    const TReals y{1, 5, 2, 3};
    for (const TReals& x : {TReals{-1e20, 0, 1, 1e20},
                            {9007199254740991, 9007199254740992, 9007199254740994, 9007199254740996},
                            {0, 5e-324, 1e-170, 1},
                            {-1.7e308, 0, 1e308, 1.7e308}}) {
        TKxAkima akima;
        Calculate(akima, x, y, {}, -INFINITY, INFINITY);
        for (std::size_t i = 0; i < x.size(); ++i) {
            EXPECT_EQ(akima.Interpolate(x[i]), y[i]) << x[1] << ", " << i;
            EXPECT_TRUE(std::isfinite(akima.Slope(x[i]) + akima.Curvature(x[i]))) << x[1] << ", " << i;
        }
        EXPECT_TRUE(std::is_sorted(akima.X.begin(), akima.X.begin() + akima.Count + 1));
    }
}

} // namespace kx::test::akima
