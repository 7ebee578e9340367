#include "analysis/Kxpolyregr.h"

#include <gtest/gtest.h>

#include <array>
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

TKxPolynomRegessionResults WeightedFit(int Order, const TValues& X, const TValues& Y, const TValues& W) {
    TKxPolynomRegessionResults results;
    results.Order = Order;
    PolynomRegressionWithWeight(X, Y, W, -CInf, CInf, results);
    return results;
}

template <class F>
std::string MessageOf(F&& Call) {
    try {
        Call();
    } catch (const EMathError& error) {
        return error.Message();
    }
    return "";
}

/// Digits that Value shares with Expected.
void ExpectDigits(double Digits, double Value, double Expected, const std::string& What) {
    EXPECT_LE(std::abs(Value - Expected), std::pow(10, -Digits) * std::abs(Expected))
        << What << ": " << Value << " for " << Expected;
}

// Certified values of NIST StRD, linear least squares.

TEST(PolynomRegression, AgreesWithTheCertifiedValuesOfPontius) {
    const TValues first = {.11019,  .21956,  .32949,  .43899,  .54803,  .65694,  .76562,
                           .87487,  .98292,  1.09146, 1.20001, 1.30822, 1.41599, 1.52399,
                           1.63194, 1.73947, 1.84646, 1.95392, 2.06128, 2.16844};
    const TValues second = {.11052,  .22018,  .32939,  .43886,  .54798,  .65739,  .76596,
                            .87474,  .98300,  1.09150, 1.20004, 1.30818, 1.41613, 1.52408,
                            1.63159, 1.73965, 1.84696, 1.95445, 2.06177, 2.16829};
    TValues x, y;
    for (const auto& run : {first, second})
        for (std::size_t i = 0; i < run.size(); ++i) {
            x.push_back(150000.0 * double(i + 1));
            y.push_back(run[i]);
        }
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
    const struct {
        double Base;  // the coefficients are its powers
        double Noise; // factor
        double R2;
    } cases[] = {{1, 0, 1},
                 {0.1, 0, 1},
                 {1, 1, 0.999995559025820},
                 {1, 100, 0.957478440825662},
                 {1, 10000, 0.224668921574940E-02}};
    for (const auto& c : cases) {
        TValues x, y;
        for (int i = 0; i <= 20; ++i) {
            const double step = c.Base == 1 ? 1 : 10;
            double sum =
                0; // in units of 1e-5 for the second set, so that y is the double next to its decimals
            for (int k = 0; k <= 5; ++k) sum += std::pow(i, k) * std::pow(step, 5 - k);
            x.push_back(i);
            y.push_back(sum / std::pow(step, 5) + c.Noise * noise[i]);
        }
        const auto results = Fit(5, x, y);
        for (int k = 0; k <= 5; ++k) {
            ExpectDigits(12, results.Coefficients[k], std::pow(c.Base, k), "coefficient");
            if (c.Noise > 0)
                ExpectDigits(10, results.DeltaCoefficients[k], errors[k] * c.Noise, "error");
            else
                EXPECT_LT(results.DeltaCoefficients[k], 1e-12);
        }
        ExpectDigits(13, results.R2, c.R2, "R2");
        EXPECT_NEAR(results.ChiSquare, 83554268.0 * c.Noise * c.Noise, 1e-10 * results.ChiSquare + 1e-9);
    }
}

