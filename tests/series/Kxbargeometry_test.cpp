#include <kxgraph/series/Kxbargeometry.h>

#include "support/testing.h"

namespace kx::test::bargeometry {

using TReals4 = std::array<double, 4>;
using TInts4 = std::array<int, 4>;

TRect RectOf(const TInts4& R) { return {R[0], R[1], R[2], R[3]}; }

TEST(BarGeometry, DividesWhatTheGapsLeaveInEitherDirection) {
    for (const auto& [edge, next, layout, expected] : Cases<int, int, TReals4, TInts4>("bars", "slots")) {
        const auto [count, place, gap, depth] = layout;
        const auto slot = SlotInBin(edge, next, {int(count), int(place), gap, depth});
        EXPECT_EQ((TInts4{slot.Near, slot.Far, slot.DepthX, slot.DepthY}), expected)
            << edge << ".." << next << " place " << place << " gap " << gap;
    }
}

TEST(BarGeometry, StandsBarsOnZeroOrOnTheStartOfALogarithmicAxis) {
    for (const auto& [axis, value, pixel] : Cases<std::string, double, double>("bars", "ends")) {
        const bool linear = axis == "linear";
        const auto map = TKxAxisMap::Make(linear ? AxNormal : AxLog, linear ? -50 : 1, linear ? 50 : 100, 100,
                                          AxVertical, axis == "twisted");
        EXPECT_EQ(map.EndPosition(value), RoundToInt(pixel)) << value;
        int pixels[] = {-7, -7, -7};
        BarPixels(map, std::array{value, 10.0}, pixels, 2);
        EXPECT_EQ(pixels[0], RoundToInt(pixel)) << value;
        EXPECT_EQ(pixels[1], -7);
    }
}

TEST(BarGeometry, AddsUpWhatLiesBelowAndLeavesOutWhatIsMissing) {
    const double first[] = {1, 2, 4}, second[] = {10, CNaN};
    const TKxBarValues below[] = {first, second};
    const double sums[] = {11, 2, 4, 0};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(StackBelow(below, i), sums[i]) << i;
    EXPECT_EQ(StackBelow({}, 0), 0);
}

TEST(BarGeometry, MeetsTheNeighbourWithOutlineAndArea) {
    using T = std::array<int, 2>;
    const auto cases = Cases<T, int, int, bool, TInts4, TInts4>("bars", "outlines");
    for (const auto& [slot, start, end, horizontal, expected, area] : cases) {
        const TRect outline = BarOutline({slot[0], slot[1]}, start, end, horizontal);
        EXPECT_EQ(outline, RectOf(expected));
        EXPECT_EQ(BarArea(outline, horizontal), RectOf(area));
    }
}

TEST(BarGeometry, LeavesBarsThatOnlyTouchTheWorldOutside) {
    for (const auto& [outline, inside] : Cases<TInts4, bool>("bars", "inside"))
        EXPECT_EQ(IsBarInside(RectOf(outline), {101, 51}), inside) << outline[0] << ", " << outline[1];
}

TEST(BarGeometry, PaintsBoxesFromTheLeftAndFromBelow) {
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

TEST(BarGeometry, TakesTenthsOfTheChannelsForFacesAndWrapsInEightBits) {
    EXPECT_EQ(BarTopColor(clWhite), RGB(69, 69, 69));
    EXPECT_EQ(BarSideColor(clWhite), RGB(150, 150, 150));
    EXPECT_EQ(BarTopColor(RGB(196, 9, 128)), RGB(247, 0, 156));
    EXPECT_EQ(BarTopColor(RGB(200, 0, 0)), RGB(4, 0, 0));
    EXPECT_EQ(BarSideColor(clBtnFace), BarSideColor(ColorToRGB(clBtnFace)));
}

} // namespace kx::test::bargeometry
