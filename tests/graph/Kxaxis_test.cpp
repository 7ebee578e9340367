#include "support/graphfixture.h"

#include "numeric/Kxarithm.h"
#include "platform/files.h"
#include "platform/numbertext.h"
#include "platform/scopedvalue.h"
#include "support/recording.h"

#include <cmath>
#include <random>
#include <set>

using namespace kx;
using namespace kx::test;

namespace {

/// The value that a label tells.
double ValueOf(const TKxAxis& Axis, const std::string& Text) {
    if (Axis.GetScaling() == AxLogEE) return std::pow(10.0, std::stoi(Text.substr(Text.find(' '))));
    return std::stod(Text) * (Axis.GetUseScaleExponent() ? std::pow(10.0, Axis.GetScaleExponent()) : 1);
}

} // namespace

TEST(Axis, tick_grid_line_label_and_value_stand_at_one_place_on_all_four_sides) {
    std::mt19937 random(3);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (int round = 0; round < 240; ++round) {
        TGraphForm f;
        const auto side = TKxAxisPos(round % 4);
        const bool horizontal = side == AxBottomPos || side == AxTopPos;
        TKxAxis& axis = horizontal ? *f.X : *f.Y;
        f.Graph->SetBounds(any(0, 30), any(0, 30), any(150, 380), any(150, 280));
        axis.SetPosition(side);
        axis.SetTwisted(any(0, 1));
        axis.SetScaling(TKxAxScaling(any(0, 2)));
        const double start = std::pow(10.0, any(-3, 4)) * any(1, 99);
        axis.SetStart(axis.GetScaling() == AxNormal && any(0, 1) ? -start : start);
        axis.SetStop(start * (1 + any(1, 3000) / 10.0));
        axis.SetStartEnd(TKxAxEnd(any(0, 2)));
        axis.SetStopEnd(TKxAxEnd(any(0, 2)));
        axis.SetValuesTicksGap(any(0, 3));
        axis.SetMajorTickLength(any(0, 1) ? 10 : 7);
        axis.SetAxisThicknes(any(0, 3));
        axis.SetTickColor(clLime);
        axis.SetMajorTickColor(clFuchsia);
        for (TKxLineStyle* grid : {&f.Graph->GetMajorGridX(), &f.Graph->GetMajorGridY()})
            grid->SetVisible(true);
        for (TKxLineStyle* grid : {&f.Graph->GetMinorGridX(), &f.Graph->GetMinorGridY()}) {
            grid->SetVisible(true);
            grid->SetColor(clTeal);
        }
        TKxAxis& other = horizontal ? *f.Y : *f.X;
        other.SetVisible(false);
        const TRecording drawn = f.Draw();
        const TPoint world = f.World();
        // Lines across the axis of a colour, by their offset from the world's edge.
        const auto places = [&](TColor Color) {
            std::set<int> result;
            for (const auto& line : LinesOf(drawn, Color)) {
                const TPoint a = line.Points[0], b = line.Points[1];
                if (horizontal ? a.X == b.X : a.Y == b.Y)
                    result.insert(horizontal ? a.X - world.X : a.Y - world.Y);
                const int out = horizontal ? b.Y - a.Y : b.X - a.X;
                const int outward =
                    axis.GetMajorTickLength() * (side == AxLeftPos || side == AxTopPos ? -1 : 1);
                EXPECT_TRUE(Color != clFuchsia || out == outward);
            }
            return result;
        };
        const std::set<int> major = places(clFuchsia), minor = places(clLime);
        const auto isSubset = [](const std::set<int>& A, const std::set<int>& B) {
            return std::includes(B.begin(), B.end(), A.begin(), A.end());
        };
        ASSERT_FALSE(major.empty() && minor.empty()) << round;
        ASSERT_TRUE(isSubset(major, places(clRed))) << round;
        ASSERT_TRUE(isSubset(minor, places(clTeal))) << round;
        const auto& recs = axis.GetLabelRecs();
        const std::size_t labels =
            recs.size() - (axis.GetUseScaleExponent() && axis.GetScaling() == AxNormal);
        for (std::size_t i = 0; i < labels; ++i) {
            const int anchor = horizontal ? axis.GetLeft() + recs[i].X + recs[i].Width / 2
                                          : axis.GetTop() + recs[i].Y + axis.GetCanvas().TextHeight("10") / 2;
            const int place =
                anchor + (horizontal ? f.Graph->GetLeft() - world.X : f.Graph->GetTop() - world.Y);
            ASSERT_EQ(place, axis.RealToIntPosition(ValueOf(axis, recs[i].Text))) << round << recs[i].Text;
            ASSERT_TRUE(major.count(place) + minor.count(place)) << round << recs[i].Text;
        }
    }
}

