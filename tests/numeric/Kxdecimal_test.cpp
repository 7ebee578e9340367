#include <kxgraph/numeric/Kxdecimal.h>

#include "support/testing.h"

namespace kx::test::decimal {

/// The same by the text of fifteen digits.
TKxDecimal ReadDecimal(const std::string& Text) {
    TKxDecimal decimal{std::stoll(Text.substr(1, 1).append(Text, 3, 14)), std::stoll(Text.substr(18)) - 14};
    if (decimal.Digits == 0) return {};
    for (; decimal.Digits % 10 == 0; ++decimal.Exponent) decimal.Digits /= 10;
    if (Text[0] == '-') decimal.Digits = -decimal.Digits;
    return decimal;
}

TEST(Decimal, IsWhatFifteenDigitsOfADoubleRead) {
    std::mt19937_64 random(3);
    for (int round = 0; round < 60000; ++round) {
        double value = std::bit_cast<double>(random()); // of all magnitudes
        const int digits = round % 16;
        if (round % 3 == 0) value = std::floor(std::pow(10, digits) * double(random() % 1000) / 1000);
        if (round % 3 == 1) value = double(random() % 1000000) / std::pow(10, digits);
        if (!std::isfinite(value)) continue;
        const std::string text = ScientificText(value);
        const TKxDecimal decimal = TKxDecimal::Of(value);
        ASSERT_EQ(decimal, ReadDecimal(text)) << text;
        int position = 0;
        ASSERT_EQ(decimal.Value(), Val(text, position)) << text;
    }
}

TEST(Decimal, CountsItsDigitsAndItsMultiples) {
    const TKxDecimal step = TKxDecimal::Of(0.0025);
    EXPECT_EQ(step, (TKxDecimal{25, -4}));
    EXPECT_EQ(std::pair(step.Significant(), step.Magnitude()), std::pair(2, std::int64_t{-3}));
    EXPECT_EQ(step.Times(-4), (TKxDecimal{-1, -2}));
    EXPECT_EQ(step.Times(0), TKxDecimal());
    EXPECT_EQ(TKxDecimal::Of(0.1).Times(3).Value(), 0.3);
    EXPECT_EQ(TKxDecimal::Of(0.123456789012345).Times(100000000003).Digits, 123456789016049)
        << "fifteen digits";
    EXPECT_EQ(step.Shifted(std::int64_t{1} << 40).Value(), INFINITY);
    EXPECT_EQ(step.Shifted(-(std::int64_t{1} << 40)).Value(), 0);
}

} // namespace kx::test::decimal
