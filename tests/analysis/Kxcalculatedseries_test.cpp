#include <kxgraph/analysis/Kxcalculatedseries.h>

#include "support/curveform.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>

namespace kx::test::calculatedseries {

/// y = x^2 over the display range; fails on demand.
class TSquare : public TKxCalculatedSeries {
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;
    double GetY(double X) const override {
        ++Evaluations;
        return X * X;
    }
    static AnsiString CalculationID() { return "Square Of X"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return "Y=X\\+2\\+"; }
    void CollectResults(TKxResults& Results) const override {
        TKxCalculatedSeries::CollectResults(Results);
        Results.Set("Runs", Runs);
    }
    void CalculateFunction() override {
        ++Runs;
        if (Fails) throw EMathError("Not enough data!");
        GetContinousLine();
    }
    using TKxCalculatedSeries::DisplayX;
    using TKxCalculatedSeries::DisplayY;
    int Runs = 0;
    mutable int Evaluations = 0;
    bool Fails = false;
};

struct TFixture : TCurveForm<TSquare> {
    TFixture() { Fill({{0, 1}, {10, 3}, {20, 5}}); }
    double FirstX() const { return Curve->DisplayX().GetValue(0); }
    double LastX() const { return Curve->DisplayX().GetValue(Curve->DisplayX().GetCount() - 1); }
};

TEST(CalculatedSeries, StandsUnderItsParentAndIsInertWithoutOne) {
    TFixture f;
    f.Curve->Calculate();
    EXPECT_EQ(f.Curve->Runs, 0);
    f.Join();
    EXPECT_EQ(f.Curve->Runs, 1) << "the parent holds points";
    EXPECT_EQ(f.Curve->GetXAxis(), f.X);
    EXPECT_EQ(f.Graph->GetSeriesList().GetCount(), 1) << "children are not in the graph's list";
    EXPECT_FALSE(LinesOf(f.Draw(), clGreen).empty()) << "but drawn";

    auto* other = f.AddSeries();
    f.Curve->SetParentSeries(other);
    EXPECT_TRUE(f.Series->GetChildren().empty());
    EXPECT_FALSE(f.Series->GetResults().SectionExists("SquareOfX"));
    delete f.Curve;
    EXPECT_TRUE(other->GetChildren().empty());
}

TEST(CalculatedSeries, DoesNotRunAwayOnOneAxisForBoth) {
    for (const bool yFirst : {false, true}) {
        TFixture f;
        yFirst ? f.Series->SetYAxis(f.X) : f.Series->SetXAxis(f.Y);
        f.Join();
        f.Fill({{1000, 1}});
        for (int i = 0; i < 20; ++i) f.Draw();
        EXPECT_LE((yFirst ? f.X : f.Y)->GetStop(), 2000);
    }
}

TEST(CalculatedSeries, FollowsDataAndAxisUntilAnEndIsGiven) {
    TFixture f;
    f.Fix(-10, 40, 0, 100);
    f.Join();
    f.Draw();
    EXPECT_EQ(std::pair(f.Curve->GetCalculationStart(), f.Curve->GetCalculationStop()), std::pair(0., 20.));
    EXPECT_EQ(std::pair(f.Curve->GetDisplayStart(), f.Curve->GetDisplayStop()), std::pair(-10., 40.));
    f.Curve->SetCalculationStart(f.Curve->GetCalculationStart());
    EXPECT_TRUE(f.Curve->GetAutoStart()) << "an equal value changes no flag";
    f.Curve->SetCalculationStart(5);
    EXPECT_FALSE(f.Curve->GetAutoStart());
    f.Curve->SetDisplayAutoStart(false);
    f.Draw();
    EXPECT_EQ(f.Curve->GetDisplayStart(), 5) << "coupled to the calculation";
    f.Curve->SetDisplayStart(2);
    EXPECT_FALSE(f.Curve->GetCoupleCalculationAndDisplay());
    EXPECT_TRUE(f.Curve->GetDisplayAutoStop());
    f.Draw();
    EXPECT_EQ(f.FirstX(), 2);
    EXPECT_NEAR(f.LastX(), 40, 50.0 / f.X->GetAxisLength());
    f.Curve->SetAutoStart(true);
    f.Draw();
    EXPECT_EQ(f.Curve->GetCalculationStart(), 0);
}

TEST(CalculatedSeries, IsSampledAtEveryPixelOfTheVisibleRange) {
    TFixture f;
    f.Fix(0, 20, 0, 400);
    f.Join();
    f.Draw();
    const auto expectSampled = [&] {
        f.Draw();
        const auto x = f.Curve->DisplayX().Values();
        EXPECT_NEAR(double(x.size()), f.X->GetAxisLength() + 2, 1) << "all on the visible part";
        for (std::size_t i = 1; i < x.size(); ++i) ASSERT_LE(x[i] - x[i - 1], f.X->GetScale()) << i;
    };
    expectSampled();
    f.Graph->ZoomTo({50, 50, 60, 60});
    expectSampled();
    EXPECT_GE(f.FirstX(), f.X->GetStart());
    EXPECT_LE(f.LastX(), f.X->GetStop());

    f.X->ZoomBack();
    f.Y->ZoomBack();
    f.Form->SetBounds(0, 0, 1220, 320);
    f.Graph->SetBounds(10, 10, 1200, 300);
    expectSampled();
    for (int i : {0, 100, 1000})
        EXPECT_EQ(f.Curve->DisplayY().GetValue(i), std::pow(f.Curve->DisplayX().GetValue(i), 2));

    // A display range of its own, far larger than the view or of no width.
    f.Curve->SetDisplayStart(1);
    f.Curve->SetDisplayStop(1e7);
    f.Draw();
    EXPECT_NEAR(f.LastX(), 20, f.X->GetScale());
    f.Curve->SetDisplayStop(1);
    f.Draw();
    EXPECT_EQ(f.Curve->DisplayX().GetCount(), 1);

    // Out of sight, and then in it.
    f.Curve->SetDisplayStart(1e3);
    f.Curve->SetDisplayStop(1e9);
    f.Draw();
    f.X->SetStop(2000);
    f.Draw();
    EXPECT_EQ(f.FirstX(), 1e3);
    EXPECT_NEAR(f.LastX(), 2000, 3 * f.X->GetScale());
}

TEST(CalculatedSeries, ReachesItsEndExactlyInEqualSteps) {
    const std::tuple<double, double, TKxAxScaling> cases[] = {
        {0.1, 12.3, AxNormal}, {-7, 1.0 / 3, AxNormal}, {1e15, 1e15 + 40, AxNormal}, {1e-3, 0.7, AxLog}};
    for (const auto& [start, stop, scaling] : cases) {
        SCOPED_TRACE(stop);
        TFixture f;
        f.XV->Clear();
        for (const double x : {start, (start + stop) / 2, stop}) f.XV->Add(x);
        f.X->SetScaling(scaling);
        f.Curve->SetDisplayAutoStart(false);
        f.Curve->SetDisplayAutoStop(false);
        f.Join();
        f.Draw();
        EXPECT_EQ(std::tuple(f.FirstX(), f.LastX()), std::tuple(start, stop));
        const auto x = f.Curve->DisplayX().Values();
        const auto place = [log = scaling != AxNormal](double X) { return log ? std::log(X) : X; };
        const double first = place(start), step = (place(stop) - first) / double(x.size() - 1);
        for (std::size_t i = 0; i < x.size(); ++i)
            ASSERT_NEAR(place(x[i]), first + double(i) * step, 1e-15 * (std::abs(first) + 1)) << i;
        const auto points = f.Curve->GetPoints().Values();
        for (std::size_t i = 1; i < points.size() && start < 1e15; ++i)
            ASSERT_LE(points[i].X - points[i - 1].X, 1) << i;
        f.X->ZoomIn((start + stop) / 2, stop + (stop - start) / 3);
        f.Draw();
        EXPECT_EQ(f.LastX(), stop) << "the end is in view";
    }
}

TEST(CalculatedSeries, WaitsForItsAxisAndIsNeverWorthMoreThanAFewViews) {
    TFixture f;
    f.Fill({{1e6, 7}}); // far from the 0 to 100 that the axis begins with
    f.Join();
    EXPECT_EQ(f.Curve->Evaluations, 0) << "the axis has not seen the data";
    f.Draw();
    EXPECT_NEAR(f.Curve->DisplayX().GetCount(), f.X->GetAxisLength() + 2, 1);
    EXPECT_LE(f.Curve->Evaluations, 3 * f.X->GetAxisLength());
    f.Fix(0, 1e-3, 0, 1);
    const int before = f.Curve->Evaluations;
    f.Curve->Calculate();
    EXPECT_EQ(f.Curve->Evaluations, before);
    f.Draw();
    EXPECT_GT(f.Curve->DisplayX().GetCount(), f.X->GetAxisLength());
    EXPECT_LE(f.Curve->DisplayX().GetCount(), 11 * f.X->GetAxisLength());

    TKxAxis alone(f.Form); // on no graph, so laid out by no frame
    f.Series->SetXAxis(&alone);
    f.Curve->Calculate();
    EXPECT_GT(f.Curve->DisplayX().GetCount(), 1);
    EXPECT_LE(f.Curve->DisplayX().GetCount(), 20);
}

TEST(CalculatedSeries, LetsItsAxisShrinkAgainAndLeavesAZoomAlone) {
    TFixture f;
    f.Join();
    f.Fill({{1000, 5}});
    f.Draw();
    EXPECT_EQ(f.X->GetStop(), 1000);
    EXPECT_GE(f.Y->GetStop(), 1e6);
    f.XV->Delete(3);
    f.YV->Delete(3);
    f.Draw();
    EXPECT_EQ(std::tuple(f.X->GetStop(), f.Y->GetStop()), std::tuple(20, 400));
    f.Graph->ZoomTo({20, 20, 40, 40});
    f.Draw();
    const auto range = [&] { return std::pair(f.Y->GetStart(), f.Y->GetStop()); };
    const auto before = range();
    f.YV->SetValue(1, 4);
    f.Draw();
    EXPECT_EQ(range(), before);
    EXPECT_EQ(f.Curve->GetDisplayStart(), f.X->GetStart());
}

TEST(CalculatedSeries, FollowsDataWeightsAndScalingByTheNextFrame) {
    TFixture f;
    f.Join();
    f.Draw();
    f.Draw();
    int runs = f.Curve->Runs;
    f.Draw();
    EXPECT_EQ(f.Curve->Runs, runs) << "nothing has changed";
    TKxLiveVector weight(f.Form), own(f.Form);
    weight.Add(1);
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a point is added", [&] { f.XV->Add(30), f.YV->Add(1); }},
        {"a value changes", [&] { f.YV->SetValue(0, 2); }},
        {"a point goes", [&] { f.XV->Delete(3); }},
        {"the parent gets weights", [&] { f.Series->SetWeight(&weight); }},
        {"a weight of the parent changes", [&] { weight.SetValue(0, 2); }},
        {"own weights", [&] { f.Curve->SetWeight(&own); }},
        {"an own weight changes", [&] { own.Add(3); }},
        {"the parent's weights again", [&] { f.Curve->SetParentWeight(true); }},
        {"an axis becomes logarithmic", [&] { f.Y->SetScaling(AxLogEE); }},
        {"an end is given", [&] { f.Curve->SetCalculationStop(7); }},
    };
    for (const auto& [what, change] : changes) {
        runs = f.Curve->Runs;
        change();
        f.Draw();
        EXPECT_GT(f.Curve->Runs, runs) << what;
    }
    EXPECT_EQ(f.Curve->GetWeight(), &weight);
}

