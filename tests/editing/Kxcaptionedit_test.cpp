// The caption edit by its keys and by the mouse; what is expected are the captions that come out.

#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/widgets/edit.h>

#include "support/keys.h"
#include "support/testing.h"

namespace kx::test::captionedit {

/// An edit whose characters are 6 wide and 10 high (4 wide in scripts), on a window.
struct TEditForm {
    TEditForm() {
        Form.SetBounds(0, 0, 400, 100);
        Edit.GetFont().SetHeight(-10);
        Edit.SetBounds(10, 10, 200, 24);
        Edit.SetParent(&Form);
        Form.Show();
        Form.AsHostClient().HostActivated(true);
        Edit.SetFocus();
    }
    void Press(std::string_view Keys) { Type(Form.AsHostClient(), Keys); }
    void MouseAt(int From, int To, TShiftState Shift = 0) {
        const auto at = [&](int Place) { return Edit.ClientToRoot({Edit.PixelOf(Place) + 1, 12}); };
        Mouse(Form.AsHostClient(), TMouseKind::Down, at(From), Shift);
        Mouse(Form.AsHostClient(), TMouseKind::Move, at(To));
        Mouse(Form.AsHostClient(), TMouseKind::Up, at(To));
    }
    /// The text with ^ for the caret and [ for the other end of the selection.
    std::string Shown() const {
        const TKxCaptionModel& model = Edit.GetModel();
        std::string text;
        for (int i = 0; i <= model.GetLength(); ++i) {
            if (i == model.GetAnchor() && model.HasSelection()) text += '[';
            if (i == model.GetCaret()) text += '^';
            if (i < model.GetLength()) text += model.GetCells()[std::size_t(i)].Text;
        }
        return text;
    }

    TForm Form{nullptr};
    TKxCaptionEdit Edit{&Form};
};

TEST(CaptionCells, GiveTheCaptionThatShowsThem) {
    // Captions in the shortest form stay as they are.
    for (const char* caption :
         {"", "plain", "H\\-2\\-O", "\\b  bold\\b   x", "a\\\\b", "a\\\\  b", "\\s\\ba\\s\\b",
          "x\\+2\\-i\\+\\-", "x\\+\\-2\\+\\-", "x\\-i\\-\\+2\\+", "x\\-\\+\\+i\\-", "\xC3\xA4\xC2\xB5"})
        EXPECT_EQ(CaptionOf(CellsOf(caption)), caption);
    EXPECT_EQ(CaptionOf(CellsOf("\\B\\b\\qa\\i\\i b\\o")), "qab");
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string caption;
        while (random() % 12) caption += "\\\\\\sbiuo+- x\xC3\xA4"[random() % 13];
        const TKxCaptionCells cells = CellsOf(caption);
        ASSERT_EQ(CellsOf(CaptionOf(cells)), cells) << caption;
    }
}

TEST(CaptionEdit, WritesTheCaptionThatIsTypedAndSwitched) {
    for (const auto& [before, keys, after, shown] : Cases<TText, TText, TText, TText>("keys", "captions")) {
        SCOPED_TRACE(before + " " + keys);
        TEditForm f;
        f.Edit.SetCaption(before);
        f.Press(keys);
        EXPECT_EQ(f.Edit.GetCaption(), after);
        EXPECT_EQ(f.Shown(), shown);
    }
}

