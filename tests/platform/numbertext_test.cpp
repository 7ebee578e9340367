#include <kxgraph/platform/text/numbertext.h>

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <tuple>
#include <vector>

namespace kx {
namespace {

constexpr double CInf = HUGE_VAL;

using TFormatCases = std::vector<std::tuple<double, int, int, const char*>>;

/// 0.125 is a tie and goes to the even digit; 1.005 is none, the double lies below.
TEST(NumberText, GeneralFormatChoosesPositionsOrExponent) {
    // clang-format off
    const TFormatCases cases = {
        {0, 14, 0, "0"}, {-0.0, 14, 4, "0"}, {0.125, 14, 0, "0.125"}, {1.5e20, 14, 0, "1.5E20"},
        {1e-5, 14, 0, "1E-5"}, {1e-4, 14, 0, "0.0001"}, {1e14, 14, 0, "1E14"}, {-120, 3, 0, "-120"},
        {1e13, 14, 0, "10000000000000"}, {99999.5, 5, 0, "1E5"}, {0.00009999996, 5, 0, "0.0001"},
        {123456.789, 5, 5, "1.2346E0005"}, {-2.5e-7, 8, 18, "-2.5E-0007"}, {1e300, 15, 2, "1E300"},
        {12345, 0, 0, "1E4"}, {0.1, 99, 0, "0.100000000000000006"}, {0.125, 2, 0, "0.12"},
        {0.375, 2, 0, "0.38"}, {1.005, 3, 0, "1"}, {5e-324, 15, 0, "4.94065645841247E-324"},
        {-CInf, 15, 0, "-INF"}, {std::nan(""), 15, 0, "NAN"}};
    // clang-format on
    for (const auto& [value, precision, digits, text] : cases)
        EXPECT_EQ(FloatToStrGeneral(value, precision, digits), text);
}

/// 0.44999 in two steps would become 0.5.
TEST(NumberText, FixedFormatRoundsOnceAndFillsWithZeros) {
    // clang-format off
    const TFormatCases cases = {
        {0, 15, 2, "0.00"}, {-0.004, 15, 2, "0.00"}, {-0.006, 15, 2, "-0.01"}, {2.5, 15, 0, "2"},
        {-3.5, 15, 0, "-4"}, {0.125, 15, 2, "0.12"}, {9.999, 15, 2, "10.00"}, {0.44999, 2, 1, "0.4"},
        {0.1, 15, 18, "0.100000000000000000"}, {1.0 / 3, 15, 18, "0.333333333333333000"},
        {123456789012345680.0, 15, 2, "123456789012346000.00"}, {1234.5678, 3, 2, "1230.00"},
        {1, 15, 40, "1.000000000000000000"}, {1, 15, -1, "1"}, {9.99e17, 15, 1, "999000000000000000.0"},
        {-1e18, 15, 2, "-1E18"}, {CInf, 15, 2, "INF"}, {std::nan(""), 15, 2, "NAN"}};
    // clang-format on
    for (const auto& [value, precision, digits, text] : cases)
        EXPECT_EQ(FloatToStrFixed(value, precision, digits), text);
}

TEST(NumberText, ScientificTextAgreesWithAnExactPrinterForAllKindsOfDoubles) {
    EXPECT_EQ(ScientificText(0), " 0.00000000000000E+0000");
    EXPECT_EQ(ScientificText(-1.5e-300), "-1.50000000000000E-0300");
    EXPECT_EQ(ScientificText(std::nan("")), "                    NAN");
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

TEST(NumberText, DecimalSeparatorServesDisplayAndComesFromAUsableLocale) {
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

TEST(NumberText, ValReadsAllOfTheTextOrSaysWhereItStopped) {
    // clang-format off
    const std::vector<std::tuple<const char*, int, double>> cases = {
        {"12", 0, 12}, {"  -1.5e3", 0, -1500}, {"+.5", 0, .5}, {"5.", 0, 5}, {"1E+2", 0, 100}, {"0.1", 0, 0.1},
        {"-1e999", 0, -CInf}, {"1e-999", 0, 0}, {"0e99999", 0, 0}, {"0.0001e310", 0, 1e306},
        {"0.000000000001e9999999999999999999999", 0, CInf}, {"10000000000000e-9999999999999999999999", 0, 0},
        {"4.9e-324", 0, 5e-324}, {"12abc", 3, 0}, {"1E", 3, 0}, {"1E-", 4, 0}, {"1Ex", 3, 0}, {"", 1, 0},
        {"+", 2, 0}, {".", 2, 0}, {".E5", 2, 0}, {"  ", 3, 0}, {"nan", 1, 0}, {"-inf", 2, 0}, {"0x10", 2, 0},
        {"1 ", 2, 0}, {"1.2.3", 4, 0}, {"+-1", 2, 0}};
    const std::vector<std::tuple<const char*, int, int>> integers = {
        {"2147483647", 0, 2147483647}, {"-2147483648", 0, -2147483647 - 1}, {"2147483648", 10, 0},
        {"-21474836480", 12, 0}, {" +7", 0, 7}, {"7.0", 2, 0}, {"", 1, 0}, {"-", 2, 0}};
    // clang-format on
    int position = -1;
    for (const auto& [text, stop, value] : cases) {
        EXPECT_EQ(Val(text, position), value) << text;
        EXPECT_EQ(position, stop) << text;
    }
    const std::string zeros(400, '0'); // the size is in the digits, whatever the exponent says
    EXPECT_EQ(Val("0." + zeros + "1", position), 0);
    EXPECT_EQ(Val("1" + zeros + "e-5", position), CInf);
    for (const auto& [text, stop, value] : integers) {
        EXPECT_EQ(ValInt(text, position), value) << text;
        EXPECT_EQ(position, stop) << text;
    }
}

} // namespace
} // namespace kx
