#include <kxgraph/analysis/Kxpolyregr.h>

#include "support/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace kx {
namespace {

using TValues = std::vector<double>;
constexpr double CInf = std::numeric_limits<double>::infinity();
constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();
constexpr const char* CNotEnough = "Not enough data!";
constexpr const char* CSingular = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";

TKxPolynomRegessionResults Fit(int Order, const TValues& X, const TValues& Y, double Start = -CInf,
                               double Stop = CInf) {
    TKxPolynomRegessionResults results;
    results.Order = Order;
    PolynomRegression(X, Y, Start, Stop, results);
    return results;
}

TKxPolynomRegessionResults WeightedFit(int Order, const TValues& X, const TValues& Y, const TValues& W,
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

// Certified values of NIST StRD, linear least squares.

TEST(PolynomRegression, AgreesWithTheCertifiedValuesOfPontius) {
    const TValues y = {.11019,  .21956,  .32949,  .43899,  .54803,  .65694,  .76562,  .87487,
                       .98292,  1.09146, 1.20001, 1.30822, 1.41599, 1.52399, 1.63194, 1.73947,
                       1.84646, 1.95392, 2.06128, 2.16844, .11052,  .22018,  .32939,  .43886,
                       .54798,  .65739,  .76596,  .87474,  .98300,  1.09150, 1.20004, 1.30818,
                       1.41613, 1.52408, 1.63159, 1.73965, 1.84696, 1.95445, 2.06177, 2.16829};
    TValues x;
    for (int i = 0; i < 40; ++i) x.push_back(150000.0 * (i % 20 + 1));
    const auto results = Fit(2, x, y);
    const double coefficients[] = {0.673565789473684E-03, 0.732059160401003E-06, -0.316081871345029E-14};
    const double errors[] = {0.107938612033077E-03, 0.157817399981659E-09, 0.486652849992036E-16};
    for (int k = 0; k <= 2; ++k) {
        ExpectDigits(12, results.Coefficients[k], coefficients[k], "coefficient");
        ExpectDigits(10, results.DeltaCoefficients[k], errors[k], "error");
    }
    ExpectDigits(10, results.ChiSquare, 0.155761768796992E-05, "chi-square");
    ExpectDigits(14, results.R2, 0.999999900178537, "R2");
    ExpectDigits(10, results.QRel, std::sqrt(0.155761768796992E-05 / 38), "QRel");
}

TEST(PolynomRegression, AgreesWithTheCertifiedValuesOfWampler) {
    const double noise[] = {759,   -2048, 2048,  -2048, 2523,  -2048, 2048,  -2048, 1838,  -2048, 2048,
                            -2048, 1838,  -2048, 2048,  -2048, 2523,  -2048, 2048,  -2048, 759};
    const double errors[] = {2152.32624678170, 2363.55173469681, 779.343524331583,
                             101.475507550350, 5.64566512170752, 0.112324854679312};
    const std::pair<double, double> cases[] = {
        {0, 1}, {1, 0.999995559025820}, {100, 0.957478440825662}, {10000, 0.224668921574940E-02}};
    for (const auto& [factor, r2] : cases) {
        TValues x, y;
        for (int i = 0; i <= 20; ++i) {
            x.push_back(i);
            y.push_back(1 + i * (1 + i * (1 + i * (1 + i * (1.0 + i)))) + factor * noise[i]);
        }
        const auto results = Fit(5, x, y);
        for (int k = 0; k <= 5; ++k) {
            ExpectDigits(12, results.Coefficients[k], 1, "coefficient");
            ExpectDigits(10, results.DeltaCoefficients[k], errors[k] * factor, "error");
        }
        ExpectDigits(13, results.R2, r2, "R2");
        ExpectDigits(10, results.ChiSquare, 83554268.0 * factor * factor, "chi-square");
    }
}

std::int64_t Noise(std::int64_t Index) { return Index * Index * 7919 % 1009 - 504; }

// Expected values: the normal equations of the same doubles, solved with fractions of integers.
TEST(PolynomRegression, KeepsAllDigitsOfIllConditionedData) {
    const struct {
        double ChiSquare;
        TValues Coefficients, Errors;
    } cases[] = {
        {5.91164950301428e-06,
         {25.23350256414932, 44.20885693305772, 35.47822616085458, 16.59217456344052, 5.008202186414437,
          1.01992782086117, 0.1419970650707989, 0.01335209569716595, 0.0008119775665281002,
          2.8852848620852e-05, 4.5517058871521e-07},
         {31.20105476489, 56.61959475399, 45.62905330947, 21.50760892233, 6.567670694279, 1.357920478911,
          0.192572958784, 0.01850185395884, 0.001152942375565, 4.209353764033e-05, 6.840016544209e-07}},
        {8553213.0955318,
         {-2.027621269662787e+20, 714615591375.7109, -1049.413887483088, 8.219014893280393e-07,
          -3.620888628186141e-16, 8.507642005479049e-26, -8.328981885663914e-36},
         {1.574723839941e+20, 554945251968.2, 814.8629124942, 6.38142409271e-07, 2.811079358666e-16,
          6.604306931787e-26, 6.465022868104e-36}},
        {458541.078347413,
         {-0.7574069948417582, 1.657686979505135, 0.00283718047468311, -1.454029803784079e-06,
          2.269102612396587e-10, -1.123080766310402e-14, 1.697091312748921e-19, -6.394859035066684e-25},
         {177.3322851697, 2.754715245183, 0.005625781593107, 2.923350567903e-06, 4.598744752474e-10,
          2.283157705283e-14, 3.453802278642e-19, 1.301911160192e-24}},
        {173015.141727411,
         {1251.34694852376, -1015948.414163972, 289927.6871113517, -29760.05546860832, 1405.372197297424,
          -31.00171328574407, 0.2583542327175704},
         {193.6218665979, 814640.3811922, 232502.8653963, 23865.20333093, 1126.961885758, 24.85938066436,
          0.2071611382574}},
    };
    TValues x[4], y[4], w[4];
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
    for (int i = 0; i < 4; ++i) {
        const auto& [chiSquare, coefficients, errors] = cases[i];
        const auto results = WeightedFit(int(errors.size()) - 1, x[i], y[i], w[i]);
        for (std::size_t k = 0; k < errors.size(); ++k) {
            ExpectDigits(14, results.Coefficients[int(k)], coefficients[k], "coefficient");
            ExpectDigits(12, results.DeltaCoefficients[int(k)], errors[k], "error");
        }
        ExpectDigits(12, results.ChiSquare, chiSquare, "chi-square");
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
    EXPECT_EQ(results.ChiSquare, 0);
    EXPECT_EQ(results.QRel, 0);
    EXPECT_EQ(results.DeltaCoefficients[2], 0);
    EXPECT_EQ(results.AdjR2, results.R2);
    results = Fit(0, {1, 2, 4, 9}, {1, 2, 3, 6});
    EXPECT_EQ(results.Coefficients[0], 3);
    EXPECT_EQ(results.ChiSquare, 14);
    EXPECT_EQ(results.VarianceX, 38.0 / 3);
    EXPECT_EQ(results.VarianceY, 14.0 / 3);
    EXPECT_EQ(results.R2, 0);
    EXPECT_EQ(EvaluateFit(results, 1e300), 3);
    EXPECT_EQ(EvaluateFit(TKxPolynomRegessionResults(), 7), 0);
}

TEST(PolynomRegression, CallsValuesThatAreAllEqualExplained) {
    const auto results = WeightedFit(3, {1, 2, 3, 4, 5.5, 7}, TValues(6, 0.1), {0.1, 0.7, 0.3, 1, 1.1, 0.9});
    EXPECT_EQ(results.R2, 1);
    EXPECT_EQ(results.AdjR2, 1);
    EXPECT_EQ(results.VarianceY, 0);
    EXPECT_EQ(results.ChiSquare, 0);
    EXPECT_EQ(results.Coefficients[0], 0.1);
    EXPECT_EQ(results.Coefficients[3], 0);
}

TEST(PolynomRegression, LeavesOutWhatIsOutsideOrNotFiniteAsWholePoints) {
    const TValues x = {-5, 0, CNaN, 1, 2, 2.5, CInf, 3, -CInf, 4, 99};
    const TValues y = {99, 1, 5, 2, 5, CNaN, 6, 10, 1, 17.5};
    const auto results = Fit(2, x, y, 0, CInf);
    const auto expected = Fit(2, {0, 1, 2, 3, 4}, {1, 2, 5, 10, 17.5});
    EXPECT_EQ(results.Coefficients[2], expected.Coefficients[2]);
    EXPECT_EQ(results.QRel, expected.QRel);
    EXPECT_EQ(results.AverageX, 2);
    EXPECT_EQ(results.AverageY, 7.1);
    EXPECT_EQ(Fit(2, {60, 0, 1, 2, 3, 4}, {0, 1, 2, 5, 10, 17.5}, -CInf, 50).QRel, expected.QRel);
    EXPECT_EQ(test::MessageOf<EMathError>([&] { Fit(2, x, y, CNaN, 5); }), CNotEnough);
    const auto weighted =
        WeightedFit(2, {0, 1, 7, 2, 3, 8, 4}, {1, 2, 9, 5, 10, -3, 17.5}, {1, 1, CNaN, 1, 1, CInf, 1});
    EXPECT_EQ(weighted.Coefficients[2], expected.Coefficients[2]);
}

TEST(PolynomRegression, CountsAPointOfWeightTwoAsTwo) {
    const TValues x = {1, 2, 3, 5, 8}, y = {2, 1, 4, 3, 9}, w = {2, 1, 1, 3, 1};
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
    const TValues x = {1, 2, 3, 5, 8, 9}, y = {2, 1, 4, 3, 9, 5};
    const auto plain = Fit(2, x, y);
    for (const double weight : {1e-300, 1e300}) {
        const auto results = WeightedFit(2, x, y, TValues(6, weight));
        for (int k = 0; k <= 2; ++k) {
            ExpectDigits(14, results.Coefficients[k], plain.Coefficients[k], "coefficient");
            ExpectDigits(14, results.DeltaCoefficients[k], plain.DeltaCoefficients[k], "error");
        }
        ExpectDigits(14, results.ChiSquare, plain.ChiSquare * weight, "chi-square");
        EXPECT_EQ(results.VarianceX == 0, weight < 1); // as the sum of weights is below 1
        const auto precise = WeightedFit(2, {1, 2, 3, 5, 8, 9, 4}, {2, 1, 4, 3, 9, 5, 70},
                                         {weight, weight, weight, weight, weight, weight, 0}, wmPrecisions);
        for (const auto field :
             {&TKxPolynomRegessionResults::VarianceX, &TKxPolynomRegessionResults::VarianceY,
              &TKxPolynomRegessionResults::R2, &TKxPolynomRegessionResults::AdjR2})
            ExpectDigits(14, precise.*field, plain.*field, "field");
        for (int k = 0; k <= 2; ++k)
            ExpectDigits(14, precise.DeltaCoefficients[k], plain.DeltaCoefficients[k], "precise error");
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
    const TValues same(5, 0.1), y = {1, 2, 4, 8, 16};
    const TValues near = {1, std::nextafter(1, 2), 2, 0.5, 1e-30};
    const struct {
        int Order;
        TValues X, Y, W;
        std::string Message;
    } cases[] = {
        {-1, y, y, same, CNotEnough},
        {std::numeric_limits<int>::max(), y, y, same, CNotEnough},
        {2, y, y, {1, 0, 1, 0, 0}, CNotEnough},
        {2, y, y, {1, 1, -3, 0, 1}, CNotEnough},
        {2, y, y, {}, CNotEnough},
        {1, same, y, same, CSingular},
        {2, {1, 2, 1, 2, 1}, y, same, CSingular},
        {2, y, y, {1, 1, 1, -2.5, 0}, CSingular},
        {4, near, y, same, CSingular}, // different, but no more than pairs of doubles can tell
        {4, y, y, same, ""},
        {0, same, y, same, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(test::MessageOf<EMathError>([&] { WeightedFit(c.Order, c.X, c.Y, c.W); }), c.Message)
            << c.Order;
    TValues many;
    for (int i = 0; i < 100; ++i) many.push_back(0.01 * i);
    for (const int order : {60, 65})
        EXPECT_EQ(test::MessageOf<EMathError>([&] { Fit(order, many, many); }), CSingular);

    TKxPolynomRegessionResults kept = Fit(2, {0, 1, 2}, {1, 6, 17});
    EXPECT_THROW(PolynomRegression(TValues{1}, TValues{1}, 0, 2, kept), EMathError);
    EXPECT_EQ(EvaluateFit(kept, 2), 17);
}

// Scales of x and y are powers of two, so the same digits come out wherever they fit into a double.
TEST(PolynomRegression, WorksAtEveryScaleThatResultsHave) {
    TValues shape;
    for (int i = 0; i < 9; ++i) shape.push_back(1 + i * 0.25);
    const auto scaled = [&](int Exponent) {
        TValues values = shape;
        for (double& v : values) v = std::ldexp(v, Exponent);
        return values;
    };
    TValues y = {3, 1, 4, 1, 5, 9, 2, 6, 5};
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
    const TValues line = {1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5};
    const auto tiny = Fit(5, scaled(-664), line); // 1e-200
    EXPECT_EQ(tiny.Coefficients[1], std::ldexp(2, 664));
    EXPECT_EQ(tiny.Coefficients[5], 0);
    for (double& v : y) v *= 0x1p-700;
    const auto small = Fit(5, shape, y);
    EXPECT_EQ(small.R2, plain.R2);
    EXPECT_EQ(small.QRel, plain.QRel * 0x1p-700);

    EXPECT_THROW(Fit(5, scaled(-664), y = {3, 1, 4, 1, 5, 9, 2, 6, 5}), EOverflow); // coefficients
    EXPECT_THROW(Fit(5, scaled(664), y), EOverflow);                                // variance of x
    EXPECT_THROW(Fit(2, shape, scaled(900)), EOverflow);                            // variance of y
    EXPECT_THROW(Fit(1, {-1.7e308, 1.7e308, 0}, {1, 2, 3}), EOverflow);
}

// The blocks, their last odd point and the second pass for small residuals.
TEST(PolynomRegression, GivesTheSameForEveryNumberOfPoints) {
    for (const int count : {4, 127, 128, 129, 256, 1000}) {
        TValues x, y;
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

} // namespace
} // namespace kx
