#include "support/headless.h"
#include "support/testing.h"

namespace kx::test::mousedispatch {

/// A form with a panel at (50, 50), 100 square, and a graphic mark on it at (10, 10), 20 square. Writes down
/// who got what where, and runs an action at a chosen moment.
class MouseDispatch : public testing::Test {
protected:
    void SetUp() override {
        Form->Show();
        Panel->SetBounds(50, 50, 100, 100);
        Panel->SetParent(Form.get());
        Mark->SetBounds(10, 10, 20, 20);
        Mark->SetParent(Panel.get());
        Watch(*Form, "form");
        Watch(*Panel, "panel");
        Watch(*Mark, "mark");
    }

    void Watch(TControl& Control, const std::string& Name) {
        const auto at = [=, this](const char* What, int X, int Y) {
            Note(Name + What + "(" + std::to_string(X) + "," + std::to_string(Y) + ")");
        };
        Control.OnMouseDown = [=](auto*, auto, auto, int X, int Y) { at(".down", X, Y); };
        Control.OnMouseMove = [=](auto*, auto, int X, int Y) { at(".move", X, Y); };
        Control.OnMouseUp = [=](auto*, auto, auto, int X, int Y) { at(".up", X, Y); };
        Control.OnClick = [=, this](TControl*) { Note(Name + ".click"); };
        Control.OnDblClick = [=, this](TControl*) { Note(Name + ".double"); };
    }
    void Note(const std::string& What) {
        Log += What + ' ';
        if (Action && What.starts_with(ActAt)) std::exchange(Action, nullptr)();
    }
    std::string Send(TMouseKind Kind, TPoint Pos, TShiftState Shift = 0, TMouseButton Button = mbLeft) {
        Form->AsHostClient().HostMouse(Kind, Button, Shift, Pos);
        return std::exchange(Log, "");
    }
    const THeadlessHost::TWindowView& View() { return ViewOf(*Form); }

    static constexpr auto Down = TMouseKind::Down, Move = TMouseKind::Move, Up = TMouseKind::Up;
    std::string Log, ActAt;
    std::function<void()> Action;
    std::unique_ptr<TForm> Form = std::make_unique<TForm>(nullptr);
    std::unique_ptr<TCustomPanel> Panel = std::make_unique<TCustomPanel>(nullptr);
    std::unique_ptr<TGraphicControl> Mark = std::make_unique<TGraphicControl>(nullptr);
};

TEST_F(MouseDispatch, GoesToTheDeepestControlThatTakesIt) {
    Panel->SetCursor(crCross);
    EXPECT_EQ(Send(Move, {65, 66}), "mark.move(5,6) ");
    EXPECT_EQ(View().Cursor, crCross) << "the parent's, where there is none of its own";
    EXPECT_EQ(Send(Move, {80, 80}), "panel.move(30,30) ");
    Send(Move, {5, 6});
    EXPECT_EQ(View().Cursor, crDefault);
    Mark->SetEnabled(false);
    EXPECT_EQ(Send(Move, {65, 66}), "panel.move(15,16) ");
    Panel->SetVisible(false);
    EXPECT_EQ(Send(Move, {65, 66}), "form.move(65,66) ");
}

TEST_F(MouseDispatch, CapturesFromAPressUntilTheLastButtonIsUp) {
    EXPECT_EQ(Send(Down, {65, 65}, ssLeft), "mark.down(5,5) ");
    EXPECT_TRUE(View().Captured && Mark->GetMouseCapture());
    EXPECT_EQ(Send(Move, {0, 0}, ssLeft), "mark.move(-60,-60) ");
    Send(Down, {0, 0}, ssLeft | ssRight, mbRight);
    EXPECT_EQ(Send(Up, {0, 0}, ssRight), "mark.up(-60,-60) ") << "outside: no click";
    EXPECT_TRUE(View().Captured);
    Send(Up, {0, 0}, ssRight, mbRight);
    EXPECT_FALSE(View().Captured);
    EXPECT_EQ(Send(Move, {0, 0}), "form.move(0,0) ");
    Send(Down, {65, 65}, ssLeft);
    Mark->SetVisible(false);
    EXPECT_FALSE(View().Captured) << "a hidden control lets go";
}

TEST_F(MouseDispatch, ClicksAndDoubleClicks) {
    Send(Down, {65, 65}, ssLeft);
    EXPECT_EQ(Send(Up, {66, 65}), "mark.click mark.up(6,5) ");
    EXPECT_EQ(Send(Down, {65, 65}, ssLeft | ssDouble), "mark.double mark.down(5,5) ");
    EXPECT_EQ(Send(Up, {65, 65}), "mark.up(5,5) ") << "one double click, no second click";
    EXPECT_EQ(Send(Up, {65, 65}), "mark.up(5,5) ") << "never pressed";
}

TEST_F(MouseDispatch, LetsHandlersDestroyOrRemoveWhatIsBeingServed) {
    const struct {
        const char* At;
        std::function<void()> Action;
        const char* Expected;
    } cases[] = {
        {"mark.click", [this] { Mark.reset(); }, "mark.down(5,5) mark.click "},
        {"mark.click", [this] { Form.reset(); }, "mark.down(5,5) mark.click "},
        {"mark.click", [this] { Mark->SetParent(nullptr); }, "mark.down(5,5) mark.click "},
        {"mark.down", [this] { Mark.reset(); }, "mark.down(5,5) panel.up(15,15) "},
        {"mark.down", [] { throw std::runtime_error("x"); }, "mark.down(5,5) mark.click mark.up(5,5) "},
        {"mark.up", [this] { Form.reset(); }, "mark.down(5,5) mark.click mark.up(5,5) "},
    };
    const TFaults faults;
    for (const auto& c : cases) {
        Mark = std::make_unique<TGraphicControl>(nullptr);
        Panel = std::make_unique<TCustomPanel>(nullptr);
        Form = std::make_unique<TForm>(nullptr);
        SetUp();
        ActAt = c.At;
        Action = c.Action;
        std::string log = Send(Down, {65, 65}, ssLeft);
        if (Form) log += Send(Up, {65, 65});
        EXPECT_EQ(log, c.Expected) << c.At;
    }
    EXPECT_EQ(faults.Text, "x");
}

TEST_F(MouseDispatch, GivesUpTheMouseWhenThePressedTreeGetsAParent) {
    TCustomPanel top(nullptr), inner(nullptr);
    top.SetBounds(0, 0, 30, 30);
    inner.SetBounds(0, 0, 20, 20);
    inner.SetParent(&top);
    Watch(inner, "inner");
    top.DispatchMouse(Down, mbLeft, ssLeft, {5, 5});
    EXPECT_TRUE(inner.GetMouseCapture());
    top.SetParent(Panel.get());
    top.SetParent(nullptr);
    EXPECT_FALSE(inner.GetMouseCapture());
    Log.clear();
    top.DispatchMouse(Up, mbLeft, 0, {5, 5});
    EXPECT_EQ(Log, "inner.up(5,5) ") << "no click of a press that has ended";
}

} // namespace kx::test::mousedispatch
