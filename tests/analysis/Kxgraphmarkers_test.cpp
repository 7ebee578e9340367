#include <kxgraph/graph/Kxgraphmarkers.h>

#include "support/curveform.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>

namespace kx::test::graphmarkers {

/// y = x up to 50, constant behind.
struct TMarkerForm : TCurveForm<TKxLinearRegressionLine> {
    explicit TMarkerForm(const std::string& Settings = "") {
        for (int x = 1; x <= 100; ++x) Fill({{double(x), double(std::min(x, 50))}});
        Fix(1, 100, 1, 100);
        Set(Settings);
        Join();
        Graph->SetAutoZoom(true);
        Form->Show();
        Graph->GetFont().SetColor(clFuchsia);
        Draw();
        World().ShowStartStopMarkers(Curve);
        Graph->SetFocus();
        Draw();
    }
    TKxDrawingWorld& World() { return Graph->GetDrawingWorld(); }
    /// A place on the line of an X value; beside it where the axis across stands on it.
    TPoint On(double Value) const {
        const int length = Curve->GetXAxis()->GetAxisLength();
        const int along = std::clamp(Curve->GetXAxis()->RealToIntPosition(Value), 2, length - 2);
        return Curve->GetXAxis()->GetSide().Point(along, 40);
    }
    void Press(TMouseKind Kind, TPoint At, TShiftState Shift = 0) {
        Form->AsHostClient().HostMouse(Kind, mbLeft, Shift, World().ClientToRoot(At));
    }
    bool Key(int Key, TShiftState Shift = 0) {
        return Form->AsHostClient().HostKey({.Key = Key, .Text = {}, .Shift = Shift}, true);
    }
    double Slope() {
        Draw();
        return Curve->GetY(11) - Curve->GetY(10);
    }
    bool IsAutomatic() const { return Curve->GetAutoStart() && Curve->GetAutoStop(); }
};

TEST(Markers, MoveTheCalculationWhileTheyAreDragged) {
    for (const char* kind : {"", "XAxis1.Scaling=AxLog", "XAxis1.Twisted=1",
                             "XAxis1.Position=AxLeftPos; YAxis1.Position=AxBottomPos"}) {
        TMarkerForm f(kind);
        const TPoint stop = f.On(100);
        EXPECT_TRUE(f.World().NearStop(stop.X, stop.Y) && f.World().NearStart(f.On(1).X, f.On(1).Y)) << kind;
        EXPECT_FALSE(f.World().NearStop(f.On(50).X, f.On(50).Y));
        f.Press(TMouseKind::Move, stop);
        EXPECT_EQ(ViewOf(*f.Form).Cursor, f.X->IsHorizontal() ? crSizeWE : crSizeNS);
        const double all = f.Slope();
        f.Press(TMouseKind::Down, stop);
        EXPECT_TRUE(f.IsAutomatic()) << "not moved yet";
        f.Press(TMouseKind::Move, f.On(80));
        const double most = f.Slope();
        f.Press(TMouseKind::Move, f.On(45));
        EXPECT_TRUE(most != all && f.Slope() != most) << kind << " follows before the button is up";
        EXPECT_TRUE(f.X->GetScaling() != AxNormal || std::abs(f.Slope() - 1) < 1e-9) << kind;
        EXPECT_NEAR(f.Curve->GetCalculationStop(), 45, 2);
        EXPECT_FALSE(f.World().IsZooming() || f.X->CanZoomBack());
        f.Press(TMouseKind::Up, f.On(45));
        EXPECT_TRUE(f.Curve->GetAutoStart() && !f.Curve->GetAutoStop());
        f.Press(TMouseKind::Down, f.On(1));
        f.Press(TMouseKind::Move, f.On(90));
        EXPECT_GT(f.Curve->GetCalculationStart(), 40);
        EXPECT_LE(f.Curve->GetCalculationStart(), f.Curve->GetCalculationStop()) << kind;
        f.Key(kcEscape);
        f.Press(TMouseKind::Move, f.On(20));
        f.Press(TMouseKind::Up, f.On(20));
        EXPECT_TRUE(f.Curve->GetAutoStart());
        f.Press(TMouseKind::Down, f.On(f.Curve->GetCalculationStop()), ssDouble);
        EXPECT_TRUE(f.IsAutomatic()) << kind << " after a double click";
        EXPECT_EQ(f.Slope(), all);
    }
}

TEST(Markers, AreMovedByKeys) {
    TMarkerForm f;
    EXPECT_TRUE(f.Key(kcPageDown));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(f.Key(kcLeft, ssShift));
    EXPECT_TRUE(f.Key(kcRight));
    EXPECT_EQ(f.X->RealToIntPosition(f.Curve->GetCalculationStop()), f.X->GetAxisLength() - 29);
    EXPECT_TRUE(f.Key(kcReturn));
    EXPECT_FALSE(f.Key(kcLeft));
    EXPECT_TRUE(f.Key(kcPageDown) && f.Key(kcLeft) && f.Key(kcEscape));
    EXPECT_EQ(f.X->RealToIntPosition(f.Curve->GetCalculationStop()), f.X->GetAxisLength() - 29);
    EXPECT_TRUE(f.Key(kcPageDown) && f.Key(kcDelete));
    EXPECT_TRUE(f.IsAutomatic());
}

TEST(Markers, ArePaintedInTheWindowAlone) {
    TMarkerForm f;
    const auto count = [&] { return LinesOf(f.Draw(), f.Graph->GetFont().GetColor()).size(); };
    const auto with = count();
    f.Graph->PaintToMetafile();
    EXPECT_EQ(LinesOf(f.Graph->GetMetafile().GetRecording(), f.Graph->GetFont().GetColor()).size(), with - 2);
    f.World().HideStartStopMarkers();
    EXPECT_EQ(count(), with - 2);
    EXPECT_FALSE(f.World().NearStart(f.On(1).X, f.On(1).Y));
    f.World().ShowStartStopMarkers(f.Curve);
    delete f.Curve;
    EXPECT_EQ(f.World().GetMarkedSeries(), nullptr);
    EXPECT_EQ(MessageOf([&] { f.World().ShowStartStopMarkers(f.Series); }),
              "Markers need a series that calculates: Series1 has no start and no stop");
}

} // namespace kx::test::graphmarkers
