#include <kxgraph/graph/Kxgraphzoom.h>

#include "support/graphfixture.h"

namespace kx::test::graphmouse {

constexpr int CPause = TKxGraphZoom::CGesturePause;

/// A graph over 0..100 in both directions that lets the user do everything.
struct TMouseForm : TGraphForm {
    explicit TMouseForm(const std::string& Settings = "") {
        Fill({{0, 1}, {50, 40}, {100, 100}});
        AddSeries<TKxDataSeries>();
        Fix(1, 100, 1, 100);
        Set("Graph1.WheelZoom=1; Graph1.Panning=1; Graph1.ZoomKeys=1; Graph1.UnzoomOnDblClick=1; " +
            Settings);
        Form->Show();
        Graph->SetFocus();
        Draw();
    }
    bool Wheel(double Up, TPoint World, TShiftState Shift = 0, bool Continues = false) {
        return Form->AsHostClient().HostWheel({.Up = Up, .Continues = Continues}, Shift, OnRoot(World));
    }
    void Press(TMouseKind Kind, TPoint World, TMouseButton Button = mbMiddle, TShiftState Shift = 0) {
        Form->AsHostClient().HostMouse(Kind, Button, Shift, OnRoot(World));
    }
    bool Key(int Key, std::string_view Text = "", bool Down = true) {
        return Form->AsHostClient().HostKey({.Key = Key, .Text = Text}, Down);
    }
    TPoint OnRoot(TPoint World) { return Graph->GetDrawingWorld().ClientToRoot(World); }
    std::array<double, 4> View() {
        Draw();
        return {X->GetStart(), X->GetStop(), Y->GetStart(), Y->GetStop()};
    }
    /// Middle of an axis in pixels of the drawing world.
    TPoint Beside(const TKxAxis& Axis) const {
        const TRect bounds = Axis.GetBoundsRect();
        return TPoint{(bounds.Left + bounds.Right) / 2, (bounds.Top + bounds.Bottom) / 2} -
               Graph->GetDrawingWorld().GetBoundsRect().TopLeft();
    }
};

/// What an axis is linear in.
double Linear(const TKxAxis& Axis, double Value) {
    return Axis.GetScaling() == AxNormal ? Value : std::log10(Value);
}
/// Where in the view a value stands, from 0 to 1: a layout may give the axis another length.
double PartOf(const TKxAxis& Axis, double Value) {
    const double start = Linear(Axis, Axis.GetStart());
    return (Linear(Axis, Value) - start) / (Linear(Axis, Axis.GetStop()) - start);
}
double Span(const TKxAxis& Axis) { return Linear(Axis, Axis.GetStop()) - Linear(Axis, Axis.GetStart()); }

TEST(GraphMouse, WheelZoomsAboutThePointerOnAxesOfEveryKind) {
    for (const char* kind : {"", "XAxis1.Scaling=AxLog", "XAxis1.Twisted=1; YAxis1.Twisted=1",
                             "XAxis1.LabelKind=lkDates", "XAxis1.LabelKind=lkCategories; XAxis1.Categories=a",
                             "XAxis1.Scaling=AxLogEE; XAxis1.Twisted=1; YAxis1.Scaling=AxLog"}) {
        TMouseForm f(kind);
        const TPoint at{90, 60};
        for (const double turn : {1.0, 0.5, -2.0}) {
            const double x = f.X->IntToRealPosition(at.X), y = f.Y->IntToRealPosition(at.Y);
            const double spanX = Span(*f.X), spanY = Span(*f.Y), partX = PartOf(*f.X, x),
                         partY = PartOf(*f.Y, y);
            EXPECT_TRUE(f.Wheel(turn / 2, at) && f.Wheel(turn / 2, at)) << "twice between two frames";
            f.Draw();
            const double factor = std::pow(0.8, turn);
            EXPECT_NEAR(Span(*f.X) / spanX, factor, 1e-9) << kind;
            EXPECT_NEAR(Span(*f.Y) / spanY, factor, 1e-9) << kind;
            EXPECT_NEAR(PartOf(*f.X, x), partX, 1e-9) << kind;
            EXPECT_NEAR(PartOf(*f.Y, y), partY, 1e-9) << kind;
        }
    }
}

TEST(GraphMouse, AGestureIsOneEntryOfTheZoomStack) {
    TMouseForm f;
    const TPoint at{100, 100};
    const auto full = f.View();
    const auto turn = [&](int Wait, bool Continues = false) {
        Host().Advance(Wait);
        f.Wheel(1, at, 0, Continues);
    };
    turn(0), turn(CPause - 1), turn(CPause - 1);
    turn(CPause + 1, true); // a touchpad that rested
    const auto first = f.View();
    EXPECT_EQ(f.X->GetZoomIndex(), 2);
    turn(CPause + 1);
    const auto second = f.View();
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"button", [&] { f.Press(TMouseKind::Down, at, mbRight), f.Press(TMouseKind::Up, at, mbRight); }},
        {"key", [&] { f.Key(kcLeft); }},
        {"left", [&] { f.Press(TMouseKind::Move, at), f.Form->AsHostClient().HostMouseLeft(); }},
        {"shift", [&] { f.Wheel(1, at, ssShift); }}};
    for (const auto& [what, end] : ends) {
        while (f.View() != second) f.Graph->ZoomBack();
        Host().Advance(CPause + 1);
        turn(0);
        end();
        turn(0, true);
        EXPECT_GE(f.X->GetZoomIndex(), 5) << what;
    }
    while (f.View() != second) f.Key(kcBack);
    for (const auto& expected : {first, full}) {
        f.Key(kcBack);
        EXPECT_EQ(f.View(), expected);
    }
    f.Key(kcBack);
    EXPECT_NE(f.View(), full) << "round to the newest one";
    f.Press(TMouseKind::Down, at, mbLeft, ssDouble);
    EXPECT_EQ(f.View(), full);
}

