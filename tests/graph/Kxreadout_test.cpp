#include <kxgraph/graph/Kxreadout.h>

#include "support/graphfixture.h"

#include <kxgraph/numeric/Kxextremes.h>

namespace kx::test::readout {

struct TReadoutForm : TGraphForm {
    explicit TReadoutForm(const std::string& Settings = "Graph1.Readout=1") {
        Fill({{0, 0}, {10, 40}, {20, 10}, {30, 90}, {40, 50}});
        Series->SetName("Series1");
        Series->SetCaption("Pressure\\- 1");
        Other->SetName("Series2");
        for (const double x : {5.0, 25.0}) OtherX->Add(x), OtherY->Add(x + 40);
        Other->SetXData(OtherX), Other->SetYData(OtherY);
        Fix(0, 50, 0, 100);
        Set(Settings);
        Form->Show();
        Graph->SetFocus();
        Frame();
    }
    void Frame() { Host().ProcessMessages(); }
    void Move(TPoint World) {
        Form->AsHostClient().HostMouse(TMouseKind::Move, mbLeft, 0,
                                       Graph->GetDrawingWorld().ClientToRoot(World));
    }
    /// The lines of the box as the next frame shows them.
    std::string Text() {
        Form->Invalidate();
        Frame();
        std::string all;
        for (const auto& text : CallsOf<TRecording::TText>(ViewOf(*Form).LastFrame))
            if (text.Text.find('[') != text.Text.npos || text.Text.find(": ") == 1) all += text.Text + ";";
        return all;
    }
    bool Key(int Key) { return Form->AsHostClient().HostKey({.Key = Key, .Text = {}}, true); }
    TRect Invalid() const { return ViewOf(*Form).Invalid; }

