#include <kxgraph/analysis/Kxpolyregr.h>
#include <kxgraph/numeric/Kxwide.h>

#include "support/nist.h"
#include "support/reference.h"
#include "support/testing.h"

namespace kx::test::polyregr {

TKxPolynomRegessionResults Fit(int Order, const TReals& X, const TReals& Y, double Start = -CInf,
                               double Stop = CInf) {
    TKxPolynomRegessionResults results;
    results.Order = Order;
    PolynomRegression(X, Y, Start, Stop, results);
    return results;
}

TKxPolynomRegessionResults WeightedFit(int Order, const TReals& X, const TReals& Y, const TReals& W,
                                       TKxWeightMeaning Meaning = wmCounts) {
    TKxPolynomRegessionResults results;
    results.Order = Order;
    PolynomRegressionWithWeight(X, Y, W, -CInf, CInf, results, Meaning);
    return results;
}

/// Digits that Value shares with Expected.
void ExpectDigits(double Digits, double Value, double Expected, const std::string& What) {
    EXPECT_LE(std::abs(Value - Expected), std::pow(10, -Digits) * std::abs(Expected))
        << What << ": " << Value << " for " << Expected;
}

/// Coefficients and their errors.
void ExpectFit(const TKxPolynomRegessionResults& Results, double Digits, const TReals& Coefficients,
               double ErrorDigits, const TReals& Errors) {
    for (std::size_t k = 0; k < Coefficients.size(); ++k) {
        ExpectDigits(Digits, Results.Coefficients[int(k)], Coefficients[k], "coefficient");
        ExpectDigits(ErrorDigits, Results.DeltaCoefficients[int(k)], Errors[k], "error");
    }
}

TEST(PolynomRegression, AgreesWithCertifiedValues) {
    for (const char* name : {"Pontius", "Wampler1", "Wampler3", "Wampler4", "Wampler5"}) {
        const TNistSet set(name);
        const int order = int(set.Coefficients.size()) - 1, freedom = int(set.X.size()) - order - 1;
        const auto results = Fit(order, set.X, set.Y);
        ExpectFit(results, 12, set.Coefficients, 10, set.Deviations);
        ExpectDigits(10, results.ChiSquare, set.SumOfSquares, name);
        ExpectDigits(order == 2 ? 14 : 13, results.R2, set.R2, name);
        ExpectDigits(10, results.QRel, std::sqrt(set.SumOfSquares / (freedom + 1)), name);
    }
}

std::int64_t Noise(std::int64_t Index) { return Index * Index * 7919 % 1009 - 504; }

// Expected values: the normal equations of the same doubles, solved with fractions of integers.
TEST(PolynomRegression, KeepsAllDigitsOfIllConditionedData) {
    TReals x[4], y[4], w[4];
    const auto add = [&](int Case, double X, double Y, double W = 1) {
        x[Case].push_back(X);
        y[Case].push_back(Y);
        w[Case].push_back(W);
    };
    // As hard as the hardest of the certified sets: the condition number of its matrix is about 1e15.
    for (int i = 0; i < 82; ++i)
        add(0, (9 * i - 1152) * 0x1p-7, double(800000 + 1000 * i + Noise(i)) * 0x1p-20);
    for (int i = 0; i < 60; ++i) add(1, 1.7e9 + 86400 * i, double(5000 + i * i + Noise(i)), 1 + i % 3);
    // Points that crowd at one end leave pivots down to 1e-24; without a second step digits would be missing.
    for (int i = 0; i < 12; ++i) add(2, std::pow(3, i), 3 * std::pow(3, i) + double(Noise(i)));
    // Small x have more digits behind the point than their distance from the middle has room for.
    for (int i = 1; i <= 6; ++i) add(3, i * 0x1p-14 + (2 * i + 1) * 0x1p-50, double(1000 + Noise(i)));
    for (int i = 1; i <= 5; ++i) add(3, i * 8, double(Noise(10 + i)));
    int i = 0;
    for (const auto& [chiSquare, coefficients, errors] :
         Cases<double, TReals, TReals>("fits", "ill-conditioned polynomials")) {
        const auto results = WeightedFit(int(errors.size()) - 1, x[i], y[i], w[i]);
        ExpectFit(results, 14, coefficients, 12, errors);
        ExpectDigits(12, results.ChiSquare, chiSquare, "chi-square");
        ++i;
    }
    // A curve drawn through times has no noise: third differences are those of the polynomial.
    const auto results = Fit(3, x[1], y[1]);
    const auto at = [&](int i) { return EvaluateFit(results, 1.7e9 + 5097.6 * i); };
    for (int i = 0; i < 997; ++i)
        ASSERT_LT(std::abs(at(i + 3) - 3 * at(i + 2) + 3 * at(i + 1) - at(i)), 1e-4);
}

TEST(PolynomRegression, GivesExactCoefficientsOfExactCurves) {
    auto results = Fit(2, {0, 1, 2}, {1, 6, 17});
    for (int k = 0; k <= 2; ++k) EXPECT_EQ(results.Coefficients[k], k + 1);
    EXPECT_EQ(std::tuple(results.ChiSquare, results.QRel, results.DeltaCoefficients[2]), std::tuple(0, 0, 0));
    EXPECT_EQ(results.AdjR2, results.R2);
    results = Fit(0, {1, 2, 4, 9}, {1, 2, 3, 6});
    EXPECT_EQ(std::tuple(results.Coefficients[0], results.ChiSquare, results.VarianceX, results.VarianceY),
              std::tuple(3, 14, 38.0 / 3, 14.0 / 3));
    EXPECT_EQ(results.R2, 0);
    EXPECT_EQ(EvaluateFit(results, 1e300), 3);
    EXPECT_EQ(EvaluateFit(TKxPolynomRegessionResults(), 7), 0);
}

TEST(PolynomRegression, CallsValuesThatAreAllEqualExplained) {
    const auto results = WeightedFit(3, {1, 2, 3, 4, 5.5, 7}, TReals(6, 0.1), {0.1, 0.7, 0.3, 1, 1.1, 0.9});
    EXPECT_EQ(std::tuple(results.R2, results.AdjR2, results.VarianceY), std::tuple(1, 1, 0));
    EXPECT_EQ(std::tuple(results.ChiSquare, results.Coefficients[0]), std::tuple(0, 0.1));
    EXPECT_EQ(results.Coefficients[3], 0);
}

TEST(PolynomRegression, LeavesOutWhatIsOutsideOrNotFiniteAsWholePoints) {
    const TReals x = {-5, 0, CNaN, 1, 2, 2.5, CInf, 3, -CInf, 4, 99};
    const TReals y = {99, 1, 5, 2, 5, CNaN, 6, 10, 1, 17.5};
    const auto results = Fit(2, x, y, 0, CInf);
    const auto expected = Fit(2, {0, 1, 2, 3, 4}, {1, 2, 5, 10, 17.5});
    EXPECT_EQ(std::tuple(results.Coefficients[2], results.QRel, results.AverageX, results.AverageY),
              std::tuple(expected.Coefficients[2], expected.QRel, 2, 7.1));
    EXPECT_EQ(Fit(2, {60, 0, 1, 2, 3, 4}, {0, 1, 2, 5, 10, 17.5}, -CInf, 50).QRel, expected.QRel);
    EXPECT_EQ(MessageOf<EMathError>([&] { Fit(2, x, y, CNaN, 5); }), "Not enough data!");
    const auto weighted =
        WeightedFit(2, {0, 1, 7, 2, 3, 8, 4}, {1, 2, 9, 5, 10, -3, 17.5}, {1, 1, CNaN, 1, 1, CInf, 1});
    EXPECT_EQ(weighted.Coefficients[2], expected.Coefficients[2]);
}

TEST(PolynomRegression, CountsAPointOfWeightTwoAsTwo) {
    const TReals x = {1, 2, 3, 5, 8}, y = {2, 1, 4, 3, 9}, w = {2, 1, 1, 3, 1};
    const auto a = WeightedFit(2, x, y, w);
    const auto b = Fit(2, {1, 1, 2, 3, 5, 5, 5, 8}, {2, 2, 1, 4, 3, 3, 3, 9});
    for (int k = 0; k <= 2; ++k) ExpectDigits(15, a.Coefficients[k], b.Coefficients[k], "coefficient");
    for (const auto field : {&TKxPolynomRegessionResults::AverageX, &TKxPolynomRegessionResults::AverageY,
                             &TKxPolynomRegessionResults::VarianceX, &TKxPolynomRegessionResults::VarianceY,
                             &TKxPolynomRegessionResults::ChiSquare, &TKxPolynomRegessionResults::R2})
        ExpectDigits(14, a.*field, b.*field, "field");
    // What depends on how many points there are does not follow.
    ExpectDigits(14, a.QRel, std::sqrt(a.ChiSquare / 3), "QRel");
    ExpectDigits(14, a.AdjR2, 1 - (1 - a.R2) * 4 / 2, "AdjR2");
    ExpectDigits(14, a.DeltaCoefficients[1] / b.DeltaCoefficients[1], std::sqrt(5.0 / 2), "error");
}

TEST(PolynomRegression, UsesWeightsOfAnySizeAndSign) {
    const TReals x = {1, 2, 3, 5, 8, 9}, y = {2, 1, 4, 3, 9, 5};
    const auto plain = Fit(2, x, y);
    const TReals coefficients(plain.Coefficients.begin(), plain.Coefficients.end()),
        errors(plain.DeltaCoefficients.begin(), plain.DeltaCoefficients.end());
    for (const double weight : {1e-300, 1e300}) {
        const auto results = WeightedFit(2, x, y, TReals(6, weight));
        ExpectFit(results, 14, coefficients, 14, errors);
        ExpectDigits(14, results.ChiSquare, plain.ChiSquare * weight, "chi-square");
        EXPECT_EQ(results.VarianceX == 0, weight < 1); // as the sum of weights is below 1
        const auto precise = WeightedFit(2, {1, 2, 3, 5, 8, 9, 4}, {2, 1, 4, 3, 9, 5, 70},
                                         {weight, weight, weight, weight, weight, weight, 0}, wmPrecisions);
        for (const auto field :
             {&TKxPolynomRegessionResults::VarianceX, &TKxPolynomRegessionResults::VarianceY,
              &TKxPolynomRegessionResults::R2, &TKxPolynomRegessionResults::AdjR2})
            ExpectDigits(14, precise.*field, plain.*field, "field");
        ExpectFit(precise, 14, coefficients, 14, errors);
        EXPECT_EQ(std::pair(precise.Points, precise.Freedom), std::pair(7, 3));
    }
    // A point without weight may be anywhere; a negative weight takes a point back.
    const auto without =
        WeightedFit(2, {1, 2, 3, 5, 8, 9, 1e300}, {2, 1, 4, 3, 9, 5, -1e300}, {1, 1, 1, 1, 1, 1, 0});
    EXPECT_EQ(without.Coefficients[1], plain.Coefficients[1]);
    ExpectDigits(14, without.QRel, std::sqrt(plain.ChiSquare / 5), "QRel");
    const auto back =
        WeightedFit(2, {1, 2, 3, 5, 8, 9, 4, 4}, {2, 1, 4, 3, 9, 5, 7, 7}, {1, 1, 1, 1, 1, 1, 1, -1});
    ExpectDigits(14, back.Coefficients[1], plain.Coefficients[1], "coefficient");
}

TEST(PolynomRegression, RaisesRatherThanFittingTooLittle) {
    const std::string singular = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";
    const auto cases = Cases<int, TReals, TReals, std::string>("fits", "too little for a polynomial");
    for (const auto& [order, x, w, what] : cases) {
        const auto fit = [order = order, &x = x, &w = w] { WeightedFit(order, x, {1, 2, 4, 8, 16}, w); };
        EXPECT_EQ(MessageOf<EMathError>(fit), what == "singular" ? singular : what) << order;
    }
    TReals many;
    for (int i = 0; i < 100; ++i) many.push_back(0.01 * i);
    for (const int order : {60, 65})
        EXPECT_EQ(MessageOf<EMathError>([&] { Fit(order, many, many); }), singular);

    TKxPolynomRegessionResults kept = Fit(2, {0, 1, 2}, {1, 6, 17});
    EXPECT_THROW(PolynomRegression(TReals{1}, TReals{1}, 0, 2, kept), EMathError);
    EXPECT_EQ(EvaluateFit(kept, 2), 17);
}

// Scales of x and y are powers of two, so the same digits come out wherever they fit into a double.
TEST(PolynomRegression, WorksAtEveryScaleThatResultsHave) {
    TReals shape;
    for (int i = 0; i < 9; ++i) shape.push_back(1 + i * 0.25);
    const auto scaled = [&](int Exponent) {
        TReals values = shape;
        for (double& v : values) v = std::ldexp(v, Exponent);
        return values;
    };
    TReals y = {3, 1, 4, 1, 5, 9, 2, 6, 5};
    const auto plain = Fit(5, shape, y);
    for (const int exponent : {-200, 500}) { // up to 1e150
        const auto results = Fit(5, scaled(exponent), y);
        for (int k = 0; k <= 5; ++k) {
            EXPECT_EQ(results.Coefficients[k], std::ldexp(plain.Coefficients[k], -exponent * k));
            EXPECT_EQ(results.DeltaCoefficients[k], std::ldexp(plain.DeltaCoefficients[k], -exponent * k));
        }
        EXPECT_EQ(results.R2, plain.R2);
        EXPECT_EQ(EvaluateFit(results, std::ldexp(1.1, exponent)), EvaluateFit(plain, 1.1));
    }
    const TReals line = {1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5};
    const auto tiny = Fit(5, scaled(-664), line); // 1e-200
    EXPECT_EQ(std::tuple(tiny.Coefficients[1], tiny.Coefficients[5]), std::tuple(std::ldexp(2, 664), 0));
    for (double& v : y) v *= 0x1p-700;
    const auto small = Fit(5, shape, y);
    EXPECT_EQ(std::tuple(small.R2, small.QRel), std::tuple(plain.R2, plain.QRel * 0x1p-700));

    EXPECT_THROW(Fit(5, scaled(-664), y = {3, 1, 4, 1, 5, 9, 2, 6, 5}), EOverflow); // coefficients
    EXPECT_THROW(Fit(5, scaled(664), y), EOverflow);                                // variance of x
    EXPECT_THROW(Fit(2, shape, scaled(900)), EOverflow);                            // variance of y
    EXPECT_THROW(Fit(1, {-1.7e308, 1.7e308, 0}, {1, 2, 3}), EOverflow);
}

// The blocks, their last odd point and the second pass for small residuals.
TEST(PolynomRegression, GivesTheSameForEveryNumberOfPoints) {
    for (const int count : {4, 127, 128, 129, 256, 1000}) {
        TReals x, y;
        for (int i = 0; i < count; ++i) {
            x.push_back(i - 0.5 * (count - 1));
            // Alternating signs about the middle: orthogonal to a line for counts that 4 divides.
            const double sign = std::min(i, count - 1 - i) % 2 == 0 ? 1 : -1;
            y.push_back(2 + x.back() + (count % 2 == 0 ? sign * 0x1p-40 : 0));
        }
        const auto results = Fit(1, x, y);
        EXPECT_EQ(results.Coefficients[1], 1) << count;
        ExpectDigits(12, results.VarianceX, count * (count + 1.0) / 12, "variance");
        ExpectDigits(12, results.ChiSquare, count % 2 == 0 ? count * 0x1p-80 : 0, "chi-square");
    }
}

} // namespace kx::test::polyregr