TEST(GraphMouse, ZoomsTheAxesThatAreMeant) {
    TMouseForm f;
    auto* slave = f.Make<TKxAxis>("Slave1", "Position=AxTopPos; MasterAxis=XAxis1; IsSlaveAxis=1");
    const auto full = f.View();
    const TPoint at{100, 100};
    const auto spans = [&] {
        const auto now = f.View();
        const auto part = [&](int i) { return (now[i + 1] - now[i]) / (full[i + 1] - full[i]); };
        return std::array{std::round(part(0) * 1e4) / 1e4, std::round(part(2) * 1e4) / 1e4};
    };
    using TSpans = std::array<double, 2>;
    const std::tuple<TPoint, unsigned, TSpans> cases[] = {{at, 0, {0.8, 0.8}},
                                                          {at, ssShift, {0.8, 1}},
                                                          {at, ssCtrl, {1, 0.8}},
                                                          {f.Beside(*f.X), 0, {0.8, 1}},
                                                          {f.Beside(*f.Y), ssShift, {1, 0.8}},
                                                          {f.Beside(*slave), 0, {0.8, 1}}};
    for (const auto& [where, shift, expected] : cases) {
        EXPECT_TRUE(f.Wheel(1, where, shift));
        EXPECT_EQ(spans(), expected);
        EXPECT_EQ(slave->GetStart(), f.X->GetStart());
        EXPECT_FALSE(slave->CanZoomBack());
        f.Key(kcBack);
        EXPECT_EQ(f.View(), full);
    }
    f.Wheel(1, f.Beside(*f.X)), f.Wheel(1, f.Beside(*f.Y));
    f.Key(kcBack);
    EXPECT_EQ(spans(), (TSpans{0.8, 1})) << "the last gesture alone";
    EXPECT_FALSE(f.Wheel(1, {-5000, 0}) || f.Wheel(0, at));
    f.Graph->SetWheelZoom(false);
    EXPECT_FALSE(f.Wheel(1, at));
}

TEST(GraphMouse, PanningKeepsWhatIsHeldUnderThePointer) {
    for (const char* kind : {"", "XAxis1.Scaling=AxLog; YAxis1.Twisted=1"}) {
        TMouseForm f(kind);
        const auto full = f.View();
        const TPoint from{80, 90}, to{130, 50};
        for (const TMouseButton button : {mbMiddle, mbLeft}) {
            f.Key(kcSpace);
            const double x = f.X->IntToRealPosition(from.X), y = f.Y->IntToRealPosition(from.Y);
            const double partX = PartOf(*f.X, f.X->IntToRealPosition(to.X));
            const double partY = PartOf(*f.Y, f.Y->IntToRealPosition(to.Y));
            f.Press(TMouseKind::Down, from, button);
            f.Press(TMouseKind::Move, {300, 300}, button);
            EXPECT_EQ(ViewOf(*f.Form).Cursor, crDrag);
            f.Press(TMouseKind::Move, to, button);
            f.Draw();
            EXPECT_NEAR(PartOf(*f.X, x), partX, 1e-9) << kind;
            EXPECT_NEAR(PartOf(*f.Y, y), partY, 1e-9) << kind;
            f.Press(TMouseKind::Up, to, button);
            EXPECT_EQ(ViewOf(*f.Form).Cursor, crDefault);
            f.Key(kcBack);
            EXPECT_EQ(f.View(), full) << "one entry";
            f.Key(kcSpace, "", false);
        }
        f.Press(TMouseKind::Down, from);
        f.Press(TMouseKind::Move, to, mbMiddle, ssShift);
        EXPECT_EQ(f.View()[2], full[2]);
        EXPECT_NE(f.View()[0], full[0]);
        f.Key(kcEscape);
        f.Press(TMouseKind::Move, {10, 10});
        EXPECT_EQ(f.View(), full);
    }
}

