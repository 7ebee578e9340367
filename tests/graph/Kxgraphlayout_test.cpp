#include <kxgraph/graph/Kxgraphlayout.h>

#include "support/testing.h"

namespace kx::test::graphlayout {

TKxLayoutAxis Axis(TKxAxisPos Position, int Thickness) {
    TKxLayoutAxis axis;
    axis.Side = Position;
    axis.Thickness = Thickness;
    return axis;
}

bool Contains(const TRect& Outer, const TRect& Inner) { return Outer.United(Inner) == Outer; }

TEST(GraphLayout, StacksAxesFromTheEdgeAndGivesTheRestToTheDrawingWorld) {
    TKxLayoutInput input{{400, 300}, 20, {0, 0, 50, 0}, 0, {}};
    input.Axes = {Axis(AxBottomPos, 30), Axis(AxLeftPos, 40), Axis(AxBottomPos, 25), Axis(AxTopPos, 10),
                  Axis(AxRightPos, 15)};
    input.Axes[0].LineThickness = 4;
    input.Axes[4].Gap = 5;
    const TKxLayout layout = LayOutGraph(input);
    EXPECT_EQ(layout.DrawingWorld, (TRect{39, 29, 400 - 50 - 14, 300 - 54}));
    EXPECT_EQ(layout.Title, (TRect{0, 0, 400, 20}));
    const struct {
        TRect Bounds;
        TPoint Origin;
    } cases[] = {{TRect::Bounds(0, 300 - 55 - 2, 400, 30), {39, 2}}, // half the line above it
                 {TRect::Bounds(0, 0, 40, 300), {39, 29}},
                 {TRect::Bounds(0, 275, 400, 25), {39, 0}}, // the later one stands outside
                 {TRect::Bounds(0, 20, 400, 10), {39, 9}},
                 {TRect::Bounds(335 + 5, 0, 10, 300), {0, 29}}}; // the gap lies beside the control
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(layout.Axes[i].Bounds, cases[i].Bounds) << i;
        EXPECT_EQ(layout.Axes[i].Origin, cases[i].Origin) << i;
    }
}

TEST(GraphLayout, AxesLieInsideTheGraphAndAlongTheWorldWhateverThereIs) {
    std::mt19937 random(7);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (int round = 0; round < 2000; ++round) {
        TKxLayoutInput input;
        const bool tiny = round % 10 == 0;
        input.Graph = tiny ? TSize{any(0, 20), any(0, 20)} : TSize{any(400, 900), any(400, 900)};
        input.TitleHeight = any(0, 1) * 18;
        if (!tiny) input.Reserved = {any(0, 60), any(0, 60), any(0, 60), any(0, 60)};
        const double zero[] = {any(1, 99) / 100.0, any(1, 99) / 100.0};
        const bool crossing = any(0, 1);
        for (int i = 0; i < 2 + any(0, 4); ++i) {
            const auto side = i < 2 ? TKxAxisPos(i) : TKxAxisPos(any(0, 3));
            input.Axes.push_back(Axis(side, any(1, 40)));
            input.Axes.back().Gap = any(0, input.Axes.back().Thickness - 1);
            input.Axes.back().StartReach = any(0, 30);
            input.Axes.back().StopReach = any(0, 30);
            if (i < 2 && crossing)
                input.Axes.back().Crossed = TKxAxisMap::Make(AxNormal, -zero[i], 1 - zero[i], 7,
                                                             i == 0 ? AxVertical : AxHorizontal, any(0, 1));
        }
        const TKxLayout layout = LayOutGraph(input);
        const TRect world = layout.DrawingWorld, graph{0, 0, input.Graph.Width, input.Graph.Height};
        const TRect free{input.Reserved.Left, input.TitleHeight + input.Reserved.Top,
                         graph.Right - input.Reserved.Right, graph.Bottom - input.Reserved.Bottom};
        ASSERT_TRUE(world.Width() >= 2 && world.Height() >= 2);
        if (tiny) continue;
        ASSERT_TRUE(Contains(free, world)) << round;
        for (std::size_t i = 0; i < layout.Axes.size(); ++i) {
            const auto& [bounds, origin, length, captionFrom] = layout.Axes[i];
            ASSERT_EQ(captionFrom > 0, input.Axes[i].Crossed.has_value()) << round;
            const TKxSide side = input.Axes[i].Side;
            ASSERT_TRUE(Contains(graph, bounds)) << round << " axis " << i;
            const TRect across = side.IsHorizontal()
                                     ? TRect{world.Left, bounds.Top, world.Right, bounds.Bottom}
                                     : TRect{bounds.Left, world.Top, bounds.Right, world.Bottom};
            ASSERT_TRUE(Contains(free, across)) << round << " axis " << i << " lies in what is reserved";
            ASSERT_TRUE(!side.IsHorizontal() || (world.Left + 1 >= input.Axes[i].StartReach &&
                                                 world.Right + input.Axes[i].StopReach <= graph.Right + 1));
            ASSERT_EQ(length + 1, side.Along(world.Size()));
            const TPoint line = bounds.TopLeft() + origin - world.TopLeft();
            ASSERT_EQ(side.Along(line), 0);
            if (!input.Axes[i].Crossed) continue;
            auto map = *input.Axes[i].Crossed;
            map = TKxAxisMap::Make(AxNormal, map.Start, map.Stop, side.Across(world.Size()) - 1, AxHorizontal,
                                   !map.Forward);
            ASSERT_EQ(side.Across(line), map.RealToIntPosition(0));
        }
    }
}

} // namespace kx::test::graphlayout