/// An integer of 5120 bits, two's complement: the exact second method.
class TBig {
public:
    TBig(std::int64_t Value = 0) {
        for (int i = 0; i < CSize; ++i, Value >>= 31, Value >>= 1) FLimbs[i] = std::uint32_t(Value);
    }
    TBig operator-(const TBig& B) const {
        TBig result;
        std::int64_t carry = 0;
        for (int i = 0; i < CSize; ++i, carry >>= 32)
            result.FLimbs[i] = std::uint32_t(carry += std::int64_t(FLimbs[i]) - B.FLimbs[i]);
        return result;
    }
    TBig operator+(const TBig& B) const { return *this - (TBig() - B); }
    TBig operator*(const TBig& B) const {
        TBig result;
        for (int i = 0; i < CSize; ++i) {
            std::uint64_t carry = 0;
            if (FLimbs[i] == 0) continue;
            for (int j = 0; i + j < CSize; ++j, carry >>= 32)
                result.FLimbs[i + j] =
                    std::uint32_t(carry += std::uint64_t(FLimbs[i]) * B.FLimbs[j] + result.FLimbs[i + j]);
        }
        return result;
    }
    /// For a B that divides this: without its trailing zeros B is odd and has an inverse modulo 2^5120.
    TBig operator/(const TBig& B) const {
        const int zeros = B.TrailingZeros();
        const TBig odd = B.ShiftedRight(zeros);
        TBig inverse = odd; // right in 3 bits; each step doubles them
        for (int bits = 3; bits < 32 * CSize; bits *= 2) inverse = inverse * (TBig(2) - odd * inverse);
        return ShiftedRight(zeros) * inverse;
    }
    bool IsNegative() const { return FLimbs[CSize - 1] >> 31; }
    /// Value / 2^Exponent with 0.5 <= |Value| < 2, so that quotients stay in range.
    std::pair<double, int> Parts() const {
        if (IsNegative()) {
            const auto [value, exponent] = (TBig() - *this).Parts();
            return {-value, exponent};
        }
        int top = CSize - 1;
        while (top > 0 && FLimbs[top] == 0) --top;
        double value = 0;
        for (int i = top; i >= std::max(0, top - 3); --i) value += std::ldexp(FLimbs[i], 32 * (i - top));
        return {value, 32 * top};
    }
    static double Ratio(const TBig& A, const TBig& B) {
        const auto a = A.Parts();
        const auto b = B.Parts();
        return std::ldexp(a.first / b.first, a.second - b.second);
    }

private:
    static constexpr int CSize = 160;
    int TrailingZeros() const {
        int n = 0;
        while (!(FLimbs[n / 32] >> (n % 32) & 1)) ++n;
        return n;
    }
    TBig ShiftedRight(int Bits) const {
        TBig result;
        const std::uint64_t sign = IsNegative() ? 0xffffffff : 0;
        for (int i = 0; i < CSize; ++i) {
            const int from = i + Bits / 32;
            const std::uint64_t low = from < CSize ? FLimbs[from] : sign;
            const std::uint64_t high = from + 1 < CSize ? FLimbs[from + 1] : sign;
            result.FLimbs[i] = std::uint32_t((high << 32 | low) >> (Bits % 32));
        }
        return result;
    }
    std::array<std::uint32_t, CSize> FLimbs{};
};

struct TExactFit {
    TValues Coefficients, Deltas;
    double ChiSquare;
};

/// The normal equations of integer data, solved by fraction-free elimination (E. H. Bareiss, Mathematics of
/// Computation 22 (1968) 565) with the unit matrix beside them; every division is exact.
TExactFit ExactFit(int Order, const std::vector<std::int64_t>& X, const std::vector<std::int64_t>& Y,
                   const std::vector<std::int64_t>& W) {
    const int n = Order + 1;
    std::vector<std::vector<TBig>> m(std::size_t(n), std::vector<TBig>(std::size_t(2 * n + 1)));
    std::vector<TBig> right(m.size());
    TBig squares;
    for (std::size_t p = 0; p < X.size(); ++p) {
        std::vector<TBig> powers = {TBig(W[p])};
        for (int k = 1; k <= 2 * Order; ++k) powers.push_back(powers.back() * X[p]);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) m[i][j] = m[i][j] + powers[i + j];
            right[i] = right[i] + powers[i] * Y[p];
        }
        squares = squares + powers[0] * Y[p] * Y[p];
    }
    for (int i = 0; i < n; ++i) {
        m[i][n] = right[i];
        m[i][n + 1 + i] = 1;
    }
    TBig previous = 1;
    for (int k = 0; k < n; ++k) {
        for (int i = 0; i < n; ++i)
            for (int j = 2 * n; i != k && j >= 0; --j)
                if (j != k) m[i][j] = (m[k][k] * m[i][j] - m[i][k] * m[k][j]) / previous;
        for (int i = 0; i < n; ++i)
            if (i != k) m[i][k] = 0;
        previous = m[k][k];
    }
    TExactFit fit;
    TBig chiSquare = squares * previous;
    for (int i = 0; i < n; ++i) chiSquare = chiSquare - m[i][n] * right[i];
    fit.ChiSquare = TBig::Ratio(chiSquare, previous);
    for (int i = 0; i < n; ++i) {
        fit.Coefficients.push_back(TBig::Ratio(m[i][n], previous));
        const double reduced = fit.ChiSquare / (double(X.size()) - n);
        fit.Deltas.push_back(std::sqrt(reduced * TBig::Ratio(m[i][n + 1 + i], previous)));
    }
    return fit;
}

