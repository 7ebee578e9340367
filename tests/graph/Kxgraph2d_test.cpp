#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxinterpolatedline.h>
#include <kxgraph/annotation/Kxlegend.h>

namespace kx::test::graph2d {

struct TScene : TGraphForm {
    explicit TScene(bool Loaded = false, TKxAxScaling Scaling = AxNormal) {
        Fill({{1, 2}, {10, 30}, {CNaN, 5}, {40, 8}, {100, 90}});
        for (const double e : {0.5, 3.0, 1.0, 9.0}) {
            DX->Add(e);
            DY->Add(e);
        }
        Series = AddSeries();
        Series->SetName("Series1");
        if (!Loaded) Dress(Scaling);
    }
    void Dress(TKxAxScaling Scaling) {
        Set("Graph1.Caption=Title \\iitalic; Graph1.ShowTitle=1; Graph1.DataColor=clWhite;"
            "Graph1.Font.Height=-11; Graph1.FrameLine.Visible=1; Graph1.MajorGridX.Visible=1;"
            "Graph1.MinorGridY.Visible=1; XAxis1.UserCaption=Caption of XAxis1; XAxis1.Twisted=1;"
            "YAxis1.UserCaption=Caption of YAxis1; YAxis1.TickLength=-4; Series1.LineStyle.Color=clGreen;"
            "Series1.LineStyle.Width=3; Series1.PointStyle.Style=SyDiamond; Series1.AreaStyle.Visible=1;"
            "Series1.dXPlus=DX1; Series1.dYMinus=DY1; Series1.ErrorIndicatorsColor=clMaroon");
        Series->SetUserCaption("points");
        Series->SetDoUserCaption(true);
        for (TKxAxis* axis : {X, Y}) {
            Set("DoUserCaption=1; ShowCaption=1; CaptionFont.Style=fsBold", axis->GetName() + ".");
            axis->SetScaling(Scaling);
        }
    }
    TKxDataWithErrorSeries* Series;
};

int FramesOf(TForm& Form) {
    for (int i = 0; i < 10; ++i) Host().ProcessMessages();
    const int frames = ViewOf(Form).Frames;
    Host().ProcessMessages();
    EXPECT_EQ(ViewOf(Form).Frames, frames) << "frames come to an end";
    return frames;
}

TEST(Graph, ASavedOutfitBringsTheSamePictureAndTheSameFile) {
    for (const auto scaling : {AxNormal, AxLog, AxLogEE}) {
        TKxIniList saved, again;
        std::string picture;
        {
            TScene scene(false, scaling);
            picture = scene.Draw().ToText();
            scene.Graph->SaveOutfit("Graph", saved);
        }
        TScene scene(true);
        EXPECT_NE(scene.Draw().ToText(), picture);
        scene.Graph->LoadOutfit("Graph", saved);
        EXPECT_EQ(scene.Draw().ToText(), picture);
        scene.Graph->SaveOutfit("Graph", again);
        EXPECT_EQ(again.GetText(), saved.GetText());
        EXPECT_EQ(scene.Series->GetdYMinus(), scene.DY);
        EXPECT_EQ(saved.ReadString("Graph.Series(1)", "XAxis", ""), "Form1.XAxis1");
        EXPECT_EQ(saved.ReadInteger("Graph", "SeriesCount", 0), 1);
        EXPECT_EQ(saved.ReadInteger("Graph.YAxis1", "TickLength", 0), -4);
        EXPECT_EQ(scene.Series->GetResults().ReadString("Graph", "Title", ""), "Title \\iitalic");
    }
}

TEST(Graph, PicturesOfAWholeGraph) {
    ExpectRecording("graphlinear", TScene(false, AxNormal).Draw(true).ToText());
    ExpectRecording("graphlogarithmic", TScene(false, AxLogEE).Draw().ToText());
}

TEST(Graph, DraggingARectangleZoomsAndZoomingBackWalksRound) {
    TGraphForm f;
    f.Fix(0, 100, 0, 100);
    f.AddSeries<TKxDataSeries>();
    f.Graph->SetAutoZoom(true);
    std::string events;
    TPoint last;
    f.Graph->OnMouseMove = [&](TControl*, TShiftState, int, int) { events += "m"; };
    f.Graph->OnMouseDown = [&](TControl* S, TMouseButton, TShiftState, int X, int Y) {
        events += S == f.Graph ? "b" : "?";
        last = {X, Y};
    };
    f.Graph->OnMouseUp = f.Graph->OnMouseDown;
    const auto view = [&] {
        f.Draw();
        return std::array{f.X->GetStart(), f.X->GetStop(), f.Y->GetStart(), f.Y->GetStop()};
    };
    const auto full = view();
    const TPoint from = f.At(20, 80), to = f.At(60, 40);
    f.Drag(from, {from.X, to.Y});
    f.Drag(from, {to.X, from.Y});
    EXPECT_FALSE(f.X->CanZoomBack() || f.Y->CanZoomBack()) << "no width or no height";
    EXPECT_EQ(events, "bmbbmb");
    EXPECT_EQ(last, (TPoint{to.X, from.Y} + f.LaidOut().TopLeft()));

    f.Mouse(TMouseKind::Down, from);
    f.Mouse(TMouseKind::Move, to);
    EXPECT_EQ(CallsOf<TRecording::TRectangle>(f.Draw(true)).back().Rect.Right, f.World().X + to.X);
    f.Mouse(TMouseKind::Up, to);
    const auto first = view();
    EXPECT_NEAR(first[0], 20, 1.5);
    EXPECT_NEAR(first[3], 80, 1.5);
    EXPECT_TRUE(CallsOf<TRecording::TRectangle>(f.Draw(true)).empty());
    f.Drag({150, 150}, {50, 50}); // from the bottom right
    const auto second = view();
    EXPECT_LT(second[1] - second[0], first[1] - first[0]);
    for (const auto& expected : {first, full, second}) {
        f.X->ZoomBack();
        f.Y->ZoomBack();
        EXPECT_EQ(view(), expected);
    }
    f.Graph->SetAutoZoom(false);
    f.Drag({1, 1}, {50, 50});
    EXPECT_EQ(view(), second);
}

TEST(Graph, AFrameFollowsOnlyWhereSomethingWasModified) {
    TFaults faults;
    TScene scene;
    scene.Form->Show();
    int frames = FramesOf(*scene.Form);
    EXPECT_LE(frames, 2);
    for (int i = 0; i < 2; ++i) scene.Graph->BeginUpdate();
    for (int i = 0; i < 3; ++i) scene.Graph->EndUpdate(); // one too many
    EXPECT_TRUE(scene.Graph->NotUpdating());
    EXPECT_EQ(FramesOf(*scene.Form), frames);
    scene.Graph->BeginUpdate();
    scene.Graph->Modified();
    frames = FramesOf(*scene.Form);
    EXPECT_TRUE(scene.Graph->GetNeedsCalculate());
    scene.Graph->EndUpdate();
    EXPECT_GT(FramesOf(*scene.Form), frames);
    EXPECT_FALSE(scene.Graph->GetNeedsCalculate());

    struct TFailing : TKxDataSeries {
        using TKxDataSeries::TKxDataSeries;
        void GetNewXStartStop() override { throw Exception("no extents"); }
    };
    scene.AddSeries<TFailing>();
    FramesOf(*scene.Form);
    EXPECT_TRUE(Holds(faults.Text, "no extents"));
    EXPECT_TRUE(scene.Graph->NotUpdating());
    EXPECT_EQ(Screen.GetCursor(), crDefault);
}

// What a layout makes of a graph: places, ends and labels.
std::vector<double> LayoutOf(const TGraphForm& F) {
    std::vector<double> layout;
    const auto add = [&](auto... Values) { (layout.push_back(Values), ...); };
    for (const TControl* control : F.Graph->GetControls()) {
        const TRect r = control->GetBoundsRect();
        add(r.Left, r.Top, r.Right, r.Bottom);
    }
    for (const TKxAxis* axis : {F.X, F.Y}) {
        add(axis->GetStart(), axis->GetStop(), axis->GetAxisLength(), axis->GetTickCount());
        for (const auto& rec : axis->GetLabelRecs()) add(rec.X, rec.Y);
    }
    return layout;
}

// In four parts, for as many processors.
class AnyGraph : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Part, AnyGraph, testing::Values(11U, 12U, 13U, 14U));

