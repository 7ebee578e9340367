#include <kxgraph/analysis/Kxfittedline.h>

#include "support/curveform.h"

#include <kxgraph/annotation/Kxresultlabel.h>

namespace kx::test::fittedline {

double Decay(double X, const TKxRealArray& C) { return C[0] * std::exp(-C[1] * X) + C[2]; }

struct TFixture : TCurveForm<TKxFittedLine> {
    TFixture() {
        for (double x = 0; x < 10; x += 0.25) Fill({{x, 5 * std::exp(-0.7 * x) + 1}});
        Fit->SetCaption("decay");
        Fit->SetOrder(3);
        Fit->SetFittingFunction(Decay);
        Fit->SetExpression("a*exp(-b*x)+c");
        Restart({1, 1, 1});
    }
    void Restart(std::initializer_list<double> Values) {
        int i = 0;
        for (double value : Values) Fit->SetCoefficient(i++, value);
    }
    TKxFittedLine* Fit = Curve;
};

TEST(FittedLine, FindsTheCoefficientsAndFollowsLiveData) {
    TFixture f;
    f.Join();
    f.Draw();
    const double expected[] = {5, 0.7, 1};
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(f.Fit->GetCoefficient(i), expected[i], 1e-6) << i;
    EXPECT_EQ(f.ResultText("Formula"), "a*exp(-b*x)+c");
    EXPECT_EQ(f.ResultText("VarianceCoVariance"), "Variance");
    EXPECT_NEAR(f.Result("Coeff(2)"), 0.7, 1e-6);
    EXPECT_EQ(f.Result("Iterations"), 1000);
    EXPECT_NEAR(f.Fit->GetYData()->GetValue(5), Decay(f.Fit->GetXData()->GetValue(5), {5, 0.7, 1}), 1e-6);

    for (int i = 0; i < f.YV->GetCount(); ++i) f.YV->SetValue(i, f.YV->GetValue(i) + (i % 2 ? 0.01 : -0.01));
    f.Draw();
    EXPECT_NEAR(f.Result("ChiSquare"), 40 * 1e-4, 4e-4);
    EXPECT_NEAR(f.Result("ResidualVariance"), f.Result("ChiSquare") / 37, 1e-9);
    double mean = 0, deviations = 0;
    for (const double y : f.YV->Values()) mean += y / 40;
    for (const double y : f.YV->Values()) deviations += (y - mean) * (y - mean);
    EXPECT_NEAR(f.Result("R2"), 1 - f.Result("ChiSquare") / deviations, 1e-12);
    EXPECT_GT(f.Result("DeltaCoeff(1)"), 0.005);
    EXPECT_LT(f.Result("DeltaCoeff(1)"), 0.02);
}

TEST(FittedLine, HeedsWeightsRangeAndBlocks) {
    TFixture f;
    f.Fill({{20, 300}, {21, NAN}});
    f.Fit->SetCalculationStop(15);
    int calls = 0;
    f.Fit->SetFittingBlockFunction(
        [&](std::span<const double> X, const TKxRealArray& C, std::span<double> Y) {
            ++calls;
            for (std::size_t i = 0; i < X.size(); ++i) Y[i] = Decay(X[i], C);
        });
    f.Join();
    EXPECT_GT(calls, 100);
    EXPECT_NEAR(f.Fit->GetCoefficient(0), 5, 1e-6);
    f.Fit->SetAutoStop(true);
    TKxLiveVector weight(f.Form);
    for (int i = 0; i < 42; ++i) weight.Add(i < 40 ? -2 : 0); // the size of a weight counts
    f.Series->SetWeight(&weight);
    f.Restart({1, 1, 1});
    f.Draw();
    EXPECT_NEAR(f.Fit->GetCoefficient(0), 5, 1e-6);
    EXPECT_NEAR(f.Result("ResidualVariance") * 37, f.Result("ChiSquare"), 1e-12)
        << "without points of weight 0";
    EXPECT_GT(f.Result("R2"), 0.999);
    f.Fit->SetFittingBlockFunction({});
    f.Draw();
    EXPECT_NEAR(f.Fit->GetCoefficient(1), 0.7, 1e-6);
}

/// What a handler may do to the fit that calls it, at once or in a frame.
void LetHandlerAct(int Handler, int Deed, bool FromFrame) {
    SCOPED_TRACE(testing::Message() << "handler " << Handler << ", deed " << Deed << FromFrame);
    TFixture f;
    const TFaults faults;
    auto& label = *f.Make<TKxResultLabel>("Label1", "Identifier=ChiSquare; Series=Curve1");
    int left = FromFrame ? 0 : 1;
    const std::function<void()> deeds[] = {
        [&] { f.Fit->SetParentSeries(nullptr); },
        [&] { delete f.Fit; },
        [&] { delete f.Series; },
        [&] { f.XV->Clear(), f.YV->Clear(); },
        [&] { delete f.XV; },
        [&] { f.Fit->Calculate(); },
        [&] {
            f.Fit->SetFittingFunction([](double, const TKxRealArray& C) { return C[0]; }), f.Fit->SetOrder(1);
        },
        [&] { delete f.Fit, throw Exception("of the handler"); }};
    const auto act = [&](TComponent*) {
        if (left-- == 1) deeds[Deed]();
    };
    f.Fit->SetCheckConvergence(Handler == 3);
    if (Handler == 0) f.Fit->OnIteration = act;
    if (Handler == 1) f.Fit->OnCalculated = act;
    if (Handler == 2)
        f.Fit->OnError = [&](TComponent* Fit, const Exception&) { act(Fit); }, f.Fit->SetIterations(0);
    if (Handler == 3)
        f.Fit->OnIteration = [&](TComponent* Fit) {
            if (f.Fit->IsChecking()) act(Fit);
        };
    Guarded([&] { f.Join(); });
    if (FromFrame) left = 1, f.YV->SetValue(3, 4);
    for (int frame = 0; frame < 2; ++frame) f.Draw();
    EXPECT_LE(left, 0) << "was called";
    EXPECT_EQ(faults.Text, Deed == 7 ? "of the handler" : faults.Text);
    if (Deed == 5 || Deed == 6) return; // goes on with what it has
    EXPECT_EQ(label.GetCaption(), "...");
}

TEST(FittedLine, LetsHandlersTakeAwayWhatItWorksOn) {
    for (int run = 0; run < 4 * 8 * 2; ++run) LetHandlerAct(run / 16, run / 2 % 8, run % 2);
}

TEST(FittedLine, CanBeWatchedAndStopped) {
    TFixture f;
    int seen = 0;
    f.Fit->OnIteration = [&](TComponent*) { ++seen; };
    f.Fit->SetIterations(1);
    f.Join();
    EXPECT_EQ(seen, 2) << "a budget of one is two iterations";
    f.Fit->SetIterations(500);
    f.Fit->OnIteration = [&](TComponent*) {
        if (++seen == 20) f.Fit->Stop();
    };
    seen = 0;
    const double before = f.Fit->GetChiSquare();
    f.Fit->Calculate();
    EXPECT_EQ(seen, 20);
    EXPECT_EQ(f.Fit->GetIterationsDone(), 20);
    EXPECT_LT(f.Fit->GetChiSquare(), before) << "the best so far is kept";
    f.Restart({5, 0.7, 1});
    seen = 100;
    f.Fit->Calculate();
    EXPECT_EQ(f.Fit->GetIterationsDone(), 1) << "nothing is better than 0";
}

TEST(FittedLine, FindsOutWithoutMovingWhetherItIsAtRest) {
    struct TOutcome {
        std::vector<double> Numbers;
        std::optional<bool> Converged;
        std::string Key;
        int Iterations = 0, Checks = 0; ///< of the last run
    };
    const auto fitted = [](bool Check, int Iterations, int Runs, bool Stops = false) {
        TFixture f;
        TOutcome outcome;
        for (int i = 0; i < 40; ++i) f.YV->SetValue(i, f.YV->GetValue(i) + (i % 3 == 0 ? 0.01 : -0.02));
        f.Fit->SetIterations(Iterations);
        f.Fit->SetCheckConvergence(Check);
        f.Fit->OnIteration = [&](TComponent*) {
            ++(f.Fit->IsChecking() ? outcome.Checks : outcome.Iterations);
            if (f.Fit->IsChecking() && Stops) f.Fit->Stop();
        };
        f.Join();
        for (int run = 1; run < Runs; ++run) {
            outcome.Iterations = outcome.Checks = 0;
            f.Fit->Calculate();
        }
        EXPECT_EQ(outcome.Iterations, f.Fit->GetIterationsDone());
        EXPECT_FALSE(f.Fit->IsChecking());
        for (int i = 0; i < 3; ++i) outcome.Numbers.push_back(f.Fit->GetCoefficient(i));
        outcome.Numbers.push_back(f.Result("ChiSquare"));
        outcome.Converged = f.Fit->GetConverged();
        outcome.Key = f.ResultText("Converged");
        return outcome;
    };
    const auto unchecked = fitted(false, 25, 1), moving = fitted(true, 25, 1), atRest = fitted(true, 300, 5),
               stopped = fitted(true, 300, 5, true);
    EXPECT_EQ(std::tuple(unchecked.Converged, unchecked.Key, unchecked.Checks),
              std::tuple(std::nullopt, "none", 0));
    EXPECT_EQ(std::pair(moving.Converged, moving.Key), std::pair(std::optional(false), std::string("0")));
    EXPECT_EQ(moving.Numbers, unchecked.Numbers);
    EXPECT_LT(moving.Checks, 26) << "the first gain is enough";
    EXPECT_EQ(std::tuple(atRest.Converged, atRest.Key, atRest.Checks),
              std::tuple(std::optional(true), "1", 301));
    EXPECT_EQ(std::tuple(stopped.Converged, stopped.Key, stopped.Checks),
              std::tuple(std::nullopt, "none", 1));
    EXPECT_EQ(stopped.Numbers, atRest.Numbers);
}

TEST(FittedLine, WeighsByTheSpreadOfRepeatedPoints) {
    TFixture f;
    f.Fit->SetDoCovariance(true);
    EXPECT_TRUE(Holds(MessageOf<EMathError>([&] { f.Join(); }), "points of equal x"));
    // Pairs about the curve, and a single point off it, which has no spread and so no say.
    f.XV->Clear();
    f.YV->Clear();
    for (double x = 0; x < 10; x += 0.5)
        for (double shift : {-0.1, 0.1}) f.Fill({{x, Decay(x, {5, 0.7, 1}) + shift}});
    f.Fill({{4.2, 50}});
    f.Fit->Calculate();
    f.Fit->Calculate();
    EXPECT_NEAR(f.Fit->GetY(1), Decay(1, {5, 0.7, 1}), 0.11);
    EXPECT_NEAR(f.Fit->GetY(8), Decay(8, {5, 0.7, 1}), 0.11);
}

TEST(FittedLine, SaysWhatIsMissing) {
    TFixture f;
    TKxLiveVector zero(f.Form);
    for (int i = 0; i < 40; ++i) zero.Add(0);
    f.Fit->OnError = [](TComponent*, const Exception&) {};
    f.Join();
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"decay: Reciprocal indefinite!", [&] { f.Fit->SetWeight(&zero); }},
        {"decay: Not enough data!", [&] { f.Fit->SetCalculationStart(9.5); }},
        {"decay: Simplex Fit: no iterations set!", [&] { f.Fit->SetIterations(0); }},
        {"decay: Fitted Line: Order <=0", [&] { f.Fit->SetOrder(0); }},
        {"decay: Fitted Line: no FittingFunction defined", [&] { f.Fit->SetFittingFunction({}); }},
    };
    for (const auto& [message, change] : cases) {
        change();
        f.Fit->Calculate();
        EXPECT_EQ(f.Fit->GetError(), message);
    }
    EXPECT_THROW(f.Fit->SetCoefficient(0, 1), ERangeError);
}

