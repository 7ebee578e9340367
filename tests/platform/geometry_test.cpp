#include "platform/geometry.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

TEST(Geometry, ValuesBecomePixelsHalfToEvenAndSaturate) {
    const std::pair<double, int> cases[] = {{0.5, 0},           {1.5, 2},
                                            {2.5, 2},           {-0.5, 0},
                                            {-1.5, -2},         {2.51, 3},
                                            {1e300, CMaxPixel}, {-HUGE_VAL, -CMaxPixel},
                                            {NAN, CNoPixel},    {CMaxPixel + 1.0, CMaxPixel}};
    for (const auto& [value, pixel] : cases) EXPECT_EQ(RoundToInt(value), pixel) << value;
}

TEST(Geometry, RectanglesMeetAndJoinByPixels) {
    const TRect a{0, 0, 10, 10}, b{5, -5, 15, 5}, touching{10, 0, 20, 10}, empty{3, 3, 3, 9};
    EXPECT_EQ(a.Intersected(b), (TRect{5, 0, 10, 5}));
    EXPECT_EQ(a.Intersected(touching), TRect{});
    EXPECT_EQ(a.United(b), (TRect{0, -5, 15, 10}));
    EXPECT_EQ(a.United(empty), a);
    EXPECT_EQ(empty.United(a), a);
    EXPECT_TRUE(a.Contains({0, 9}));
    EXPECT_FALSE(a.Contains({10, 0}));
}

} // namespace
} // namespace kx