TEST_P(AnyGraph, SettlesInOneFrameAndAgainToTheSame) {
    std::mt19937 random(GetParam());
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    TGraphForm f;
    f.X->SetThinLabels(true);
    for (int round = 0; round < 25000; ++round) {
        f.Graph->SetBounds(0, 0, any(10, 130), any(10, 90));
        TKxAxis& axis = any(0, 1) ? *f.X : *f.Y;
        const auto scaling = TKxAxScaling(any(0, 2));
        const double start = any(1, 9) * std::pow(10.0, any(-12, 3)), span = std::pow(10.0, any(0, 14));
        axis.SetScaling(scaling);
        axis.SetStart(scaling == AxNormal && any(0, 1) ? -start : start);
        axis.SetStop(start * (scaling == AxNormal ? any(2, 99) : span));
        ASSERT_TRUE(SettleTree(*f.Form)) << round;
        const auto first = LayoutOf(f);
        f.Graph->Modified();
        ASSERT_TRUE(SettleTree(*f.Form)) << round;
        ASSERT_EQ(LayoutOf(f), first) << round;
    }
}

/// What is drawn, whatever the clips.
std::string PictureOf(TGraphForm& F) {
    TRecording drawn = F.Draw();
    std::erase_if(drawn.Calls, [](const auto& C) { return std::holds_alternative<TRecording::TClip>(C); });
    return drawn.ToText();
}