TEST(Axis, the_caption_is_the_users_or_an_automatic_one) {
    TGraphForm f;
    f.X->SetAutoCaption("auto");
    EXPECT_EQ(f.X->GetCaption(), "auto");
    f.X->SetUserCaption("mine");
    EXPECT_EQ(f.X->GetCaption(), "auto");
    f.X->SetDoUserCaption(true);
    EXPECT_EQ(f.X->GetCaption(), "mine");
    f.X->SetAutoCaption("other");
    EXPECT_EQ(f.X->GetCaption(), "mine");
    f.X->SetDoUserCaption(false);
    EXPECT_EQ(f.X->GetCaption(), "mine") << "stays until the next automatic caption";
    f.X->SetAutoCaption("next");
    EXPECT_EQ(f.X->GetCaption(), "next");
}

TEST(Axis, a_shown_caption_lies_outside_the_labels_and_takes_its_room) {
    for (const auto side : {AxBottomPos, AxLeftPos, AxTopPos, AxRightPos}) {
        TGraphForm f;
        TKxAxis& axis = side == AxBottomPos || side == AxTopPos ? *f.X : *f.Y;
        axis.SetPosition(side);
        axis.SetCaption("Axis");
        axis.SetCaptionScalingsGap(4);
        axis.SetBorderCaptionGap(3);
        f.Draw();
        const TRect without = f.Graph->GetDrawingWorld().GetBoundsRect();
        axis.SetShowCaption(true);
        f.Draw();
        const TRect world = f.Graph->GetDrawingWorld().GetBoundsRect();
        const TRect label = axis.GetCaptionLabel().GetBoundsRect();
        const int across = axis.IsHorizontal() ? label.Height() : label.Width();
        const int less =
            axis.IsHorizontal() ? without.Height() - world.Height() : without.Width() - world.Width();
        EXPECT_EQ(less, across + 4);
        EXPECT_EQ(axis.GetCaptionLabel().GetAngle(), axis.IsHorizontal() ? 0 : 900);
        const int border[] = {300 - label.Bottom, label.Left, label.Top, 400 - label.Right};
        EXPECT_EQ(border[side], 3) << side;
        EXPECT_EQ(axis.IsHorizontal() ? label.Left : label.Top,
                  axis.IsHorizontal() ? world.Left + (axis.GetAxisLength() - label.Width()) / 2
                                      : world.Top + (axis.GetAxisLength() - label.Height()) / 2);
        axis.SetVisible(false);
        f.Draw();
        EXPECT_FALSE(axis.GetCaptionLabel().GetVisible());
    }
}

TEST(Axis, ends_follow_the_data_as_they_are_told) {
    const struct {
        TKxAxEnd Start, Stop;
        double Range[2];
    } cases[] = {{AxAutoRange, AxAutoRange, {2, 5}},
                 {AxFirstSet, AxFirstSet, {2, 10}},
                 {AxFixed, AxFixed, {3, 10}},
                 {AxFixed, AxAutoRange, {3, 5}}};
    for (const auto& c : cases) {
        TKxAxis axis(nullptr);
        axis.SetStart(3);
        axis.SetStop(10);
        axis.SetStartEnd(c.Start);
        axis.SetStopEnd(c.Stop);
        axis.ValuesRangeChanged(nullptr);
        EXPECT_EQ(axis.GetStart(), 3) << "no data, no change";
        TRange a, empty, b;
        a.SetStartStop(2, 4);
        b.SetStartStop(5, 5);
        for (TRange* range : {&a, &empty, &b}) axis.GetValuesRangeList().Add(range);
        axis.ZoomIn(3, 10);
        axis.RedoRanges();
        EXPECT_FALSE(axis.CanZoomBack());
        EXPECT_EQ(axis.GetValuesRange()->GetStart(), 2);
        EXPECT_EQ(axis.GetStart(), c.Range[0]);
        EXPECT_EQ(axis.GetStop(), c.Range[1]);
    }
}

TEST(Axis, round_ends_stay_through_every_later_layout) {
    TGraphForm f;
    f.X->SetStart(0.15);
    f.X->SetStop(1.55); // rounds into a row of wider steps
    f.Draw();
    const double start = f.X->GetStart(), stop = f.X->GetStop();
    for (int i = 0; i < 3; ++i) {
        f.X->SetAxisColor(TColor(i + 1));
        f.Draw();
        EXPECT_EQ(f.X->GetStart(), start);
        EXPECT_EQ(f.X->GetStop(), stop);
    }
    EXPECT_EQ(start, 0.1);
    EXPECT_EQ(stop, 1.6);
}

