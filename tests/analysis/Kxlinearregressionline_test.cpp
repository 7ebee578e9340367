#include <kxgraph/analysis/Kxlinearregressionline.h>

#include "support/curveform.h"

namespace kx::test::linearregressionline {

using TFixture = TCurveForm<TKxLinearRegressionLine>;

TEST(LinearRegressionLine, RunsThroughTheDataOfEachKindOfAxes) {
    const struct {
        TKxAxScaling X, Y;
        double (*Function)(double);
        double Slope, Offset;
        const char* Formula;
    } cases[] = {
        {AxNormal, AxNormal, [](double x) { return 1 + 2 * x; }, 2, 1, "Y=a+b(X)"},
        {AxNormal, AxLogEE, [](double x) { return std::pow(10, 0.5 * x - 1); }, 0.5, -1, "lg(Y)=a+b(X)"},
        {AxLogEE, AxNormal, [](double x) { return 3 * std::log10(x) + 4; }, 3, 4, "Y=a+b(lg(X))"},
        {AxLogEE, AxLogEE, [](double x) { return 5 * x * x; }, 2, std::log10(5), "lg(Y)=a+b(lg(X))"},
    };
    for (const auto& [scalingX, scalingY, function, slope, offset, formula] : cases) {
        TFixture f;
        f.X->SetScaling(scalingX);
        f.Y->SetScaling(scalingY);
        for (double x : {1.0, 2.0, 4.0, 7.0, 12.0}) f.Fill({{x, function(x)}});
        f.Fill({{NAN, 1}, {3, INFINITY}});
        f.Join();
        const auto lines = LinesOf(f.Draw(), clGreen);
        EXPECT_NEAR(f.Result("Slope"), slope, 1e-12) << formula;
        EXPECT_NEAR(f.Result("Offset"), offset, 1e-12) << formula;
        EXPECT_NEAR(f.Curve->GetY(3), function(3), 1e-12) << formula;
        EXPECT_EQ(f.ResultText("Formula"), formula);
        ASSERT_EQ(lines.size(), 1u) << formula;
        ASSERT_EQ(lines[0].Points.size(), 2u) << "two ends, from axis end to axis end";
        EXPECT_EQ(lines[0].Points[1].X - lines[0].Points[0].X, f.X->GetAxisLength());
        for (double x : {f.X->GetStart(), f.X->GetStop()})
            EXPECT_NEAR(lines[0].Points[x == f.X->GetStop()].Y - f.World().Y,
                        f.Y->RealToIntPosition(f.Curve->GetY(x)), 1);
    }
}

TEST(LinearRegressionLine, HeedsWeightsRangeAndAGivenOffset) {
    TFixture f;
    f.Fill({{1, 1}, {2, 2}, {3, 3}, {4, 40}});
    f.Join();
    f.Curve->SetCalculationStop(3);
    f.Draw();
    EXPECT_DOUBLE_EQ(f.Result("Slope"), 1);
    f.Curve->SetAutoStop(true);
    TKxLiveVector weight(f.Form);
    for (double w : {1.0, 1.0, 1.0, 0.0}) weight.Add(w);
    f.Series->SetWeight(&weight);
    f.Draw();
    EXPECT_DOUBLE_EQ(f.Result("Slope"), 1);
    f.Curve->SetFixedOffset(-1);
    EXPECT_TRUE(f.Curve->GetDoFixedOffset());
    f.Draw();
    EXPECT_NEAR(f.Result("Slope"), (1 * 2 + 2 * 3 + 3 * 4) / 14.0, 1e-13);
    EXPECT_EQ(f.Result("Offset"), -1);
}

// The last ten seconds of two channels, of which frames see only every seventh state.
TEST(LinearRegressionLine, FollowsAWindowThatMovesOn) {
    TFixture f;
    f.XV->SetMaxCount(40);
    f.YV->SetMaxCount(40);
    f.Join();
    for (int i = 0; i < 500; ++i) {
        f.Fill({{i * 0.25, i % 100 == 0 ? 1000. : i * i * 0.01}});
        if (i % 7 != 0 || i < 50) continue;
        f.Draw();
        double sx = 0, sy = 0, sxx = 0, sxy = 0, high = 0;
        for (int k = i - 39; k <= i; ++k) {
            const double x = k * 0.25, y = k % 100 == 0 ? 1000. : k * k * 0.01;
            sx += x, sy += y, sxx += x * x, sxy += x * y, high = std::max(high, y);
        }
        ASSERT_NEAR(f.Result("Slope"), (40 * sxy - sx * sy) / (40 * sxx - sx * sx), 1e-6) << i;
        ASSERT_EQ(f.Result("Points"), 40);
        ASSERT_EQ(f.Series->GetXRange().GetStart(), (i - 39) * 0.25);
        ASSERT_EQ(f.Series->GetYRange().GetStop(), high);
    }
}

TEST(LinearRegressionLine, WritesItsKeysInOrderAndTheirNumbers) {
    TFixture f;
    f.Fill({{0, 1.1}, {1, 2.9}, {2, 5.2}, {3, 6.8}});
    f.Join();
    EXPECT_EQ(f.Keys(),
              "Calculation Caption Formula CalcStart CalcStop DisplayStart DisplayStop DoFixedOffset "
              "AverageX VarianceX AverageY VarianceY R ChiSquare Offset DeltaOffset DeltaOffset% Slope "
              "DeltaSlope DeltaSlope% Points R2 AdjR2 ");
    // By hand: slope 1.94, offset 1.09, residuals 0.01 -0.13 0.23 -0.11.
    const std::pair<const char*, double> expected[] = {{"Slope", 1.94},
                                                       {"Offset", 1.09},
                                                       {"AverageY", 4},
                                                       {"ChiSquare", 0.0820},
                                                       {"R2", 1 - 0.082 / 18.9},
                                                       {"DeltaSlope", std::sqrt(0.0820 / 2 / 5)},
                                                       {"AdjR2", 1 - 0.082 / 18.9 * 3 / 2}};
    for (const auto& [key, value] : expected) EXPECT_NEAR(f.Result(key), value, 1e-12) << key;
    EXPECT_NEAR(f.Result("DeltaSlope%"), f.Result("DeltaSlope") / 1.94 * 100, 1e-10);
}

TEST(LinearRegressionLine, DrawsNothingWhereThereIsNoLine) {
    TFixture f;
    f.Curve->SetCaption("fit");
    f.Fill({{5, 1}});
    EXPECT_EQ(MessageOf<EMathError>([&] { f.Join(); }), "fit: Not enough data!");
    f.Fill({{5, 2}, {5, 3}});
    EXPECT_TRUE(LinesOf(f.Draw(), clGreen).empty());
    EXPECT_EQ(f.Result("Slope"), 1.7e308);
    EXPECT_TRUE(std::isnan(f.Curve->GetY(1)));
    EXPECT_LT(f.Y->GetStop(), 10) << "a marker moves no axis";
}

TEST(LinearRegressionLine, WithoutMarkersKeysAreLeftOutThatDataLeaveOpen) {
    const auto cases =
        Cases<std::string, TReals, TReals, bool, std::string>("fits", "keys that data leave open");
    for (const auto& [what, x, y, drawn, missing] : cases) {
        TFixture f;
        f.XV->AddValues(x);
        f.YV->AddValues(y);
        f.Join();
        std::string with = f.Keys();
        f.Curve->SetMarkers(false);
        f.Draw();
        for (std::istringstream keys(f.Keys()); keys >> std::ws && !keys.eof();) {
            std::string key;
            keys >> key;
            with.erase(with.find(key + " "), key.size() + 1);
        }
        EXPECT_EQ(with, missing) << what;
        EXPECT_EQ(f.Curve->GetPointsCount() > 0, drawn) << what;
        EXPECT_EQ(f.Result("Slope") == 0, what == "y equal") << what;
        for (const auto& key : f.Curve->KeysWithoutValue()) EXPECT_TRUE(std::isnan(f.Result(key.c_str())));
    }
}

TEST(LinearRegressionLine, ReachesAnAxisEndThatIsMovedOutAndStaysInAZoom) {
    TFixture f;
    f.Fix(0, 10, 0, 50);
    f.Fill({{1, 1}, {9, 9}});
    f.Join();
    f.Draw();
    f.X->SetStop(20);
    f.Draw();
    EXPECT_EQ(f.Curve->GetXData()->GetValue(1), 20);
    f.Graph->ZoomTo({10, 10, 30, 30});
    f.Draw();
    EXPECT_EQ(f.Curve->GetXData()->GetValue(0), 0);
    EXPECT_EQ(f.Curve->GetXData()->GetValue(1), 20);
}

} // namespace kx::test::linearregressionline