TEST(Graph, AFrameWhileUpdatingRepeatsTheOneBeforeAndAnotherFollows) {
    void (*const changes[])(TScene&) = {
        [](TScene& S) {
            S.Fill({{500, 700}});
        },
        [](TScene& S) { S.Series->SetXData(nullptr); },
        [](TScene& S) { S.Y->SetScaling(AxLog); },
        [](TScene& S) { S.X->SetPosition(AxTopPos), S.X->SetTickLength(-3); },
        [](TScene& S) { S.Graph->SetCaption("other"), S.Graph->SetColor(clRed); },
        [](TScene& S) { delete S.Series; },
    };
    for (const auto change : changes) {
        const auto which = &change - changes;
        TScene scene;
        scene.Form->Show();
        FramesOf(*scene.Form);
        const std::string before = PictureOf(scene);
        scene.Graph->BeginUpdate();
        change(scene);
        EXPECT_EQ(PictureOf(scene), before) << which;
        const int frames = FramesOf(*scene.Form); // what asked for one had it meanwhile
        EXPECT_EQ(PictureOf(scene), before) << which;
        scene.Graph->EndUpdate();
        EXPECT_GT(FramesOf(*scene.Form), frames) << which;
        EXPECT_NE(PictureOf(scene), before) << which;
    }
    TScene scene;
    scene.Graph->BeginUpdate();
    EXPECT_TRUE(LinesOf(scene.Draw(), clBlack).empty()) << "there was no frame before";
    scene.Graph->EndUpdate();
    EXPECT_FALSE(LinesOf(scene.Draw(), clBlack).empty());
}

TEST(Graph, FramesEndWhateverComponentsDoToOneAnother) {
    for (unsigned seed = 0; seed < 150; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
        TScene scene(true);
        auto* legend = scene.Make<TKxLegend>("Legend1", "Graph=Graph1");
        auto* curve = scene.Make<TKxInterpolatedLine>("Curve1");
        curve->SetParentSeries(scene.Series);
        auto* label = scene.Make<TKxLabel>("Label1");
        scene.Form->Show();
        TControl* const controls[] = {scene.X, scene.Y, legend, label, scene.Graph};
        const std::function<void()> changes[] = {
            [&] { controls[any(0, 4)]->SetAlign(TAlign(any(0, 5))); },
            [&] { controls[any(0, 4)]->SetBounds(any(-9, 99), any(-9, 99), any(0, 200), any(0, 200)); },
            [&] { controls[any(0, 4)]->SetVisible(any(0, 2)); },
            [&] { scene.Graph->SetBounds(0, 0, any(2, 140), any(2, 90)); },
            [&] { scene.Graph->SetBounds(0, 0, 100, 45), scene.Y->SetScaling(AxLog); },
            [&] { (any(0, 1) ? scene.X : scene.Y)->SetScaling(TKxAxScaling(any(0, 2))); },
            [&] { (any(0, 1) ? scene.X : scene.Y)->SetPosition(TKxAxisPos(any(0, 4))); },
            [&] { (any(0, 1) ? scene.X : scene.Y)->SetAutosize(any(0, 1)); },
            [&] { (any(0, 1) ? scene.X : scene.Y)->SetThinLabels(any(0, 1)); },
            [&] { (any(0, 1) ? scene.X : scene.Y)->SetStartEnd(TKxAxEnd(any(0, 2))); },
            [&] {
                scene.Fill({{any(-99, 999) / 7.0, any(-99, 999) / 3.0}});
            },
            [&] { scene.X->ZoomIn(any(0, 20), any(20, 40)), scene.Y->ZoomBack(); },
            [&] { scene.X->SetMasterAxis(scene.Y), scene.X->SetIsSlave(any(0, 1)); },
            [&] { scene.Graph->SetZeroOrigin(any(0, 1)), scene.Graph->SetMargin(any(0, 30)); },
            [&] { legend->SetPlacement(TKxLegendPlacement(any(0, 8))), legend->SetColumns(any(0, 3)); },
            [&] { legend->SetAutoSize(any(0, 1)), legend->SetShowTitle(any(0, 1)); },
            [&] { label->SetAutoSize(any(0, 1)), label->SetAngle(any(0, 3600)), label->SetCaption("text"); },
        };
        for (int step = 0; step < 12; ++step) {
            changes[any(0, std::size(changes) - 1)]();
            FramesOf(*scene.Form);
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step;
        }
    }
}

