#include <kxgraph/design/Kxcoefficientgrid.h>
#include <kxgraph/design/Kxvaluesgrid.h>

#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/design/Kxdesignrows.h>
#include <kxgraph/table/Kxfilevector.h>

namespace kx::test::grids {

struct TGrids : TGraphForm {
    TKxPropertyPlace PlaceOf(std::string_view Name, const std::vector<TComponent*>& Components) {
        std::vector<TKxPropertyTarget> targets;
        for (TComponent* component : Components)
            for (const TProperty* row : DesignRowsOf(*component))
                if (row->Name == Name) targets.push_back({component, {row}});
        return {Context, targets};
    }
    static std::string Told(const TKxRealVector& Vector) {
        std::string text;
        for (const double value : Vector)
            text += (std::isnan(value) ? "-" : std::to_string(int(value))) + " ";
        return text;
    }
    TKxPlainDesignChange Change;
    TKxDesignContext Context{Change, Form};
};

TEST(ValuesGrid, PastesWhatSpreadsheetsCopyOrRefusesItWhole) {
    struct TCase {
        const char *Text, *X, *Y, *Message = "";
    };
    for (const TCase& c :
         {TCase{"5\t6\n7\t8\n", "1 5 7 ", "1 6 8 "}, TCase{"t\tU\r\n5\t6\r\n", "1 5 3 ", "1 6 "},
          TCase{"5,0;6\n;8", "1 5 - ", "1 6 8 "}, TCase{"  5   6.0 ", "1 5 3 ", "1 6 "},
          TCase{"5\n6\n7\n8\n", "1 5 6 7 8 ", "1 2 "},
          TCase{"5\t6\nseven\t8\n", "1 2 3 ", "1 2 ", "row 2: 'seven' is not a number"},
          TCase{"5\t6\t7\n", "1 2 3 ", "1 2 ",
                "row 1 of what is pasted has 3 cells, and there are 2 columns for them"}}) {
        TGrids f;
        f.XV->AddValues(std::vector<double>{1, 2, 3});
        f.YV->AddValues(std::vector<double>{1, 2});
        TKxValuesGrid grid(f.PlaceOf("Values", {f.XV, f.YV}));
        EXPECT_EQ(MessageOf<EPropertyError>([&] { grid.Paste(1, 0, c.Text); }), c.Message);
        grid.Apply();
        EXPECT_EQ(f.Told(*f.XV), c.X) << c.Text;
        EXPECT_EQ(f.Told(*f.YV), c.Y) << c.Text;
        EXPECT_EQ(f.XV->GetPersistentValues(), *c.Message == 0);
    }
}

TEST(ValuesGrid, EditsACopyUntilItIsApplied) {
    TGrids f;
    f.XV->AddValues(std::vector<double>{1, 2, 3});
    TKxValuesGrid grid(f.PlaceOf("Values", {f.XV, f.YV}));
    EXPECT_EQ(grid.GetHeader(1), "Y1");
    grid.SetText(0, 0, "1,5");
    EXPECT_EQ(grid.GetText(0, 0) + "," + grid.GetText(0, 1), "1.5,");
    EXPECT_EQ(MessageOf([&] { grid.SetText(1, 0, "two"); }), "row 2: 'two' is not a number");
    grid.Insert(1, 2);
    grid.SetText(5, 1, "9");
    grid.Delete(3);
    EXPECT_EQ(grid.Copy(0, 4), "1.5\t\n\t\n\t\n3\t\n\t9\n");
    EXPECT_EQ(f.Told(*f.XV), "1 2 3 ");
    grid.Apply();
    EXPECT_EQ(f.Told(*f.XV), "1 - - 3 ");
    EXPECT_EQ(f.Told(*f.YV), "- - - - 9 ");
    grid.SetText(0, 0, "8");
    grid.Revert();
    EXPECT_FALSE(grid.IsChanged());
    EXPECT_EQ(grid.GetText(0, 0), "1.5");
}

TEST(ValuesGrid, LoadsAColumnOfATable) {
    TGrids f;
    const std::string file = ::testing::TempDir() + "kxvaluesgrid.csv";
    std::ofstream(file) << "t;name;U\n1;a;2,5\n2;b;3,5\n";
    EXPECT_EQ(TKxValuesGrid::ColumnsOfTable(file), (std::vector<std::string>{"t", "U"}));
    TKxValuesGrid grid(f.PlaceOf("Values", {f.YV}));
    grid.LoadColumn(0, file, "U");
    EXPECT_EQ(grid.Copy(0, 1), "2.5\n3.5\n");
    // A vector of a file has the values of the file.
    TKxFileVector vector(f.Form);
    vector.SetFileName(file);
    vector.SetColumn("t");
    TKxValuesGrid other(f.PlaceOf("Values", {&vector}));
    other.SetText(0, 0, "8");
    EXPECT_NE(MessageOf<EPropertyError>([&] { other.Apply(); }), "");
    EXPECT_EQ(vector.GetValue(0), 1);
    std::filesystem::remove(file);
}

TEST(CoefficientGrid, WritesNamesStartsAndLimits) {
    TGrids f;
    TKxFittedLine line(f.Form);
    line.SetOrder(2);
    line.SetBounds("b=..5");
    TKxCoefficientGrid grid(f.PlaceOf("Coefficients", {&line}));
    EXPECT_EQ(grid.GetText(1, grid.ccName) + grid.GetText(1, grid.ccLow) + grid.GetText(1, grid.ccHigh),
              "B5");
    grid.SetRowCount(3);
    const char* texts[][5] = {
        {"k", "1,5", "False", "0", ""}, {"U0", "2", "True", "", ""}, {"c", "-1", "0", "-2", "4"}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column)
            grid.SetText(row, TKxCoefficientGrid::TColumn(column), texts[row][column]);
    grid.Apply();
    EXPECT_EQ(line.GetCoefficientNames(), (std::vector<AnsiString>{"k", "U0", "c"}));
    EXPECT_EQ(line.GetStartCoefficients(), (std::vector<double>{1.5, 2, -1}));
    EXPECT_EQ(line.GetFixedCoefficients(), "U0");
    EXPECT_EQ(line.GetBounds(), "k=0.., c=-2..4");

    struct TCase {
        TKxCoefficientGrid::TColumn Column;
        const char *Text, *Message;
    };
    for (const TCase& c : {TCase{grid.ccName, "k", "two coefficients are called k"},
                           TCase{grid.ccName, "a b", "row 3: 'a b' cannot name a coefficient"},
                           TCase{grid.ccLow, "5", "Fitted Line: 'c=5..4' leaves no room"},
                           TCase{grid.ccStart, "", "row 3: a coefficient starts from a number"},
                           TCase{grid.ccPresent, "1", "what a fit has found is no setting"}}) {
        grid.Revert();
        EXPECT_EQ(MessageOf<EPropertyError>([&] { grid.SetText(2, c.Column, c.Text), grid.Apply(); }),
                  c.Message);
        EXPECT_EQ(line.GetBounds(), "k=0.., c=-2..4");
    }
    line.SetBounds("k=5");
    grid.Revert();
    EXPECT_EQ(grid.GetProblem(), "Fitted Line: 'k=5' is not NAME=LOW..HIGH");
}

} // namespace kx::test::grids