TEST(FittedLine, FitsByDampedLeastSquaresAndStopsByItself) {
    TFixture f;
    for (int i = 0; i < f.YV->GetCount(); ++i) f.YV->SetValue(i, f.YV->GetValue(i) + (i % 3 ? 0.01 : -0.02));
    f.Fit->SetMethod(fmDamped);
    f.Fit->SetCoefficientNames({"a", "b", "c"});
    f.Restart({0, 0, 0});
    int seen = 0, derivatives = 0;
    f.Fit->OnIteration = [&](TComponent*) { ++seen; };
    f.Join();
    EXPECT_EQ(seen, f.Fit->GetIterationsDone());
    EXPECT_LT(seen, 60);
    EXPECT_EQ(f.ResultText("Converged"), "1");
    const double chiSquare = f.Fit->GetChiSquare(), error = f.Result("Delta(b)"),
                 covariance = f.Result("Covariance(1,2)");
    EXPECT_NEAR(covariance, f.Fit->GetCovariance().Between(0, 1), 1e-13 * std::abs(covariance));
    EXPECT_LT(std::abs(covariance), error * f.Result("Delta(a)"));

    f.Fit->SetFittingDerivatives([&](double X, const TKxRealArray& C, TKxRealArray& D) {
        ++derivatives;
        D[0] = std::exp(-C[1] * X);
        D[1] = -X * C[0] * D[0];
        D[2] = 1;
    });
    f.Restart({1, 1, 1});
    f.Draw();
    EXPECT_GT(derivatives, 40);
    EXPECT_NEAR(f.Fit->GetChiSquare() / chiSquare, 1, 1e-12);
    EXPECT_NEAR(f.Result("Delta(b)") / error, 1, 1e-9);
    for (const auto method : {fmSimplex, fmDamped}) {
        f.Fit->SetMethod(method);
        f.Fit->SetFixedCoefficients("c");
        f.Fit->SetBounds("2 = 0.9.., a=..9");
        f.Restart({1, 0.5, 1.25});
        f.Draw();
        EXPECT_EQ(std::pair(f.Fit->GetCoefficient(1), f.Fit->GetCoefficient(2)), std::pair(0.9, 1.25));
        double products = 0, squares = 0; // of a line through 0 in exp(-0.9 x)
        for (int i = 0; i < f.YV->GetCount(); ++i) {
            const double t = std::exp(-0.9 * f.XV->GetValue(i));
            products += t * (f.YV->GetValue(i) - 1.25);
            squares += t * t;
        }
        EXPECT_NEAR(f.Fit->GetCoefficient(0), products / squares, 1e-6);
        EXPECT_NEAR(f.Result("ResidualVariance") * 38, f.Result("ChiSquare"), 1e-12) << "of two coefficients";
        EXPECT_EQ(f.ResultText("Delta(b)"), "none") << "held at its bound";
        EXPECT_EQ(f.Result("Delta(c)"), 0);
    }
    f.Fit->OnError = [](TComponent*, const Exception&) {};
    const std::array<const char*, 3> wrong[] = {
        {"q", "", "'q' is no coefficient to fix or to bound"},
        {"a,b,c", "", "all coefficients are fixed"},
        {"a", "a=1..2", "'a' is fixed or bounded twice"},
        {"", "a=2..1", "'a=2..1' leaves no room"},
        {"", "a:1..2", "'a:1..2' is not NAME=LOW..HIGH"},
        {"", "a=1..x", "'a=1..x' is not NAME=LOW..HIGH with numbers"},
    };
    for (const auto& [fixed, bounds, message] : wrong) {
        f.Fit->SetFixedCoefficients(fixed);
        f.Fit->SetBounds(bounds);
        f.Fit->Calculate();
        EXPECT_EQ(f.Fit->GetError(), std::string("decay: Fitted Line: ") + message);
    }
}

TEST(FittedLine, OutfitsKeepTheFitAndNaNIsNoResult) {
    TFixture f;
    f.Join();
    TKxIniList ini;
    f.Fit->WriteToIni(ini, "F");
    TKxFittedLine read(f.Form);
    read.SetOrder(3);
    read.ReadFromIni(ini, "F");
    EXPECT_NEAR(read.GetCoefficient(1), 0.7, 1e-6);
    EXPECT_EQ(read.GetExpression(), "a*exp(-b*x)+c");
    ini.WriteString("F", "Coefs", "1;2");
    read.ReadFromIni(ini, "F");
    EXPECT_NEAR(read.GetCoefficient(1), 0.7, 1e-6) << "those of another function";
    f.Fit->SetFittingFunction([](double, const TKxRealArray&) { return std::sqrt(-1.0); });
    f.Restart({1, 2, 3});
    EXPECT_TRUE(Holds(MessageOf<EMathError>([&] { f.Fit->Calculate(); }), "no finite value"));
    EXPECT_EQ(f.Fit->GetCoefficient(1), 2) << "the start is kept";
}

} // namespace kx::test::fittedline
