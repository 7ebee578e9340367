// Buttons, check boxes, spin buttons, and the keys of dialogs.

#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/platform/widgets/spinbutton.h>

namespace kx::test::button {

/// A field and two buttons.
struct TDialog : TWidgetForm<TEdit> {
    TDialog() {
        Ok.SetCaption("&OK"), Cancel.SetCaption("Give && &up");
        Ok.SetDefault(true), Cancel.SetCancel(true);
        Ok.SetModalResult(mrOk), Cancel.SetModalResult(7);
        Ok.SetBounds(20, 100, 80, 26), Cancel.SetBounds(120, 100, 80, 26);
        for (TButton* button : {&Ok, &Cancel}) {
            button->SetParent(&Form);
            button->OnClick = [this](TControl* B) { Clicked += B == &Ok ? "o" : "c"; };
        }
    }
    TButton Ok{&Form}, Cancel{&Form};
    std::string Clicked;
};

TEST(Button, IsClickedByMouseAndKeys) {
    struct TCase {
        const char* What;
        void (*Act)(TDialog&);
        const char* Clicked;
    };
    const TCase cases[] = {
        {"mouse",
         [](TDialog& D) {
             Click(D.Client(), {30, 110});
         },
         "o"},
        {"pressed and let go elsewhere",
         [](TDialog& D) {
             Mouse(D.Client(), TMouseKind::Down, {30, 110});
             Mouse(D.Client(), TMouseKind::Up, {30, 200});
         },
         ""},
        {"Space", [](TDialog& D) { Type(D.Client(), "{Tab}{Tab}{Space}"); }, "c"},
        {"Space that goes with the focus",
         [](TDialog& D) {
             D.Ok.SetFocus();
             D.Client().HostKey({.Key = kcSpace, .Text = " "}, true);
             D.Cancel.SetFocus();
             D.Client().HostKey({.Key = kcSpace}, false);
         },
         ""},
        {"Return in a field", [](TDialog& D) { Type(D.Client(), "x{Return}"); }, "o"},
        {"Return on another button", [](TDialog& D) { Type(D.Client(), "{Tab}{Tab}{Return}"); }, "c"},
        {"Escape", [](TDialog& D) { Type(D.Client(), "{Esc}"); }, "c"},
        {"Alt and a letter", [](TDialog& D) { Type(D.Client(), "{A-u}{A-o}{A-g}"); }, "co"},
        {"disabled",
         [](TDialog& D) {
             D.Ok.SetEnabled(false), D.Cancel.SetEnabled(false);
             Type(D.Client(), "{Return}{Esc}{A-o}");
             Click(D.Client(), {30, 110});
         },
         ""},
        {"hidden", [](TDialog& D) { D.Ok.SetVisible(false), Type(D.Client(), "{Return}{A-o}"); }, ""},
        {"gone by its own click",
         [](TDialog& D) {
             auto* button = new TButton(&D.Form);
             button->SetParent(&D.Form);
             button->SetModalResult(mrOk);
             button->SetCaption("&x");
             button->OnClick = [](TControl* B) { delete B; };
             Type(D.Client(), "{A-x}");
         },
         ""},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.What);
        TDialog d;
        c.Act(d);
        EXPECT_EQ(d.Clicked, c.Clicked);
    }
}

TEST(Button, LeavesAModalFormWithItsResult) {
    for (const auto& [keys, result] :
         {std::pair<const char*, int>{"text{Return}", mrOk}, {"{Esc}", 7}, {"{Tab}{Tab}{Space}", 7}}) {
        SCOPED_TRACE(keys);
        TDialog d;
        d.Form.Hide();
        Post([&, script = keys] { Type(d.Client(), script); });
        EXPECT_EQ(d.Form.ShowModal(), result);
    }
    TDialog d;
    d.Form.Hide();
    d.Ok.OnClick = [&](TControl*) { d.Ok.SetModalResult(mrNone); }; // not yet
    Post([&] { Type(d.Client(), "{Return}{Esc}"); });
    EXPECT_EQ(d.Form.ShowModal(), 7);
}

TEST(CheckBox, ChangesItsMarkBeforeItTells) {
    TWidgetForm<TCheckBox> f;
    std::string told;
    f.Widget.SetCaption("&Mark");
    f.Widget.OnClick = [&](TControl*) { told += f.Widget.GetChecked() ? "+" : "-"; };
    Click(f.Client(), {60, 20});
    Type(f.Client(), "{Space}{A-m}");
    EXPECT_FALSE(Type(f.Client(), "{Return}"));
    EXPECT_EQ(told, "+-+");
    const TAccessiblePart part = f.Widget.Accessible();
    EXPECT_TRUE(part.Role == TAccessibleRole::CheckBox && part.Checked && part.Name == "Mark");
    f.Form.SetEnabled(false);
    Type(f.Client(), "{Space}");
    EXPECT_TRUE(f.Widget.GetChecked());
}

TEST(SpinButton, StepsWhileItIsHeld) {
    TWidgetForm<TSpinButton> f;
    std::string steps;
    f.Widget.OnUpClick = [&](TControl*) { steps += "+"; };
    f.Widget.OnDownClick = [&](TControl*) { steps += "-"; };
    const auto taken = [&] { return std::exchange(steps, {}); };
    Type(f.Client(), "{Up}{Down}{Down}");
    Turn(f.Client(), 2, {30, 20});
    EXPECT_EQ(taken(), "+--++");
    Mouse(f.Client(), TMouseKind::Down, {30, 30});
    EXPECT_EQ(taken(), "-");
    Host().Advance(399);
    EXPECT_EQ(taken(), "");
    Host().Advance(1 + 60 + 60);
    EXPECT_EQ(taken(), "---");
    Mouse(f.Client(), TMouseKind::Move, {30, 15}); // over the other one: rests
    Host().Advance(200);
    EXPECT_EQ(taken(), "");
    Mouse(f.Client(), TMouseKind::Up, {30, 15});
    Host().Advance(2000);
    EXPECT_EQ(taken(), "");
}

} // namespace kx::test::button
