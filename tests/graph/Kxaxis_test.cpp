#include "support/graphfixture.h"

#include "support/recording.h"

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/text/files.h>

#include <cmath>
#include <random>
#include <set>

using namespace kx;
using namespace kx::test;

namespace {

/// The value that a label tells.
double ValueOf(const TKxAxis& Axis, const std::string& Text) {
    if (Axis.GetScaling() == AxLogEE) return std::pow(10.0, std::stoi(Text.substr(Text.find(' '))));
    return std::stod(Axis.GetUseScaleExponent() ? Text + "E" + std::to_string(Axis.GetScaleExponent())
                                                : Text);
}

} // namespace

TEST(Axis, tick_grid_line_label_and_value_stand_at_one_place_inside_the_caption) {
    std::mt19937 random(3);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (int round = 0; round < 240; ++round) {
        TGraphForm f;
        const auto side = TKxAxisPos(round % 4);
        const bool horizontal = side == AxBottomPos || side == AxTopPos;
        TKxAxis& axis = horizontal ? *f.X : *f.Y;
        (horizontal ? f.Y : f.X)->SetVisible(false);
        f.Graph->SetBounds(any(0, 30), any(0, 30), any(150, 380), any(150, 280));
        axis.SetPosition(side);
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
        axis.SetCaption("Axis");
        axis.SetShowCaption(true);
        axis.SetBorderCaptionGap(3);
        axis.SetMajorTickLength(7);
        axis.SetAxisThicknes(any(0, 3));
        axis.SetTickColor(clLime);
        axis.SetMajorTickColor(clFuchsia);
        for (auto [grid, color] :
             {std::pair{horizontal ? &f.Graph->GetMajorGridX() : &f.Graph->GetMajorGridY(), clRed},
              {horizontal ? &f.Graph->GetMinorGridX() : &f.Graph->GetMinorGridY(), clTeal}}) {
            grid->SetVisible(true);
            grid->SetColor(color);
        }
        const TRecording drawn = f.Draw();
        const TPoint world = f.World();
        const TRect caption = axis.GetCaptionLabel().GetBoundsRect(), graph = f.Graph->GetClientRect();
        const int borders[] = {graph.Bottom - caption.Bottom, caption.Left, caption.Top,
                               graph.Right - caption.Right};
        ASSERT_EQ(borders[side], 3) << round;
        // Lines across the axis of a colour, by their offset from the world's edge.
        const auto places = [&](TColor Color) {
            std::set<int> result;
            for (const auto& line : LinesOf(drawn, Color)) {
                const TPoint from = line.Points[0] - world, way = line.Points[1] - line.Points[0];
                if ((horizontal ? way.X : way.Y) == 0) result.insert(horizontal ? from.X : from.Y);
                EXPECT_TRUE(Color != clFuchsia ||
                            (horizontal ? way.Y : way.X) == (side == AxLeftPos || side == AxTopPos ? -7 : 7));
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
            const int place = horizontal ? anchor.X + rec.X + rec.Width / 2
                                         : anchor.Y + rec.Y + axis.GetCanvas().TextHeight("10") / 2;
            ASSERT_EQ(place, axis.RealToIntPosition(ValueOf(axis, rec.Text))) << round << rec.Text;
            ASSERT_TRUE(major.count(place) + minor.count(place)) << round << rec.Text;
        }
    }
}

TEST(Axis, ends_follow_the_data_as_they_are_told) {
    const struct {
        TKxAxEnd Start, Stop;
        double Range[2];
    } cases[] = {{AxAutoRange, AxAutoRange, {2, 5}},
                 {AxFirstSet, AxFirstSet, {2, 10}},
                 {AxFixed, AxAutoRange, {3, 5}}};
    for (const auto& c : cases) {
        TKxAxis axis(nullptr);
        axis.SetStart(3);
        axis.SetStop(10);
        axis.SetStartEnd(c.Start);
        axis.SetStopEnd(c.Stop);
        TRange a, empty, b;
        a.SetStartStop(2, 4);
        b.SetStartStop(5, 5);
        for (TRange* range : {&a, &empty, &b}) axis.GetValuesRangeList().Add(range);
        axis.ZoomIn(3, 10);
        axis.RedoRanges();
        EXPECT_FALSE(axis.CanZoomBack());
        EXPECT_EQ(std::pair(axis.GetStart(), axis.GetStop()), std::pair(c.Range[0], c.Range[1]));
    }
}

namespace {

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

} // namespace

// What is set (S), what the data are (D), and what is shown (=): round ends are made of S or D each time.
TEST(Axis, fixed_ends_come_back_after_an_excursion_and_automatic_ones_stay_round) {
    TGraphForm f;
    f.AddSeries();
    f.Fill({{3, 1}, {9, 1}});
    f.X->SetStop(10.13);
    f.X->SetStopEnd(AxFixed);
    f.Draw();
    f.X->SetStop(10.13);
    const TEnds before = Shown(f, *f.X);
    EXPECT_EQ(before, TEnds(3, 10.14));
    f.XV->SetValue(0, -90000);
    EXPECT_EQ(Shown(f, *f.X), TEnds(-90000, 200));
    f.XV->SetValue(0, 3);
    EXPECT_EQ(Shown(f, *f.X), before);
    f.Y->SetStart(0.15);
    f.Y->SetStop(1.55); // rounds into a row of wider steps
    for (int i = 0; i < 4; ++i) {
        f.Y->SetAxisColor(TColor(i + 1));
        EXPECT_EQ(Shown(f, *f.Y), TEnds(0.1, 1.6)) << i;
    }
    f.X->SetStopEnd(AxFirstSet);
    f.XV->SetValue(1, 12345);
    f.XV->SetValue(1, 4);
    EXPECT_EQ(Shown(f, *f.X), TEnds(0, 13000)) << "what only grows stays";
}

TEST(Axis, zooming_back_and_loading_show_exactly_what_was_shown) {
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

TEST(Axis, a_zoomed_view_stays_while_the_unzoomed_one_follows_the_data) {
    for (const auto kind : {AxAutoRange, AxFirstSet, AxFixed}) {
        TGraphForm f;
        f.AddSeries();
        f.Fill({{0, 0}, {10, 10}});
        f.Draw();
        f.X->SetStopEnd(kind);
        f.X->ZoomIn(2.1, 3.9);
        const TEnds zoomed = Shown(f, *f.X);
        f.Fill({{45, 5}});
        EXPECT_EQ(Shown(f, *f.X), zoomed);
        f.X->ZoomBack();
        EXPECT_EQ(Shown(f, *f.X), TEnds(0, kind == AxFixed ? 10 : 45));
        f.Fill({{77, 5}});
        EXPECT_EQ(Shown(f, *f.X), TEnds(0, kind == AxFixed ? 10 : 80)) << "the unzoomed view follows";
        f.X->ZoomBack();
        EXPECT_EQ(Shown(f, *f.X), zoomed);
    }
}

TEST(Axis, a_slave_shows_the_ends_of_its_master_whatever_its_own_are) {
    TAnyEnds any;
    TGraphForm f;
    TKxAxis slave(f.Form);
    slave.SetParent(f.Graph);
    slave.SetPosition(AxTopPos);
    slave.SetMasterAxis(f.X);
    slave.SetIsSlave(true);
    for (int round = 0; round < 1500; ++round) {
        f.X->SetScaling(TKxAxScaling(any.Any(0, 2)));
        for (TKxAxis* axis : {f.X, &slave}) {
            const TEnds ends = any(f.X->GetScaling() != AxNormal);
            axis->SetStart(ends.first);
            axis->SetStop(ends.second);
            axis->SetStartEnd(TKxAxEnd(any.Any(0, 2)));
            axis->SetStopEnd(TKxAxEnd(any.Any(0, 2)));
            axis->SetAutoTicks(any.Any(0, 1));
            if (any.Any(0, 3) == 0) axis->ZoomIn(ends.first, ends.second * 1.7);
        }
        const TEnds shown = Shown(f, *f.X);
        ASSERT_EQ(TEnds(slave.GetStart(), slave.GetStop()), shown) << round;
        ASSERT_EQ(slave.RealToIntPosition(shown.second), f.X->RealToIntPosition(shown.second)) << round;
    }
}

TEST(Axis, a_slave_takes_ends_scaling_and_caption_of_its_master) {
    TGraphForm f;
    TKxAxis slave(f.Form), chained(f.Form);
    chained.SetMasterAxis(&slave);
    chained.SetComponentIndex(0); // looked at before its master
    slave.SetMasterAxis(f.X);
    slave.SetMasterAxis(&slave); // ignored
    for (TKxAxis* axis : {&slave, &chained}) {
        axis->SetPosition(AxTopPos);
        axis->SetParent(f.Graph);
    }
    f.X->SetCaption("master");
    f.X->SetScaling(AxLog);
    f.X->SetStart(3);
    f.X->SetStop(700);
    f.Draw();
    EXPECT_EQ(slave.GetStop(), 100) << "not yet a slave";
    slave.SetIsSlave(true);
    chained.SetIsSlave(true);
    f.Draw();
    for (const TKxAxis* axis : {&slave, &chained})
        EXPECT_EQ(std::tuple(axis->GetScaling(), axis->GetStart(), axis->GetStop(), axis->GetCaption()),
                  std::tuple(AxLog, 1, 1000, "master"));
    delete f.X;
    f.Draw();
    EXPECT_EQ(slave.GetMasterAxis(), nullptr);
}

TEST(Axis, thinned_labels_keep_zero_and_do_not_touch_at_any_width) {
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

TEST(Axis, an_axis_without_graph_lays_itself_out_in_its_bounds) {
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

TEST(Axis, the_settings_file_replaces_the_step_tables) {
    TTemporaryDirectory directory;
    const TScopedValue settings(UserSettings, directory / "program.usr");
    ReplaceFile(UserSettings, "[GraphScale]\nTickField=0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5\n");
    InitFields();
    const auto table = StepTable();
    StepTable() = CBuiltInSteps;
    EXPECT_EQ(std::pair(table.Tick[1], table.Tick[10]), std::pair(0.5, 0.5));
    EXPECT_EQ(table.MajorTick, CBuiltInSteps.MajorTick) << "a missing row stays";
}
