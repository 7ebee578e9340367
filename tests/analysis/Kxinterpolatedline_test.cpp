#include <kxgraph/analysis/Kxinterpolatedline.h>

#include "support/curveform.h"

#include <kxgraph/analysis/Kxapproxsplineline.h>
#include <kxgraph/analysis/Kxasplinedifferential.h>
#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxdifferential.h>
#include <kxgraph/analysis/Kxintegral.h>

namespace kx::test::interpolatedline {

struct TFixture : TCurveForm<TKxInterpolatedLine> {
    /// Points of a function at 0, Step, ..., Last.
    void Sample(double (*Function)(double), double Last, double Step) {
        for (double x = 0; x <= Last + Step / 2; x += Step) Fill({{x, Function(x)}});
    }
    template <class T>
    T* AddCurve(const char* Name) {
        auto* curve = Make<T>(Name);
        curve->SetParentSeries(Series);
        return curve;
    }
};

/// The largest distance of a curve from a function over the parent's data.
double WorstOf(const TKxCalculatedSeries& Curve, double Last, double (*Function)(double)) {
    double worst = 0;
    for (int i = 0; i < Curve.GetXData()->GetCount(); ++i) {
        const double x = Curve.GetXData()->GetValue(i);
        if (x >= 0 && x <= Last)
            worst = std::max(worst, std::abs(Curve.GetYData()->GetValue(i) - Function(x)));
    }
    return worst;
}

TEST(InterpolatedSeries, FollowAFunctionItsSlopeAndItsIntegral) {
    TFixture f;
    f.Sample(std::sin, 6, 0.05);
    const auto slope = [](double x) { return std::cos(x); };
    const auto integral = [](double x) { return 1 - std::cos(x); };
    const auto* line = f.AddCurve<TKxInterpolatedLine>("Line");
    const auto* differential = f.AddCurve<TKxDifferential>("Differential");
    const auto* area = f.AddCurve<TKxIntegral>("Integral");
    f.Draw();
    EXPECT_LT(WorstOf(*line, 6, std::sin), 2e-5);
    EXPECT_LT(WorstOf(*differential, 5.9, slope), 2e-2);
    EXPECT_LT(WorstOf(*area, 6, integral), 2e-5);
    ASSERT_EQ(line->GetMaxima().Length(), 1);
    EXPECT_NEAR(line->GetMaxima()[0].X, M_PI / 2, 1e-2);
    EXPECT_NEAR(line->GetMaxima()[0].Y, 1, 1e-5);
    EXPECT_NEAR(line->GetMinima()[0].X, 3 * M_PI / 2, 1e-2);
    EXPECT_NEAR(area->GetMaxima()[0].Y, 2, 1e-4);
    EXPECT_NEAR(differential->GetMinima()[0].Y, -1, 1e-2);

    const auto* spline = f.AddCurve<TKxApproxSplineLine>("Spline");
    const auto* splineSlope = f.AddCurve<TKxASplineDifferential>("SplineSlope");
    const auto* splineArea = f.AddCurve<TKxASplineIntegral>("SplineArea");
    for (TKxSeries* child : f.Series->GetChildren())
        if (auto* curve = dynamic_cast<TKxApproxSplineFunction*>(child)) curve->SetWeightFactor(1e6);
    f.Draw();
    EXPECT_LT(WorstOf(*spline, 6, std::sin), 1e-4);
    EXPECT_LT(WorstOf(*splineSlope, 5.5, slope), 0.1);
    EXPECT_LT(WorstOf(*splineArea, 6, integral), 0.05);
    const auto& stored = f.Series->GetResults();
    for (const char* section : {"Interpolation", "Differentiation", "Integration", "ApproximativeSpline",
                                "ApproximativeSplineDifferentiation", "ApproximativeSplineIntegral"})
        EXPECT_TRUE(stored.SectionExists(section)) << section;
    EXPECT_NEAR(stored.ReadReal("Differentiation", "Y-Minima(1)", 0), -1, 1e-2);
}

double Wave(double X) { return std::sin(0.7 * X) + 0.1 * X; }

/// A form whose curves come and go, change the number of their extrema and fail, as the steps have it.
struct TChangingForm : TFixture {
    void Step(unsigned Number) {
        MessageOf<EMathError>([&] { Change(Number); });
        MessageOf<EMathError>([&] { Draw(); });
    }
    void Change(unsigned Number) {
        auto* curve = Curves[Number % Curves.size()];
        switch (Number / 3 % 8) {
        case 0: Fill({{double(XV->GetCount()), std::sin(Number)}}); break;
        case 1: YV->SetValue(int(Number % unsigned(YV->GetCount())), std::cos(Number)); break;
        case 2: curve->SetParentSeries(curve->GetParentSeries() ? nullptr : Series); break;
        case 3: curve->SetName("Curve" + std::to_string(Number)); break;
        case 4: curve->SetCaption("Caption" + std::to_string(Number)); break;
        case 5: curve->SetCalculationStop(Number % 2 ? -1 : 7); break; // of no points, or of some
        case 6: Series->GetResults().WriteString("Interpolation", "Y-Minima(1)", "changed"); break;
        case 7: Series->GetResults().WriteString("Own" + std::to_string(Number), "Key", "1"); break;
        }
    }
    std::string Stores() const {
        std::string text = Series->GetResults().GetText();
        for (auto* curve : Curves) text += "----\n" + curve->GetResults().GetText();
        return text;
    }
    TFaults Faults;
    std::vector<TKxCalculatedSeries*> Curves{AddCurve<TKxInterpolatedLine>("One"),
                                             AddCurve<TKxDifferential>("Two"),
                                             AddCurve<TKxInterpolatedLine>("Three")};
};

/// What stands in the stores after every tenth random step; Watched looks after each of them.
std::vector<std::string> StoresOf(unsigned Run, bool Watched) {
    TChangingForm form;
    form.Sample(Wave, 12, 1);
    std::mt19937 random(Run);
    std::vector<std::string> stores;
    for (int step = 0; step < 30; ++step) {
        form.Step(unsigned(random() % 1000));
        if (Watched || step % 10 == 9) stores.push_back(form.Stores());
        if (Watched && step % 10 != 9) stores.pop_back();
    }
    return stores;
}

TEST(InterpolatedSeries, HoldInStoresThatAreLookedAtWhatTheyWouldHaveWrittenAtOnce) {
    for (unsigned run = 0; run < 15; ++run) ASSERT_EQ(StoresOf(run, false), StoresOf(run, true)) << run;
}

TEST(InterpolatedSeries, IntegrateRightlyWithMorePointsThanPixels) {
    TFixture f;
    f.Sample([](double) { return 1.0; }, 20, 0.01);
    const auto* area = f.AddCurve<TKxIntegral>("Integral");
    f.Draw();
    ASSERT_LT(area->GetXData()->GetCount(), f.XV->GetCount());
    EXPECT_LT(WorstOf(*area, 20, [](double x) { return x; }), 1e-10);
    const int count = area->GetXData()->GetCount();
    f.Graph->SetBounds(0, 0, 1400, 300);
    f.Draw();
    EXPECT_GT(area->GetXData()->GetCount(), 2 * count);
    EXPECT_LT(WorstOf(*area, 20, [](double x) { return x; }), 1e-10);
}

TEST(InterpolatedSeries, HaveTheSameIntegralInEveryView) {
    TFixture f;
    f.Sample(Wave, 12, 1);
    f.Fix(-3.3, 20.7, -2, 2);
    const auto* line = f.AddCurve<TKxInterpolatedLine>("Line");
    auto* area = f.AddCurve<TKxIntegral>("Integral");
    f.Draw();
    const auto x = [&](int i) { return area->GetXData()->GetValue(i); };
    const auto y = [&](int i) { return area->GetYData()->GetValue(i); };
    EXPECT_EQ(x(0), 0) << "not at the start of the axis";
    EXPECT_EQ(y(0), 0);
    const double reference = area->GetY(5.01);
    EXPECT_NEAR(reference, (1 - std::cos(0.7 * 5.01)) / 0.7 + 0.05 * 5.01 * 5.01, 0.05);

    for (const auto& view : {std::function<void()>([] {}),
                             {[&] { f.X->ZoomIn(5, 5.02); }},
                             {[&] { f.Graph->SetBounds(0, 0, 1400, 300); }},
                             {[&] { area->Calculate(); }}}) {
        view();
        f.Draw();
        const double middle = std::max(x(0), 5.01);
        int i = 0;
        while (x(i) < middle) ++i;
        EXPECT_NEAR(y(i), reference, 2 * f.X->GetScale());
        ASSERT_EQ(area->GetMaxima().Length(), 1);
        ASSERT_EQ(area->GetMinima().Length(), 1);
        for (const auto& pos : {area->GetMaxima()[0], area->GetMinima()[0]}) {
            EXPECT_NEAR(line->GetY(pos.X), 0, 1e-14);
            EXPECT_EQ(pos.Y, area->GetY(pos.X));
        }
    }
    EXPECT_NEAR(area->GetMaxima()[0].X, 5.297, 1e-3);
    EXPECT_NEAR(area->GetMinima()[0].X, 7.740, 1e-3);
    EXPECT_LT(x(1) - x(0), 0.02 / 1000) << "sampled for the view";

    f.X->ZoomBack();
    area->SetDisplayStart(0.37); // between two points
    f.Draw();
    EXPECT_EQ(y(0), 0);
    EXPECT_LT(std::abs(y(1)), f.X->GetScale());
}

TEST(InterpolatedSeries, SmoothByAWidthThatIsMeasuredOnTheAxis) {
    TFixture f;
    f.Fill({{1, 0}, {2, 3}, {3, 0}, {4, 3}, {5, 0}});
    auto* line = f.AddCurve<TKxInterpolatedLine>("Line");
    line->SetSmoothM(1.5);
    EXPECT_TRUE(line->GetDoSmoothing());
    f.Draw();
    EXPECT_NEAR(line->GetY(3), (0 + 2 * (1.0 / 3) * 3) / (1 + 2.0 / 3), 1e-12);
    f.X->SetScaling(AxLogEE);
    line->SetSmoothM(0.2); // decades: 3 to 4 and 2 to 3, not 1 to 2
    f.Draw();
    const double w2 = 1 - std::log10(3 / 2.0) / 0.2, w4 = 1 - std::log10(4 / 3.0) / 0.2;
    EXPECT_NEAR(line->GetY(3), (3 * w2 + 3 * w4) / (1 + w2 + w4), 1e-12);
}

TEST(InterpolatedSeries, HaveResultsForTheExtremaThatAreThere) {
    TFixture f;
    f.Fill({{0, 1}, {1, 0}});
    EXPECT_EQ(MessageOf<EMathError>([&] { f.Join(); }), "Interpolation: Not enough data!");
    EXPECT_EQ(f.Curve->GetXData()->GetCount(), 0);
    f.Fill({{2, 5}, {3, 0}, {4, 0.5}});
    f.Draw();
    EXPECT_EQ(f.Keys(7), "X-Minima(1) Y-Minima(1) X-Minima(2) Y-Minima(2) X-Maxima(1) Y-Maxima(1) ");
}

TEST(SecondaryAxis, IsMadeSharedAndNumbered) {
    TFixture f;
    f.Sample(std::cos, 3, 0.5);
    TKxAxis mirror(f.Form), taken(f.Form);
    for (TKxAxis* axis : {&mirror, &taken}) axis->SetParent(f.Graph);
    mirror.SetMirrorOf(f.Y);
    f.AddSeries()->SetYAxis(&taken);
    f.Draw();
    auto* first = f.AddCurve<TKxDifferential>("First");
    TKxAxis* axis = first->GetYAxis();
    ASSERT_NE(axis, nullptr);
    EXPECT_EQ(std::tuple(axis->GetName(), axis->GetPosition()), std::tuple("SecondaryAxis1", AxRightPos));
    EXPECT_EQ(axis->GetParent(), f.Graph);
    axis->SetVisible(false);
    EXPECT_EQ(f.AddCurve<TKxIntegral>("Second")->GetYAxis(), axis) << "the one there is";
    EXPECT_EQ(f.AddCurve<TKxASplineDifferential>("Third")->GetYAxis(), axis);
    EXPECT_TRUE(axis->GetVisible());
    f.Draw();
    EXPECT_LT(f.Y->GetStop(), 1.5) << "the derivative widens its own axis";
    EXPECT_LT(axis->GetStart(), -0.9);

    delete f.Form->FindComponent("First");
    EXPECT_EQ(f.Form->FindComponent("SecondaryAxis1"), axis) << "the axis stays";
    axis->SetParent(nullptr); // on no graph any more, but the name is taken
    EXPECT_EQ(f.AddCurve<TKxDifferential>("Fourth")->GetYAxis()->GetName(), "SecondaryAxis2");
}

TEST(SecondaryAxis, IsTheParentsWithZeroOriginAndAMasterIsFollowedAgain) {
    TFixture f;
    f.Sample(std::cos, 3, 0.5);
    f.Graph->SetZeroOrigin(true);
    EXPECT_EQ(f.AddCurve<TKxDifferential>("First")->GetYAxis(), f.Y);
    f.Graph->SetZeroOrigin(false);
    auto* slave = f.Make<TKxAxis>("Slave1", "Position=AxRightPos; MasterAxis=YAxis1; IsSlaveAxis=1");
    auto* second = f.AddCurve<TKxIntegral>("Second");
    EXPECT_EQ(second->GetYAxis(), slave);
    EXPECT_FALSE(slave->GetIsSlaveAxis());
    delete second;
    EXPECT_TRUE(slave->GetIsSlaveAxis());
}

} // namespace kx::test::interpolatedline
