#include <kxgraph/platform/controls/form.h>

#include "support/testing.h"

namespace kx::test::focus {

struct TFocusForm {
    TFocusForm() {
        Form.SetName("Form");
        Panel.SetBounds(0, 0, 100, 100);
        for (TWinControl* control : {&Panel, Inner.get(), Other.get()}) {
            control->OnEnter = [this](TControl* C) { Log += "+" + C->GetName(); };
            control->OnExit = [this](TControl* C) { Log += "-" + C->GetName(); };
            control->OnMouseEnter = [this](TControl* C) { Log += ">" + C->GetName(); };
            control->OnMouseLeave = [this](TControl* C) { Log += "<" + C->GetName(); };
        }
        Panel.SetName("P"), Inner->SetName("I"), Other->SetName("O");
        Panel.SetParent(&Form), Inner->SetParent(&Panel), Other->SetParent(&Form);
        Inner->SetBounds(10, 20, 30, 30), Other->SetBounds(200, 0, 50, 50);
        Inner->SetTabStop(true), Other->SetTabStop(true);
    }
    bool Press(int Key, TShiftState Shift = 0) {
        return Form.AsHostClient().HostKey({.Key = Key, .Text = {}, .Shift = Shift}, true);
    }
    void Mouse(TMouseKind Kind, TPoint Pos) { Form.AsHostClient().HostMouse(Kind, mbLeft, 0, Pos); }
    std::string Take() { return std::exchange(Log, {}); }

    std::string Log;
    TForm Form{nullptr};
    TCustomPanel Panel{&Form};
    std::unique_ptr<TCustomPanel> Inner = std::make_unique<TCustomPanel>(&Form),
                                  Other = std::make_unique<TCustomPanel>(&Form);
};

TEST(Focus, GoesRoundByTabAndToWhatIsPressed) {
    TFocusForm f;
    EXPECT_TRUE(f.Press(kcTab));
    EXPECT_TRUE(f.Press(kcTab));
    EXPECT_TRUE(f.Press(kcTab));
    EXPECT_EQ(f.Take(), "+I-I+O-O+I");
    f.Press(kcTab, ssShift);
    f.Mouse(TMouseKind::Down, {15, 25});
    f.Mouse(TMouseKind::Up, {15, 25});
    EXPECT_EQ(f.Take(), "-I+O>I-O+I");
    f.Other->SetTabOrder(-1), f.Panel.SetTabStop(true);
    f.Form.FocusNext(true);
    f.Form.FocusNext(true);
    f.Form.FocusNext(true);
    EXPECT_EQ(f.Take(), "-I+O-O+P-P+I");
}

TEST(Focus, LeavesWhatCannotHaveIt) {
    TFocusForm f;
    f.Inner->SetFocus();
    f.Panel.SetVisible(false);
    f.Inner->SetFocus();
    EXPECT_EQ(f.Take(), "+I-I");
    EXPECT_EQ(f.Form.GetFocused(), nullptr);
    f.Panel.SetVisible(true);
    f.Inner->SetFocus();
    f.Inner.reset();
    EXPECT_EQ(f.Form.GetFocused(), nullptr);
    f.Other->OnEnter = [&f](TControl*) { f.Other.reset(); };
    f.Press(kcTab);
    EXPECT_EQ(f.Form.GetFocused(), nullptr);
}

TEST(Keys, GoFromTheFocusedControlToItsParentsUntilOneTakesThem) {
    TFocusForm f;
    f.Inner->SetFocus();
    f.Take();
    bool takes = true;
    const auto hear = [&](TControl* C, const TKeyStroke& Stroke, bool& Taken) {
        f.Log += C->GetName() + std::to_string(Stroke.Key) + ";";
        Taken = C == &f.Panel && takes;
    };
    f.Inner->OnKeyDown = f.Panel.OnKeyDown = f.Form.OnKeyDown = hear;
    EXPECT_TRUE(f.Press(kcTab));
    takes = false;
    EXPECT_FALSE(f.Press(kcLeft));
    EXPECT_EQ(f.Take(), "I9;P9;I37;P37;Form37;");
    f.Inner->OnKeyDown = [&](TControl*, const TKeyStroke&, bool&) { f.Inner.reset(); };
    EXPECT_TRUE(f.Press(kcLeft)) << "a handler that is gone with its control has had the key";
    EXPECT_EQ(f.Take(), "");
}

TEST(Wheel, GoesToTheDeepestControlThenToItsParents) {
    TFocusForm f;
    const auto hear = [&](TControl* C, const TWheelTurn& Turn, TShiftState, int X, int Y, bool& Taken) {
        f.Log += C->GetName() + std::to_string(X) + "," + std::to_string(Y) + ";";
        Taken = Turn.Up > 0 && C == &f.Panel;
    };
    f.Inner->OnMouseWheel = f.Panel.OnMouseWheel = f.Form.OnMouseWheel = hear;
    EXPECT_TRUE(f.Form.AsHostClient().HostWheel({.Up = 1}, 0, {15, 30}));
    EXPECT_FALSE(f.Form.AsHostClient().HostWheel({.Up = -1}, 0, {15, 30}));
    EXPECT_EQ(f.Take(), "I5,10;P15,30;I5,10;P15,30;Form15,30;");
}

TEST(Hover, IsToldOfEveryChange) {
    TFocusForm f;
    f.Mouse(TMouseKind::Move, {15, 25});
    f.Mouse(TMouseKind::Move, {16, 25});
    f.Mouse(TMouseKind::Move, {1, 1});
    f.Form.AsHostClient().HostMouseLeft();
    EXPECT_EQ(f.Take(), ">I<I>P<P");
    f.Mouse(TMouseKind::Move, {15, 25});
    f.Inner.reset();
    f.Mouse(TMouseKind::Move, {15, 25});
    EXPECT_EQ(f.Take(), ">I>P");
}

} // namespace kx::test::focus
