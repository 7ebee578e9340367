#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/platform/widgets/edit.h>

namespace kx::test::edit {

struct TEditForm : TWidgetForm<TEdit> {
    bool Keys(std::string_view Script) { return Type(Client(), Script); }
    /// The text with ^ at the caret and the selection in brackets.
    std::string Shown() const {
        std::string shown;
        TEditLine line;
        line.SetText(Widget.GetText());
        const int from = Widget.GetSelStart(), to = from + Widget.GetSelLength(),
                  caret = Widget.GetCaretPos();
        for (int i = 0; i <= line.GetCount(); ++i) {
            if (i == to && from < to) shown += caret == to ? "^]" : "]";
            if (i == from && from < to) shown += caret == from ? "[^" : "[";
            if (i == caret && from == to) shown += "^";
            shown += line.Part(i, i + 1);
        }
        return shown;
    }
};

TEST(Edit, TakesKeysAsLinesOfTextDo) {
    for (const auto& [text, keys, shown] : Cases<TText, TText, TText>("keys", "texts")) {
        SCOPED_TRACE(text + " " + keys);
        TEditForm f;
        f.Widget.SetText(text);
        f.Keys(keys);
        EXPECT_EQ(f.Shown(), shown);
    }
}

TEST(Edit, TellsOfChangesAndKeepsToItsRules) {
    TEditForm f;
    int changes = 0;
    f.Widget.OnChange = [&](TControl*) { ++changes; };
    f.Keys("ab{Left}");
    f.Widget.SetText("abc");
    EXPECT_EQ(changes, 3);
    f.Widget.SetMaxLength(4);
    f.Keys("{C-a}é漢ghij");
    EXPECT_EQ(f.Widget.GetText(), "é漢gh");
    Host().CopyText("1\n2\t3\r\n");
    f.Keys("{C-a}{C-v}");
    EXPECT_EQ(f.Widget.GetText(), "1 2 ");
    f.Widget.SetReadOnly(true);
    EXPECT_FALSE(f.Keys("x"));
    f.Keys("{Back}{C-x}{C-v}{S-Home}{C-c}");
    EXPECT_EQ(f.Widget.GetText(), "1 2 ");
    EXPECT_EQ(Host().PasteText(), "1 2 ");
    EXPECT_FALSE(ViewOf(f.Form).TextInput.Takes);
    f.Widget.SetReadOnly(false);
    EXPECT_TRUE(ViewOf(f.Form).TextInput.Takes);
    for (const char* others : {"{Return}", "{Esc}", "{Up}", "{F4}", "{A-x}"})
        EXPECT_FALSE(f.Keys(others)) << others;
    f.Widget.SetEnabled(false);
    f.Keys("x");
    Click(f.Client(), {30, 20});
    EXPECT_EQ(f.Widget.GetText(), "1 2 ");
}

// Characters of the headless host are eight pixels wide.
TEST(Edit, IsSelectedByTheMouse) {
    struct TCase {
        const char* What;
        void (*Act)(TEditForm&);
        const char* Shown;
    };
    const auto at = [](int Character) { return TPoint{20 + 5 + 8 * Character + 1, 22}; };
    static const auto place = at;
    const TCase cases[] = {
        {"press", [](TEditForm& F) { Click(F.Client(), place(2)); }, "on^e two"},
        {"behind the end",
         [](TEditForm& F) {
             Click(F.Client(), {139, 22});
         },
         "one two^"},
        {"with Shift",
         [](TEditForm& F) { Click(F.Client(), place(1)), Click(F.Client(), place(3), ssShift); },
         "o[ne^] two"},
        {"drag to the left",
         [](TEditForm& F) {
             Mouse(F.Client(), TMouseKind::Down, place(3));
             Mouse(F.Client(), TMouseKind::Move, {1, 22});
             Mouse(F.Client(), TMouseKind::Up, {1, 22});
             Mouse(F.Client(), TMouseKind::Move, place(6));
         },
         "[^one] two"},
        {"double click", [](TEditForm& F) { Click(F.Client(), place(5), ssDouble); }, "one [two^]"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.What);
        TEditForm f;
        f.Widget.GetFont().SetHeight(13); // eight wide
        f.Widget.SetText("one two");
        c.Act(f);
        EXPECT_EQ(f.Shown(), c.Shown);
    }
}

TEST(Edit, ScrollsToItsCaretAndAligns) {
    TEditForm f;
    const auto caret = [&] { return ViewOf(f.Form).TextInput.Left - 20; };
    f.Widget.SetAlignment(taRightJustify);
    EXPECT_EQ(caret(), 120 - CFieldPadding - 1);
    f.Widget.SetAlignment(taCenter);
    EXPECT_NEAR(caret(), 60, 1);
    f.Widget.SetAlignment(taLeftJustify);
    EXPECT_EQ(caret(), CFieldPadding);
    f.Widget.SetText(std::string(100, 'm'));
    EXPECT_EQ(caret(), 120 - CFieldPadding - 1);
    const int step = TextWidth(f.Widget.GetFont(), "m");
    f.Keys("{Left}");
    EXPECT_EQ(caret(), 120 - CFieldPadding - 1 - step) << "the text stands still";
    f.Keys("{Home}");
    EXPECT_EQ(caret(), CFieldPadding);
    f.Keys("{End}{C-a}x");
    EXPECT_EQ(caret(), CFieldPadding + TextWidth(f.Widget.GetFont(), "x"));
}

TEST(Edit, ShowsWhatIsComposedAndTakesWhatIsCommitted) {
    TEditForm f;
    f.Widget.SetText("ab");
    f.Keys("{Left}");
    int changes = 0;
    f.Widget.OnChange = [&](TControl*) { ++changes; };
    const int before = ViewOf(f.Form).TextInput.Left, step = TextWidth(f.Widget.GetFont(), "k");
    f.Client().HostCompose({.Text = "ka", .Caret = 2});
    EXPECT_EQ(ViewOf(f.Form).TextInput.Left, before + 2 * step);
    EXPECT_EQ(f.Widget.GetText(), "ab");
    EXPECT_EQ(changes, 0);
    f.Client().HostCompose({.Commit = "可"});
    EXPECT_EQ(f.Shown(), "a可^b");
    f.Client().HostCompose({.Commit = "!", .ReplaceFrom = -2, .ReplaceLength = 2});
    EXPECT_EQ(f.Shown(), "!^b");
    f.Keys("{C-a}");
    f.Client().HostCompose({.Text = "x"});
    EXPECT_EQ(f.Widget.GetText(), "") << "composing replaces what is selected";
    f.Client().HostCompose({});
    f.Keys("{C-z}");
    EXPECT_EQ(f.Widget.GetText(), "!b");
}

} // namespace kx::test::edit