// Labels come and go at the ends; the room that they take would change the length of the axes.
TEST(GraphMouse, PanningHoldsTheDrawingWorldStill) {
    TMouseForm f;
    f.Fix(10000, 10100, 1, 100);
    f.Draw();
    const auto sweep = [&f](bool Holds) {
        std::set<int> widths;
        if (Holds) f.Press(TMouseKind::Down, {20, 60});
        for (int x = 20; x < 140; x += 3) {
            if (!Holds) f.Press(TMouseKind::Down, {20, 60});
            f.Press(TMouseKind::Move, {x, 60});
            if (!Holds) f.Press(TMouseKind::Up, {x, 60});
            f.Draw();
            widths.insert(f.Graph->GetDrawingWorld().GetWidth());
            if (!Holds) f.Key(kcBack);
        }
        return widths;
    };
    const std::set<int> free = sweep(false);
    EXPECT_GT(free.size(), 2u);
    EXPECT_EQ(*sweep(true).begin(), *free.begin());
    f.Press(TMouseKind::Move, {20, 60});
    const std::set<int> held = sweep(true); // still dragged: all that labels need has been seen
    EXPECT_EQ(held, std::set<int>{*free.begin()});
    f.Press(TMouseKind::Move, {29, 60});
    f.Press(TMouseKind::Up, {29, 60});
    f.Draw();
    EXPECT_GT(f.Graph->GetDrawingWorld().GetWidth(), *free.begin()) << "no longer held";
}

TEST(GraphMouse, KeysZoomAndPan) {
    TMouseForm f;
    const auto full = f.View();
    const std::tuple<int, const char*, std::array<double, 4>> cases[] = {
        {kcPlus, "", {10.9, 90.1, 10.9, 90.1}},     {0, "+", {10.9, 90.1, 10.9, 90.1}},
        {kcRight, "", {10.9, 109.9, 1, 100}},       {kcUp, "", {1, 100, 10.9, 109.9}},
        {kcLeft, "", {-8.9, 90.1, 1, 100}},         {kcDown, "", {1, 100, -8.9, 90.1}},
        {kcMinus, "", {-11.4, 112.4, -11.4, 112.4}}};
    for (const auto& [key, text, expected] : cases) {
        EXPECT_TRUE(f.Key(key, text));
        const auto view = f.View();
        for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(view[i], expected[i], 0.4) << key << text;
        EXPECT_TRUE(f.Key(kcHome));
        EXPECT_EQ(f.View(), full);
    }
    EXPECT_FALSE(f.Key(kcDelete));
    f.Graph->SetZoomKeys(false);
    EXPECT_FALSE(f.Key(kcPlus));
}

TEST(GraphMouse, ZoomsNoFurtherThanNumbersGo) {
    for (const char* kind : {"", "XAxis1.Scaling=AxLog; YAxis1.Scaling=AxLogEE",
                             "XAxis1.LabelKind=lkDates; YAxis1.LabelKind=lkCategories"})
        for (const double turn : {100.0, -100.0, 7.0, -7.0}) {
            TMouseForm f(kind);
            for (int i = 0; i < 40; ++i) f.Wheel(turn, {33, 77}), f.Key(i % 2 ? kcRight : kcUp);
            f.Draw();
            for (const TKxAxis* axis : {f.X, f.Y}) {
                const double a = axis->IntToRealPosition(10), b = axis->IntToRealPosition(11);
                EXPECT_TRUE(std::isfinite(a) && a != b) << kind << turn << ": " << a;
                EXPECT_EQ(axis->RealToIntPosition(a), 10);
                EXPECT_TRUE(std::isfinite(axis->GetStop() - axis->GetStart()));
            }
        }
}

TEST(GraphMouse, EventsOfTheDrawingWorldCarryItsPixels) {
    TMouseForm f;
    auto* series = f.AddSeries<TKxDataSeries>();
    f.Draw();
    std::vector<TPoint> heard;
    int found = -1;
    const auto hear = [&](TControl*, TMouseButton, TShiftState, int X, int Y) { heard.push_back({X, Y}); };
    TKxDrawingWorld& world = f.Graph->GetDrawingWorld();
    world.OnMouseDown = [&](TControl* S, TMouseButton B, TShiftState Shift, int X, int Y) {
        hear(S, B, Shift, X, Y);
        found = series->FindPoint(X, Y, 2);
    };
    f.Graph->OnMouseDown = hear;
    const TPoint at = f.At(50, 40);
    f.Press(TMouseKind::Down, at, mbLeft);
    EXPECT_EQ(heard, (std::vector{at, at + world.GetBoundsRect().TopLeft()}));
    EXPECT_EQ(found, 1);
}

} // namespace kx::test::graphmouse
