#include <kxgraph/table/Kxtable.h>

#include "support/testing.h"

#include <kxgraph/table/Kxtablenumber.h>

namespace kx::test::table {

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
    const TText separators[] = {"Comma", "Semicolon", "Tab", "Blanks"};
    for (const auto& [text, separator, headers, first, last] :
         Cases<TText, TText, TText, TReals, TReals>("tables", "built")) {
        SCOPED_TRACE(text);
        const TKxTable table(text, "t");
        const int count = table.GetColumnCount();
        TText found;
        for (int i = 0; table.HasHeader() && i < count; ++i) found += (i ? "; " : "") + table.GetHeader(i);
        EXPECT_EQ(separators[int(table.GetSeparator())], separator);
        EXPECT_EQ(found, headers);
        if (!first.empty()) ExpectValues(table.ReadColumns({0}).front(), first);
        ExpectValues(table.ReadColumns({count - 1}).front(), last);
    }
}

TEST(Table, TakesTheFirstRowForDataWhereItsTextsStandInColumnsOfTexts) {
    for (const auto& [text, told, isHeader, first] :
         Cases<TText, TText, TText, TReals>("tables", "first row")) {
        SCOPED_TRACE(text);
        const TKxTable table(text, "t",
                             told == "guess"     ? TKxHeaderRow::Guess
                             : told == "present" ? TKxHeaderRow::Present
                                                 : TKxHeaderRow::Absent);
        EXPECT_EQ(table.HasHeader() ? "true" : "false", isHeader);
        ExpectValues(table.ReadColumns({0}).front(), first);
    }
}

TEST(Table, FindsColumnsByHeaderBeforeNumberAndKnowsTheNumericOnes) {
    const TKxTable table("t,2,name\n1,,x\n2,5,9\n3,6,y\n", "t");
    EXPECT_EQ(std::tuple(table.FindNumericColumn("t"), table.FindNumericColumn("1")), std::tuple(0, 0));
    EXPECT_EQ(table.FindNumericColumn("2"), 1) << "its first cell that is not empty counts";
    EXPECT_FALSE(table.IsNumeric(2));
    ExpectValues(table.ReadColumns({0}).front(), {1, 2, 3}); // whatever stands in the others
}

TEST(Table, TellsWhatIsWrongAndWhere) {
    for (const auto& [text, column, message] : Cases<TText, TText, TText>("tables", "faults"))
        EXPECT_EQ(MessageOf<ETableError>([&, &text = text, &column = column] {
                      const TKxTable table(text, "f.csv");
                      table.ReadColumns({table.FindNumericColumn(column)});
                  }),
                  message)
            << text;
}

} // namespace kx::test::table
