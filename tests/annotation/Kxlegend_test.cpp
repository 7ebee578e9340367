#include <kxgraph/annotation/Kxlegend.h>

#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>

namespace kx::test::legend {

/// A graph whose legend has characters that are 6 wide and 10 high.
struct TFixture : TGraphForm {
    TFixture() { Fill({{0, 1}, {1, 3.5}, {2, 6}}); }
    TKxLegend* AddLegend(const char* Name, const std::string& Assignments = "") {
        return Make<TKxLegend>(Name, "Graph=Graph1; Font.Height=-10; " + Assignments);
    }
    TKxDataSeries* Add(const AnsiString& Caption) {
        auto* series = AddSeries<TKxDataSeries>();
        series->SetCaption(Caption);
        return series;
    }
    TRect Bounds() {
        Draw();
        return Legend->GetBoundsRect();
    }
    TRect World() const { return Graph->GetDrawingWorld().GetBoundsRect(); }

    TKxLegend* Legend = AddLegend("Legend1");
};

bool Overlap(const TRect& A, const TRect& B) { return !A.Intersected(B).IsEmpty(); }

/// A curve that calls itself after the number of its parent's points.
struct TCounting : TKxCalculatedSeries {
    using TKxCalculatedSeries::TKxCalculatedSeries;
    void CalculateFunction() override {
        AnsiString caption("n");
        for (int i = 0; i < GetParentSeries()->GetPointsCount(); ++i) caption += '+';
        SetAutoCaption(caption);
        GetContinousLine();
    }
    AnsiString GetFormula() const override { return GetAutoCaption(); }
};

TEST(Legend, ShowsTheSeriesInDrawingOrderAndChildrenAfterTheirParent) {
    TFixture f;
    auto* first = f.Add("first");
    auto* second = f.Add("");
    auto* fit = new TKxLinearRegressionLine(f.Form);
    fit->SetParentSeries(first);
    fit->SetCaption("fit");
    auto* grandchild = new TKxLinearRegressionLine(f.Form);
    grandchild->SetCaption("grandchild");
    fit->AddChild(grandchild);
    first->AddChild(grandchild); // entered twice, shown once
    const auto shown = [&f] {
        f.Draw();
        std::vector<TKxGraphSeries*> series;
        for (int i = 0; i < f.Legend->GetEntryCount(); ++i) series.push_back(f.Legend->GetEntrySeries(i));
        return series;
    };
    using TShown = std::vector<TKxGraphSeries*>;
    second->SetName("Series2");
    EXPECT_EQ(shown(), (TShown{first, fit, grandchild, second}));
    EXPECT_TRUE(Holds(LettersOf(f.Draw()), "firstfitgrandchildSeries2"));
    first->SetIncludeInLegend(false);
    EXPECT_EQ(shown(), (TShown{fit, grandchild, second})) << "its children stay";
    second->SetComponentIndex(0);
    f.Graph->Modified();
    EXPECT_EQ(shown(), (TShown{second, fit, grandchild}));
    delete second;
    EXPECT_EQ(f.Legend->GetEntryCount(), 2) << "at once";
    fit->RemoveChild(grandchild);
    EXPECT_EQ(shown(), (TShown{fit, grandchild}));
    f.Legend->SetGraph(nullptr);
    EXPECT_EQ(shown(), TShown{});
    EXPECT_TRUE(f.Legend->GetClientRect().IsEmpty());
}

TEST(Legend, KeepsItsGapInTheCornersClearOfInwardTicks) {
    constexpr TKxSide CCorners[][2] = {
        {AxLeftPos, AxTopPos}, {AxRightPos, AxTopPos}, {AxLeftPos, AxBottomPos}, {AxRightPos, AxBottomPos}};
    for (const int inward : {0, 7})
        for (const auto placement :
             {lgInsideTopLeft, lgInsideTopRight, lgInsideBottomLeft, lgInsideBottomRight}) {
            TFixture f;
            f.Add("abc");
            f.Legend->SetGap(5);
            f.Legend->SetPlacement(placement);
            for (TKxAxis* axis : {f.X, f.Y}) axis->SetMajorTickLength(inward ? -inward : 10);
            const TRect b = f.Bounds(), world = f.World();
            // Frame 1, padding 3, sample 30, gap 5, three letters.
            EXPECT_EQ(b.Size(), (TSize{2 * 4 + 30 + 5 + 18, 2 * 4 + 10}));
            for (const TKxSide side : CCorners[placement])
                EXPECT_EQ(side.Outward() * (side.Of(world) - side.Of(b)),
                          5 + (side == side.Near() ? inward : 0));
            f.Legend->SetVisible(false);
            EXPECT_EQ(f.LaidOut(), world) << "inside it takes no room";
        }
}

TEST(Legend, TheGraphMakesRoomOutside) {
    const std::pair<TKxLegendPlacement, TKxSide> cases[] = {
        {lgRight, AxRightPos}, {lgLeft, AxLeftPos}, {lgTop, AxTopPos}, {lgBottom, AxBottomPos}};
    for (const auto& [placement, side] : cases)
        for (const bool zeroOrigin : {false, true}) {
            TFixture f;
            f.Add("abc");
            f.Set("Graph1.ShowTitle=1; Graph1.Caption=Title");
            f.Graph->SetZeroOrigin(zeroOrigin);
            f.Fix(-1, 2, -0.1, 6);
            for (TKxAxis* axis : {f.X, f.Y}) axis->SetCaption("Caption"), axis->SetShowCaption(true);
            const TRect before = f.LaidOut();
            f.Legend->SetPlacement(placement);
            f.Legend->SetColumns(side.IsHorizontal() ? 0 : 1);
            f.Add("defgh");
            const TRect b = f.Bounds(), world = f.World();
            // 28 for frame, padding and the two gaps; 30 + 8 + 6 a letter; 10 a line.
            const int room = 28 + side.Across(TSize{30 + 8 + 5 * 6, 10});
            const int taken = side.Across(before.Size()) - side.Across(world.Size());
            EXPECT_GE(taken, room) << placement;
            EXPECT_LE(taken, room + 4) << "zero has moved nearer to the edge " << placement;
            EXPECT_EQ(f.Graph->GetClientRect().United(b), f.Graph->GetClientRect());
            for (const TControl* other : std::initializer_list<const TControl*>{
                     &f.Graph->GetTitleLabel(), &f.Graph->GetDrawingWorld(), &f.X->GetCaptionLabel(),
                     &f.Y->GetCaptionLabel(), side.IsHorizontal() ? f.X : f.Y})
                EXPECT_FALSE(Overlap(other->GetBoundsRect(), b)) << placement << zeroOrigin;
            EXPECT_TRUE(side.IsHorizontal() || b.Top == world.Top);
            EXPECT_TRUE(!side.IsHorizontal() || std::abs(b.Left + b.Right - world.Left - world.Right) <= 1);
            EXPECT_EQ(f.Bounds(), b) << "and it stays there";
            f.Legend->SetPlacement(lgFree);
            EXPECT_EQ(f.LaidOut(), before);
        }
}

TEST(Legend, TheFirstOfASideStandsNextToTheAxesAndAllLeaveHalfOfTheWorld) {
    TFixture f;
    auto* second = f.AddLegend("Legend2");
    for (TKxLegend* legend : {second, f.Legend}) legend->SetPlacement(lgBottom);
    auto* series = f.Add("abc");
    const TRect first = f.Bounds(); // laid out before its neighbours are asked
    EXPECT_GE(first.Top, f.X->GetBoundsRect().Bottom);
    EXPECT_GE(second->GetTop(), first.Bottom);

    for (TKxLegend* legend : {second, f.Legend}) legend->SetPlacement(lgFree);
    const TRect before = f.LaidOut();
    for (TKxLegend* legend : {second, f.Legend}) legend->SetPlacement(lgRight);
    series->SetCaption(std::string(200, 'w'));
    EXPECT_LE(f.Bounds().Right, f.Graph->GetWidth());
    EXPECT_NEAR(f.World().Width(), before.Width() / 2, 1);
    EXPECT_GT(f.Legend->GetWidth(), 100);
}

TEST(Legend, ColumnsAreFilledOneAfterTheOtherAndAsManyAsFit) {
    for (const auto& [placement, columns, letters, count, width, last, lines] :
         Cases<TKxLegendPlacement, int, int, int, int, std::array<int, 2>, int>("legends", "columns")) {
        SCOPED_TRACE(testing::Message() << placement << " " << columns << " " << width);
        TFixture f;
        for (int i = 0; i < count; ++i) f.Add(std::string(std::size_t(letters), 'x'));
        f.Legend->SetPlacement(placement);
        f.Legend->SetColumns(columns);
        f.Legend->SetAutoSize(!width);
        if (width) f.Legend->SetBounds(0, 0, width, 40);
        const TRect b = f.Bounds(), first = f.Legend->GetEntryRect(0);
        EXPECT_EQ(first, TRect::Bounds(7, 7, 38 + 6 * letters, 10));
        EXPECT_EQ(f.Legend->GetEntryRect(count - 1).TopLeft() - first.TopLeft(), (TPoint{last[0], last[1]}));
        EXPECT_EQ(b.Height(), width ? 40 : 14 + 12 * lines - 2);
        EXPECT_TRUE(!width || b.Width() == width);
    }
    TFixture f; // a free one is fitted into what its parent has to the right of it
    for (int i = 0; i < 4; ++i) f.Add("xx");
    f.Legend->SetPlacement(lgFree);
    f.Legend->SetColumns(0);
    for (const auto& [left, columns] : {std::pair{20, 4}, {400 - 14 - 50 * 2 - 16, 2}, {390, 1}}) {
        f.Legend->SetLeft(left);
        EXPECT_EQ(f.Bounds().Width(), 14 + 50 * columns + 16 * (columns - 1));
    }
}

TEST(Legend, IsPaintedWithTheSamplesOfTheSeries) {
    TFixture f;
    f.AddSeries()->SetName("Bars1");
    f.Set("Caption=\\iy\\i (x); dYPlus=DY1; LineStyle.Visible=0", "Bars1.");
    auto* area = f.Add("");
    area->GetAreaStyle().SetVisible(true);
    area->GetPointStyle().SetVisible(false);
    area->GetLineStyle().SetWidth(3);
    f.Draw();
    TCustomPanel panel(nullptr); // anywhere: it places itself
    panel.SetBounds(0, 0, 150, 90);
    f.Legend->SetParent(&panel);
    f.Legend->SetBounds(20, 10, 1, 1);
    f.Set("Caption=Samples; ShowTitle=1; FrameLine.Width=2; Color=clYellow", "Legend1.");
    TRecorder device(panel.GetBoundsRect().Size());
    PaintFrame(panel, device);
    ExpectRecording("legend", device.Recording.ToText());
}

TEST(Legend, ASampleStaysInItsPlaceWhateverItDoesToTheCanvas) {
    struct TUnruly : TKxDataSeries {
        using TKxDataSeries::TKxDataSeries;
        void DrawSample(TCanvas& Canvas, const TRect&) override {
            Canvas.SetClip(std::nullopt);
            Canvas.SetOrigin({});
            Canvas.Font.SetHeight(-40);
            Canvas.Brush.SetColor(clFuchsia);
            Canvas.FillRect({-1000, -1000, 1000, 1000});
            throw Exception("no sample");
        }
    };
    TFixture f;
    f.AddSeries<TUnruly>()->SetCaption("Q");
    TFaults faults;
    std::optional<TRect> clip;
    int seen = 0;
    for (const auto& call : f.Draw().Calls) {
        if (const auto* set = std::get_if<TRecording::TClip>(&call)) clip = set->Clip;
        if (const auto* fill = std::get_if<TRecording::TFillRect>(&call);
            fill && fill->Fill.Color == clFuchsia) {
            const TPoint at = f.Legend->ClientToRoot({7, 7});
            EXPECT_EQ(clip, TRect::Bounds(at.X, at.Y, 30, 10));
            ++seen;
        }
        if (const auto* text = std::get_if<TRecording::TText>(&call); text && text->Text == "Q") {
            EXPECT_EQ(text->Face.Height, -10);
            EXPECT_EQ(text->Pos, f.Legend->ClientToRoot({7 + 38, 7}));
            ++seen;
        }
    }
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(faults.Text, "no sample");
}

TEST(Legend, ItsGroundIsThatOfWhatItStandsOn) {
    TFixture f;
    f.Add("a");
    f.Graph->SetDataColor(clAqua);
    const auto expectGround = [&f](TColor Expected) {
        f.Graph->PaintToMetafile();
        TColor ground = -1;
        for (const auto& fill : CallsOf<TRecording::TFillRect>(f.Graph->GetMetafile().GetRecording()))
            if (fill.Rect == f.Legend->GetBoundsRect()) ground = fill.Fill.Color;
        EXPECT_EQ(ground, Expected);
    };
    expectGround(clAqua);
    f.Legend->SetPlacement(lgBottom);
    expectGround(clWhite); // in place of the button face
    f.Graph->SetColor(clLime);
    expectGround(clLime);
    f.Legend->SetColor(clBtnFace);
    expectGround(clWhite);
    f.Legend->SetTransparent(true);
    expectGround(-1);
}

TEST(Legend, AClickTellsTheSeriesOfItsEntry) {
    TFixture f;
    std::vector<TKxGraphSeries*> series{f.Add("a"), f.Add("bbb"), f.Add("c")}, clicked;
    f.Legend->SetColumns(2);
    f.Legend->OnEntryClick = [&](TKxGraphSeries* S) { clicked.push_back(S); };
    f.Draw();
    const auto click = [&](int From, int To) {
        using enum TMouseKind;
        for (const auto& [kind, entry] : {std::pair{Down, From}, {Move, To}, {Up, To}}) {
            const TRect r = f.Legend->GetEntryRect(entry);
            const TPoint at = f.Legend->ClientToRoot({r.Right - 1, r.Top});
            f.Form->AsHostClient().HostMouse(kind, mbLeft, kind == Up ? 0u : unsigned(ssLeft), at);
        }
    };
    for (const auto& [from, to] : {std::pair{2, 2}, {0, 0}, {0, 1}, {1, 1}}) click(from, to);
    EXPECT_EQ(clicked, (std::vector{series[2], series[0], series[1]})) << "not for two entries";
    const TRect r = f.Legend->GetEntryRect(1);
    EXPECT_EQ(f.Legend->EntryAt(r.Left, r.Bottom), nullptr) << "between two lines";
    EXPECT_EQ(f.Legend->EntryAt(r.Left, r.Bottom - 1), series[1]);

    f.Legend->OnClick = [&](TControl*) { delete series[0]; };
    click(0, 0);
    EXPECT_EQ(clicked.size(), 3u) << "the series is gone";
    f.Draw();
    f.Legend->OnClick = [](TControl* Sender) { delete Sender; };
    click(0, 0);
    EXPECT_EQ(clicked.size(), 3u);
    f.Draw();
}

TEST(Legend, PickingHidesASeriesAndFadesItsEntry) {
    TFixture f;
    auto* shown = f.Add("a");
    auto* picked = f.Add("b");
    picked->GetLineStyle().SetColor(clFuchsia);
    f.Set("Legend1.Font.Color=clBlack; Legend1.Placement=lgRight; Graph1.LegendPicking=1");
    f.Graph->SetFocus();
    f.Draw();
    const auto extent = ExtentsOf(*picked);
    const TPoint at = f.Legend->ClientToRoot(f.Legend->GetEntryRect(1).TopLeft());
    const std::pair<const char*, std::function<void()>> picks[] = {
        {"click",
         [&] {
             for (const auto kind : {TMouseKind::Move, TMouseKind::Down, TMouseKind::Up})
                 f.Form->AsHostClient().HostMouse(kind, mbLeft, 0, at);
         }},
        {"key", [&] { f.Form->AsHostClient().HostKey({.Key = '2', .Text = "2"}, true); }}};
    for (const auto& [how, pick] : picks) {
        pick();
        EXPECT_FALSE(picked->GetVisible()) << how;
        const TRecording hidden = f.Draw();
        EXPECT_TRUE(shown->GetVisible() && LinesOf(hidden, clFuchsia).empty()) << how;
        EXPECT_EQ(CallsOf<TRecording::TText>(hidden).back().Color, 0xB4B4B4) << how << ": a quarter is left";
        EXPECT_EQ(ExtentsOf(*picked), extent) << "the axes stay";
        pick();
        EXPECT_EQ(LinesOf(f.Draw(), clFuchsia).size(), 2u) << how << ": the line and its sample";
    }
    EXPECT_EQ(f.Legend->GetCursor(), crHandPoint);
    f.Graph->SetLegendPicking(false);
    picks[0].second();
    EXPECT_TRUE(picked->GetVisible());
}

TEST(Legend, AChangedCaptionReachesThePictureByTheNextFrame) {
    for (const auto placement : {lgRight, lgInsideBottomRight, lgFree}) {
        TFixture f;
        auto* series = f.Add("points");
        auto* counting = new TCounting(f.Form);
        counting->SetParentSeries(series);
        f.Legend->SetPlacement(placement);
        auto& host = Host();
        f.Form->Show();
        for (int i = 0; i < 3; ++i) host.ProcessMessages();
        const auto& view = ViewOf(*f.Form);
        const TRect before = f.Legend->GetBoundsRect();
        int frames = view.Frames;

        f.Fill({{3, 9}, {4, 9}, {5, 9}, {6, 9}}); // the curve is told its caption while the graph calculates
        host.ProcessMessages();
        EXPECT_TRUE(Holds(LettersOf(view.LastFrame), "pointsn+++++++")) << placement;
        EXPECT_EQ(f.Legend->GetWidth(), 14 + 38 + 6 * 8);
        const int right = placement == lgFree    ? before.Right + 12
                          : placement == lgRight ? f.Graph->GetWidth() - 8
                                                 : f.World().Right - 8;
        EXPECT_EQ(f.Legend->GetBoundsRect().Right, right);
        EXPECT_TRUE(placement != lgRight || f.World().Right + 8 <= f.Legend->GetLeft());
        EXPECT_EQ(view.Frames, ++frames);

        series->SetIncludeInLegend(false);
        counting->SetIncludeInLegend(false);
        host.ProcessMessages();
        EXPECT_TRUE(f.Legend->GetClientRect().IsEmpty());
        series->SetIncludeInLegend(true); // an empty legend has no pixel that asks for a frame
        host.ProcessMessages();
        EXPECT_EQ(f.Legend->GetWidth(), 14 + 38 + 6 * 6);
        series->GetPointStyle().SetColor(clFuchsia);
        frames = view.Frames;
        host.ProcessMessages();
        host.ProcessMessages();
        EXPECT_EQ(view.Frames, frames + 1) << "and that is all";
    }
}

TEST(Legend, TheOutfitIsKeptWithTheGraphs) {
    TKxIniList saved, again;
    std::string picture;
    {
        TFixture f;
        f.Add("a")->SetName("S");
        f.Graph->SetDataColor(clWhite);
        f.Legend->SetPlacement(lgBottom);
        auto* second = f.AddLegend("Legend2");
        f.Set("Placement=lgFree; AutoSize=0; Color=clYellow", "Legend2.");
        second->SetBounds(120, 44, 55, 33);
        f.AddLegend("Legend3", "Visible=0");
        picture = f.Draw().ToText();
        f.Graph->SaveOutfit("G", saved);
    }
    EXPECT_EQ(saved.ReadInteger("G.Legend", "Placement", -1), lgBottom);
    TFixture f;
    f.Add("a")->SetName("S");
    auto* second = f.AddLegend("Legend2");
    f.Graph->LoadOutfit("G", saved); // fewer than were saved
    EXPECT_EQ(second->GetBoundsRect(), TRect::Bounds(120, 44, 55, 33));
    f.AddLegend("Legend3");
    auto* fourth = f.AddLegend("Legend4", "Gap=1");
    f.Graph->LoadOutfit("G", saved); // more
    EXPECT_EQ(fourth->GetGap(), 1);
    EXPECT_TRUE(fourth->GetParentColor());
    delete fourth;
    EXPECT_EQ(f.Draw().ToText(), picture);
    f.Graph->SaveOutfit("G", again);
    EXPECT_EQ(again.GetText(), saved.GetText());
    delete second;
    f.Graph->SaveOutfit("G", again);
    EXPECT_FALSE(again.ReadBool("G.Legend(2)", "Visible", true)) << "the third has become the second";
    EXPECT_FALSE(again.SectionExists("G.Legend(3)"));
    f.Graph->SetColor(clLime);
    f.Legend->LoadOutfit("G.Legend", saved);
    EXPECT_EQ(f.Legend->GetColor(), clLime) << "it still follows its parent";
}

} // namespace kx::test::legend
