#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/platform/controls/popupmenu.h>

namespace kx::test::dragging {

/// A form with a source at (0, 0) and a target at (50, 0), 40 square; the target refuses left of its
/// pixel 10. Writes down the events and runs an action when a chosen one comes.
struct TStage {
    TStage() {
        for (auto* control : {&Source, &Target}) {
            control->reset(new TCustomPanel(nullptr));
            (*control)->SetBounds(control == &Source ? 0 : 50, 0, 40, 40);
            (*control)->SetParent(Form.get());
        }
        Source->SetDragMode(dmAutomatic);
        Source->SetDragCursor(crCross);
        Source->OnMouseDown = [this](auto*, auto, auto, int X, int) { Note("down", X); };
        Source->OnMouseUp = [this](auto*, auto, auto, int X, int) { Note("up", X); };
        Source->OnClick = [this](auto*) { Note("click", 0); };
        Source->OnStartDrag = [this](auto*) { Note("start", 0); };
        Source->OnEndDrag = [this](auto*, auto* To, int X, int) { Note(To ? "end" : "null", X); };
        Target->OnDragOver = [this](auto*, auto* From, int X, int, TDragState State, bool& Accept) {
            Accept = Accept && X >= 10 && From == Source.get() && Source->IsDragging();
            Note(State == dsDragEnter ? "enter" : State == dsDragLeave ? "leave" : "move", X);
        };
        Target->OnDragDrop = [this](auto*, auto*, int X, int) { Note("drop", X); };
        Form->Show();
    }
    void Note(const std::string& What, int X) {
        Log += What + std::to_string(X) + ' ';
        if (What == ActAt) Action(*this);
    }
    void Send(TMouseKind Kind, int X, TShiftState Shift, TMouseButton Button = mbLeft) {
        if (Form) Form->AsHostClient().HostMouse(Kind, Button, Shift, {X, 5});
        View = Form ? ViewOf(*Form) : THeadlessHost::TWindowView{};
    }
    std::string Drag(std::initializer_list<int> Moves, int Release) {
        Send(TMouseKind::Down, 5, ssLeft);
        for (const int x : Moves) Send(TMouseKind::Move, x, ssLeft);
        if (!Action) Log += std::string(CEnumNames<TCursor>[View.Cursor]) + ' ';
        Send(TMouseKind::Up, Release, 0);
        EXPECT_FALSE(View.Captured || View.Cursor != crDefault) << Log;
        return std::exchange(Log, "");
    }
    std::string Log, ActAt;
    std::function<void(TStage&)> Action;
    THeadlessHost::TWindowView View;
    std::unique_ptr<TForm> Form = std::make_unique<TForm>(nullptr);
    std::unique_ptr<TCustomPanel> Source, Target;
};

TEST(Dragging, TellsWhoIsAskedWhoGetsItAndHowItEnds) {
    TStage s;
    EXPECT_EQ(s.Drag({9, 1}, 5), "down5 crDefault click0 up5 ") << "four pixels are still a click";
    const std::string start = "down5 up5 start0 ";
    EXPECT_EQ(s.Drag({10}, 10), start + "crNoDrop null10 ");
    EXPECT_EQ(s.Drag({65, 70}, 70), start + "enter15 move20 crCross drop20 end70 ");
    EXPECT_EQ(s.Drag({65, 55}, 55), start + "enter15 move5 crNoDrop null55 ");
    EXPECT_EQ(s.Drag({55}, 65), start + "enter5 crNoDrop move15 drop15 end65 ") << "asked where released";
    EXPECT_EQ(s.Drag({65, -9}, -9), start + "enter15 leave-59 crNoDrop null-9 ");
}

TEST(Dragging, SurvivesWhoGoesInTheMiddle) {
    const auto run = [](const char* At, void (*Action)(TStage&)) {
        TStage stage;
        stage.ActAt = At, stage.Action = Action;
        return stage.Drag({65}, 65);
    };
    const std::string all = run("down", [](TStage& S) { S.Source->BeginDrag(); });
    EXPECT_EQ(all, "down5 up5 start0 enter15 drop15 end65 ");
    for (const char* at : {"down", "up", "start", "enter", "drop", "end"}) {
        const std::string until = all.substr(0, all.find(' ', all.find(at)) + 1);
        EXPECT_EQ(run(at, [](TStage& S) { S.Source.reset(); }), until);
        EXPECT_EQ(run(at, [](TStage& S) { S.Form.reset(); }), until);
    }
    EXPECT_EQ(run("drop", [](TStage& S) { S.Target.reset(); }), "down5 up5 start0 enter15 drop15 null65 ");
}

TEST(Controls, PopUpTheNearestMenuAndTakeTheParentsHints) {
    TStage s;
    const auto rightClick = [&s](int Press, int Release) {
        s.Send(TMouseKind::Down, Press, ssRight, mbRight);
        s.Send(TMouseKind::Up, Release, 0, mbRight);
        return std::exchange(s.Log, "");
    };
    auto menu = std::make_unique<TPopupMenu>(nullptr);
    menu->OnPopup = [&](TControl* C, int X, int) { s.Note(C == s.Form.get() ? "form" : "own", X); };
    s.Form->SetPopupMenu(menu.get());
    s.Target->SetPopupMenu(menu.get());
    EXPECT_EQ(rightClick(60, 60) + rightClick(105, 106) + rightClick(60, 106), "own10 form106 ");
    menu.reset();
    EXPECT_EQ(rightClick(60, 60), "");
    s.Target->SetShowHint(false);
    s.Form->SetShowHint(true);
    EXPECT_TRUE(s.Source->GetShowHint() && !s.Target->GetShowHint());
    s.Target->SetParentShowHint(true);
    EXPECT_TRUE(s.Target->GetShowHint());
}

} // namespace kx::test::dragging
