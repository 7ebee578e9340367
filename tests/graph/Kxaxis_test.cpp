#include "support/graphfixture.h"

#include "support/cputime.h"

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/base/scopedvalue.h>

namespace kx::test::axis {

/// The value that a label tells.
double ValueOf(const TKxAxis& Axis, const std::string& Text) {
    if (Axis.GetScaling() == AxLogEE) return std::pow(10.0, std::stoi(Text.substr(Text.find(' '))));
    return std::stod(Axis.GetUseScaleExponent() ? Text + "E" + std::to_string(Axis.GetScaleExponent())
                                                : Text);
}

TEST(Axis, TickGridLineLabelAndValueStandAtOnePlaceInsideTheCaption) {
    std::mt19937 random(3);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (int round = 0; round < 240; ++round) {
        TGraphForm f;
        const TKxSide side = TKxAxisPos(round % 4);
        TKxAxis& axis = side.IsHorizontal() ? *f.X : *f.Y;
        (side.IsHorizontal() ? f.Y : f.X)->SetVisible(false);
        f.Graph->SetBounds(any(0, 30), any(0, 30), any(150, 380), any(150, 280));
        axis.SetPosition(side.Position());
        axis.SetTwisted(any(0, 1));
        axis.SetScaling(TKxAxScaling(any(0, 2)));
        const double start = std::pow(10.0, any(-12, 10)) * any(1, 99);
        axis.SetStart(axis.GetScaling() == AxNormal && any(0, 1) ? -start : start);
        axis.SetStop(start * (1 + std::pow(10.0, any(-5, 5)) * any(1, 99)));
        axis.SetAutoTicks(any(0, 2));
        axis.SetTickPart(any(1, 90) / 100.0);
        axis.SetLabelPart(any(1, 90) / 100.0);
        axis.SetStartEnd(TKxAxEnd(any(0, 2)));
        axis.SetStopEnd(TKxAxEnd(any(0, 2)));
        axis.SetAxisThicknes(any(0, 3));
        f.Set("Caption=Axis; ShowCaption=1; BorderCaptionGap=3; MajorTickLength=7; TickColor=clLime;"
              "MajorTickColor=clFuchsia",
              axis.GetName() + ".");
        const std::string grid = side.IsHorizontal() ? "GridX." : "GridY.";
        f.Set("Visible=1; Color=clRed", "Graph1.Major" + grid);
        f.Set("Visible=1; Color=clTeal", "Graph1.Minor" + grid);
        const TRecording drawn = f.Draw();
        const TPoint world = f.World();
        ASSERT_EQ(side.Outward() *
                      (side.Of(f.Graph->GetClientRect()) - side.Of(axis.GetCaptionLabel().GetBoundsRect())),
                  3)
            << round;
        // Lines across the axis of a colour, by their offset from the world's edge.
        const auto places = [&](TColor Color) {
            std::set<int> result;
            for (const auto& line : LinesOf(drawn, Color)) {
                const TPoint from = line.Points[0] - world, way = line.Points[1] - line.Points[0];
                if (side.Along(way) == 0) result.insert(side.Along(from));
                EXPECT_TRUE(Color != clFuchsia || side.Across(way) == side.Outward() * 7);
            }
            return result;
        };
        const std::set<int> major = places(clFuchsia), minor = places(clLime);
        ASSERT_FALSE(major.empty() && minor.empty()) << round;
        ASSERT_TRUE(std::ranges::includes(places(clRed), major)) << round;
        ASSERT_TRUE(std::ranges::includes(places(clTeal), minor)) << round;
        auto recs = axis.GetLabelRecs();
        if (axis.GetUseScaleExponent() && axis.GetScaling() == AxNormal) recs.pop_back();
        std::set<std::string> texts;
        for (const auto& rec : recs) {
            ASSERT_TRUE(texts.insert(rec.Text).second) << rec.Text;
            const TPoint anchor = axis.GetBoundsRect().TopLeft() + f.Graph->GetBoundsRect().TopLeft() - world;
            const TSize size{rec.Width, axis.GetCanvas().TextHeight("10")};
            const int place = side.Along(anchor + TPoint{rec.X, rec.Y}) + side.Along(size) / 2;
            ASSERT_EQ(place, axis.RealToIntPosition(ValueOf(axis, rec.Text))) << round << rec.Text;
            ASSERT_TRUE(major.count(place) + minor.count(place)) << round << rec.Text;
        }
    }
}

TEST(Axis, FollowsManySeriesWithoutLookingAtAllWheneverOneChanges) {
    const auto follow = [](int Count) {
        TKxAxis axis(nullptr);
        std::vector<TRange> ranges(static_cast<std::size_t>(Count));
        for (TRange& range : ranges) {
            axis.GetValuesRangeList().Add(&range);
            range.OnChanged = TEvent<TRange*>::Of<&TKxAxis::ValuesRangeChanged>(&axis);
        }
        for (int i = 0; i < Count; ++i) ranges[std::size_t(i)].SetStartStop(-i, i);
        EXPECT_EQ(axis.GetStop(), Count - 1);
        for (int i = Count; --i > 0;) ranges[std::size_t(i)].SetStartStop(3, 4); // the widest first
        EXPECT_EQ(std::pair(axis.GetStart(), axis.GetStop()), std::pair(0.0, 4.0));
    };
    const double few = CpuSeconds([&] { follow(4000); });
    EXPECT_LT(CpuSeconds([&] { follow(40000); }), 35 * few) << "not the square of their number";
}

using TEnds = std::pair<double, double>;

TEnds Shown(TGraphForm& F, const TKxAxis& Axis) {
    SettleTree(*F.Form);
    return {Axis.GetStart(), Axis.GetStop()};
}

/// Ends of any magnitude, often multiples of what ends are rounded to.
struct TAnyEnds {
    int Any(int Low, int High) { return std::uniform_int_distribution(Low, High)(Random); }
    TEnds operator()(bool Positive) {
        const double unit = std::pow(10.0, Any(-9, 8)) / Any(1, 4);
        const double start = Any(Positive ? 1 : -400, 400) * unit;
        return {start, start + Any(1, 999) * unit * (Any(0, 1) ? 1 : 0.237)};
    }
    std::mt19937 Random{7};
};

TEST(Axis, ZoomingBackAndLoadingShowExactlyWhatWasShown) {
    TAnyEnds any;
    for (int round = 0; round < 400; ++round) {
        TKxIniList ini;
        TEnds full;
        const auto kind = TKxAxEnd(any.Any(0, 2)); // of both ends
        {
            TGraphForm f;
            const auto scaling = TKxAxScaling(any.Any(0, 3) == 0);
            const TEnds set = any(scaling == AxLog), zoom = any(scaling == AxLog);
            f.X->SetScaling(scaling);
            f.X->SetStartEnd(kind);
            f.X->SetStopEnd(kind);
            f.X->SetStart(set.first);
            f.X->SetStop(set.second);
            full = Shown(f, *f.X);
            f.X->ZoomIn(zoom.first, zoom.second);
            const TEnds zoomed = Shown(f, *f.X);
            f.Graph->Modified();
            EXPECT_EQ(Shown(f, *f.X), zoomed) << round;
            f.Graph->SaveOutfit("Graph", ini);
            for (const TEnds& expected : {full, zoomed, full}) {
                f.X->ZoomBack();
                EXPECT_EQ(Shown(f, *f.X), expected) << round;
            }
        }
        TGraphForm loaded;
        loaded.Graph->LoadOutfit("Graph", ini);
        EXPECT_EQ(Shown(loaded, *loaded.X), full) << round << " " << kind;
    }
}

TEST(Axis, ASlaveShowsEndsScalingAndCaptionOfItsMasterWhateverItsOwnAre) {
    TAnyEnds any;
    TGraphForm f;
    TKxAxis slave(f.Form), chained(f.Form);
    chained.SetMasterAxis(&slave);
    chained.SetComponentIndex(0); // looked at before its master
    slave.SetMasterAxis(f.X);
    slave.SetMasterAxis(&slave); // ignored
    for (TKxAxis* axis : {&slave, &chained}) axis->SetPosition(AxTopPos), axis->SetParent(f.Graph);
    f.X->SetCaption("master");
    f.X->SetStop(700);
    f.Draw();
    EXPECT_EQ(slave.GetStop(), 100) << "not yet a slave";
    for (TKxAxis* axis : {&slave, &chained}) axis->SetIsSlave(true);
    for (int round = 0; round < 1000; ++round) {
        f.X->SetScaling(TKxAxScaling(any.Any(0, 2)));
        for (TKxAxis* axis : {f.X, &slave, &chained}) {
            const TEnds ends = any(f.X->GetScaling() != AxNormal);
            axis->SetStart(ends.first);
            axis->SetStop(ends.second);
            axis->SetStartEnd(TKxAxEnd(any.Any(0, 2)));
            axis->SetStopEnd(TKxAxEnd(any.Any(0, 2)));
            axis->SetAutoTicks(any.Any(0, 1));
            if (any.Any(0, 3) == 0) axis->ZoomIn(ends.first, ends.second * 1.7);
        }
        const auto shown = [stop = Shown(f, *f.X).second](const TKxAxis& Axis) {
            return std::tuple(Axis.GetScaling(), Axis.GetStart(), Axis.GetStop(), Axis.GetCaption(),
                              Axis.RealToIntPosition(stop));
        };
        for (const TKxAxis* axis : {&slave, &chained}) ASSERT_EQ(shown(*axis), shown(*f.X)) << round;
    }
}

TEST(Axis, MirrorsShowTicksAndZoomOfAnotherWithoutLabels) {
    const auto ticks = [](const TKxAxis& Axis) {
        const auto& places = Axis.GetTickPositions();
        std::vector<int> all(places.begin(), places.end());
        all.insert(all.end(), Axis.GetTickIsMajor().begin(), Axis.GetTickIsMajor().end());
        return all;
    };
    TGraphForm f;
    TKxAxis mirror(f.Form), second(f.Form);
    for (TKxAxis* axis : {&mirror, &second}) {
        axis->SetParent(f.Graph);
        axis->SetPosition(AxTopPos);
    }
    second.SetMirrorOf(&mirror); // comes first in the layout, and its own original behind it
    mirror.SetMirrorOf(f.X);
    f.X->SetComponentIndex(f.Form->GetComponentCount() - 1);
    EXPECT_THROW(f.X->SetMirrorOf(&second), EPropertyError);
    f.AddSeries();
    f.Fill({{3, 1}, {700, 2}});
    for (const char* change :
         {"", "XAxis1.Twisted=1", "XAxis1.Scaling=AxLog", "XAxis1.Scaling=AxNormal",
          "XAxis1.LabelKind=lkDates", "XAxis1.AutoTicks=0; XAxis1.LabelKind=0; XAxis1.TickPart=0.5", "zoom",
          "back", "XAxis1.Visible=0"}) {
        const std::string what = change;
        if (what == "zoom") f.Graph->ZoomTo({20, 20, 150, 90});
        if (what == "back") f.X->ZoomBack();
        if (what.find('.') != what.npos) f.Set(what);
        f.Draw();
        for (const TKxAxis* axis : {&mirror, &second}) {
            EXPECT_EQ(ticks(*axis), ticks(*f.X)) << change;
            EXPECT_EQ(axis->RealToIntPosition(99.5), f.X->RealToIntPosition(99.5)) << change;
            EXPECT_TRUE(axis->GetLabelRecs().empty() && !axis->CanZoomBack()) << change;
        }
    }
}

TEST(Axis, ThinnedLabelsKeepZeroAndDoNotTouchAtAnyWidth) {
    TGraphForm f;
    f.Fix(-1000, 1000, 0, 1);
    f.X->SetMaxExpForScale(9);
    f.X->SetThinLabels(true);
    for (int width = 30; width < 400; width += 3) {
        f.Graph->SetWidth(width);
        EXPECT_TRUE(SettleTree(*f.Form)) << width;
        const auto& recs = f.X->GetLabelRecs();
        EXPECT_TRUE(std::ranges::count(recs, "0", &TKxCaptionRec::Text)) << width;
        for (std::size_t i = 1; i < recs.size(); ++i)
            EXPECT_GT(recs[i].X, recs[i - 1].X + recs[i - 1].Width) << width;
    }
}

TEST(Axis, LaysItselfOutInItsBoundsWithoutAGraph) {
    for (const auto side : {AxBottomPos, AxLeftPos, AxTopPos, AxRightPos, AxFreeFloating}) {
        TForm form(nullptr);
        TKxAxis axis(&form);
        axis.SetParent(&form);
        axis.SetPosition(side);
        axis.SetBounds(100, 100, axis.IsHorizontal() ? 300 : 60, axis.IsHorizontal() ? 60 : 300);
        TRecorder recorder({640, 480});
        PaintFrame(form, recorder);
        const auto lines = LinesOf(recorder.Recording, clBlack);
        EXPECT_GT(lines.size(), 10u);
        for (const auto& line : lines)
            for (const TPoint p : line.Points)
                EXPECT_TRUE(TRect::Bounds(99, 99, axis.GetWidth() + 2, axis.GetHeight() + 2).Contains(p))
                    << side << " " << p.X << "," << p.Y;
    }
}

TEST(Axis, TheSettingsFileReplacesTheStepTables) {
    TTemporaryDirectory directory;
    const TScopedValue settings(UserSettings, directory / "program.usr");
    ReplaceFile(UserSettings, "[GraphScale]\nTickField=0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5\n");
    InitFields();
    const auto table = StepTable();
    StepTable() = CBuiltInSteps;
    EXPECT_EQ(std::pair(table.Tick[1], table.Tick[10]), std::pair(0.5, 0.5));
    EXPECT_EQ(table.MajorTick, CBuiltInSteps.MajorTick) << "a missing row stays";
}

} // namespace kx::test::axis
