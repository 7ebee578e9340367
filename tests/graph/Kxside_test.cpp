#include <kxgraph/graph/Kxside.h>

#include "support/testing.h"

namespace kx::test::side {

TEST(Side, KnowsAlongAndAcrossNearAndFar) {
    const TRect rect{1, 2, 11, 22};
    const struct {
        TKxSide Side;
        int Outward;
        TKxAxisPos Opposite, Start;
        int Outer, Inner, Least; ///< Least: of 7 pixels outwards from 50
        TRect Band, Cut;         ///< those 7 pixels; 4 pixels cut off
        TRect Margins;           ///< 5 at this side
    } cases[] = {
        {AxBottomPos, 1, AxTopPos, AxLeftPos, 21, 2, 50, {1, 50, 11, 57}, {1, 2, 11, 18}, {0, 0, 0, 5}},
        {AxLeftPos, -1, AxRightPos, AxBottomPos, 1, 10, 44, {44, 2, 51, 22}, {5, 2, 11, 22}, {5, 0, 0, 0}},
        {AxTopPos, -1, AxBottomPos, AxLeftPos, 2, 21, 44, {1, 44, 11, 51}, {1, 6, 11, 22}, {0, 5, 0, 0}},
        {AxRightPos, 1, AxLeftPos, AxBottomPos, 10, 1, 50, {50, 2, 57, 22}, {1, 2, 7, 22}, {0, 0, 5, 0}},
        {AxHorizontal, 1, AxTopPos, AxLeftPos, 21, 2, 50, {1, 50, 11, 57}, {1, 2, 11, 18}, {0, 0, 0, 5}},
        {AxVertical, -1, AxRightPos, AxBottomPos, 1, 10, 44, {44, 2, 51, 22}, {5, 2, 11, 22}, {5, 0, 0, 0}},
    };
    for (const auto& [side, outward, opposite, start, outer, inner, least, band, cut, margins] : cases) {
        SCOPED_TRACE(testing::Message() << side.Position() << " " << side.Orientation());
        const bool horizontal = start == AxLeftPos;
        EXPECT_EQ(std::tuple(side.IsHorizontal(), side.Outward()), std::tuple(horizontal, outward));
        EXPECT_EQ(std::tuple(side.Opposite(), side.AtStart()), std::tuple(opposite, start));
        EXPECT_EQ(side.AtStop(), horizontal ? AxRightPos : AxTopPos);
        EXPECT_EQ(side.Near(), horizontal ? AxBottomPos : AxLeftPos);
        EXPECT_EQ(std::pair(side.OuterPixel(rect), side.InnerPixel(rect)), std::pair(outer, inner));
        EXPECT_EQ(side.LeastFrom(50, 7), least);
        EXPECT_EQ(side.LeastInside(rect, 3, 2), outer - outward * 3 - (outward > 0)) << "reaches inwards";
        EXPECT_EQ(std::tuple(side.Band(rect, 50, 7), side.Cut(rect, 4)), std::tuple(band, cut));
        EXPECT_TRUE(side.Cut(rect, 999).IsEmpty()) << "no further than to the other side";
        TRect sides{};
        side.Of(sides) = 5;
        EXPECT_EQ(sides, margins);
        const TPoint point = side.Point(1, 2);
        const TSize size = side.Size(3, 4);
        EXPECT_EQ(std::tuple(point.X, size.Width), horizontal ? std::tuple(1, 3) : std::tuple(2, 4));
        EXPECT_EQ(std::tuple(side.Along(point), side.Across(point), side.Along(size), side.Across(size)),
                  std::tuple(1, 2, 3, 4));
        EXPECT_EQ(side.FromStart(100, 30), horizontal ? 30 : 70);
        EXPECT_EQ(side.MovedTo(AxFreeFloating), TKxSide(horizontal ? AxHorizontal : AxVertical));
        EXPECT_EQ(side.MovedTo(AxTopPos), AxTopPos);
    }
}

} // namespace kx::test::side
