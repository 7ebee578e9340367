#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/platform/widgets/stringgrid.h>
#include <kxgraph/platform/widgets/tabtext.h>

namespace kx::test::grid {

/// Four columns of 40 and five rows of 20, a header each, in the form's corner.
struct TGridForm : TWidgetForm<TStringGrid> {
    TGridForm() {
        Widget.SetBounds(0, 0, 200, 122);
        Widget.SetDefaultColWidth(40), Widget.SetDefaultRowHeight(20);
        Widget.SetColCount(4), Widget.SetRowCount(5);
        Widget.SetCells("\tA\tB\tC\n1\ta1\tb1\tc1\n2\ta2\tb2\tc2\n");
        Widget.OnChange = [this](TControl*) { ++Changes; };
    }
    static TPoint At(int Col, int Row) { return {1 + 40 * Col + 20, 1 + 20 * Row + 10}; }
    std::string Selected() const {
        const TRect r = Widget.GetRange();
        return std::to_string(Widget.GetCol()) + std::to_string(Widget.GetRow()) + " " +
               std::to_string(r.Left) + std::to_string(r.Top) + "-" + std::to_string(r.Right) +
               std::to_string(r.Bottom);
    }
    int Changes = 0;
};

TEST(Grid, IsWalkedAndSelectedByKeysAndMouse) {
    struct TCase {
        const char* What;
        void (*Act)(TGridForm&);
        const char* Selected;
    };
    const TCase cases[] = {
        {"at first", [](TGridForm&) {}, "11 11-11"},
        {"arrows stop at the edges", [](TGridForm& F) { Type(F.Client(), "{Left}{Up}{Right}{Down}{Down}"); },
         "23 23-23"},
        {"to the ends", [](TGridForm& F) { Type(F.Client(), "{C-End}{Home}"); }, "14 14-14"},
        {"Shift extends", [](TGridForm& F) { Type(F.Client(), "{Right}{S-Down}{S-Left}"); }, "12 11-22"},
        {"all", [](TGridForm& F) { Type(F.Client(), "{C-a}"); }, "11 11-34"},
        {"click", [](TGridForm& F) { Click(F.Client(), F.At(2, 3)); }, "23 23-23"},
        {"click on a header", [](TGridForm& F) { Click(F.Client(), F.At(2, 0)); }, "11 11-11"},
        {"click with Shift", [](TGridForm& F) { Click(F.Client(), F.At(2, 3), ssShift); }, "23 11-23"},
        {"drag, also beyond the edge",
         [](TGridForm& F) {
             Mouse(F.Client(), TMouseKind::Down, F.At(3, 3));
             Mouse(F.Client(), TMouseKind::Move, F.At(2, 2));
             Mouse(F.Client(), TMouseKind::Move, {390, 290});
             Mouse(F.Client(), TMouseKind::Up, {390, 290});
         },
         "34 33-34"},
        {"fewer rows", [](TGridForm& F) { Type(F.Client(), "{C-End}"), F.Widget.SetRowCount(3); },
         "32 32-32"},
        {"no rows", [](TGridForm& F) { F.Widget.SetRowCount(1), Type(F.Client(), "{Down}x"); },
         "1-1 1-1-1-1"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.What);
        TGridForm f;
        c.Act(f);
        EXPECT_EQ(f.Selected(), c.Selected);
    }
}

TEST(Grid, EditsCellsInPlace) {
    struct TCase {
        const char *Keys, *Cells, *Selected;
        int Changes;
    };
    const std::string head = "\tA\tB\tC\n", second = "2\ta2\tb2\tc2\n";
    const TCase cases[] = {
        {"x{Return}", "1\tx\tb1\tc1\n", "12 12-12", 1},
        {"{F2}x{Return}", "1\tx\tb1\tc1\n", "12 12-12", 1},
        {"{Return}{End}x{Up}", "1\ta1x\tb1\tc1\n", "11 11-11", 1},
        {"x{Tab}y{S-Tab}", "1\tx\ty\tc1\n", "11 11-11", 2},
        {"x{Esc}", "1\ta1\tb1\tc1\n", "11 11-11", 0},
        {"{F2}{Return}", "1\ta1\tb1\tc1\n", "12 12-12", 0},
        {"{Del}", "1\t\tb1\tc1\n", "11 11-11", 1},
        {"{S-Right}{C-x}", "1\t\t\tc1\n", "21 11-21", 1},
        {"{S-Right}{C-c}{Down}{Up}{C-v}", "1\ta1\ta1\tb1\n", "21 21-31", 1},
        {"{C-c}{S-Right}{S-Right}{C-v}", "1\ta1\ta1\ta1\n", "11 11-31", 1},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Keys);
        TGridForm f;
        Type(f.Client(), c.Keys);
        EXPECT_FALSE(f.Widget.IsEditing());
        EXPECT_EQ(f.Widget.GetCells(), head + c.Cells + second);
        EXPECT_EQ(f.Selected(), c.Selected);
        EXPECT_EQ(f.Changes, c.Changes);
        EXPECT_TRUE(f.Widget.IsFocused());
    }
    TGridForm f;
    TEdit other(&f.Form);
    other.SetParent(&f.Form);
    Click(f.Client(), f.At(2, 1), ssDouble);
    ASSERT_TRUE(f.Widget.IsEditing());
    Type(f.Client(), "{C-a}z");
    other.SetFocus();
    EXPECT_EQ(f.Widget.GetCell(2, 1), "z") << "leaving takes it";
    EXPECT_TRUE(other.IsFocused());
    f.Widget.SetFocus();
    f.Client().HostCompose({.Text = "k"});
    f.Client().HostCompose({.Commit = "可"});
    Type(f.Client(), "{Return}");
    EXPECT_EQ(f.Widget.GetCell(2, 1), "可");
    f.Widget.SetReadOnly(true);
    EXPECT_FALSE(Type(f.Client(), "x"));
    Type(f.Client(), "{Del}{C-v}{F2}");
    EXPECT_EQ(f.Changes, 2);
}

