#include <kxgraph/series/Kxbargeometry.h>

#include <gtest/gtest.h>

#include <limits>

using namespace kx;

namespace {

constexpr double CNan = std::numeric_limits<double>::quiet_NaN(),
                 CInf = std::numeric_limits<double>::infinity();

} // namespace

TEST(BarGeometry, slots_divide_what_the_gaps_leave_in_either_direction) {
    const struct {
        int Edge, Next;
        TKxBarLayout Layout;
        TKxBarSlot Slot;
    } cases[] = {
        {100, 200, {1, 1, 0, 50}, {100, 200, 21, 12}}, // 20.8, 12.5 to the even
        {100, 200, {1, 1, 10, 50}, {105, 195, 19, 11}},
        {100, 200, {2, 1, 10, 0}, {105, 150, 0, 0}},
        {100, 200, {2, 2, 10, 0}, {150, 195, 0, 0}},
        {200, 100, {2, 1, 10, 50}, {195, 150, 19, 11}}, // descending: the first one at the first edge
        {200, 100, {2, 2, 10, 50}, {150, 105, 19, 11}},
        {0, 10, {3, 1, 0, 0}, {0, 3, 0, 0}},
        {0, 10, {3, 2, 0, 0}, {3, 7, 0, 0}},
        {0, 10, {3, 3, 0, 0}, {7, 10, 0, 0}},
        {7, 7, {2, 2, 10, 50}, {7, 7, 0, 0}},
        {0, 100, {1, 1, 100, 50}, {50, 50, 0, 0}}, // nothing left
        {0, 100, {1, 1, 300, 50}, {50, 50, 0, 0}}, // gaps that meet
        {0, 100, {1, 1, -20, 0}, {-10, 110, 0, 0}},
        {0, 100, {1, 1, CNan, CInf}, {0, 100, 0, 0}},
        {-CMaxPixel, CMaxPixel, {2, 2, 0, 0}, {0, CMaxPixel, 0, 0}},
    };
    for (const auto& c : cases) {
        const auto slot = SlotInBin(c.Edge, c.Next, c.Layout);
        EXPECT_EQ(slot, c.Slot) << c.Edge << ".." << c.Next << " place " << c.Layout.Place << " gap "
                                << c.Layout.GapPercent << ": " << slot.Near << ".." << slot.Far << " depth "
                                << slot.DepthX << ", " << slot.DepthY;
    }
}

TEST(BarGeometry, a_bar_stands_on_zero_or_on_the_start_of_a_logarithmic_axis) {
    const auto linear = TKxAxisMap::Make(AxNormal, -50, 50, 100, AxVertical, false);
    const auto log = TKxAxisMap::Make(AxLog, 1, 100, 100, AxVertical, false);
    const auto twisted = TKxAxisMap::Make(AxLog, 1, 100, 100, AxVertical, true);
    const struct {
        const TKxAxisMap& Map;
        double Value;
        int Pixel;
    } cases[] = {{linear, 0, 50}, {linear, 20, 30},  {linear, -20, 70},     {linear, CInf, CNoPixel},
                 {log, 0, 100},   {log, -5, 100},    {log, 10, 50},         {log, CNan, CNoPixel},
                 {twisted, 0, 0}, {twisted, 10, 50}, {log, -CInf, CNoPixel}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.Map.EndPosition(c.Value), c.Pixel) << c.Value;
        int pixels[] = {-7, -7, -7};
        BarPixels(c.Map, std::array{c.Value, 10.0}, pixels, 2);
        EXPECT_EQ(pixels[0], c.Pixel) << c.Value;
        EXPECT_EQ(pixels[1], -7);
    }
}

TEST(BarGeometry, a_stack_adds_up_what_lies_below_and_leaves_out_what_is_missing) {
    const double first[] = {1, 2, 4}, second[] = {10, CNan};
    const TKxBarValues below[] = {first, second};
    const double sums[] = {11, 2, 4, 0};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(StackBelow(below, i), sums[i]) << i;
    EXPECT_EQ(StackBelow({}, 0), 0);
}