TEST(Axis, a_slave_takes_ends_scaling_and_caption_of_its_master) {
    TGraphForm f;
    TKxAxis slave(f.Form);
    slave.SetPosition(AxTopPos);
    slave.SetParent(f.Graph);
    f.X->SetCaption("master");
    f.X->SetScaling(AxLog);
    f.X->SetStart(3);
    f.X->SetStop(700);
    slave.SetMasterAxis(f.X);
    slave.SetMasterAxis(&slave); // ignored
    f.Draw();
    EXPECT_EQ(slave.GetStop(), 100);
    slave.SetIsSlave(true);
    EXPECT_TRUE(f.Graph->GetNeedsCalculate());
    f.Draw();
    EXPECT_EQ(slave.GetScaling(), AxLog);
    EXPECT_EQ(slave.GetStart(), 1);
    EXPECT_EQ(slave.GetStop(), 1000);
    EXPECT_EQ(slave.GetCaption(), "master");
    TKxAxis chained(f.Form);
    chained.SetPosition(AxTopPos);
    chained.SetParent(f.Graph);
    chained.SetComponentIndex(0); // looked at before its master
    chained.SetIsSlave(true);
    chained.SetMasterAxis(&slave);
    f.X->SetStop(70);
    f.Draw();
    EXPECT_EQ(chained.GetStop(), 100);
    delete f.X;
    f.Draw();
    EXPECT_EQ(slave.GetMasterAxis(), nullptr);
}

TEST(Axis, thinned_labels_keep_zero_and_do_not_touch) {
    TGraphForm f;
    f.Fix(-1000, 1000, 0, 1);
    f.X->SetMaxExpForScale(9);
    f.Graph->SetWidth(180);
    f.Draw();
    const std::size_t all = f.X->GetLabelRecs().size();
    f.X->SetThinLabels(true);
    f.Draw();
    const auto& recs = f.X->GetLabelRecs();
    EXPECT_LT(recs.size(), all);
    bool zero = false;
    for (std::size_t i = 0; i < recs.size(); ++i) {
        zero |= recs[i].Text == "0";
        EXPECT_TRUE(i == 0 || recs[i].X > recs[i - 1].X + recs[i - 1].Width);
    }
    EXPECT_TRUE(zero);
    for (int width = 30; width < 400; width += 3) {
        f.Graph->SetWidth(width);
        EXPECT_TRUE(SettleTree(*f.Form)) << width;
    }
}

TEST(Axis, an_axis_without_graph_lays_itself_out_in_its_bounds) {
    for (const auto side : {AxBottomPos, AxLeftPos, AxTopPos, AxRightPos, AxFreeFloating}) {
        TForm form(nullptr);
        TKxAxis axis(nullptr);
        axis.SetParent(&form);
        axis.SetPosition(side);
        axis.SetBounds(100, 100, axis.IsHorizontal() ? 300 : 60, axis.IsHorizontal() ? 60 : 300);
        TRecorder recorder({640, 480});
        PaintFrame(form, recorder);
        const TRect bounds = axis.GetBoundsRect();
        const auto lines = LinesOf(recorder.Recording, clBlack);
        EXPECT_GT(lines.size(), 10u);
        for (const auto& line : lines)
            for (const TPoint p : line.Points)
                EXPECT_TRUE(p.X >= bounds.Left - 1 && p.X <= bounds.Right && p.Y >= bounds.Top - 1 &&
                            p.Y <= bounds.Bottom)
                    << side << " " << p.X << "," << p.Y;
        EXPECT_EQ(axis.RealToIntPosition(0), axis.IsHorizontal() ? 0 : axis.GetAxisLength());
    }
}

TEST(Axis, the_settings_file_replaces_the_step_tables) {
    TTemporaryDirectory directory;
    const TScopedValue settings(UserSettings, directory / "program.usr");
    ReplaceFile(UserSettings, "[GraphScale]\nTickField=0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5;0.5\n");
    InitFields();
    const auto table = StepTable();
    StepTable() = CBuiltInSteps;
    EXPECT_EQ(table.Tick[1], 0.5);
    EXPECT_EQ(table.Tick[10], 0.5);
    EXPECT_EQ(table.MajorTick, CBuiltInSteps.MajorTick) << "a missing row stays";
}