    TKxDataSeries* Series = AddSeries<TKxDataSeries>();
    TKxDataSeries* Other = new TKxDataSeries(Form);
    TKxLiveVector *OtherX = new TKxLiveVector(Form), *OtherY = new TKxLiveVector(Form);
};

TEST(Readout, TellsTheNearestVisiblePointAsItsAxesShowIt) {
    TReadoutForm f;
    const auto near = [&](double X, double Y, TPoint By) {
        f.Move(f.At(X, Y) + By);
        return f.Text();
    };
    EXPECT_EQ(near(10, 40, {3, -4}), "Pressure1 [1];x: 10.0;y: 40.0;");
    EXPECT_EQ(near(25, 65, {-2, 2}), "Series2 [1];x: 25.0;y: 65.0;");
    EXPECT_EQ(near(10, 40, {TKxReadout::CReach, 1}), "") << "too far";
    f.Other->SetVisible(false);
    EXPECT_EQ(near(25, 65, {0, 0}), "");
    near(10, 40, {0, 0});
    f.YV->SetValue(1, 42);
    EXPECT_EQ(f.Text(), "Pressure1 [1];x: 10.0;y: 42.0;") << "follows the data";
    f.Set("XAxis1.LabelKind=lkDates");
    f.Frame();
    EXPECT_TRUE(Holds(near(30, 90, {0, 0}), "x: 1970-01-01")) << f.Text();
    const TRect world = f.Graph->GetDrawingWorld().GetBoundsRect().MovedBy({10, 10});
    for (const auto& at : {f.At(0, 0), f.At(40, 50), f.At(30, 90)}) {
        f.Move(at + TPoint{3, -3});
        ASSERT_NE(f.Text(), "");
        const auto box = CallsOf<TRecording::TRectangle>(ViewOf(*f.Form).LastFrame).back().Rect;
        EXPECT_EQ(box.Intersected(world), box);
        EXPECT_FALSE(box.Contains(at + world.TopLeft()));
    }
    f.Graph->PaintToMetafile();
    EXPECT_FALSE(Holds(f.Graph->GetMetafile().ToText(), "x: ")) << "a picture has no mouse";
    f.Form->AsHostClient().HostMouseLeft();
    EXPECT_EQ(f.Text(), "");
}

TEST(Readout, LooksAtTheColumnsBesideTheMouseAndPaintsNoMore) {
    TReadoutForm f("Graph1.Readout=1; Graph1.CrossHair=0");
    constexpr int CMany = 200000;
    f.OtherX->Clear(), f.OtherY->Clear();
    for (int i = 0; i < CMany; ++i) f.OtherX->Add(50.0 * i / CMany), f.OtherY->Add(i % 100);
    const auto pointsOf = [&](const TRecording& Frame) {
        std::size_t most = 0;
        for (const auto& line : LinesOf(Frame, f.Other->GetLineStyle().GetColor()))
            most = std::max(most, line.Points.size());
        return most;
    };
    f.Frame();
    const auto whole = pointsOf(ViewOf(*f.Form).LastFrame);
    f.Move(f.At(30, 50));
    f.Frame();
    const auto before = PointsTouched;
    f.Move(f.At(30.3, 50));
    EXPECT_LT(PointsTouched - before, CMany / 5);
    EXPECT_LT(f.Invalid().Width(), f.Graph->GetDrawingWorld().GetWidth() * 5 / 6) << "the width of the box";
    f.Frame();
    EXPECT_LT(pointsOf(ViewOf(*f.Form).LastFrame), whole * 9 / 10);
    EXPECT_GT(pointsOf(ViewOf(*f.Form).LastFrame), 0u);
}

TEST(Readout, KeysGoFromPointToPoint) {
    TReadoutForm f("Graph1.Readout=1; Graph1.ZoomKeys=1");
    EXPECT_TRUE(f.Key(kcReturn));
    EXPECT_EQ(f.Text().substr(0, 11), "Series2 [1]") << "next to the middle";
    const std::pair<int, const char*> steps[] = {{kcLeft, "Series2 [0]"},    {kcLeft, "Series2 [0]"},
                                                 {kcDown, "Pressure1 [1]"},  {kcRight, "Pressure1 [2]"},
                                                 {kcRight, "Pressure1 [3]"}, {kcRight, "Pressure1 [4]"},
                                                 {kcRight, "Pressure1 [4]"}, {kcUp, "Series2 [1]"}};
    for (const auto& [key, text] : steps) {
        EXPECT_TRUE(f.Key(key));
        EXPECT_EQ(f.Text().substr(0, std::string(text).size()), text);
    }
    f.X->ZoomIn(20, 30);
    f.Frame();
    EXPECT_TRUE(f.Key(kcLeft));
    EXPECT_EQ(f.Text().substr(0, 11), "Series2 [1]") << "its neighbour is out of sight";
    EXPECT_TRUE(f.Key(kcEscape));
    EXPECT_EQ(f.Text(), "");
    f.Key(kcLeft);
    EXPECT_NEAR(f.X->GetStart(), 19, 0.5) << "arrows pan again";
}

TEST(CrossHair, GoesThroughTheMouseAcrossTheDrawingWorld) {
    TReadoutForm f("Graph1.CrossHair=1");
    const TPoint at{60, 70};
    f.Move({10, 10});
    f.Frame();
    f.Move(at);
    f.Frame();
    const auto lines = LinesOf(ViewOf(*f.Form).LastFrame, clGray);
    ASSERT_EQ(lines.size(), 2u);
    const TPoint origin = f.World();
    EXPECT_EQ(lines[0].Points.front(), (origin + TPoint{at.X, 0}));
    EXPECT_EQ(lines[1].Points.front(), (origin + TPoint{0, at.Y}));
    EXPECT_EQ(lines[1].Points.back().X, origin.X + f.Graph->GetDrawingWorld().GetWidth());
    f.Form->AsHostClient().HostMouseLeft();
    f.Frame();
    EXPECT_TRUE(LinesOf(ViewOf(*f.Form).LastFrame, clGray).empty());
}

} // namespace kx::test::readout