TEST(BarGeometry, outline_and_area_meet_those_of_the_neighbour) {
    const struct {
        TKxBarSlot Slot;
        int Start, End;
        bool Horizontal;
        TRect Outline, Area;
    } cases[] = {
        {{10, 20}, 100, 40, false, {10, 40, 21, 101}, {10, 40, 20, 100}},
        {{20, 10}, 40, 100, false, {10, 40, 21, 101}, {10, 40, 20, 100}}, // descending, negative
        {{20, 10}, 100, 40, true, {40, 10, 101, 21}, {40, 10, 100, 20}},
        {{10, 10}, 100, 40, false, {10, 40, 11, 101}, {10, 40, 11, 100}}, // narrower than a pixel
        {{10, 10}, 40, 100, true, {40, 10, 101, 11}, {40, 10, 100, 11}},
        {{10, 20}, 40, 40, false, {10, 40, 21, 41}, {10, 40, 20, 40}}, // of no height: a line, no area
    };
    for (const auto& c : cases) {
        const TRect outline = BarOutline(c.Slot, c.Start, c.End, c.Horizontal);
        EXPECT_EQ(outline, c.Outline);
        EXPECT_EQ(BarArea(outline, c.Horizontal), c.Area);
    }
}

TEST(BarGeometry, bars_that_only_touch_the_world_are_outside) {
    const TSize world{101, 51};
    const struct {
        TRect Outline;
        bool Inside;
    } cases[] = {
        {{10, 10, 21, 31}, true},  {{-10, 10, 1, 31}, false}, {{-10, 10, 2, 31}, true},
        {{0, 10, 1, 31}, true},    {{-1, 10, 0, 31}, false},  {{100, 10, 121, 31}, false},
        {{99, 10, 121, 31}, true}, {{10, 50, 21, 81}, false}, {{10, 50, 21, 51}, true}, // no height
        {{10, -10, 21, 1}, false}, {{10, -10, 21, 61}, true}, {{10, 51, 21, 52}, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsBarInside(c.Outline, world), c.Inside) << c.Outline.Left << ", " << c.Outline.Top;
}

TEST(BarGeometry, lines_of_one_pixel_unite_only_where_they_meet) {
    const TRect line{10, 20, 11, 40};
    const struct {
        TRect Other;
        bool One;
    } cases[] = {{{10, 30, 11, 50}, true},  {{10, 40, 11, 50}, true},  {{10, 41, 11, 50}, false},
                 {{11, 30, 12, 50}, false}, {{10, 30, 12, 50}, false}, {{10, 0, 11, 19}, false}};
    for (const auto& c : cases) {
        const auto turned = [](const TRect& R) { return TRect{R.Top, R.Left, R.Bottom, R.Right}; };
        EXPECT_EQ(AreOneLine(line, c.Other, false), c.One);
        EXPECT_EQ(AreOneLine(turned(line), turned(c.Other), true), c.One);
    }
}

TEST(BarGeometry, boxes_are_painted_from_the_left_and_from_below) {
    EXPECT_TRUE(PaintsInEdgeOrder(0, 10, false));
    EXPECT_FALSE(PaintsInEdgeOrder(10, 0, false));
    EXPECT_TRUE(PaintsInEdgeOrder(10, 0, true)) << "pixels count downwards";
    const TRect low{0, 50, 10, 90}, high{0, 20, 10, 50}, right{10, 40, 20, 90};
    for (const bool horizontal : {false, true}) {
        EXPECT_TRUE(PaintsBefore(low, high, horizontal));
        EXPECT_TRUE(PaintsBefore(low, right, horizontal));
        EXPECT_FALSE(PaintsBefore(low, low, horizontal));
    }
    EXPECT_TRUE(PaintsBefore(high, right, false));
    EXPECT_TRUE(PaintsBefore(right, high, true));
}

TEST(BarGeometry, faces_take_tenths_of_the_channels_and_wrap_in_eight_bits) {
    EXPECT_EQ(BarTopColor(clWhite), RGB(69, 69, 69));
    EXPECT_EQ(BarSideColor(clWhite), RGB(150, 150, 150));
    EXPECT_EQ(BarTopColor(RGB(196, 9, 128)), RGB(247, 0, 156));
    EXPECT_EQ(BarTopColor(RGB(200, 0, 0)), RGB(4, 0, 0));
    EXPECT_EQ(BarSideColor(clBtnFace), BarSideColor(ColorToRGB(clBtnFace)));
}
