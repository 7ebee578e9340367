#include <kxgraph/graph/Kxaxislabels.h>

#include "support/testing.h"

namespace kx::test::axislabels {

/// Ticks at 0 and 90 of 100 pixels, labels 6 pixels a letter wide and 10 high.
struct TFixture {
    TFixture(TKxSide Side, const char* Exponent = "") : Line{Side, {50, 60}, 100, 0} {
        Ticks.Labels = {{0, 0, "0"}, {9, 90, "9.00"}};
        Ticks.ExponentLabel = Exponent;
        Canvas.Font.SetHeight(-10);
        Labels.Measure(Ticks, Canvas);
        Labels.Place(Ticks, Line, Look);
        Labels.MeasureReach(Line);
    }
    TPoint Place(std::size_t Index) const { return {Labels.Recs()[Index].X, Labels.Recs()[Index].Y}; }

    TCanvas Canvas;
    TKxTicks Ticks;
    TKxAxisLine Line;
    TKxAxisLook Look; // labels begin 11 pixels from the line, an exponent 21
    TKxAxisLabels Labels;
};

TEST(AxisLabels, StandBesideTheirTicksOutsideOfTheLine) {
    const struct {
        TKxSide Side;
        TPoint Zero, Nine, Exponent;
        int Across, StartReach, StopReach;
    } cases[] = {{AxBottomPos, {47, 71}, {128, 71}, {152, 81}, 10, 4, 2 + 12},
                 {AxTopPos, {47, 40}, {128, 40}, {152, 30}, 10, 4, 2 + 12},
                 {AxLeftPos, {34, 155}, {16, 65}, {12, 55}, 24, 5, 6},
                 {AxRightPos, {61, 155}, {61, 65}, {77, 55}, 24, 5, 6}};
    for (const auto& c : cases) {
        const TFixture f(c.Side, "E4");
        EXPECT_EQ(f.Place(0), c.Zero) << c.Side.Position();
        EXPECT_EQ(f.Place(1), c.Nine) << c.Side.Position();
        EXPECT_EQ(f.Place(2), c.Exponent) << c.Side.Position();
        EXPECT_EQ(f.Labels.ExtentAcross(c.Side), c.Across);
        EXPECT_EQ(f.Labels.GetStartReach(), c.StartReach) << c.Side.Position();
        EXPECT_EQ(f.Labels.GetStopReach(), c.StopReach) << c.Side.Position();
    }
}

TEST(AxisLabels, AreMeasuredOnceInAFont) {
    TFixture f(AxBottomPos);
    for (const int width : {24, 48}) {
        f.Canvas.Font.SetHeight(-20);
        f.Labels.Measure(f.Ticks, f.Canvas);
        EXPECT_EQ(f.Labels.Recs()[1].Width, width);
        f.Labels.ForgetWidths();
    }
}

} // namespace kx::test::axislabels
