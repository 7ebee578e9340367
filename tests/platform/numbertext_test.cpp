#include <kxgraph/platform/text/numbertext.h>

#include "support/testing.h"

#include <kxgraph/platform/text/decimals.h>

#include <bit>
#include <clocale>
#include <random>

namespace kx::test::numbertext {

TEST(NumberText, WritesTheGeneralAndTheFixedFormat) {
    for (const auto& [value, precision, digits, text] :
         Cases<double, int, int, TText>("numbers", "general format"))
        EXPECT_EQ(FloatToStrGeneral(value, precision, digits), text);
    for (const auto& [value, precision, digits, text] :
         Cases<double, int, int, TText>("numbers", "fixed format"))
        EXPECT_EQ(FloatToStrFixed(value, precision, digits), text);
}

TEST(NumberText, AgreesWithAnExactPrinterForAllKindsOfDoubles) {
    EXPECT_EQ(std::tuple(ScientificText(0), ScientificText(-1.5e-300), ScientificText(std::nan(""))),
              std::tuple(" 0.00000000000000E+0000", "-1.50000000000000E-0300", "                    NAN"));
    EXPECT_EQ(ScientificText(-CInf), "                   -INF");
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        char printed[64];
        const int length = std::snprintf(printed, sizeof printed, "% .14e", value);
        std::string expected(printed, static_cast<std::size_t>(length));
        const std::size_t e = expected.find('e');
        expected[e] = 'E';
        expected.insert(e + 2, 4 - (expected.size() - e - 2), '0');
        ASSERT_EQ(ScientificText(value), expected);
    }
}

TEST(NumberText, TakesTheSeparatorOfDisplayFromAUsableLocale) {
    SetDecimalSeparator(',');
    EXPECT_EQ(FloatToStr(-0.5), "-0,5");
    EXPECT_EQ(FloatToStrFixed(1.0 / 3, 15, 16), "0,3333333333333330");
    EXPECT_EQ(ScientificText(1.5), " 1.50000000000000E+0000");
    int position = 0;
    EXPECT_EQ(Val("1,5", position), 0);
    EXPECT_EQ(position, 2);

    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const auto& [locale, separator] : {std::pair{"no_SUCH.locale", ','}, {"C", '.'}}) {
        setenv("LC_ALL", locale, 1);
        TakeDecimalSeparatorFromEnvironment();
        EXPECT_EQ(GetDecimalSeparator(), separator);
    }
    unsetenv("LC_ALL");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

TEST(NumberText, ReadsAllOfATextOrSaysWhereItStopped) {
    int position = -1;
    for (const auto& [text, stop, value] : Cases<std::string, int, double>("numbers", "real numbers")) {
        EXPECT_EQ(Val(text, position), value) << text;
        EXPECT_EQ(position, stop) << text;
    }
    const std::string zeros(400, '0'); // the size is in the digits, whatever the exponent says
    EXPECT_EQ(Val("0." + zeros + "1", position), 0);
    EXPECT_EQ(Val("1" + zeros + "e-5", position), CInf);
    for (const auto& [text, stop, value] : Cases<std::string, int, int>("numbers", "whole numbers")) {
        EXPECT_EQ(ValInt(text, position), value) << text;
        EXPECT_EQ(position, stop) << text;
    }
}

TEST(NumberText, ShortDecimalsAreReadToTheSameBits) {
    std::mt19937 random(7);
    const std::string_view signs = "0123456789012345678901234567890123456789.-eE+x";
    for (int i = 0; i < 200000; ++i) {
        std::string text(random() % 20, '0');
        for (char& sign : text) sign = signs[random() % (i % 2 ? 41 : signs.size())];
        double expected = 7, value = 7;
        const char* end = text.data() + text.size();
        const auto demanded = std::from_chars(text.data(), end, expected);
        const auto read = ReadDecimal(text.data(), end, value);
        ASSERT_EQ(read.ptr - text.data(), demanded.ptr - text.data()) << text;
        ASSERT_EQ(read.ec, demanded.ec) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected)) << text;
    }
}

} // namespace kx::test::numbertext
