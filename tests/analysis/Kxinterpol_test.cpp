#include "analysis/Kxinterpol.h"
#include "support/errors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace kx {
namespace {

using TValues = std::vector<double>;
constexpr double CInf = std::numeric_limits<double>::infinity();
constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();

TKxRealArray ArrayOf(const TValues& Values) {
    TKxRealArray array(int(Values.size()));
    std::copy(Values.begin(), Values.end(), array.begin());
    return array;
}

/// The cubics that have the values and slopes of F at the knots; the last one is straight.
TKxIntPolynom CurveOf(const TValues& Knots, const std::function<double(double)>& F,
                      const std::function<double(double)>& Derivative) {
    TKxIntPolynom curve;
    curve.Count = int(Knots.size());
    curve.X = ArrayOf(Knots);
    for (TKxRealArray* array : {&curve.A, &curve.B, &curve.C, &curve.D}) array->SetLength(curve.Count);
    for (int i = 0; i < curve.Count; ++i) {
        curve.A[i] = F(curve.X[i]);
        curve.B[i] = Derivative(curve.X[i]);
    }
    for (int i = 0; i + 1 < curve.Count; ++i) {
        const double h = curve.X[i + 1] - curve.X[i], m = (curve.A[i + 1] - curve.A[i]) / h;
        curve.C[i] = (3 * m - 2 * curve.B[i] - curve.B[i + 1]) / h;
        curve.D[i] = (curve.B[i] + curve.B[i + 1] - 2 * m) / (h * h);
    }
    return curve;
}

TValues Steps(double From, double Step, int Count) {
    TValues values;
    for (int i = 0; i < Count; ++i) values.push_back(From + i * Step);
    return values;
}

TKxIntPolynom WaveOf(const TValues& Knots) {
    return CurveOf(
        Knots, [](double x) { return std::sin(x); }, [](double x) { return std::cos(x); });
}

double Simpson(TKxIntPolynom& Curve, double From, double To) {
    const int n = 2000;
    const double h = (To - From) / n;
    double sum = Curve.Interpolate(From) + Curve.Interpolate(To);
    for (int i = 1; i < n; ++i) sum += (i % 2 ? 4 : 2) * Curve.Interpolate(From + i * h);
    return sum * h / 3;
}

/// Where F crosses zero, by bisection from a fine grid.
TValues Zeros(const std::function<double(double)>& F, double From, double To) {
    TValues zeros;
    const double step = (To - From) / 5000;
    for (double x = From; x < To; x += step) {
        if ((F(x) < 0) == (F(x + step) < 0)) continue;
        double lo = x, hi = x + step;
        for (int i = 0; i < 60; ++i) ((F((lo + hi) / 2) < 0) == (F(lo) < 0) ? lo : hi) = (lo + hi) / 2;
        zeros.push_back(lo);
    }
    return zeros;
}

TValues Integrals(TKxIntPolynom& Curve, const TValues& Abscissae) {
    TKxRealVector x(nullptr), y(nullptr);
    x.AddValues(Abscissae);
    Curve.Integrate(x, y);
    return {y.Values().begin(), y.Values().end()};
}

TEST(Kxinterpol, ThePieceDependsOnXAndNotOnTheSearchesBefore) {
    TValues knots{-7};
    for (int i = 0; i < 300; ++i) knots.push_back(knots.back() + (i % 7 == 3 ? 0 : 1 + i % 5));
    TKxIntPolynom curve = WaveOf(knots);
    std::mt19937 random(1);
    for (int i = 0; i < 4000; ++i) {
        double x = knots[random() % knots.size()] + (i % 3 ? i % 3 * 0.5 - 0.75 : 0);
        if (i % 50 == 0) x = i % 100 ? 1e9 : -1e9;
        if (i % 9 == 0) curve.Index = int(random() % 1000) - 300;
        if (i == 2000) curve.C.SetLength(curve.Count - 1);
        int expected = 0;
        for (int k = 0; k < curve.C.Length(); ++k)
            if (curve.X[k] <= x) expected = k;
        ASSERT_EQ(curve.FindIndex(x), expected) << x;
        ASSERT_EQ(curve.Index, expected);
    }
}

TEST(Kxinterpol, SlopeAndCurvatureAreTheDerivativesOfTheCurve) {
    TKxIntPolynom curve = WaveOf(Steps(1.7e9, 0.5, 40));
    for (double x = 1.7e9 - 1 + 1.0 / 16; x < 1.7e9 + 21; x += 0.125) {
        const double h = 1.0 / 4096, left = curve.Interpolate(x - h), right = curve.Interpolate(x + h);
        EXPECT_NEAR(curve.Slope(x), (right - left) / (2 * h), 1e-6);
        EXPECT_NEAR(curve.Curvature(x), (right - 2 * curve.Interpolate(x) + left) / (h * h), 1e-6);
    }
    EXPECT_EQ(curve.Interpolate(curve.X[17]), curve.A[17]);
}

TEST(Kxinterpol, ExtremaLieWhereTheSlopeChangesItsSign) {
    TKxIntPolynom curve = CurveOf(
        Steps(0.1, 0.37, 60), [](double x) { return x / 9 + std::sin(x) + std::cos(3 * x); },
        [](double x) { return 1.0 / 9 + std::cos(x) - 3 * std::sin(3 * x); });
    curve.FindExtrema();
    curve.FindExtrema(); // the arrays do not add up
    std::size_t minima = 0, maxima = 0;
    for (const double x : Zeros([&](double x) { return curve.Slope(x); }, 0.1, 0.1 + 0.37 * 59)) {
        const bool isMinimum = curve.Curvature(x) > 0;
        const TKxRealPosArray& found = isMinimum ? curve.Minima : curve.Maxima;
        const int i = int(isMinimum ? minima++ : maxima++);
        ASSERT_LT(i, found.Length());
        EXPECT_NEAR(found[i].X, x, 1e-9);
        EXPECT_NEAR(found[i].Y, curve.Interpolate(x), 1e-12);
    }
    EXPECT_GT(minima, 8);
    EXPECT_EQ(curve.Minima.Length(), int(minima));
    EXPECT_EQ(curve.Maxima.Length(), int(maxima));
}

/// Two pieces, [0, 2) and [2, 4).
TKxIntPolynom TwoPieces(const TValues& First, const TValues& Second) {
    TKxIntPolynom curve;
    curve.Count = 3;
    curve.X = {0, 2, 4};
    TKxRealArray* const arrays[] = {&curve.A, &curve.B, &curve.C, &curve.D};
    for (std::size_t i = 0; i < 4; ++i) *arrays[i] = ArrayOf({First[i], Second[i], 0});
    return curve;
}

TEST(Kxinterpol, NearlyParabolicPiecesKeepTheDigitsOfTheirVertexAndParabolasHaveNone) {
    TKxIntPolynom curve = TwoPieces({1, -2, 1, 1e-18}, {0, 2, -1, 0});
    curve.FindExtrema();
    ASSERT_EQ(curve.Minima.Length(), 1);
    EXPECT_EQ(curve.Minima[0], (TKxRealPos{1, 0}));
    EXPECT_TRUE(curve.Maxima.IsEmpty());
    curve = TwoPieces({0, 0, -1e200, 1}, {5, 3, -3, 1}); // an overflow; a level inflection at 3
    curve.FindExtrema();
    ASSERT_EQ(curve.Minima.Length(), 2);
    EXPECT_EQ(curve.Minima[0], (TKxRealPos{3, 6}));
    EXPECT_EQ(curve.Minima[1], (TKxRealPos{3, 6}));
}

TEST(Kxinterpol, ExtremaOfTheSlopeAreInflectionsBesideTheSteepestKnots) {
    TKxIntPolynom curve = WaveOf(Steps(0.2, 0.4, 50));
    curve.FindDiffExtrema();
    const TKxRealPosArray* const found[] = {&curve.DiffMinima, &curve.DiffMaxima};
    const double pi = std::acos(-1);
    for (int k = 0; k < 2; ++k) { // the slope is least at odd multiples of pi
        ASSERT_EQ(found[k]->Length(), 3);
        for (int i = 0; i < 3; ++i) {
            const TKxRealPos pos = (*found[k])[i];
            EXPECT_NEAR(pos.X, (2 * i + 1 + k) * pi, 0.02);
            EXPECT_NEAR(pos.Y, k ? 1 : -1, 1e-3);
            EXPECT_NEAR(curve.Curvature(pos.X), 0, 1e-12);
        }
    }
}

TEST(Kxinterpol, PiecesWithoutACubicTermOfferNoInflection) {
    // Slopes 2, 1, 2 at the knots; the inflection of the second piece is at 3, with the slope -2.
    const TValues parabola{0, 2, -0.25, 0}, cubic{0, 1, -3, 1};
    TKxIntPolynom curve = TwoPieces(parabola, cubic);
    curve.B[2] = 2;
    curve.FindDiffExtrema();
    ASSERT_EQ(curve.DiffMinima.Length(), 1);
    EXPECT_EQ(curve.DiffMinima[0], (TKxRealPos{3, -2}));
    curve.D[1] = 0;
    curve.FindDiffExtrema();
    EXPECT_TRUE(curve.DiffMinima.IsEmpty());
}

TEST(Kxinterpol, TheIntegralIsThatOfTheCurveFromTheFirstKnotOn) {
    TKxIntPolynom curve = WaveOf(Steps(2, 0.5, 40));
    const TValues x = Steps(2.6, 0.3, 80); // beyond the last knot too
    const TValues found = Integrals(curve, x);
    EXPECT_EQ(found[0], 0);
    for (std::size_t k = 1; k < x.size(); ++k) EXPECT_NEAR(found[k], Simpson(curve, 2.5, x[k]), 1e-7) << x[k];

    TValues withGaps = x;
    withGaps.insert(withGaps.begin() + 5, {CNaN, CInf});
    withGaps.insert(withGaps.begin(), -CInf);
    TValues expected = found;
    expected.insert(expected.begin() + 5, 2, found[4]);
    expected.insert(expected.begin(), 0);
    EXPECT_EQ(Integrals(curve, withGaps), expected);
    EXPECT_TRUE(Integrals(curve, {CNaN}) == TValues{0} && Integrals(curve, {}).empty());
}

TEST(Kxinterpol, TheIntegralPassesNoMorePiecesThanThereAreAbscissae) {
    TKxIntPolynom curve = TwoPieces({1, 0, 0, 0}, {7, 0, 0, 0});
    EXPECT_EQ(Integrals(curve, {0, 1, 4}), (TValues{0, 1, 2 + 14}));
    EXPECT_EQ(Integrals(curve, {0, 4}), (TValues{0, 4}));
    EXPECT_EQ(Integrals(curve, {3, 4}), (TValues{0, 14}));
}

TEST(Kxinterpol, TurningPointsOfTheIntegralAreRefined) {
    TKxIntPolynom curve = WaveOf(Steps(0.2, 0.7, 30));
    Integrals(curve, Steps(0.2, 0.25, 80));
    int minima = 0, maxima = 0;
    for (const double x : Zeros([&](double x) { return curve.Interpolate(x); }, 0.2, 19.9)) {
        const bool isMinimum = curve.Slope(x) > 0;
        const TKxRealPosArray& found = isMinimum ? curve.IntMinima : curve.IntMaxima;
        const int i = isMinimum ? minima++ : maxima++;
        ASSERT_LT(i, found.Length());
        EXPECT_NEAR(found[i].X, x, 1e-6);
        EXPECT_NEAR(found[i].Y, Simpson(curve, 0.2, x), 1e-8);
    }
    EXPECT_EQ(curve.IntMinima.Length(), 3);
    EXPECT_EQ(curve.IntMaxima.Length(), 3);
    // In the first pieces the search starts at the first knot.
    curve = TwoPieces({-1, 1, 0, 0}, {1, 1, 0, 0});
    Integrals(curve, Steps(0, 0.3, 10));
    ASSERT_EQ(curve.IntMinima.Length(), 1);
    EXPECT_NEAR(curve.IntMinima[0].X, 1, 1e-8);
    EXPECT_NEAR(curve.IntMinima[0].Y, -0.5, 1e-15);
}

TEST(Kxinterpol, WithoutPiecesNothingIsEvaluated) {
    TKxIntPolynom curve;
    EXPECT_EQ(test::MessageOf<EMathError>([&] { curve.Interpolate(1); }), "Not enough data!");
    EXPECT_EQ(test::MessageOf<EMathError>([&] { Integrals(curve, {1, 2}); }), "Not enough data!");
    curve.FindExtrema();
    curve.FindDiffExtrema();
    EXPECT_TRUE(curve.Minima.IsEmpty() && curve.DiffMaxima.IsEmpty());
}

} // namespace
} // namespace kx