TEST(CalculatedSeries, NamesTheSeriesInAFailureAndTakesOldResultsAway) {
    TFixture f;
    f.Curve->SetCaption("Calibration");
    f.Join();
    auto& stored = f.Series->GetResults();
    EXPECT_TRUE(f.Curve->GetError().empty());
    const auto found = [&](const char* Key) {
        const TKxResult* result = f.Curve->GetFound().Find(Key);
        return result ? result->GetText() : "none";
    };
    EXPECT_EQ(found("runs"), "1") << "whatever the case";
    f.Curve->Fails = true;
    EXPECT_EQ(MessageOf<EMathError>([&] { f.Curve->Calculate(); }), "Calibration: Not enough data!");
    EXPECT_EQ(stored.ReadString("SquareOfX", "Runs", "none"), "none");
    EXPECT_EQ(stored.ReadString("SquareOfX", "Error", ""), "Calibration: Not enough data!");
    EXPECT_EQ(found("Runs") + found("Caption") + found("Error"),
              "noneCalibrationCalibration: Not enough data!");
    EXPECT_EQ(f.Curve->DisplayX().GetCount(), 0);

    // In a frame, beside a child that works.
    TKxLinearRegressionLine line(f.Form);
    line.SetParentSeries(f.Series);
    TFaults faults;
    f.Fill({{30, 7}});
    f.Draw();
    EXPECT_EQ(faults.Count, 1) << faults.Text;
    EXPECT_DOUBLE_EQ(line.GetFit().Slope, 0.2);

    std::string told;
    int calculated = 0;
    f.Curve->OnError = [&](TComponent* Sender, const Exception& Error) {
        told = Sender->GetName() + "|" + Error.Message();
    };
    f.Curve->OnCalculated = [&](TComponent*) { ++calculated; };
    f.Curve->Calculate();
    EXPECT_EQ(told, "Curve1|Calibration: Not enough data!");
    EXPECT_EQ(calculated, 1) << "a handled error lets the rest go on";
    f.Curve->Fails = false;
    f.Curve->Calculate();
    EXPECT_EQ(f.Curve->GetError(), "");
    EXPECT_FALSE(stored.ReadString("SquareOfX", "Runs", "none") == "none");
    f.Curve->SetParentSeries(nullptr);
    EXPECT_TRUE(f.Curve->GetFound().GetItems().empty());

    TKxCalculatedSeries base(f.Form);
    EXPECT_TRUE(Holds(MessageOf<EMathError>([&] { base.SetParentSeries(f.Series); }), "must be overridden"));
}

