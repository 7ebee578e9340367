#include <kxgraph/numeric/Kxarithm.h>

#include "support/testing.h"

#include <cfloat>

namespace kx::test::arithm {

TEST(Arithm, GivesExactPowersOfTenAndNeverRaises) {
    for (int n = -22; n <= 22; ++n) EXPECT_EQ(IntExp10(n), std::stod("1e" + std::to_string(n)));
    EXPECT_NEAR(Exp10(0.5), 3.16227766016838, 1e-14);
    for (const double x : {309.0, double(INFINITY), double(NAN)}) EXPECT_EQ(Exp10(x), CMaxReal) << x;
    EXPECT_EQ(Exp10(-400), 0);
}

TEST(Arithm, CountsDigitsOfTheValueRoundedToFifteen) {
    for (const auto& [x, exponent, significant] : Cases<double, int, int>("numbers", "digits")) {
        EXPECT_EQ(GetExponent(x), exponent) << x;
        EXPECT_EQ(LastSignificant(x), significant) << x;
    }
    for (const double x : {double(NAN), -double(INFINITY)}) EXPECT_THROW(GetExponent(x), EConvertError);
}

TEST(Arithm, KeepsTheDigitsInADecimalShift) {
    for (const auto& [x, n, result] : Cases<double, int, double>("numbers", "decimal shifts"))
        EXPECT_EQ(ExpMinus(x, n), result) << x << ", " << n;
    EXPECT_TRUE(std::isnan(ExpMinus(double(NAN), 1)));
    std::mt19937_64 random(3);
    for (int n = -30; n <= 30; ++n) // whole numbers need no text, with the same result
        for (const std::uint64_t digits : {random() % 1000, random() % 1000000000000000}) {
            const std::string text = std::to_string(digits) + "e" + std::to_string(-n);
            EXPECT_EQ(ExpMinus(double(digits), n), std::stod(text)) << text;
        }
}

TEST(Arithm, RoundsToMultiplesWithTolerance) {
    const auto cases = Cases<double, double, int, double, double>("numbers", "multiples");
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
    const auto cases = Cases<double, double, double, double, double>("numbers", "multiples of a decade");
    for (const auto& [x, ref, step, down, up] : cases) {
        EXPECT_NEAR(ExpMinus(RoundLogDown(x, ref, step), 0), down, std::abs(down) * tolerance) << x;
        EXPECT_NEAR(ExpMinus(RoundLogUp(x, ref, step), 0), up, std::abs(up) * tolerance) << x;
    }
    for (const double x : {0.0, -1.0, double(NAN)}) EXPECT_THROW(RoundLogUp(x, 1, 1), EInvalidOp);
    EXPECT_THROW(RoundLogDown(1, 0, 1), EZeroDivide);
}

} // namespace kx::test::arithm
