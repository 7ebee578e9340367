#include <kxgraph/table/Kxtable.h>
#include <kxgraph/table/Kxtablenumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

using namespace kx;

constexpr double CInf = std::numeric_limits<double>::infinity(),
                 CNan = std::numeric_limits<double>::quiet_NaN();

void ExpectValues(const std::vector<double>& Found, const std::vector<double>& Expected) {
    ASSERT_EQ(Found.size(), Expected.size());
    for (std::size_t i = 0; i < Found.size(); ++i) {
        if (std::isnan(Expected[i]))
            EXPECT_TRUE(std::isnan(Found[i])) << i;
        else
            EXPECT_EQ(Found[i], Expected[i]) << i;
    }
}

TEST(TableNumber, IsAWholeCellInPointFormOrWithADecimalComma) {
    const std::tuple<const char*, bool, double> cases[] = {
        {"1.5", false, 1.5},         {" +2e3\t", false, 2000}, {"-1,5e2", true, -150},
        {"1.5", true, 1.5},          {"iNf", false, CInf},     {"1e999", false, CInf},
        {"-INFINITY", false, -CInf}, {"1e-999", false, 0},     {"-1.8e308", false, -CInf}};
    for (const auto& [cell, comma, value] : cases) EXPECT_EQ(ParseNumber(cell, comma), value) << cell;
    for (const char* cell : {"1,5", "", "+-1", "1 2", "12abc", "0x10"})
        EXPECT_EQ(ParseNumber(cell, false), std::nullopt) << cell;
    EXPECT_EQ(ParseNumber("1.234,5", true), std::nullopt);
    EXPECT_TRUE(std::isnan(ParseNumber("NaN", false).value()));
}