TEST(CalculatedSeries, NumbersSectionsOfOneKindAmongTheParentsChildren) {
    TFixture f;
    auto* first = new TKxPolynomLine(f.Form);
    auto* line = new TKxLinearRegressionLine(f.Form);
    auto* second = new TKxPolynomLine(f.Form);
    for (TKxCalculatedSeries* fit : std::initializer_list<TKxCalculatedSeries*>{first, line, second})
        fit->SetParentSeries(f.Series);
    second->SetName("Second");
    f.Draw();
    auto& stored = f.Series->GetResults();
    for (const char* section : {"PolynomialRegression", "LinearRegression", "PolynomialRegression(2)"})
        EXPECT_TRUE(stored.SectionExists(section)) << section;
    EXPECT_EQ(second->GetOwnIndex(), " (2)");
    EXPECT_EQ(second->GetResults().ReadString("Second", "Calculation", ""), "Polynomial Regression");
    const int lines = stored.GetCount();
    for (int i = 0; i < 10; ++i) line->Calculate();
    EXPECT_EQ(stored.GetCount(), lines) << "the store does not grow";
    delete first;
    f.Draw();
    EXPECT_TRUE(stored.SectionExists("PolynomialRegression"));
    EXPECT_FALSE(stored.SectionExists("PolynomialRegression(2)"));
}