TEST(CaptionEdit, UndoesWhatWasDoneInOneGo) {
    for (const auto& [typed, shown] : Cases<TText, TText>("keys", "undo of captions")) {
        TEditForm f;
        f.Press(typed);
        EXPECT_EQ(f.Shown(), shown) << typed;
    }
    static const char* keys[] = {"a",      " ",        "\\",    "{Back}",    "{Del}", "{C-B}",
                                 "{Left}", "{C-Down}", "{C-A}", "{S-Right}", "{C-C}", "{C-V}",
                                 "{Home}", "{C-Z}",    "{C-Y}", "{S-Home}",  "{C-G}"};
    TEditForm f;
    f.Edit.SetCaption("\\bbegin\\b  with \\+this");
    std::mt19937 random(3);
    for (int round = 0; round < 3000; ++round) f.Press(keys[random() % std::size(keys)]);
    while (f.Edit.GetModel().CanRedo()) f.Edit.Redo();
    const TKxCaption last = f.Edit.GetCaption();
    while (f.Edit.GetModel().CanUndo()) f.Edit.Undo();
    EXPECT_EQ(f.Edit.GetCaption(), "\\bbegin\\b  with \\+this\\+");
    while (f.Edit.GetModel().CanRedo()) f.Edit.Redo();
    EXPECT_EQ(f.Edit.GetCaption(), last);
}

TEST(CaptionEdit, CopiesTextAndMarkupAndTakesBoth) {
    TEditForm f;
    THeadlessHost& host = Host();
    f.Edit.SetCaption("x\\+2\\+  y");
    f.Press("{C-A}{C-X}{C-V}{C-V}");
    EXPECT_EQ(f.Edit.GetCaption(), "x\\+2\\+  yx\\+2\\+  y");
    EXPECT_EQ(host.PasteText(), "x2 y");
    f.Press("{C-A}{C-S-V}");
    EXPECT_EQ(f.Edit.GetCaption(), "x2 y");
    const struct {
        const char *Text, *After, *AsText;
    } cases[] = {{"H\\-2\\-O", "H\\-2\\-O", "H\\\\-2\\\\-O"},
                 {"C:\\bin\\include", "C:\\\\bin\\\\include", "C:\\\\bin\\\\include"},
                 {"two\r\nlines\tand\x01 more", "two lines and more", "two lines and more"},
                 {"\\bbold\\b\ntext", "\\bbold\\btext", "\\\\bbold\\\\b text"}};
    for (const auto& c : cases) {
        host.CopyText(c.Text);
        f.Press("{C-A}{C-V}");
        EXPECT_EQ(f.Edit.GetCaption(), c.After);
        f.Press("{C-A}{C-Space}{C-S-V}");
        EXPECT_EQ(f.Edit.GetCaption(), c.AsText);
    }
    f.Edit.SetMaxLength(5);
    f.Edit.SetCaption("abc");
    host.CopyText("12345");
    f.Press("{C-V}x");
    EXPECT_EQ(f.Edit.GetCaption(), "abc12");
    f.Edit.SetReadOnly(true);
    f.Press("x{Back}{C-A}{C-X}{C-V}{C-B}{C-Z}");
    EXPECT_EQ(f.Edit.GetCaption(), "abc12");
    EXPECT_EQ(host.PasteText(), "abc12");
}

TEST(CaptionEdit, TakesTheMouseAtTheCharactersThatItShows) {
    TEditForm f;
    f.Edit.SetCaption("T\\-max\\-  of x\\+2\\+, K");
    for (const TAlignment alignment : {taLeftJustify, taCenter, taRightJustify}) {
        f.Edit.SetAlignment(alignment);
        for (int i = 0; i <= f.Edit.GetModel().GetLength(); ++i)
            EXPECT_EQ(f.Edit.PlaceAt(f.Edit.PixelOf(i)), i);
    }
    EXPECT_EQ(f.Edit.PixelOf(4) - f.Edit.PixelOf(1), 3 * 4);
    const auto shown = [&](int From, int To, TShiftState Shift = 0) {
        f.MouseAt(From, To, Shift);
        return f.Shown();
    };
    EXPECT_EQ(shown(2, 2), "Tm^ax of x2, K");
    EXPECT_EQ(shown(1, 6), "T[max o^f x2, K");
    EXPECT_EQ(shown(9, 9, ssShift), "T[max of x^2, K");
    EXPECT_EQ(shown(2, 2, ssDouble), "[Tmax^ of x2, K");
    EXPECT_EQ(shown(2, 2), "[Tmax of x2, K^"); // the third
    EXPECT_EQ(shown(6, 6, ssDouble), "Tmax [of^ x2, K");
    Host().Advance(1000);
    EXPECT_EQ(shown(6, 6), "Tmax o^f x2, K");
    EXPECT_EQ(shown(6, 2, ssDouble), "^Tmax of[ x2, K");
    EXPECT_EQ(shown(0, 6, ssDouble), "[Tmax of^ x2, K");
}