/// Integers in units of a power of two; values that look like noise about a curve.
struct TIntegerData {
    std::vector<std::int64_t> X, Y, W;
    double UnitX = 1, UnitY = 1;
    void Add(std::int64_t AX, std::int64_t AY, std::int64_t AW = 1) {
        X.push_back(AX);
        Y.push_back(AY);
        W.push_back(AW);
    }
};

TKxPolynomRegessionResults CompareWithExactFit(int Order, const TIntegerData& Data, const std::string& What) {
    TValues x, y, w;
    for (const std::int64_t v : Data.X) x.push_back(double(v) * Data.UnitX);
    for (const std::int64_t v : Data.Y) y.push_back(double(v) * Data.UnitY);
    for (const std::int64_t v : Data.W) w.push_back(double(v));
    const auto results = WeightedFit(Order, x, y, w);
    const TExactFit exact = ExactFit(Order, Data.X, Data.Y, Data.W);
    for (int k = 0; k <= Order; ++k) {
        const double unit = Data.UnitY / std::pow(Data.UnitX, k);
        const std::string what = What + " " + std::to_string(k);
        ExpectDigits(14, results.Coefficients[k], exact.Coefficients[std::size_t(k)] * unit, what);
        ExpectDigits(12, results.DeltaCoefficients[k], exact.Deltas[std::size_t(k)] * unit, what + " error");
    }
    ExpectDigits(12, results.ChiSquare, exact.ChiSquare * Data.UnitY * Data.UnitY, What + " chi-square");
    return results;
}

std::int64_t Noise(std::int64_t Index) { return Index * Index * 7919 % 1009 - 504; }

// As ill-conditioned as the hardest of the certified sets: the condition number of its matrix is about 1e15.
TEST(PolynomRegression, KeepsAllDigitsOfTenDegreesFarFromZero) {
    TIntegerData data;
    data.UnitX = 0x1p-7;
    data.UnitY = 0x1p-20;
    for (std::int64_t i = 0; i < 82; ++i) data.Add(9 * i - 1152, 800000 + 1000 * i + Noise(i));
    CompareWithExactFit(10, data, "ten degrees");
}

TEST(PolynomRegression, KeepsAllDigitsOfTimesInSecondsAndOfDecimalYears) {
    TIntegerData seconds;
    for (std::int64_t i = 0; i < 60; ++i)
        seconds.Add(1700000000 + 86400 * i, 5000 + i * i + Noise(i), 1 + i % 3);
    for (const int order : {2, 3, 6}) {
        const auto results = CompareWithExactFit(order, seconds, "seconds");
        // A curve drawn through it has no noise: third differences are those of the polynomial.
        double largest = 0;
        const auto at = [&](int i) { return EvaluateFit(results, 1700000000 + 5097.6 * i); };
        for (int i = 0; order == 3 && i < 997; ++i)
            largest = std::max(largest, std::abs(at(i + 3) - 3 * at(i + 2) + 3 * at(i + 1) - at(i)));
        EXPECT_LT(largest, 1e-4);
    }
    TIntegerData years;
    years.UnitX = 0x1p-6;
    for (std::int64_t i = 0; i < 150; ++i) years.Add(64 * 1990 + 16 * i, i * (150 - i) + Noise(i));
    CompareWithExactFit(10, years, "years");
}

