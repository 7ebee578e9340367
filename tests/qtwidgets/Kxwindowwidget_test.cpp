#include "qtwidgets/windows.h"

#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/host/timer.h>

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <thread>

namespace kx::test::windowwidget {

void Mouse(QWidget& Widget, QEvent::Type Type, QPointF Pos, Qt::MouseButton Button, Qt::MouseButtons Buttons,
           Qt::KeyboardModifiers Modifiers = {}) {
    QMouseEvent event(Type, Pos, Widget.mapToGlobal(Pos), Button, Buttons, Modifiers);
    QApplication::sendEvent(&Widget, &event);
}

bool Wheel(QWidget& Widget, QPoint Pixels, QPoint Angle, Qt::ScrollPhase Phase) {
    QWheelEvent event({20, 30}, Widget.mapToGlobal(QPointF(20, 30)), Pixels, Angle, {}, Qt::ControlModifier,
                      Phase, false);
    QApplication::sendEvent(&Widget, &event);
    return event.isAccepted();
}

bool Key(QWidget& Widget, int Code, Qt::KeyboardModifiers Modifiers = {}, const QString& Text = {},
         QEvent::Type Type = QEvent::KeyPress) {
    QKeyEvent event(Type, Code, Modifiers, Text);
    QApplication::sendEvent(&Widget, &event);
    return event.isAccepted();
}

/// Writes down what a control hears.
void Listen(TWinControl& Control, std::string& Log) {
    const auto note = [&Log](const auto&... Parts) {
        std::ostringstream all;
        (all << ... << Parts) << " ";
        Log += all.str();
    };
    const auto mouse = [note](const char* What) {
        return [=](TControl*, TMouseButton Button, TShiftState Shift, int X, int Y) {
            note(What, int(Button), "/", Shift, "@", X, ",", Y);
        };
    };
    const auto key = [note](const char* What) {
        return [=](TControl*, const TKeyStroke& Stroke, bool& Taken) {
            note(What, Stroke.Key, "/", Stroke.Shift, "'", Stroke.Text, "'");
            Taken = Stroke.Key != kcF1;
        };
    };
    Control.OnMouseDown = mouse("down");
    Control.OnMouseUp = mouse("up");
    Control.OnMouseMove = [=](TControl*, TShiftState Shift, int X, int Y) {
        note("move", Shift, "@", X, ",", Y);
    };
    Control.OnDblClick = [=](TControl*) { note("double"); };
    Control.OnMouseEnter = [=](TControl*) { note("in"); };
    Control.OnMouseLeave = [=](TControl*) { note("out"); };
    Control.OnMouseWheel = [=](TControl*, const TWheelTurn& Turn, TShiftState Shift, int, int, bool& Taken) {
        note("wheel", int(100 * Turn.Right), ",", int(100 * Turn.Up), Turn.Continues ? "+" : "", "/", Shift);
        Taken = Turn.Right == 0;
    };
    Control.OnKeyDown = key("key");
    Control.OnKeyUp = key("keyup");
}

TEST(Window, TellsItsFormWhatMouseWheelAndKeysDo) {
    TProbeForm f;
    std::string log;
    auto& window = f.Show();
    Listen(f.Probe, log);
    const auto take = [&] { return std::exchange(log, {}); };
    Mouse(window, QEvent::MouseMove, {11.9, 20.2}, Qt::NoButton, {});
    Mouse(window, QEvent::MouseButtonPress, {30, 40}, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    Mouse(window, QEvent::MouseButtonRelease, {30, 40}, Qt::LeftButton, {});
    Mouse(window, QEvent::MouseButtonDblClick, {30, 40}, Qt::LeftButton, Qt::LeftButton);
    Mouse(window, QEvent::MouseButtonRelease, {-7, 500}, Qt::LeftButton, {});
    Mouse(window, QEvent::MouseButtonPress, {30, 40}, Qt::BackButton, Qt::BackButton);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&window, &leave);
    EXPECT_EQ(take(), "in move0@1,0 down0/9@20,20 up0/0@20,20 double down0/72@20,20 up0/0@-17,480 out ");

    EXPECT_TRUE(Wheel(window, {}, {0, 120}, Qt::NoScrollPhase));
    EXPECT_TRUE(Wheel(window, {}, {0, -60}, Qt::NoScrollPhase));
    EXPECT_FALSE(Wheel(window, {}, {-120, 0}, Qt::NoScrollPhase));
    Wheel(window, {}, {}, Qt::ScrollBegin);
    Wheel(window, {0, 25}, {0, 77}, Qt::ScrollUpdate);
    Wheel(window, {0, 50}, {0, 99}, Qt::ScrollMomentum);
    Wheel(window, {}, {}, Qt::ScrollEnd);
    Wheel(window, {0, 50}, {0, 99}, Qt::ScrollBegin);
    EXPECT_EQ(take(), "wheel0,100/4 wheel0,-50/4 wheel100,0/4 wheel0,50/4 wheel0,100+/4 wheel0,100/4 ");

    const std::tuple<int, Qt::KeyboardModifiers, const char*, const char*> keys[] = {
        {Qt::Key_A, Qt::ShiftModifier, "A", "key65/1'A' "},
        {Qt::Key_C, Qt::ControlModifier, "\x03", "key67/4'' "},
        {Qt::Key_Left, {}, "", "key37/0'' "},
        {Qt::Key_Backspace, {}, "\b", "key8/0'' "},
        {Qt::Key_Space, {}, " ", "key32/0' ' "},
        {Qt::Key_Exclam, {}, "!", "key0/0'!' "},
        {Qt::Key_F12, Qt::AltModifier, "", "key123/2'' "},
        {Qt::Key_Enter, {}, "\r", "key13/0'' "},
        {Qt::Key_Plus, {}, "+", "key107/0'+' "},
        {Qt::Key_Tab, {}, "\t", "key9/0'' "},
        {Qt::Key_Backtab, Qt::ShiftModifier, "", "key9/1'' "},
        {Qt::Key_Tab, Qt::ControlModifier, "", "key9/4'' "}};
    for (const auto& [key, modifiers, text, expected] : keys) {
        EXPECT_TRUE(Key(window, key, modifiers, text));
        EXPECT_EQ(take(), expected);
    }
    EXPECT_FALSE(Key(window, Qt::Key_F1, {}, {}, QEvent::KeyRelease));
    EXPECT_EQ(take(), "keyup112/0'' ");
}

TEST(Window, MakesOneFrameOfAllRequestsAndPaintsNoMoreThanIsDirty) {
    TProbeForm f;
    f.Show();
    for (int i = 0; i < 1000; ++i) f.Probe.Invalidate();
    WaitFor(50);
    EXPECT_EQ(f.Probe.Rects(), "0,0-200,100 ");
    f.Probe.InvalidateRect({5, 6, 25, 26});
    f.Probe.InvalidateRect({150, 80, 160, 90});
    WaitFor(50);
    EXPECT_EQ(f.Probe.Rects(), "5,6-25,26 150,80-160,90 ");
    f.Form.Hide();
    f.Probe.Invalidate();
    WaitFor(50);
    EXPECT_EQ(f.Probe.Rects(), "") << "nobody can see it";
    f.Form.Show();
    EXPECT_TRUE(Wait([&] { return f.Probe.Paints > 0; }));
}

TEST(Window, FramesFollowNoFasterThanTheScreenShowsThem) {
    TProbeForm f;
    f.Show();
    TTimer timer(nullptr);
    timer.SetInterval(1);
    timer.OnTimer = [&] { f.Probe.Invalidate(); };
    WaitFor(200);
    EXPECT_GT(f.Probe.Paints, 3);
    EXPECT_LE(f.Probe.Paints, 14);
}

TEST(Window, AStormOfSizesIsFewPaintsAndTheFormHasTheLast) {
    TProbeForm f;
    auto& window = f.Show();
    for (int i = 0; i < 300; ++i) window.resize(200 + i, 500 - i);
    WaitFor(60);
    EXPECT_EQ(std::tuple(f.Form.GetWidth(), f.Form.GetHeight()), std::tuple(499, 201));
    EXPECT_LE(f.Probe.Paints, 3);
    f.Form.SetBounds(5, 6, 250, 150);
    EXPECT_EQ(window.size(), QSize(250, 150));
    f.Form.SetWindowState(wsMaximized);
    WaitFor(30);
    EXPECT_EQ(f.Form.GetWidth(), window.width());
    EXPECT_GT(f.Form.GetWidth(), 400);
    window.showNormal(); // as the user does
    WaitFor(30);
    EXPECT_EQ(std::tuple(f.Form.GetWindowState(), f.Form.GetWidth()), std::tuple(wsNormal, 250));
    window.showMinimized();
    WaitFor(30);
    EXPECT_EQ(f.Form.GetWindowState(), wsMinimized);
}

TEST(Window, ShowsHintsCursorsAndMenus) {
    TProbeForm f;
    auto& window = f.Show();
    f.Probe.SetHint("a <b>");
    f.Probe.SetShowHint(true);
    f.Probe.SetCursor(crSizeWE);
    QHelpEvent help(QEvent::ToolTip, {30, 40}, window.mapToGlobal(QPoint(30, 40)));
    QApplication::sendEvent(&window, &help);
    EXPECT_EQ(QToolTip::text().toStdString(), "a &lt;b&gt;") << "plain text";
    Mouse(window, QEvent::MouseMove, {30, 40}, Qt::NoButton, {});
    EXPECT_EQ(window.cursor().shape(), Qt::SizeHorCursor);

    TPopupMenu menu(&f.Form);
    std::string log;
    menu.GetItems().Add("&Copy", [&](TMenuItem*) { log += "copy "; }).SetShortCut("Ctrl+C");
    menu.GetItems().Add("-");
    auto& inner = menu.GetItems().Add("Save");
    inner.Add("PNG", [&](TMenuItem* Item) { log += Item->GetCaption() + " "; }).SetChecked(true);
    inner.Add("PDF").SetEnabled(false);
    f.Probe.SetPopupMenu(&menu);
    const auto popUp = [&] {
        Mouse(window, QEvent::MouseButtonPress, {30, 40}, Qt::RightButton, Qt::RightButton);
        Mouse(window, QEvent::MouseButtonRelease, {30, 40}, Qt::RightButton, {});
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    QMenu* shown = popUp();
    ASSERT_NE(shown, nullptr);
    ASSERT_EQ(shown->actions().size(), 3);
    EXPECT_EQ(shown->actions()[0]->text().toStdString(), "&Copy\tCtrl+C");
    EXPECT_TRUE(shown->actions()[1]->isSeparator());
    const auto saves = shown->actions()[2]->menu()->actions();
    EXPECT_TRUE(saves[0]->isChecked() && !saves[1]->isEnabled());
    saves[0]->trigger();
    shown->close();
    WaitFor(10);
    EXPECT_EQ(log, "PNG ");
}

TEST(Window, MayGoFromItsOwnHandlers) {
    const TFaults faults;
    const std::pair<const char*, std::function<void(QWidget&)>> ways[] = {
        {"close", [](QWidget& W) { W.close(); }},
        {"press",
         [](QWidget& W) {
             Mouse(W, QEvent::MouseButtonPress, {30, 40}, Qt::LeftButton, Qt::LeftButton);
         }},
        {"key", [](QWidget& W) { Key(W, Qt::Key_A); }},
        {"paint", [](QWidget& W) { W.repaint(); }},
        {"settle", [](QWidget& W) { W.resize(222, 222), WaitFor(30); }}};
    for (const auto& [name, act] : ways) {
        auto f = std::make_unique<TProbeForm>();
        auto& window = f->Show();
        const auto go = [&] { f.reset(); };
        f->Form.OnClose = [&](TControl*) { go(); };
        f->Probe.OnMouseDown = [&](TControl*, TMouseButton, TShiftState, int, int) { go(); };
        f->Probe.OnKeyDown = [&](TControl*, const TKeyStroke&, bool&) { go(); };
        f->Probe.WhenPainted = go;
        f->Form.Invalidate();
        act(window);
        WaitFor(30);
        EXPECT_EQ(f, nullptr) << name;
        EXPECT_TRUE(OpenWindows().empty()) << name;
    }
    EXPECT_EQ(faults.Text, "");
}

TEST(Window, ClosesWhileDataArriveFromTimersAndThreads) {
    for (const bool deleted : {false, true}) {
        auto f = std::make_unique<TProbeForm>();
        auto& window = f->Show();
        TComponentRef<TProbe> probe(&f->Probe);
        TTimer timer(nullptr);
        timer.SetInterval(1);
        timer.OnTimer = [&] {
            if (probe) probe->Invalidate();
        };
        int arrived = 0;
        std::jthread instrument([&](std::stop_token Stop) {
            while (!Stop.stop_requested()) {
                Post([&, probe] {
                    ++arrived;
                    if (probe) probe->Invalidate();
                });
                std::this_thread::sleep_for(std::chrono::microseconds(200));
            }
        });
        EXPECT_TRUE(Wait([&] { return f->Probe.Paints > 2; }));
        f->Form.OnClose = [&](TControl*) {
            if (deleted) f.reset();
        };
        window.close();
        const int before = arrived;
        EXPECT_TRUE(Wait([&] { return arrived > before + 20; })) << "the rest of the program goes on";
        EXPECT_TRUE(OpenWindows().empty());
        instrument.request_stop();
        instrument.join();
        WaitFor(5);
    }
}

TEST(WidgetsHost, RunsTimersUntilItQuits) {
    int ticks = 0;
    std::unique_ptr<THostTimer> timer;
    timer = TApplication::Instance().GetHost().StartTimer(1, [&] {
        if (++ticks < 3) return;
        timer.reset();
        TApplication::Instance().Terminate();
    });
    TApplication::Instance().Run();
    WaitFor(10);
    EXPECT_EQ(ticks, 3);
    THost& host = TApplication::Instance().GetHost();
    host.CopyMarkup("x2", "text/x-marked", "x\\+2");
    EXPECT_EQ(std::tuple(host.PasteText(), host.PasteMarkup("text/x-marked")), std::tuple("x2", "x\\+2"));
    host.CopyText("12 \u00b5s");
    EXPECT_EQ(std::tuple(host.PasteText(), host.PasteMarkup("text/x-marked")), std::tuple("12 \u00b5s", ""));
}

} // namespace kx::test::windowwidget