TEST(CaptionEdit, KeepsTheCaretInSightAndTheTextAtTheEdge) {
    TEditForm f;
    f.Edit.SetWidth(60);
    f.Edit.SetCaption("0123456789012345678901234567890");
    const auto inSight = [&] { return TRect{5, 2, 55, 24}.Contains(f.Edit.GetCaretRect().TopLeft()); };
    for (const char* key : {"{Home}", "{End}", "{Left}", "x", "{C-Left}", "{S-End}", "{Back}"}) {
        f.Press(key);
        EXPECT_TRUE(inSight()) << key;
        EXPECT_LE(f.Edit.PixelOf(0), 5) << key;
        EXPECT_TRUE(f.Edit.PixelOf(f.Edit.GetModel().GetLength()) >= 54 || f.Edit.PixelOf(0) == 5) << key;
    }
}

TEST(CaptionEdit, TellsOfChangesAndShowsWhatIsComposed) {
    TEditForm f;
    int changes = 0;
    f.Edit.OnChange = [&](TControl*) { ++changes; };
    f.Press("ab{Left}{S-Left}{C-C}{C-B}{C-B}{C-Z}{C-Y}{Del}");
    EXPECT_EQ(changes, 7);
    THostClient& client = f.Form.AsHostClient();
    client.HostCompose({.Text = "ka", .Caret = 1});
    EXPECT_EQ(f.Edit.GetModel().GetShownCaption(), "\\uka\\ub");
    EXPECT_EQ(f.Edit.GetCaption(), "b");
    const THostTextInput told = client.HostTextInput();
    EXPECT_EQ(told.Left, f.Edit.GetLeft() + f.Edit.PixelOf(0) + 6);
    EXPECT_TRUE(told.Takes && told.Text == "b" && told.Caret == 0);
    client.HostCompose({.Text = "i", .Caret = 1, .Commit = "k"});
    EXPECT_EQ(f.Edit.GetModel().GetShownCaption(), "k\\ui\\ub");
    client.HostCompose({.Commit = "K", .ReplaceFrom = -1, .ReplaceLength = 1});
    EXPECT_EQ(f.Shown(), "K^b");
    f.Press("{C-A}{C-B}");
    client.HostCompose({.Commit = "x"});
    EXPECT_EQ(f.Edit.GetCaption(), "\\bx\\b");
    f.Edit.SetReadOnly(true);
    EXPECT_FALSE(client.HostTextInput().Takes);
}

TEST(CaptionEdit, PaintsCaptionSelectionAndCaret) {
    TEditForm f;
    f.Edit.SetCaption("x\\+2\\+ of \\sa\\s\\-i\\-");
    f.Press("{Home}{Right}{S-Right}{S-Right}");
    Host().ProcessMessages();
    std::string listing = ViewOf(f.Form).LastFrame.ToText();
    f.Press("{Left}");
    f.Edit.SetAlignment(taRightJustify);
    Host().ProcessMessages();
    listing += "-- without selection, at the right\n" + ViewOf(f.Form).LastFrame.ToText();
    f.Edit.SetEnabled(false);
    Host().ProcessMessages();
    listing += "-- disabled\n" + ViewOf(f.Form).LastFrame.ToText();
    ExpectRecording("captionedit", listing);
}

