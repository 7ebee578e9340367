#include <kxgraph/graph/Kxaxisrange.h>

#include "support/testing.h"

namespace kx::test::axisrange {

using TEnds = std::pair<double, double>;

/// A range with the extent of some data.
struct TFixture {
    TFixture() { Range.Extents().Add(&Data); }
    void Span(double Start, double Stop) {
        Data.SetStartStop(Start, Stop);
        Range.Follow(&Data);
    }
    TEnds Set() const { return {Range.Shown().GetStart(), Range.Shown().GetStop()}; }
    TEnds Shown() {
        Range.Calculate();
        return Set();
    }
    TRange Data;
    TKxAxisRange Range;
};

TEST(AxisRange, FollowsTheExtentsAsItsEndsTell) {
    const struct {
        TKxAxEnd Start, Stop;
        TEnds Ends;
    } cases[] = {{AxAutoRange, AxAutoRange, {2, 5}},
                 {AxFirstSet, AxFirstSet, {2, 10}},
                 {AxFixed, AxAutoRange, {3, 5}}};
    for (const auto& c : cases) {
        TFixture f;
        f.Range.SetStart(3);
        f.Range.SetStop(10);
        f.Range.Rules.StartEnd = c.Start;
        f.Range.Rules.StopEnd = c.Stop;
        f.Data.SetStartStop(2, 4); // tells nobody
        TRange empty, other;
        other.SetStartStop(5, 5);
        for (TRange* range : {&empty, &other}) f.Range.Extents().Add(range);
        f.Range.ZoomIn(3, 10);
        f.Range.Redo();
        EXPECT_FALSE(f.Range.CanZoomBack());
        EXPECT_EQ(f.Set(), c.Ends);
        f.Range.Extents().Remove(&other);
        EXPECT_EQ(f.Range.Follow(nullptr), c.Stop == AxAutoRange);
        EXPECT_EQ(f.Set(), TEnds(c.Ends.first, c.Stop == AxAutoRange ? 4 : c.Ends.second));
    }
}

// What is set (S), what the data are (D), and what is shown (=): round ends are made of S or D each time.
TEST(AxisRange, FixedEndsComeBackAfterAnExcursionAndAutomaticOnesStayRound) {
    TFixture f;
    f.Span(3, 9);
    f.Range.SetStopEnd(AxFixed);
    f.Range.SetStop(10.13);
    const TEnds before = f.Shown();
    EXPECT_EQ(before, TEnds(3, 10.14));
    f.Span(-90000, 9);
    EXPECT_EQ(f.Shown(), TEnds(-90000, 200));
    f.Span(3, 9);
    EXPECT_EQ(f.Shown(), before);
    f.Range.SetStopEnd(AxFirstSet);
    f.Span(3, 12345);
    f.Span(3, 4);
    EXPECT_EQ(f.Shown(), TEnds(0, 13000)) << "what only grows stays";
    TFixture automatic;
    automatic.Range.SetStart(0.15);
    automatic.Range.SetStop(1.55); // rounds into a row of wider steps
    for (int i = 0; i < 4; ++i) EXPECT_EQ(automatic.Shown(), TEnds(0.1, 1.6)) << i;
}

TEST(AxisRange, AZoomedViewStaysWhileTheUnzoomedOneFollowsTheData) {
    for (const auto kind : {AxAutoRange, AxFirstSet, AxFixed}) {
        TFixture f;
        f.Span(0, 10);
        f.Shown();
        f.Range.SetStopEnd(kind);
        f.Range.ZoomIn(2.1, 3.9);
        const TEnds zoomed = f.Shown();
        f.Span(0, 45);
        EXPECT_EQ(f.Shown(), zoomed);
        f.Range.ZoomBack();
        EXPECT_EQ(f.Shown(), TEnds(0, kind == AxFixed ? 10 : 45));
        f.Span(0, 77);
        EXPECT_EQ(f.Shown(), TEnds(0, kind == AxFixed ? 10 : 80)) << "the unzoomed view follows";
        f.Range.ZoomBack();
        EXPECT_EQ(f.Shown(), zoomed);
        f.Range.SetStart(1);
        EXPECT_EQ(f.Set(), TEnds(1, zoomed.second)) << "what is set is seen at once";
        f.Range.ForgetZooms();
        EXPECT_EQ(f.Range.GetZoomIndex(), 0);
        EXPECT_EQ(f.Set().second, kind == AxFixed ? 10 : 80);
    }
}

} // namespace kx::test::axisrange