// Points that crowd at one end leave pivots of 1e-15 to 1e-24; without a second step digits would be missing.
TEST(PolynomRegression, KeepsAllDigitsOfCrowdedPoints) {
    for (const int step : {2, 3}) {
        TIntegerData data;
        for (std::int64_t i = 0, x = 1; i < 12; ++i, x *= step) data.Add(x, 3 * x + Noise(i));
        for (const int order : {4, 7}) CompareWithExactFit(order, data, "crowded");
    }
}

// Small x have more digits behind the point than their distance from the middle has room for.
TEST(PolynomRegression, KeepsAllDigitsOfPointsThatNeedMoreThanADoubleAboutTheMiddle) {
    TIntegerData data;
    data.UnitX = 0x1p-50;
    for (std::int64_t i = 1; i <= 6; ++i) data.Add((i << 36) + 2 * i + 1, 1000 + Noise(i));
    for (std::int64_t i = 1; i <= 5; ++i) data.Add(i << 53, Noise(10 + i));
    CompareWithExactFit(6, data, "fine");
}

TEST(PolynomRegression, GivesExactCoefficientsOfExactCurves) {
    auto results = Fit(2, {0, 1, 2}, {1, 6, 17});
    for (int k = 0; k <= 2; ++k) EXPECT_EQ(results.Coefficients[k], k + 1);
    EXPECT_EQ(results.ChiSquare, 0);
    EXPECT_EQ(results.QRel, 0);
    EXPECT_EQ(results.DeltaCoefficients[2], 0);
    EXPECT_EQ(results.AdjR2, results.R2);

    results = Fit(1, {1, 2, 3, 4}, {5, 7, 9, 11});
    EXPECT_EQ(results.Coefficients[0], 3);
    EXPECT_EQ(results.Coefficients[1], 2);
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
    for (const double value : {0.0, 0.1, -1e300}) {
        const auto results =
            WeightedFit(3, {1, 2, 3, 4, 5.5, 7}, TValues(6, value), {0.1, 0.7, 0.3, 1, 1.1, 0.9});
        EXPECT_EQ(results.R2, 1);
        EXPECT_EQ(results.AdjR2, 1);
        EXPECT_EQ(results.VarianceY, 0);
        EXPECT_EQ(results.ChiSquare, 0);
        EXPECT_EQ(results.Coefficients[0], value);
        EXPECT_EQ(results.Coefficients[3], 0);
    }
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
    TValues above = x;
    above[0] = 60;
    EXPECT_EQ(Fit(2, above, y, -CInf, 50).QRel, expected.QRel);
    EXPECT_EQ(MessageOf([&] { Fit(2, x, y, CNaN, 5); }), CNotEnough);
    const auto weighted =
        WeightedFit(2, {0, 1, 7, 2, 3, 8, 4}, {1, 2, 9, 5, 10, -3, 17.5}, {1, 1, CNaN, 1, 1, CInf, 1});
    EXPECT_EQ(weighted.Coefficients[2], expected.Coefficients[2]);
}

