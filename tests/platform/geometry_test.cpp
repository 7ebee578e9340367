#include <kxgraph/platform/drawing/geometry.h>

#include "support/testing.h"

namespace kx::test::geometry {

TEST(Geometry, RoundsToPixelsHalfToEvenAndSaturates) {
    const std::pair<double, int> cases[] = {{0.5, 0},       {2.5, 2},           {-1.5, -2},
                                            {2.51, 3},      {1e300, CMaxPixel}, {-HUGE_VAL, -CMaxPixel},
                                            {NAN, CNoPixel}};
    for (const auto& [value, pixel] : cases) EXPECT_EQ(RoundToInt(value), pixel) << value;
}

TEST(Geometry, JoinsAndMeetsRectanglesByPixels) {
    const TRect a{0, 0, 10, 10}, touching{10, 0, 20, 10}, empty{3, 3, 3, 9};
    EXPECT_EQ(a.Intersected(touching), TRect{});
    EXPECT_EQ(a.United(empty), a);
    EXPECT_EQ(empty.United(a), a);
    EXPECT_TRUE(a.Contains({0, 9}) && !a.Contains({10, 0}));
}

} // namespace kx::test::geometry