TEST(CalculatedSeries, ShowsPositionsAsItsAxisDoesFromThenOn) {
    TFixture f;
    f.Curve->SetParentSeries(f.Series);
    f.Draw();
    const int runs = f.Curve->Runs;
    const auto stop = [&f] { return f.Curve->GetResults().ReadString("Curve1", "CalcStop", ""); };
    const AnsiString number = stop();
    f.Set("XAxis1.LabelKind=lkDates");
    f.Draw();
    EXPECT_EQ(stop(), "1970-01-01 00:00:20.00000");
    f.X->SetOnZoneOffset([](double) { return 3600; });
    f.Draw();
    EXPECT_EQ(stop(), "1970-01-01 01:00:20.00000");
    EXPECT_EQ(f.Curve->Runs, runs) << "without a calculation";
    f.Set("XAxis1.LabelKind=lkNumbers");
    f.Draw();
    EXPECT_EQ(stop(), number);
}

TEST(CalculatedSeries, ReadsAnOutfitBackWithoutSwitchingAnAutomaticOff) {
    TFixture f;
    f.Join();
    f.Curve->SetAutoStop(false);
    f.Curve->SetDisplayStart(3);
    f.Draw();
    TKxIniList ini;
    f.Series->WriteToIni(ini, "S");
    EXPECT_EQ(ini.ReadString("S.Child(1)", "ParentSeries", ""), "Form1.Series1");
    EXPECT_EQ(ini.ReadString("S.Child(1)", "Calculation", ""), "Square Of X");

    TSquare other(f.Form);
    const int runs = other.Runs;
    other.ReadFromIni(ini, "S.Child(1)");
    EXPECT_EQ(other.GetParentSeries(), f.Series);
    EXPECT_EQ(other.Runs, runs) << "reading starts no calculation";
    EXPECT_TRUE(other.GetAutoStart() && !other.GetAutoStop() && !other.GetDisplayAutoStart());
    EXPECT_EQ(std::pair(other.GetCalculationStop(), other.GetDisplayStart()), std::pair(20.0, 3.0));
    f.Draw();
    EXPECT_GT(other.Runs, runs) << "the next frame does";
}

} // namespace kx::test::calculatedseries