TEST(Grid, PastesWhatSpreadsheetsCopy) {
    EXPECT_EQ(ReadTabText("a\tb\r\n\"c\t\"\"d\"\"\ne\"\t\n\nlast"),
              (std::vector<std::vector<std::string>>{{"a", "b"}, {"c\t\"d\"\ne", ""}, {""}, {"last"}}));
    const std::vector<std::vector<std::string>> odd{{"\"", "a\nb"}, {"", ""}};
    EXPECT_EQ(ReadTabText(TabTextOf(odd)), odd);
    TGridForm f;
    Host().CopyText("1\t2\n3\t4\n5\t6\n7\t8\n9\t10\n");
    Type(f.Client(), "{Right}{Right}{Down}{C-v}");
    EXPECT_EQ(f.Widget.GetCell(3, 4), "5") << "what finds no cell is left out";
    EXPECT_EQ(f.Selected(), "32 32-34");
    f.Widget.SetAutoRows(true);
    Type(f.Client(), "{C-Home}{C-v}{C-End}{Down}");
    EXPECT_EQ(f.Widget.GetRowCount(), 7);
    EXPECT_EQ(f.Widget.GetCell(2, 5), "10");
}

/// A million rows that are only asked for where they are seen.
struct TMany : TCustomGrid {
    explicit TMany(TComponent* Owner) : TCustomGrid(Owner) { SetRowCount(1'000'001); }
    std::string CellText(int Col, int Row) const override {
        ++Asked;
        return std::to_string(Col) + "/" + std::to_string(Row);
    }
    bool StoreCell(int, int, const std::string&) override { return true; }
    mutable int Asked = 0;
};

TEST(Grid, AsksOnlyForCellsInSight) {
    TWidgetForm<TMany> f;
    f.Widget.SetBounds(0, 0, 200, 122);
    f.Widget.SetDefaultColWidth(100);
    Type(f.Client(), "{C-End}{PgUp}{PgUp}{C-Down}");
    Host().ProcessMessages();
    EXPECT_EQ(f.Widget.GetRow(), 1'000'000);
    EXPECT_NE(ViewOf(f.Form).LastFrame.ToText().find("1000000"), std::string::npos);
    f.Widget.Accessible();
    EXPECT_LT(f.Widget.Asked, 100);
    const int top = f.Widget.GetTopRow();
    Turn(f.Client(), 2, {30, 60});
    EXPECT_EQ(f.Widget.GetTopRow(), top - 6);
}

TEST(Grid, WidensColumnsByTheirEdges) {
    TGridForm f;
    Mouse(f.Client(), TMouseKind::Down, {82, 10});
    Mouse(f.Client(), TMouseKind::Move, {112, 10});
    Mouse(f.Client(), TMouseKind::Up, {112, 10});
    EXPECT_EQ(f.Widget.ColWidth(1), 71);
    f.Widget.SetColWidth(1, 400); // only this one is seen, and not all of it
    Type(f.Client(), "{Right}");
    EXPECT_EQ(f.Widget.GetLeftCol(), 2);
    EXPECT_EQ(f.Widget.CellAt(f.At(1, 1)), (TPoint{2, 1}));
}

} // namespace kx::test::grid
