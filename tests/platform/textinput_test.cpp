// Carets, input methods, popups and modal forms: what controls and hosts tell one another.

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/widgets/caret.h>

namespace kx::test::textinput {

/// Takes text at a caret that stands at (3, 2).
struct TField : TCustomControl {
    explicit TField(TComponent* Owner) : TCustomControl(Owner) {
        SetTabStop(true);
        SetBounds(10, 20, 100, 30);
        Caret.SetPlace(TRect::Bounds(3, 2, 1, 16));
    }
    bool KeyDown(const TKeyStroke& Stroke) override {
        Typed += Stroke.Text;
        return !Stroke.Text.empty();
    }
    THostTextInput TextInput() const override { return {.Takes = true, .Left = 3, .Top = 2, .Height = 16}; }
    void Enter() override { Caret.Update(), TCustomControl::Enter(); }
    void Exit() override { Caret.Update(), TCustomControl::Exit(); }
    void CMActiveChanged() override { Caret.Update(); }
    void Paint() override { Caret.Paint(GetCanvas(), clRed); }

    TCaret Caret{*this};
    std::string Typed;
};

struct TComposing : TField {
    using TField::TField;
    bool Compose(const TComposition& Composition) override {
        Typed += Composition.Commit + "[" + Composition.Text + "]";
        return true;
    }
};

struct TTextForm {
    TTextForm() {
        Form.SetBounds(0, 0, 300, 200);
        Field->SetParent(&Form), Other.SetParent(&Form);
        Other.SetBounds(10, 60, 100, 30);
        Form.Show();
        Host().ProcessMessages();
    }
    THostClient& Client() { return Form.AsHostClient(); }
    TRect InvalidAfter(int Milliseconds) {
        Host().ProcessMessages();
        Host().Advance(Milliseconds);
        return ViewOf(Form).Invalid;
    }
    TForm Form{nullptr};
    std::unique_ptr<TField> Field = std::make_unique<TField>(&Form);
    TComposing Other{&Form};
};

TEST(Caret, BlinksInItsPlaceWhileTheControlHasTheKeys) {
    TTextForm f;
    f.Field->SetFocus();
    EXPECT_FALSE(f.Field->Caret.IsOn()) << "the window takes no keys yet";
    EXPECT_EQ(f.InvalidAfter(2000), TRect());
    f.Client().HostActivated(true);
    EXPECT_TRUE(f.Field->Caret.IsOn());
    EXPECT_EQ(f.InvalidAfter(499), TRect());
    EXPECT_EQ(f.InvalidAfter(1), TRect::Bounds(13, 22, 1, 16));
    EXPECT_FALSE(f.Field->Caret.IsOn());
    f.Field->Caret.SetPlace(TRect::Bounds(9, 2, 1, 16)); // a key shows it again
    EXPECT_TRUE(f.Field->Caret.IsOn());
    f.InvalidAfter(60'000);
    EXPECT_TRUE(f.Field->Caret.IsOn()) << "rests in the end";
    EXPECT_EQ(f.InvalidAfter(60'000), TRect());
    f.Other.SetFocus();
    EXPECT_FALSE(f.Field->Caret.IsOn());
    EXPECT_TRUE(f.Other.Caret.IsOn());
    f.Client().HostActivated(false);
    EXPECT_FALSE(f.Other.Caret.IsOn());
}

TEST(InputMethods, ComposeInTheFocusedControlAndKnowItsPlace) {
    TTextForm f;
    const auto& told = ViewOf(f.Form).TextInput;
    EXPECT_FALSE(f.Client().HostCompose({.Commit = "x"})) << "nobody is there";
    f.Field->SetFocus();
    EXPECT_TRUE(told.Takes);
    EXPECT_EQ((TPoint{told.Left, told.Top}), (TPoint{13, 22}));
    EXPECT_FALSE(f.Client().HostCompose({.Text = "k"}));
    EXPECT_TRUE(f.Client().HostCompose({.Commit = "é"}));
    EXPECT_EQ(f.Field->Typed, "é") << "whoever knows no composition gets it typed";
    const int ended = ViewOf(f.Form).EndedCompositions;
    f.Other.SetFocus();
    EXPECT_EQ(ViewOf(f.Form).EndedCompositions, ended + 1);
    f.Client().HostCompose({.Text = "か"});
    f.Client().HostCompose({.Commit = "可"});
    EXPECT_EQ(f.Other.Typed, "[か]可[]");
    f.Field->SetFocus();
    f.Field.reset();
    EXPECT_FALSE(told.Takes);
}

/// Takes one key wherever the focus is.
struct TShortcut : TCustomControl {
    using TCustomControl::TCustomControl;
    bool DialogKey(const TKeyStroke& Stroke) override {
        if (Stroke.Key != Taken) return false;
        ++Count;
        return true;
    }
    int Taken = kcReturn, Count = 0;
};

TEST(Keys, ThatNobodyTakesAreAskedOfAllWhoCanBeUsed) {
    TTextForm f;
    TShortcut first(&f.Form), second(&f.Form);
    first.SetParent(&f.Form), second.SetParent(&f.Other);
    f.Field->SetFocus();
    const auto press = [&](int Key, const char* Text = "") {
        return f.Client().HostKey({.Key = Key, .Text = Text}, true);
    };
    EXPECT_TRUE(press(kcReturn, "x")) << "typed";
    EXPECT_EQ(first.Count + second.Count, 0);
    f.Other.SetEnabled(false);
    EXPECT_TRUE(press(kcReturn));
    EXPECT_EQ(first.Count, 1);
    f.Other.SetEnabled(true);
    first.SetVisible(false);
    EXPECT_TRUE(press(kcReturn));
    EXPECT_EQ(second.Count, 1);
    EXPECT_FALSE(press(kcEscape));
}

TEST(ModalForm, RunsUntilItHasAResult) {
    struct TCase {
        const char* What;
        void (*Act)(TForm&);
        int Result;
    };
    const TCase cases[] = {
        {"set", [](TForm& F) { F.SetModalResult(17); }, 17},
        {"Escape", [](TForm& F) { F.AsHostClient().HostKey({.Key = kcEscape}, true); }, mrCancel},
        {"closed", [](TForm& F) { F.AsHostClient().HostClosed(); }, mrCancel},
        {"destroyed", [](TForm& F) { delete &F; }, mrCancel},
        {"nothing more to come", [](TForm&) {}, mrCancel}};
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.What);
        auto* form = new TForm(nullptr);
        const TComponentRef<TForm> kept(form);
        bool wasModal = false;
        Post([&] {
            wasModal = form->IsModal() && ViewOf(*form).Modal && ViewOf(*form).Visible;
            c.Act(*form);
        });
        EXPECT_EQ(form->ShowModal(), c.Result);
        EXPECT_TRUE(wasModal);
        if (!kept) continue;
        EXPECT_FALSE(form->IsShown());
        EXPECT_FALSE(form->AsHostClient().HostKey({.Key = kcEscape}, true)) << "modal no more";
        form->Show();
        EXPECT_THROW(form->ShowModal(), Exception);
        delete form;
    }
}

TEST(Popup, StandsBesideAPlaceWhereTheScreenHasRoom) {
    const TSize screen{800, 600}, size{100, 200};
    EXPECT_EQ(PopupPlace({10, 20, 110, 40}, size, screen), TRect::Bounds(10, 40, 100, 200));
    EXPECT_EQ(PopupPlace({750, 500, 790, 520}, size, screen), TRect::Bounds(700, 300, 100, 200));
    EXPECT_EQ(PopupPlace({-20, 100, 90, 520}, size, screen), TRect::Bounds(0, 520, 100, 200)) << "nowhere";
    TTextForm f;
    f.Form.SetBounds(50, 60, 300, 200);
    TForm popup(nullptr);
    popup.SetBounds(0, 0, 80, 90);
    popup.ShowIn(f.Form.GetHostWindow()->OpenPopup(popup.AsHostClient(), {10, 20, 110, 50}));
    popup.GetHostWindow()->SetBounds(popup.GetBoundsRect());
    EXPECT_EQ(Host().PopupBeside(f.Client()), &popup.AsHostClient());
    EXPECT_EQ(ViewOf(popup).Bounds, TRect::Bounds(60, 110, 80, 90));
    EXPECT_TRUE(Host().PressOutside(popup.AsHostClient()));
    EXPECT_FALSE(popup.IsShown());
    EXPECT_EQ(Host().PopupBeside(f.Client()), nullptr);
    EXPECT_FALSE(Host().PressOutside(f.Client())) << "no popup";
}

} // namespace kx::test::textinput