TEST(CaptionBar, ShowsAndSwitchesTheLooksOfItsEdit) {
    TEditForm f;
    auto bar = std::make_unique<TKxCaptionBar>(&f.Form);
    bar->SetTop(50);
    bar->SetParent(&f.Form);
    bar->SetEdit(&f.Edit);
    const auto press = [&](TKxCaptionSwitch Which) {
        const TRect rect = bar->ButtonRect(Which);
        Click(f.Form.AsHostClient(), bar->ClientToRoot({rect.Left + 3, rect.Top + 3}));
    };
    const auto frame = [&] {
        Host().ProcessMessages();
        return ViewOf(f.Form).LastFrame.ToText();
    };
    f.Press("x");
    const std::string off = frame();
    press(TKxCaptionSwitch::Superscript);
    f.Press("2");
    press(TKxCaptionSwitch::Superscript);
    press(TKxCaptionSwitch::Symbol);
    f.Press("a");
    EXPECT_EQ(f.Edit.GetCaption(), "x\\+2\\+\\sa\\s");
    EXPECT_TRUE(f.Edit.IsFocused());
    EXPECT_NE(frame(), off);
    f.Edit.SetReadOnly(true);
    press(TKxCaptionSwitch::Symbol);
    EXPECT_TRUE(f.Edit.IsOn(TKxCaptionSwitch::Symbol));
    f.Edit.SetReadOnly(false);
    bar.reset();
    f.Press("b"); // nobody is told any more
    EXPECT_EQ(f.Edit.GetCaption(), "x\\+2\\+\\sab\\s");
}

/// The right button is pressed and released at X; answers what can be picked.
template <class T>
std::string MenuAt(TWidgetForm<T>& F, int X) {
    for (const TMouseKind kind : {TMouseKind::Down, TMouseKind::Up})
        F.Client().HostMouse(kind, mbRight, kind == TMouseKind::Down ? TShiftState(ssRight) : 0,
                             {20 + X, 20});
    std::string text;
    for (const THostMenuItem& item : ViewOf(F.Form).Menu)
        if (item.Enabled && !item.Separator) text += item.Caption + " ";
    return text;
}

/// Edits by menu alone.
template <class T>
void EditByMenu() {
    TWidgetForm<T> f;
    Host().CopyText("");
    f.Widget.SetText("abc");
    const auto pick = [&](const char* Caption) {
        EXPECT_TRUE(Host().PickMenuItem(f.Client(), Caption)) << Caption;
        return f.Widget.GetText();
    };
    EXPECT_EQ(MenuAt(f, 110), "Select &all ");
    EXPECT_EQ(pick("Select &all"), "abc");
    EXPECT_EQ(MenuAt(f, 10), "Cu&t &Copy &Delete ") << "what is selected stays";
    EXPECT_EQ(pick("Cu&t"), "");
    EXPECT_EQ(MenuAt(f, 10), "&Undo &Paste ");
    EXPECT_EQ(pick("&Paste"), "abc");
    MenuAt(f, 10);
    EXPECT_EQ(pick("&Undo"), "");
    MenuAt(f, 10);
    EXPECT_EQ(pick("&Redo"), "abc");
    f.Widget.SetReadOnly(true);
    f.Widget.SelectAll();
    f.Client().HostKey({.Key = kcMenu}, true);
    EXPECT_FALSE(Host().PickMenuItem(f.Client(), "&Delete"));
    EXPECT_EQ(MenuAt(f, 10), "&Copy ");
    f.Widget.SetReadOnly(false);
    MenuAt(f, 10);
    EXPECT_EQ(pick("&Delete"), "");
    TPopupMenu own(nullptr);
    own.GetItems().Add("Own");
    f.Widget.SetPopupMenu(&own);
    EXPECT_EQ(MenuAt(f, 10), "Own ");
}

TEST(CaptionEdit, HasTheMenuThatFieldsHave) {
    EditByMenu<TEdit>();
    EditByMenu<TKxCaptionEdit>();
}

} // namespace kx::test::captionedit
