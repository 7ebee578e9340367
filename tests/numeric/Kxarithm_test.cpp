#include <kxgraph/numeric/Kxarithm.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace kx {
namespace {

template <class... T>
using TTable = std::vector<std::tuple<T...>>;

TEST(Arithm, PowersOfTenAreExactAndNeverRaise) {
    for (int n = -22; n <= 22; ++n) EXPECT_EQ(IntExp10(n), std::stod("1e" + std::to_string(n)));
    EXPECT_NEAR(Exp10(0.5), 3.16227766016838, 1e-14);
    for (const double x : {309.0, double(INFINITY), double(NAN)}) EXPECT_EQ(Exp10(x), CMaxReal) << x;
    EXPECT_EQ(Exp10(-400), 0);
}

TEST(Arithm, DigitsAreThoseOfTheValueRoundedToFifteen) {
    const TTable<double, int, int> cases{
        {-0.0, 0, 0},    {-0.00123, -3, 3}, {9.9999999999999999, 1, 1}, {9.99999999999999, 0, 15},
        {123.456, 2, 6}, {1e300, 300, 1},   {5e-324, -324, 15}};
    for (const auto& [x, exponent, significant] : cases) {
        EXPECT_EQ(GetExponent(x), exponent) << x;
        EXPECT_EQ(LastSignificant(x), significant) << x;
    }
    for (const double x : {double(NAN), -double(INFINITY)}) EXPECT_THROW(GetExponent(x), EConvertError);
}

TEST(Arithm, DecimalShiftKeepsTheDigits) {
    const TTable<double, int, double> cases{
        {1.5, 2, 0.015}, {-1.5, -1, -15}, {0.1 + 0.2, 0, 0.3}, {3, 324, 5e-324},
        {1, 400, 0},     {-7, -400, -7},  {7, INT_MIN, 7},     {double(INFINITY), 1, double(INFINITY)}};
    for (const auto& [x, n, result] : cases) EXPECT_EQ(ExpMinus(x, n), result) << x << ", " << n;
    EXPECT_TRUE(std::isnan(ExpMinus(double(NAN), 1)));
    std::mt19937_64 random(3);
    for (int n = -30; n <= 30; ++n) // whole numbers need no text, with the same result
        for (const std::uint64_t digits : {random() % 1000, random() % 1000000000000000}) {
            const std::string text = std::to_string(digits) + "e" + std::to_string(-n);
            EXPECT_EQ(ExpMinus(double(digits), n), std::stod(text)) << text;
        }
}

TEST(Arithm, RoundsToMultiplesWithTolerance) {
    const TTable<double, double, int, double, double> cases{
        {3.0005, 1, 0, 3, 3},    {3.002, 1, 0, 3, 4},      {-2.5, 1, 0, -3, -2},
        {0, 1, 0, 0, 0},         {-2.0005, 1, 0, -2, -2},  {2.7, 0.5, 0, 2.5, 3},
        {0.3, 0.1, 0, 0.3, 0.3}, {1234, 2, 2, 1200, 1400}, {-0.0017, 5, -4, -0.002, -0.0015}};
    for (const auto& [x, step, n, down, up] : cases) {
        EXPECT_EQ(RoundDown(x, step, n), down) << x;
        EXPECT_EQ(RoundUp(x, step, n), up) << x;
    }
    EXPECT_THROW(RoundUp(1, 0, 0), EZeroDivide);
    EXPECT_THROW(RoundDown(double(NAN), 1, 0), EInvalidOp);
    EXPECT_THROW(RoundUp(double(INFINITY), 1, 0), EOverflow);
}

TEST(Arithm, RoundsToMultiplesOfADecade) {
    const double tolerance = LDBL_MANT_DIG > DBL_MANT_DIG ? 0 : 1e-13;
    const TTable<double, double, double, double, double> cases{
        {230, 1, 1, 200, 300},     {1000, 1, 1, 1000, 1000},   {1000.5, 1, 1, 1000, 1000},
        {950, 1, 1, 900, 1000},    {0.0123, 1, 1, 0.01, 0.02}, {0.5, 2, 1, 0.4, 0.6},
        {-230, -1, 1, -200, -300}, {2.7, 1, 0.5, 2.5, 3}};
    for (const auto& [x, ref, step, down, up] : cases) {
        EXPECT_NEAR(ExpMinus(RoundLogDown(x, ref, step), 0), down, std::abs(down) * tolerance) << x;
        EXPECT_NEAR(ExpMinus(RoundLogUp(x, ref, step), 0), up, std::abs(up) * tolerance) << x;
    }
    for (const double x : {0.0, -1.0, double(NAN)}) EXPECT_THROW(RoundLogUp(x, 1, 1), EInvalidOp);
    EXPECT_THROW(RoundLogDown(1, 0, 1), EZeroDivide);
}

} // namespace
} // namespace kx
