#include <kxgraph/graph/Kxticks.h>

#include "support/testing.h"

namespace kx::test::ticks {

TKxScaleInput Auto(double Start, double Stop, TKxAxScaling Scaling = AxNormal, TKxAxEnd End = AxAutoRange) {
    return {Scaling, Start, Stop, End, End};
}

TKxTicks Ticks(const TKxScaleInput& Input, int Length, TKxTickOptions Options = {AxHorizontal, true, false},
               bool Twisted = false) {
    const TKxScaleEnds ends = CalculateEnds(Input);
    const TKxAxisMap map = TKxAxisMap::Make(Input.Scaling, ends, Length, Options.Side.Orientation(), Twisted);
    return CalculateTicks(ends, map, Options);
}

std::string Texts(const TKxTicks& Ticks) {
    std::string all;
    for (const TKxTickLabel& label : Ticks.Labels) all += label.Text + "|";
    return all + Ticks.ExponentLabel;
}

/// What the reader of a label takes its value for.
double ReadLabel(const std::string& Text, const std::string& ExponentLabel) {
    const std::size_t power = Text.find("\\+ "), factor = ExponentLabel.find('+');
    std::string exponent;
    if (factor != std::string::npos) exponent.append("E").append(ExponentLabel, factor + 1);
    int position = 0;
    const double value =
        Val(power == std::string::npos ? Text + exponent : "1E" + Text.substr(power + 3), position);
    return position == 0 ? value : CNaN;
}

TEST(Ticks, LabelsHaveTheDigitsThatTheirStepNeeds) {
    const struct {
        TKxScaleInput Input;
        const char* Texts;
    } cases[] = {
        {Auto(0, 20000), "0.0|0.5|1.0|1.5|2.0|\u00B710\\+4"},
        {Auto(-0.02, 0.01), "-0.02|-0.01|0.00|0.01|"},
        {Auto(0, 0.004), "0|1|2|3|4|\u00B710\\+-3"},
        {Auto(0.6, 7.05), "2|4|6|"}, // 0.5 to 7.5: the row changed in rounding
        {{AxNormal, 0, 3e-20, AxFixed, AxFixed, true, 1, 1, 1, 3, -99}, "0|1E-20|2E-20|3E-20|"},
        {{AxNormal, 0, 1, AxFixed, AxFixed, false, 0.25, 0.5, 0.3},
         "0.00|0.25|0.50|0.75|1.00|"}, // counted in ticks
        {Auto(3, 700, AxLogEE), "10\\+ 0|10\\+ 1|10\\+ 2|10\\+ 3|"},
        {Auto(3, 700, AxLog, AxFixed), "10|100|"},
        {Auto(1e-10, 2e-9, AxLog), "0.0000000001|0.000000001|0.00000001|"},
        {Auto(2e-20, 1e-19, AxLog), "1E-20|1E-19|"},
        {Auto(1e17, 1e19, AxLog), "100000000000000000|1E18|1E19|"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Texts(Ticks(c.Input, 400)), c.Texts) << c.Input.Start << " to " << c.Input.Stop;
}

TEST(Ticks, DecadesHaveMinorTicksAtFourSixAndEight) {
    const TKxTicks ticks = Ticks(Auto(1, 100, AxLog), 200, {AxVertical, true, false});
    EXPECT_EQ(std::vector<int>(ticks.Positions.begin(), ticks.Positions.end()),
              (std::vector<int>{0, 60, 78, 90, 100, 160, 178, 190, 200}));
    EXPECT_TRUE(ticks.IsMajor[4] && !ticks.IsMajor[7] && ticks.IsMajor[8]);
    EXPECT_EQ(Ticks(Auto(1e-300, 1e300, AxLogEE), 9000).Labels.size(), 601U);
    EXPECT_EQ(Ticks(Auto(1e-300, 1e300, AxLogEE), 1000).Positions.Length(), 301) << "no bar of ticks";
}

TEST(Ticks, HostileScalesEndInSomeTicksAndHideNoData) {
    const double hostile[] = {CNaN, -CInf, -1.7e308, -1e300,   -1e15,     0,     5e-324,  1e-300,
                              1,    1e15,  1e15 + 1, 1e15 + 4, 1e15 - 20, 1e300, 1.7e308, CInf};
    for (const double start : hostile)
        for (const double stop : hostile)
            for (const double step : {CNaN, -1.0, 0.0, 1e-300, 1e-5, 0.333333333333333, 7.0, 1e6, 1e300})
                for (int i = start > stop ? 8 : 0; i < 8; ++i) {
                    TKxScaleInput input = Auto(start, stop, i & 4 ? AxLog : AxNormal, AxFixed);
                    input.AutoTicks = false;
                    input.TickPart = step;
                    input.LabelPart = i & 2 ? step : 1e-9;
                    SCOPED_TRACE(testing::Message() << start << " to " << stop << " by " << step);
                    const TKxScaleEnds ends = CalculateEnds(input);
                    const double slack = (ends.Stop - ends.Start) / 100;
                    ASSERT_TRUE(i & 4 || !(start <= stop && stop - start < 1e308) ||
                                (ends.Start <= start + slack && ends.Stop >= stop - slack));
                    const TKxTicks ticks = Ticks(input, i & 1 ? 300 : 0);
                    ASSERT_TRUE(ticks.Positions.Length() >= 2 && ticks.Positions.Length() <= CMaxTicks);
                    ASSERT_EQ(std::adjacent_find(ticks.Values.begin(), ticks.Values.end()),
                              ticks.Values.end());
                    ASSERT_TRUE(ticks.Positions[0] >= 0 && ticks.Positions[ticks.Positions.High()] <= 300);
                    for (const TKxTickLabel& label : ticks.Labels)
                        ASSERT_EQ(ReadLabel(label.Text, ticks.ExponentLabel), label.Value) << label.Text;
                }
}

TEST(Ticks, LabelsAreLeftOutOnlyWhereAskedAndMajorsNever) {
    const TKxBooleanArray majors = Ticks(Auto(0.6, 7.05), 100, {AxVertical, false, true}).IsMajor;
    EXPECT_TRUE(!majors[0] && majors[2] && !majors[5] && majors[7]); // 1 and 2 of 0.6, 0.8, 1.0, ...
    EXPECT_EQ(Texts(Ticks(Auto(-1, 1), 100, {AxVertical, true, true})), "-1.0|-0.5|0.5|1.0|");
    EXPECT_EQ(Texts(Ticks(Auto(-1, 0), 100, {AxVertical, true, true})), "-1.0|-0.8|-0.6|-0.4|-0.2|0.0|");
}

} // namespace kx::test::ticks
