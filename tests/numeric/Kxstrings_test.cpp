#include <kxgraph/numeric/Kxstrings.h>

#include "support/testing.h"

namespace kx::test::strings {

TEST(Strings, FitRealsToTheDigitsAskedForAndUseTheSeparatorInTheLocalForm) {
    EXPECT_EQ(RealToStr(1.0 / 3), "0.33333333333333");
    EXPECT_EQ(Float8_4(1.5e20), "1.5E0020");
    for (const auto& [x, digits, text] : Cases<double, int, TText>("numbers", "limited width"))
        EXPECT_EQ(RealToStrDigits(x, digits), text);
    SetDecimalSeparator(',');
    EXPECT_EQ(RealToStr(0.5) + RealToAmericanStr(0.5) + RealToAmericanStrDigits(0.126, 4), "0,50.50.13");
    EXPECT_EQ(DeAmericanize("1.5;2.5") + Americanize("1,5;2.5"), "1,5;2,51.5;2.5");
    EXPECT_TRUE(IsNumber("-1.5E3"));
    for (const char* text : {"1,5", "", "1x", "1E"}) EXPECT_FALSE(IsNumber(text)) << text;
    SetDecimalSeparator('.');
}

TEST(Strings, EndAValueAndItsErrorAtTheSamePlace) {
    for (const auto& [x, digits, text] : Cases<double, int, TText>("numbers", "significant digits"))
        EXPECT_EQ(RealToStrSignificant(x, digits), text);
    for (const auto& [x, error, digits, text] : Cases<double, double, int, TText>("numbers", "errors"))
        EXPECT_EQ(RealWithErrorToStr(x, error, digits), text);
    SetDecimalSeparator(',');
    EXPECT_EQ(RealWithErrorToStr(1.25e-9, 1e-11, 3), "(1,25 ± 0,01)E-9");
    SetDecimalSeparator('.');
}

TEST(Strings, WriteIntegersTimesAndColumns) {
    EXPECT_EQ(IntToStrDigits(-5, 3) + IntToStrDigits(1234, -3), "0-51234");
    for (const auto& [seconds, text] :
         {std::pair{59, "00:59"}, {3600, "01:00:00"}, {90061, "1d01:01:01"}, {86460, "1d01:00"}})
        EXPECT_EQ(SecondsToStr(seconds), text);
    for (const auto& [column, text] : {std::pair{0, ""}, {26, "Z"}, {28, "AB"}, {702, "ZZ"}, {703, "AAA"}})
        EXPECT_EQ(ColumnToCharHeader(column), text);
}

TEST(Strings, TakeNumbersOutOfAText) {
    EXPECT_EQ(StripBlanks(" a \tb "), "a\tb");
    TText s = "xx12yy-3";
    EraseToNextNumber(s);
    EXPECT_EQ(s, "-3");
    const auto numbers = Cases<bool, TText, double, TText>("numbers", "numbers in a text");
    for (const auto& [real, text, value, rest] : numbers) {
        s = text;
        EXPECT_EQ(real ? ExtractOneReal(s) : ExtractOneInt(s), value) << text;
        EXPECT_EQ(s, rest) << text;
    }
    for (const auto& [text, rest] : Cases<TText, TText>("numbers", "no numbers")) {
        TText t = s = text;
        EXPECT_THROW(ExtractOneInt(s), Exception) << text;
        EXPECT_THROW(ExtractOneReal(t), Exception) << text;
        EXPECT_EQ(t, rest) << text;
    }
}

TEST(Strings, FindTokensBetweenDelimiters) {
    for (const char* text : {"sin(x)", "X", "x+1", "2*x", "exp(x1)*x", "x(2)"})
        EXPECT_TRUE(ContainsToken(text, 'x')) << text;
    for (const char* text : {"exp(x1)", "x + 1", "", "xx", "max"})
        EXPECT_FALSE(ContainsToken(text, 'x')) << text;
    EXPECT_EQ(ReplaceTokenWith("x*X+exp(x)", 'x', "y"), "y*y+exp(y)");
    EXPECT_EQ(ReplaceTokenWith("x*x", 'x', "(2)"), "(2(2)*x") << "positions of the original text";
    EXPECT_EQ(ReplaceTokenWithBracket("x*x", 'x', "(2)"), "(2)*(2)");
}

} // namespace kx::test::strings