TEST(Graph, WithZeroOriginTheAxesCrossAtZeroAndNothingIsCutOff) {
    for (int width = 200; width < 216; ++width) {
        TGraphForm f;
        f.Graph->SetBounds(0, 0, width, width + 1);
        f.Fix(-1, 1, -10, 30);
        f.X->SetTwisted(width % 2);
        f.X->SetShowCaption(true);
        f.Graph->SetZeroOrigin(true);
        const TRect world = f.LaidOut(), graph = f.Graph->GetClientRect();
        EXPECT_EQ(f.X->GetTop() + f.X->GetAxisOrigin().Y, world.Top + f.At(0, 0).Y);
        EXPECT_EQ(f.Y->GetLeft() + f.Y->GetAxisOrigin().X, world.Left + f.At(0, 0).X);
        for (const TRect& part :
             {world, f.X->GetBoundsRect(), f.Y->GetBoundsRect(), f.X->GetCaptionLabel().GetBoundsRect()})
            EXPECT_EQ(graph.United(part), graph) << width;
        for (const auto& rec : f.X->GetLabelRecs()) EXPECT_NE(std::stod(rec.Text), 0.0);
    }
}

TEST(Graph, SaysWhatToCallForAPrimaryAxisWithoutParent) {
    TGraphForm f;
    f.Y->SetParent(nullptr);
    const std::string expected =
        "The primary Y axis of Graph1 has no parent: call SetParent(Graph1) of YAxis1";
    EXPECT_EQ(MessageOf([&] { f.Graph->PaintToMetafile(); }), expected);
    TFaults faults;
    f.Draw();
    EXPECT_TRUE(faults.Text.starts_with(expected)) << faults.Text;
    f.Y->SetParent(f.Graph);
    EXPECT_EQ(MessageOf([&] { f.Graph->PaintToMetafile(); }), "");
}

TEST(Graph, LaysOutWithoutPrimaryAxesAndAutomaticSize) {
    TScene scene;
    const int height = scene.LaidOut().Height();
    scene.Graph->SetPrimaryXAxis(nullptr);
    scene.X->SetShowCaption(false);
    EXPECT_GT(scene.LaidOut().Height(), height);
    scene.X->SetAutosize(false);
    scene.X->SetBounds(50, 200, 300, 60);
    const TRect world = scene.LaidOut();
    EXPECT_EQ(scene.X->GetBoundsRect(), (TRect{50, 200, 350, 260})) << "it keeps its bounds";
    EXPECT_EQ(scene.X->GetAxisLength(), world.Width() - 1);
}

TEST(Graph, HidesTheGroundOfAFormThatItCovers) {
    TGraphForm f;
    const auto grounds = [&] {
        const auto fills = CallsOf<TRecording::TFillRect>(f.Draw());
        return std::ranges::count(fills, f.Form->GetBoundsRect().Size(),
                                  [](const auto& Fill) { return Fill.Rect.Size(); });
    };
    EXPECT_EQ(grounds(), 1);
    f.Graph->SetBounds(-1, 0, 421, 320);
    EXPECT_EQ(grounds(), 0); // the graph's own is wider
    f.Graph->SetVisible(false);
    EXPECT_EQ(grounds(), 1);
}

TEST(Graph, TheMetafileHasAWhiteGroundInPlaceOfTheButtonFace) {
    TScene scene;
    const auto& picture = scene.Graph->GetMetafile();
    for (const auto& [color, ground] : {std::pair{clBtnFace, clWhite}, {clAqua, clAqua}}) {
        scene.Graph->SetColor(color);
        scene.Graph->PaintToMetafile();
        EXPECT_EQ(CallsOf<TRecording::TFillRect>(picture.GetRecording())[0].Fill.Color, ground);
    }
    EXPECT_FALSE(scene.Graph->GetWhiteBackground());
    scene.Graph->CopyToClipboard();
    EXPECT_EQ(Host().GetClipboard().ToText(), picture.ToText());
}

TEST(Graph, InwardTicksLeaveOutTheEndsWhereAnotherAxisStands) {
    TGraphForm f;
    f.Fix(0, 100, 0, 100);
    f.Graph->GetMajorGridX().SetVisible(true);
    f.X->SetMajorTickColor(clFuchsia);
    const std::size_t all = LinesOf(f.Draw(), clFuchsia).size();
    f.X->SetMajorTickLength(-10);
    const TRecording inward = f.Draw();
    EXPECT_EQ(LinesOf(inward, clFuchsia).size(), all - 1) << "the vertical axis stands at the left end alone";
    EXPECT_EQ(LinesOf(inward, clRed).size(), all - 1);
    f.X->SetMajorTickLength(10);
    f.X->SetTickLength(-6);
    EXPECT_EQ(LinesOf(f.Draw(), clFuchsia).size(), all) << "the tick at the end is an outward one";
}

} // namespace kx::test::graph2d
