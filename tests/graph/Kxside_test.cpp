#include <kxgraph/graph/Kxside.h>

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace kx {
namespace {

TEST(Side, KnowsAlongAndAcrossNearAndFar) {
    const TRect rect{10, 20, 110, 220};
    const struct {
        TKxSide Side;
        bool Horizontal;
        int Outward;
        TKxAxisPos Opposite, Start, Stop;
        int Outer, Inner, Offset; ///< Offset: where 30 of 100 pixels from the start lie
        int Least;                ///< of 7 pixels outwards from 50
        TRect Band, Cut;          ///< those 7 pixels; 15 pixels cut off
    } cases[] = {
        {AxBottomPos,
         true,
         1,
         AxTopPos,
         AxLeftPos,
         AxRightPos,
         219,
         20,
         30,
         50,
         {10, 50, 110, 57},
         {10, 20, 110, 205}},
        {AxLeftPos,
         false,
         -1,
         AxRightPos,
         AxBottomPos,
         AxTopPos,
         10,
         109,
         70,
         44,
         {44, 20, 51, 220},
         {25, 20, 110, 220}},
        {AxTopPos,
         true,
         -1,
         AxBottomPos,
         AxLeftPos,
         AxRightPos,
         20,
         219,
         30,
         44,
         {10, 44, 110, 51},
         {10, 35, 110, 220}},
        {AxRightPos,
         false,
         1,
         AxLeftPos,
         AxBottomPos,
         AxTopPos,
         109,
         10,
         70,
         50,
         {50, 20, 57, 220},
         {10, 20, 95, 220}},
        {AxHorizontal,
         true,
         1,
         AxTopPos,
         AxLeftPos,
         AxRightPos,
         219,
         20,
         30,
         50,
         {10, 50, 110, 57},
         {10, 20, 110, 205}},
        {AxVertical,
         false,
         -1,
         AxRightPos,
         AxBottomPos,
         AxTopPos,
         10,
         109,
         70,
         44,
         {44, 20, 51, 220},
         {25, 20, 110, 220}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        EXPECT_EQ(c.Side.IsHorizontal(), c.Horizontal);
        EXPECT_EQ(c.Side.Outward(), c.Outward);
        EXPECT_EQ(c.Side.Opposite(), c.Opposite);
        EXPECT_EQ(c.Side.Near(), TKxSide(c.Horizontal ? AxBottomPos : AxLeftPos));
        EXPECT_EQ(c.Side.AtStart(), c.Start);
        EXPECT_EQ(c.Side.AtStop(), c.Stop);
        EXPECT_EQ(std::pair(c.Side.OuterPixel(rect), c.Side.InnerPixel(rect)), std::pair(c.Outer, c.Inner));
        EXPECT_EQ(c.Side.FromStart(100, 30), c.Offset);
        EXPECT_EQ(c.Side.LeastFrom(50, 7), c.Least);
        EXPECT_EQ(c.Side.Band(rect, 50, 7), c.Band);
        EXPECT_EQ(c.Side.Cut(rect, 15), c.Cut);
        EXPECT_TRUE(c.Side.Cut(rect, 999).IsEmpty()) << "no further than to the other side";
        // What keeps a gap off the side reaches inwards from there.
        EXPECT_EQ(c.Side.LeastInside(rect, 3, 7), c.Outward > 0 ? c.Outer - 9 : c.Outer + 3);
        const TPoint point = c.Side.Point(1, 2);
        EXPECT_EQ(point, (c.Horizontal ? TPoint{1, 2} : TPoint{2, 1}));
        EXPECT_EQ(std::pair(c.Side.Along(point), c.Side.Across(point)), std::pair(1, 2));
        const TSize size = c.Side.Size(1, 2);
        EXPECT_EQ(std::tuple(c.Side.Along(size), c.Side.Across(size), size.Width),
                  std::tuple(1, 2, c.Horizontal ? 1 : 2));
        TRect margins{};
        c.Side.Of(margins) = 5;
        EXPECT_EQ(margins.Left + margins.Top * 10 + margins.Right * 100 + margins.Bottom * 1000,
                  c.Horizontal ? (c.Outward > 0 ? 5000 : 50) : (c.Outward > 0 ? 500 : 5));
        EXPECT_EQ(c.Side.MovedTo(AxFreeFloating), TKxSide(c.Horizontal ? AxHorizontal : AxVertical));
        EXPECT_EQ(c.Side.MovedTo(AxTopPos), TKxSide(AxTopPos));
    }
}

} // namespace
} // namespace kx
