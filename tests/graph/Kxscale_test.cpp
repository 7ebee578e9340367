#include <kxgraph/graph/Kxscale.h>

#include "support/testing.h"

namespace kx::test::scale {

TEST(Scale, LinearEndsAreRoundAndStepsFollowTheSpan) {
    using TEnds = std::array<double, 9>;
    for (const auto& [start, stop, expected] : Cases<double, double, TEnds>("scales", "linear ends")) {
        const TKxScaleEnds e = CalculateEnds({AxNormal, start, stop});
        EXPECT_EQ(
            (TEnds{e.Start, e.Stop, e.TickPart, e.LabelPart, double(e.SpanExponent), double(e.ScaleExponent),
                   double(e.LabelDigits), double(e.UseScaleExponent), double(e.EndsCorrected)}),
            expected)
            << start << " to " << stop;
    }
}

TEST(Scale, LogarithmicEndsOpenToDecadesUnlessFixedOverOne) {
    using TEnds = std::array<double, 3>;
    for (const auto& [start, stop, startEnd, stopEnd, expected] :
         Cases<double, double, TKxAxEnd, TKxAxEnd, TEnds>("scales", "logarithmic ends")) {
        const TKxScaleEnds ends = CalculateEnds({AxLog, start, stop, startEnd, stopEnd});
        EXPECT_EQ((TEnds{ends.Start, ends.Stop, double(ends.EndsCorrected)}), expected)
            << start << " to " << stop;
    }
}

TEST(Scale, FixedEndsSnapOutwardToTheStepOfTheTableWithoutItsBadEntries) {
    TKxScaleEnds ends = CalculateEnds({AxNormal, 0.331, 8.701, AxFixed, AxFixed});
    EXPECT_EQ(std::pair(ends.Start, ends.Stop), std::pair(0.32, 8.72));
    ends = CalculateEnds({AxNormal, 0.331, 8.701, AxFirstSet, AxFixed, false, 0.3});
    EXPECT_EQ(std::pair(ends.Start, ends.Stop), std::pair(0.0, 9.0)); // a row step; a multiple of 0.3
    StepTable().Tick[9] = -1;
    StepTable().Label[9] = 3;
    ends = CalculateEnds({AxNormal, 0.3, 8.7});
    StepTable() = CBuiltInSteps;
    EXPECT_EQ(std::pair(ends.TickPart, ends.LabelPart), std::pair(0.2, 3.0));
}

TEST(Scale, ManyValuesGoToTheSamePixelsAsOneAndBack) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> inside(-1, 11), exponent(-300, 300);
    std::vector<double> values{CNaN, CInf, -CInf, 0, -0.0, 5e-324, 1e300, -1e300};
    for (int i = 0; i < 160; ++i) // the last ones on and midway between pixels
        values.insert(values.end(), {inside(random), std::pow(10, exponent(random)), i / 16.0 + 0.5});
    for (int i = 0; i < 80; ++i) { // the same on a logarithmic axis
        const double midway = 0.5 * std::pow(21, (i + 0.5) / 80);
        values.insert(values.end(), {midway, std::nextafter(midway, 0), std::nextafter(midway, 99)});
    }
    for (std::size_t i = 0; i < 24; ++i) {
        const bool linear = i & 1, horizontal = i & 2, twisted = i & 4;
        const TKxAxisMap map = TKxAxisMap::Make(linear ? AxNormal : AxLogEE, 0.5, 10.5, 80,
                                                horizontal ? AxHorizontal : AxVertical, twisted);
        const std::size_t stride = i / 8 + 1;
        std::vector<int> pixels(values.size() * stride, 4711);
        std::vector<double> places(values.size() * stride, 4711);
        map.RealToPlaces(values, places.data(), static_cast<std::ptrdiff_t>(stride));
        map.RealToIntPositions(values, pixels.data(), static_cast<std::ptrdiff_t>(stride));
        for (std::size_t k = 0; k < pixels.size(); ++k) {
            const double value = values[k / stride];
            const double along =
                linear ? (value - 0.5) / 0.125 : (std::log10(value) - map.LogStart) / map.Scale;
            int expected = RoundToInt(horizontal != twisted ? along : 80 - along);
            if (!linear && value <= 0) expected = -1;
            ASSERT_EQ(map.RealToIntPosition(value), expected) << value;
            ASSERT_EQ(pixels[k], k % stride == 0 ? expected : 4711) << value;
            ASSERT_EQ(RoundToInt(map.RealToPlace(value)), expected) << value;
            ASSERT_EQ(RoundToInt(places[k]), pixels[k]) << value;
        }
        for (int p = 0; p <= 80; ++p) EXPECT_EQ(map.RealToIntPosition(map.IntToRealPosition(p)), p);
    }
}

} // namespace kx::test::scale