TEST(PolynomRegression, CountsAPointOfWeightTwoAsTwo) {
    const TValues x = {1, 2, 3, 5, 8}, y = {2, 1, 4, 3, 9}, w = {2, 1, 1, 3, 1};
    TValues x2, y2;
    for (std::size_t i = 0; i < x.size(); ++i)
        for (int copy = 0; copy < w[i]; ++copy) {
            x2.push_back(x[i]);
            y2.push_back(y[i]);
        }
    const auto a = WeightedFit(2, x, y, w);
    const auto b = Fit(2, x2, y2);
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
    for (const double weight : {1e-300, 0.1, 1e300}) {
        const auto results = WeightedFit(2, x, y, TValues(6, weight));
        for (int k = 0; k <= 2; ++k) {
            ExpectDigits(14, results.Coefficients[k], plain.Coefficients[k], "coefficient");
            ExpectDigits(14, results.DeltaCoefficients[k], plain.DeltaCoefficients[k], "error");
        }
        ExpectDigits(14, results.ChiSquare, plain.ChiSquare * weight, "chi-square");
        if (weight < 1e-10) {
            EXPECT_EQ(results.VarianceX, 0);
        } // their sum is below 1
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
    const TValues same(5, 0.1), y = {1, 2, 4, 8, 16}, two = {1, 2, 1, 2, 1};
    const TValues near = {1, std::nextafter(1, 2), 2, 0.5, 1e-30};
    const struct {
        int Order;
        TValues X, Y, W;
        std::string Message;
    } cases[] = {
        {2, {1, 2}, {1, 2}, {1, 1}, CNotEnough},
        {-1, y, y, same, CNotEnough},
        {std::numeric_limits<int>::max(), y, y, same, CNotEnough},
        {2, {}, {}, {}, CNotEnough},
        {2, same, y, {0, 0, 0, 0, 0}, CNotEnough},
        {2, y, y, {1, 0, 1, 0, 0}, CNotEnough},
        {2, y, y, {1, 1, -3, 0, 1}, CNotEnough},
        {2, y, y, {}, CNotEnough},
        {1, same, y, same, CSingular},
        {2, same, y, same, CSingular},
        {2, two, y, same, CSingular},
        {2, y, y, {1, 1, 1, -2.5, 0}, CSingular},
        {4, {0, 1, 2, 1, 0, 2, 1, 3}, {1, 2, 3, 4, 5, 6, 7, 8}, TValues(8, 1), CSingular},
        {4, near, y, same, CSingular}, // different, but no more than pairs of doubles can tell
        {4, y, y, same, ""},
        {0, same, y, same, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MessageOf([&] { WeightedFit(c.Order, c.X, c.Y, c.W); }), c.Message) << c.Order;
    TValues many;
    for (int i = 0; i < 100; ++i) many.push_back(0.01 * i);
    for (const int order : {60, 65, 99}) EXPECT_EQ(MessageOf([&] { Fit(order, many, many); }), CSingular);

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
    for (const int exponent : {-200, -100, 100, 500}) { // up to 1e150
        const auto results = Fit(5, scaled(exponent), y);
        for (int k = 0; k <= 5; ++k) {
            EXPECT_EQ(results.Coefficients[k], std::ldexp(plain.Coefficients[k], -exponent * k));
            EXPECT_EQ(results.DeltaCoefficients[k], std::ldexp(plain.DeltaCoefficients[k], -exponent * k));
        }
        EXPECT_EQ(results.R2, plain.R2);
        for (const double x : {1.1, 2.7})
            EXPECT_EQ(EvaluateFit(results, std::ldexp(x, exponent)), EvaluateFit(plain, x));
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
    for (const int count : {3, 4, 127, 128, 129, 255, 257, 1000}) {
        TValues x, y;
        double chiSquare = 0;
        for (int i = 0; i < count; ++i) {
            x.push_back(i - 0.5 * (count - 1));
            // Alternating signs about the middle: orthogonal to a line for an even number of points.
            const double error =
                count % 2 == 0 ? (std::min(i, count - 1 - i) % 2 == 0 ? 0x1p-40 : -0x1p-40) : 0;
            y.push_back(2 + x.back() + error);
            chiSquare += 0x1p-80;
        }
        const auto results = Fit(1, x, y);
        EXPECT_EQ(results.Coefficients[1], 1) << count;
        ExpectDigits(12, results.VarianceX, count * (count + 1.0) / 12, "variance");
        if (count % 4 == 0) ExpectDigits(12, results.ChiSquare, chiSquare, "chi-square");
        if (count % 2 == 1) {
            EXPECT_EQ(results.ChiSquare, 0);
        }
    }
}

} // namespace
} // namespace kx