TEST(Table, FindsOutHowATextIsBuilt) {
    struct TCase {
        const char* Text;
        TKxSeparator Separator;
        std::vector<std::string> Headers; ///< empty: none
        std::vector<double> First, Last;
    };
    const TCase cases[] = {
        {"a,b\n1,2\n3,4\n", TKxSeparator::Comma, {"a", "b"}, {1, 3}, {2, 4}},
        {"\xEF\xBB\xBF"
         "a;b\r\n1,5;2\r\n2,5;3\r\n",
         TKxSeparator::Semicolon,
         {"a", "b"},
         {1.5, 2.5},
         {2, 3}},
        {"a, b\tc\n0,5\t1\n1.5\t\n", TKxSeparator::Tab, {"a, b", "c"}, {0.5, 1.5}, {1, CNan}},
        {"  x   y \n 1\t 2\n\n# no row\n  3  4", TKxSeparator::Blanks, {"x", "y"}, {1, 3}, {2, 4}},
        {"# k,l,m\n \n\"a, \"\"b\"\"\",c\n\"1\", 2 \n3,\"4\"\n",
         TKxSeparator::Comma,
         {"a, \"b\"", "c"},
         {1, 3},
         {2, 4}},
        {"\"two\nlines\",b\n1,nan\n,2\n", TKxSeparator::Comma, {"two\nlines", "b"}, {1, CNan}, {CNan, 2}},
        {"t, s\n1 2\n", TKxSeparator::Blanks, {"t,", "s"}, {1}, {2}},
        {"y\n3\n4\n", TKxSeparator::Blanks, {"y"}, {3, 4}, {3, 4}},
        {"1,\n2,\n3,7\n", TKxSeparator::Comma, {}, {1, 2, 3}, {CNan, CNan, 7}},
        {"a,b\n1,-Inf\n2,1e400\n", TKxSeparator::Comma, {"a", "b"}, {1, 2}, {-CInf, CInf}},
        {"1\r2\r", TKxSeparator::Blanks, {}, {1, 2}, {1, 2}},
        {"x y\tz\n1\t2 3\n4 5\t6\n", TKxSeparator::Blanks, {"x", "y", "z"}, {1, 4}, {3, 6}},
        {"a b\tz\n9 h\t3\n", TKxSeparator::Tab, {"a b", "z"}, {}, {3}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        const TKxTable table(c.Text, "t");
        EXPECT_EQ(table.GetSeparator(), c.Separator);
        ASSERT_EQ(table.HasHeader(), !c.Headers.empty());
        for (std::size_t i = 0; i < c.Headers.size(); ++i) EXPECT_EQ(table.GetHeader(int(i)), c.Headers[i]);
        const int last = table.GetColumnCount() - 1;
        if (!c.First.empty()) ExpectValues(table.ReadColumns({0}).front(), c.First);
        ExpectValues(table.ReadColumns({last}).front(), c.Last);
    }
}

TEST(Table, TakesTheFirstRowForDataWhereItsTextsStandInColumnsOfTexts) {
    constexpr auto guess = TKxHeaderRow::Guess, present = TKxHeaderRow::Present,
                   absent = TKxHeaderRow::Absent;
    const std::tuple<const char*, TKxHeaderRow, bool, std::vector<double>> cases[] = {
        {"1,a\n2,b\n3,c\n", guess, false, {1, 2, 3}},
        {"1,a\n2,b\n3,c\n", present, true, {2, 3}},
        {"1,a\n2,\n", guess, true, {2}},
        {"1,a\n2,b\n3,4\n5,c\n", guess, false, {1, 2, 3, 5}},
        {"7,a,u\n2,b,1\n", guess, true, {2}},
        {"1,2\n3,4\n", guess, false, {1, 3}},
        {"1,2\n3,4\n", present, true, {3}},
        {"1,a\n", absent, false, {1}},
        {"7,a\n2,b\n3,4\n5,6\n8,9\n", guess, true, {2, 3, 5, 8}},
    };
    for (const auto& [text, header, isHeader, first] : cases) {
        SCOPED_TRACE(text);
        const TKxTable table(text, "t", header);
        EXPECT_EQ(table.HasHeader(), isHeader);
        ExpectValues(table.ReadColumns({0}).front(), first);
    }
}

TEST(Table, FindsColumnsByHeaderBeforeNumberAndKnowsTheNumericOnes) {
    const TKxTable table("t,2,name\n1,,x\n2,5,9\n3,6,y\n", "t");
    EXPECT_EQ(table.FindNumericColumn("t"), 0);
    EXPECT_EQ(table.FindNumericColumn("1"), 0);
    EXPECT_EQ(table.FindNumericColumn("2"), 1) << "its first cell that is not empty counts";
    EXPECT_FALSE(table.IsNumeric(2));
    ExpectValues(table.ReadColumns({0}).front(), {1, 2, 3}); // whatever stands in the others
}

TEST(Table, TellsWhatIsWrongAndWhere) {
    struct TCase {
        std::string Text;
        const char* Column; ///< read as the only one
        const char* Message;
    };
    const TCase cases[] = {
        {"", "1", "f.csv: is empty"},
        {"\n# only this\n", "1", "f.csv: is empty"},
        {"a,b\n# nothing\n", "a", "f.csv: has a header but no rows"},
        {"t,u\n1,2\n2,abc\n", "u", "f.csv:3: column u: 'abc' is not a number"},
        {"t,u\n1,n/a\n2,3\n", "u", "f.csv:2: column u: 'n/a' is not a number"},
        {"1,2\n# a comment\n\n2,\"x\xFFy\"\n", "2", "f.csv:4: column 2: 'x\\xFFy' is not a number"},
        {"\"a\nb\",c\n1,2\nq,3\n", "1", "f.csv:4: column a\\x0Ab: 'q' is not a number"},
        {"1,2\n3\n", "1", "f.csv:2: 1 cell where the first row has 2"},
        {"1,2\r\n3,4,5\r\n", "1", "f.csv:2: 3 cells where the first row has 2"},
        {"1,\"2\n3,4\n", "1", "f.csv:1: a quote is not closed"},
        {"a,b\n1,2\n", "c", "f.csv: has no column 'c'; it has 2 columns"},
        {"5\n", "0", "f.csv: has no column '0'; it has 1 column"},
        {"a,b\n1,x\n", "b", "f.csv:2: column b is not numeric: 'x'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        try {
            const TKxTable table(c.Text, "f.csv");
            table.ReadColumns({table.FindNumericColumn(c.Column)});
            ADD_FAILURE() << "nothing was raised";
        } catch (const ETableError& error) {
            EXPECT_STREQ(error.what(), c.Message);
        }
    }
}

} // namespace
