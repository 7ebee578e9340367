#include <kxgraph/graph/Kxscale.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

namespace kx {
namespace {

constexpr double CInf = std::numeric_limits<double>::infinity();
constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Scale, LinearEndsAreRoundAndStepsFollowTheSpan) {
    const struct {
        double Start, Stop, RoundStart, RoundStop, Tick, Label;
        int SpanExponent, ScaleExponent, Digits;
        bool Factored, Corrected;
    } cases[] = {
        {0.3, 8.7, 0, 9, 0.2, 2, 0, 0, 1, false, false},
        {0.3, 2.8, 0.25, 3, 0.1, 1, 0, 0, 1, false, false}, // the mantissa 2.5 belongs to row 2: half to even
        {5, 5, 4, 6, 0.05, 0.5, 0, 0, 2, false, true},
        {0, 0, -1, 1, 0.05, 0.5, 0, 0, 2, false, true},
        {9, 3, 0, 100, 0.02, 0.2, 2, 2, 2, false, true},
        {0, 20000, 0, 20000, 0.05, 0.5, 4, 4, 2, true, false},
        {-30, 0, -30, 0, 0.1, 1, 1, 1, 1, false, false},
        {1e15, 1e15 + 1, 0, 2e15, 0.05, 0.5, 15, 15, 2, true, true}, // vanishes in fifteen digits
        {5e-324, 1e-300, -1, 1, 0.05, 0.5, 0, 0, 2, false, true},
        {-CInf, CInf, -8.5e307, 8.5e307, 0.05, 0.5, 308, 307, 1, true, false},
    };
    for (const auto& c : cases) {
        const TKxScaleEnds e = CalculateEnds({AxNormal, c.Start, c.Stop});
        EXPECT_EQ(std::tuple(e.Start, e.Stop, e.TickPart, e.LabelPart, e.SpanExponent, e.ScaleExponent,
                             e.LabelDigits, e.UseScaleExponent, e.EndsCorrected),
                  std::tuple(c.RoundStart, c.RoundStop, c.Tick, c.Label, c.SpanExponent, c.ScaleExponent,
                             c.Digits, c.Factored, c.Corrected))
            << c.Start << " to " << c.Stop;
    }
}

TEST(Scale, LogarithmicEndsOpenToDecadesUnlessFixedOverOne) {
    const struct {
        double Start, Stop;
        TKxAxEnd StartEnd, StopEnd;
        double RoundStart, RoundStop;
        bool Corrected;
    } cases[] = {
        {3, 700, AxAutoRange, AxAutoRange, 1, 1000, false},
        {3, 700, AxFixed, AxAutoRange, 3, 1000, false},
        {3.05, 705, AxFixed, AxFixed, 3, 720, false},
        {2, 20, AxFixed, AxFixed, 2, 20, false},
        {2, 15, AxFixed, AxFixed, 1, 100, false},
        {1e-5, 1e-3, AxAutoRange, AxAutoRange, 1e-5, 1e-3, false},
        {100, 100.5, AxFixed, AxFixed, 10, 1000, false},
        {700, 3, AxAutoRange, AxAutoRange, 1, 10, true},
        {-5, 1e-20, AxFixed, AxFixed, 1e-21, 1e-20, true},
        {1e-320, 1e-315, AxFixed, AxFixed, 1e-307, 1e-306, false},
        {-CInf, CInf, AxAutoRange, AxAutoRange, 1e-10, 1e308, false},
    };
    for (const auto& c : cases) {
        const TKxScaleEnds ends = CalculateEnds({AxLog, c.Start, c.Stop, c.StartEnd, c.StopEnd});
        EXPECT_EQ(std::tuple(ends.Start, ends.Stop, ends.EndsCorrected),
                  std::tuple(c.RoundStart, c.RoundStop, c.Corrected))
            << c.Start << " to " << c.Stop;
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

} // namespace
} // namespace kx
