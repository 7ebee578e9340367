#include <kxgraph/analysis/Kxinterpol.h>

#include "support/arrays.h"
#include "support/testing.h"

namespace kx::test::interpol {

/// Cubics with the values and slopes of a sine at the knots; the last one is straight.
TKxIntPolynom WaveOf(const TReals& Knots) {
    TKxIntPolynom curve;
    curve.Count = int(Knots.size());
    curve.X = ArrayOf(Knots);
    for (TKxRealArray* array : {&curve.A, &curve.B, &curve.C, &curve.D}) array->SetLength(curve.Count);
    for (int i = 0; i < curve.Count; ++i) {
        curve.A[i] = std::sin(curve.X[i]);
        curve.B[i] = std::cos(curve.X[i]);
    }
    for (int i = 0; i + 1 < curve.Count; ++i) {
        const double h = curve.X[i + 1] - curve.X[i], m = (curve.A[i + 1] - curve.A[i]) / h;
        curve.C[i] = (3 * m - 2 * curve.B[i] - curve.B[i + 1]) / h;
        curve.D[i] = (curve.B[i] + curve.B[i + 1] - 2 * m) / (h * h);
    }
    return curve;
}

TReals Steps(double From, double Step, int Count) {
    TReals values;
    for (int i = 0; i < Count; ++i) values.push_back(From + i * Step);
    return values;
}

double Simpson(TKxIntPolynom& Curve, double From, double To) {
    const int n = 2000;
    const double h = (To - From) / n;
    double sum = Curve.Interpolate(From) + Curve.Interpolate(To);
    for (int i = 1; i < n; ++i) sum += (i % 2 ? 4 : 2) * Curve.Interpolate(From + i * h);
    return sum * h / 3;
}

TReals Integrals(TKxIntPolynom& Curve, const TReals& Abscissae) {
    TKxRealVector x(nullptr), y(nullptr);
    x.AddValues(Abscissae);
    Curve.Integrate(x, y);
    return {y.Values().begin(), y.Values().end()};
}

TEST(Interpolation, FindsThePieceOfXWhateverWasSearchedBefore) {
    TReals knots{-7};
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

TEST(Interpolation, HasTheDerivativesOfTheCurve) {
    TKxIntPolynom curve = WaveOf(Steps(1.7e9, 0.5, 40));
    for (double x = 1.7e9 - 1 + 1.0 / 16; x < 1.7e9 + 21; x += 0.125) {
        const double h = 1.0 / 4096, left = curve.Interpolate(x - h), right = curve.Interpolate(x + h);
        EXPECT_NEAR(curve.Slope(x), (right - left) / (2 * h), 1e-6);
        EXPECT_NEAR(curve.Curvature(x), (right - 2 * curve.Interpolate(x) + left) / (h * h), 1e-6);
    }
    EXPECT_EQ(curve.Interpolate(curve.X[17]), curve.A[17]);
}

TEST(Interpolation, FindsExtremaWhereTheSlopeChangesItsSign) {
    for (const double step : {0.37, 4.1}) { // with one or several extrema in a piece
        TKxIntPolynom curve = WaveOf(Steps(0.1, step, 60));
        curve.FindExtrema();
        curve.FindExtrema(); // the arrays do not add up
        for (const TKxRealPosArray* found : {&curve.Minima, &curve.Maxima}) {
            EXPECT_TRUE(std::ranges::is_sorted(*found, {}, &TKxRealPos::X));
            for (const auto& [x, y] : *found) {
                EXPECT_NEAR(curve.Slope(x), 0, 1e-9);
                EXPECT_EQ(curve.Curvature(x) > 0, found == &curve.Minima);
                EXPECT_EQ(y, curve.Interpolate(x));
            }
        }
        int turns = 0;
        for (double x = 0.1; x < 0.1 + 59 * step; x += 0.01)
            turns += (curve.Slope(x) < 0) != (curve.Slope(x + 0.01) < 0);
        EXPECT_EQ(curve.Minima.Length() + curve.Maxima.Length(), turns);
    }
}

/// Two pieces, [0, 2) and [2, 4).
TKxIntPolynom TwoPieces(const TReals& First, const TReals& Second) {
    TKxIntPolynom curve;
    curve.Count = 3;
    curve.X = {0, 2, 4};
    TKxRealArray* const arrays[] = {&curve.A, &curve.B, &curve.C, &curve.D};
    for (std::size_t i = 0; i < 4; ++i) *arrays[i] = ArrayOf({First[i], Second[i], 0});
    curve.A[2] = ((Second[3] * 2 + Second[2]) * 2 + Second[1]) * 2 + Second[0];
    return curve;
}

TEST(Interpolation, KeepsTheDigitsOfTheVertexOfNearlyParabolicPieces) {
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

TEST(Interpolation, FindsExtremaOfTheSlopeBesideTheSteepestKnots) {
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

TEST(Interpolation, FindsNoInflectionWithoutACubicTerm) {
    // Slopes 2, 1, 2 at the knots; the inflection of the second piece is at 3, with the slope -2.
    TKxIntPolynom curve = TwoPieces({0, 2, -0.25, 0}, {0, 1, -3, 1});
    curve.B[2] = 2;
    curve.FindDiffExtrema();
    ASSERT_EQ(curve.DiffMinima.Length(), 1);
    EXPECT_EQ(curve.DiffMinima[0], (TKxRealPos{3, -2}));
    curve.D[1] = 0;
    curve.FindDiffExtrema();
    EXPECT_TRUE(curve.DiffMinima.IsEmpty());
}

TEST(Interpolation, IntegratesFromTheFirstKnotOn) {
    TKxIntPolynom curve = WaveOf(Steps(2, 0.5, 40));
    for (const double from : {2.6, -1.0, 7.0, 23.0}) {
        const TKxRunningIntegral integral(curve, from);
        for (const double x : Steps(1, 0.3, 80))
            EXPECT_NEAR(integral(x), Simpson(curve, std::max(from, 2.0), x), 1e-7) << from << " " << x;
    }
    TReals x = Steps(2.6, 0.3, 80); // beyond the last knot too
    TReals found = Integrals(curve, x);
    EXPECT_EQ(found[0], 0);
    for (std::size_t k = 1; k < x.size(); ++k) EXPECT_NEAR(found[k], Simpson(curve, 2.5, x[k]), 1e-7) << x[k];
    x.insert(x.begin() + 5, {NAN, INFINITY});
    x.insert(x.begin(), -INFINITY);
    found.insert(found.begin() + 5, 2, found[4]);
    found.insert(found.begin(), 0);
    EXPECT_EQ(Integrals(curve, x), found) << "gaps repeat the value before";
    EXPECT_TRUE(Integrals(curve, {NAN}) == TReals{0} && Integrals(curve, {}).empty());
}

TEST(Interpolation, PassesNoMorePiecesThanThereAreAbscissae) {
    TKxIntPolynom curve = TwoPieces({1, 0, 0, 0}, {7, 0, 0, 0});
    EXPECT_EQ(Integrals(curve, {0, 1, 4}), (TReals{0, 1, 2 + 14}));
    EXPECT_EQ(Integrals(curve, {0, 4}), (TReals{0, 4}));
    EXPECT_EQ(Integrals(curve, {3, 4}), (TReals{0, 14}));
}

TEST(Interpolation, RefinesTurningPointsOfTheIntegral) {
    TKxIntPolynom curve = WaveOf(Steps(0.2, 0.7, 30));
    Integrals(curve, Steps(0.2, 0.25, 80));
    for (const TKxRealPosArray* found : {&curve.IntMinima, &curve.IntMaxima}) {
        EXPECT_EQ(found->Length(), 3);
        for (const auto& [x, y] : *found) {
            EXPECT_NEAR(curve.Interpolate(x), 0, 1e-6);
            EXPECT_EQ(curve.Slope(x) > 0, found == &curve.IntMinima);
            EXPECT_NEAR(y, Simpson(curve, 0.2, x), 1e-8);
        }
    }
}

TEST(Interpolation, TurnsTheIntegralWhereTheCurveChangesItsSign) {
    const auto cases = Cases<std::string, TReals, TReals, TReals, TReals>("curves", "turns of the integral");
    for (const auto& [what, first, second, minima, maxima] : cases) {
        TKxIntPolynom curve = TwoPieces(first, second);
        Integrals(curve, {0, 4}); // however few they are
        for (const auto& [found, expected] :
             {std::pair{curve.IntMinima, minima}, {curve.IntMaxima, maxima}}) {
            ASSERT_EQ(found.Length(), int(expected.size())) << what;
            for (int i = 0; i < found.Length(); ++i) {
                EXPECT_NEAR(found[i].X, expected[std::size_t(i)], 1e-15) << what;
                EXPECT_NEAR(found[i].Y, Simpson(curve, 0, found[i].X), 2e-3) << what;
            }
        }
    }
    TKxIntPolynom curve = TwoPieces({-1, 0.5, 0, 0}, {0, 0, 0, 0});
    for (TKxRealArray* array : {&curve.X, &curve.A, &curve.B, &curve.C, &curve.D}) array->SetLength(5);
    curve.Count = 5;
    curve.X[3] = 5;
    curve.X[4] = 6;
    curve.A[4] = curve.D[3] = 1;
    curve.FindIntExtrema(TKxRunningIntegral(curve, 0));
    ASSERT_EQ(curve.IntMinima.Length(), 1);
    EXPECT_EQ(curve.IntMinima[0], (TKxRealPos{2, -1})) << "where a stretch of zeros begins";
}

TEST(Interpolation, EvaluatesNothingWithoutPieces) {
    TKxIntPolynom curve;
    EXPECT_EQ(MessageOf<EMathError>([&] { curve.Interpolate(1); }), "Not enough data!");
    EXPECT_EQ(MessageOf<EMathError>([&] { Integrals(curve, {1, 2}); }), "Not enough data!");
    curve.FindExtrema();
    curve.FindDiffExtrema();
    EXPECT_TRUE(curve.Minima.IsEmpty() && curve.DiffMaxima.IsEmpty());
}

} // namespace kx::test::interpol
