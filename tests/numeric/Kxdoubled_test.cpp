#include <kxgraph/numeric/Kxdoubled.h>

#include "support/testing.h"

namespace kx::test::doubled {

// Integers of more than 53 bits have exact sums and products to compare with.
TEST(Doubled, AgreesWithIntegersBeyondADouble) {
    const auto number = [](std::int64_t Value) {
        const auto high = static_cast<double>(Value >> 32) * 0x1p32;
        return TwoSum(high, static_cast<double>(Value & 0xffffffff));
    };
    std::mt19937_64 random(5);
    for (int i = 0; i < 1000; ++i) {
        const auto a = static_cast<std::int64_t>(random() >> 2) - (std::int64_t(1) << 61);
        const auto b = static_cast<std::int64_t>(random() >> 2) - (std::int64_t(1) << 61);
        ASSERT_EQ(number(a) + number(b), number(a + b));
        ASSERT_EQ(number(a) - number(b), number(a - b));
        const auto c = static_cast<std::int64_t>(random() >> 34);
        const TKxDoubled product = number(a / (1 << 30)) * number(c); // 32 and 30 bits
        ASSERT_EQ(product, number(a / (1 << 30) * c));
        ASSERT_LE(Abs(product / number(c) - number(a / (1 << 30))).Hi, 0x1p-70);
        ASSERT_EQ(number(a) < number(b), a < b);
    }
}

TEST(Doubled, GivesQuotientsAndRootsOfMoreThanAHundredBits) {
    for (const double divisor : {3.0, 7e-100, -1.7e120}) {
        const TKxDoubled third = TKxDoubled(1) / divisor;
        EXPECT_LE(Abs(third * divisor - 1.0).Hi, 0x1p-102);
        const TKxDoubled root = Sqrt(Abs(third));
        EXPECT_LE(Abs((root * root - Abs(third)) / third).Hi, 0x1p-101);
        EXPECT_NE(root.Lo, 0);
    }
    EXPECT_EQ(Sqrt(TKxDoubled(0)), TKxDoubled(0));
    EXPECT_THROW(Sqrt(TKxDoubled(-1)), EInvalidOp);
}

} // namespace kx::test::doubled
