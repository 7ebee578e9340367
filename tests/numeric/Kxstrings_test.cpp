#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>

#include <gtest/gtest.h>

namespace kx {
namespace {

TEST(Strings, RealsFitTheDigitsAskedForAndOnlyTheLocalFormUsesTheSeparator) {
    EXPECT_EQ(RealToStr(1.0 / 3), "0.33333333333333");
    EXPECT_EQ(Float8_4(1.5e20), "1.5E0020");
    using TCase = std::tuple<double, int, const char*>;
    for (const auto& [x, digits, text] :
         {TCase{123456.789, 5, "1.2E5"}, TCase{1.0 / 3, 0, "0.333333333333333"}, TCase{-1.0 / 3, 5, "-0.33"},
          TCase{-3.14159, 1, "-3"}, TCase{1.0 / 3, -4, "0.333333333333333"}})
        EXPECT_EQ(RealToStrDigits(x, digits), text);
    SetDecimalSeparator(',');
    EXPECT_EQ(RealToStr(0.5) + RealToAmericanStr(0.5) + RealToAmericanStrDigits(0.126, 4), "0,50.50.13");
    EXPECT_EQ(DeAmericanize("1.5;2.5") + Americanize("1,5;2.5"), "1,5;2,51.5;2.5");
    EXPECT_TRUE(IsNumber("-1.5E3"));
    for (const char* text : {"1,5", "", "1x", "1E"}) EXPECT_FALSE(IsNumber(text)) << text;
    SetDecimalSeparator('.');
}

TEST(Strings, DigitsOfAValueAreSignificantAndItsErrorEndsAtTheSamePlace) {
    using TSingle = std::tuple<double, int, const char*>;
    for (const auto& [x, digits, text] :
         {TSingle{1.2345678e-7, 6, "1.23457E-7"}, TSingle{-0.000123456, 3, "-0.000123"}, TSingle{2, 3, "2"},
          TSingle{12345, 3, "1.23E4"}, TSingle{1.0 / 3, 0, "0.333333333333333"}})
        EXPECT_EQ(RealToStrSignificant(x, digits), text);
    using TPair = std::tuple<double, double, int, const char*>;
    for (const auto& [x, error, digits, text] : {
             TPair{0.87628571, 0.0135345, 3, "0.876 ± 0.014"},
             TPair{-0.0050857, 0.0078337, 3, "-0.00509 ± 0.00783"},
             TPair{0.87, 0.01, 4, "0.8700 ± 0.0100"},
             TPair{1.23456, 1.6e-5, 3, "1.23456 ± 0.00002"}, // no error reads as none
             TPair{1e-17, 0.052, 2, "0.000 ± 0.052"},
             TPair{9.996, 0.2, 3, "10.0 ± 0.2"},
             TPair{1.2345678e-7, 3.21e-9, 3, "(1.23 ± 0.03)E-7"},
             TPair{-123456, 7890, 3, "(-1.23 ± 0.08)E5"},
             TPair{123456, 2, 3, "123456 ± 2"},
             TPair{9.996e-7, 9.96e-8, 3, "(1.00 ± 0.10)E-6"},
             TPair{0.5, 0, 3, "0.500 ± 0.000"},
             TPair{0, 0, 3, "0 ± 0"},
             TPair{1, 1e-30, 3, "1 ± 1E-30"},
             TPair{1.0 / 3, 0.01, 0, "0.333333333333333 ± 0.010000000000000"},
             TPair{2, 0.01, -7, "2.00 ± 0.01"},
         })
        EXPECT_EQ(RealWithErrorToStr(x, error, digits), text);
    SetDecimalSeparator(',');
    EXPECT_EQ(RealWithErrorToStr(1.25e-9, 1e-11, 3), "(1,25 ± 0,01)E-9");
    SetDecimalSeparator('.');
}

TEST(Strings, IntegersTimesAndColumns) {
    EXPECT_EQ(IntToStrDigits(-5, 3) + IntToStrDigits(1234, -3), "0-51234");
    for (const auto& [seconds, text] :
         {std::pair{59, "00:59"}, {3600, "01:00:00"}, {90061, "1d01:01:01"}, {86460, "1d01:00"}})
        EXPECT_EQ(SecondsToStr(seconds), text);
    for (const auto& [column, text] : {std::pair{0, ""}, {26, "Z"}, {28, "AB"}, {702, "ZZ"}, {703, "AAA"}})
        EXPECT_EQ(ColumnToCharHeader(column), text);
}

TEST(Strings, NumbersAreTakenOutOfAText) {
    EXPECT_EQ(StripBlanks(" a \tb "), "a\tb");
    std::string s = "xx12yy-3";
    EraseToNextNumber(s);
    EXPECT_EQ(s, "-3");
    using TCase = std::tuple<bool, const char*, double, const char*>;
    for (const auto& [real, text, value, rest] :
         {TCase{true, "1.5;2.25;3", 1.5, "2.25;3"}, TCase{true, "3", 3, ""},
          TCase{true, "x=-2E3, y=7", -2000, "7"}, TCase{true, "5-3", 5, "3"}, TCase{true, "5;5", 5, "5"},
          TCase{false, "12", 12, "12"}, TCase{false, "n=12;x13", 12, "x13"}}) {
        s = text;
        EXPECT_EQ(real ? ExtractOneReal(s) : ExtractOneInt(s), value) << text;
        EXPECT_EQ(s, rest) << text;
    }
    for (const auto& [text, rest] :
         {std::pair{"abc", ""}, {"", ""}, {"+", ""}, {"E;1", "1"}, {"test 5", "5"}}) {
        std::string t = s = text;
        EXPECT_THROW(ExtractOneInt(s), Exception) << text;
        EXPECT_THROW(ExtractOneReal(t), Exception) << text;
        EXPECT_EQ(t, rest) << text;
    }
}

TEST(Strings, TokensStandBetweenDelimiters) {
    for (const char* text : {"sin(x)", "X", "x+1", "2*x", "exp(x1)*x", "x(2)"})
        EXPECT_TRUE(ContainsToken(text, 'x')) << text;
    for (const char* text : {"exp(x1)", "x + 1", "", "xx", "max"})
        EXPECT_FALSE(ContainsToken(text, 'x')) << text;
    EXPECT_EQ(ReplaceTokenWith("x*X+exp(x)", 'x', "y"), "y*y+exp(y)");
    EXPECT_EQ(ReplaceTokenWith("x*x", 'x', "(2)"), "(2(2)*x") << "positions of the original text";
    EXPECT_EQ(ReplaceTokenWithBracket("x*x", 'x', "(2)"), "(2)*(2)");
}

} // namespace
} // namespace kx
