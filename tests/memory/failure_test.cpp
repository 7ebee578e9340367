// Every allocation may fail: nothing leaks, and the next frame is as if nothing had been.

#include "memory/allocations.h"
#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxapproxsplineline.h>
#include <kxgraph/analysis/Kxasplinedifferential.h>
#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxdifferential.h>
#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxintegral.h>
#include <kxgraph/analysis/Kxinterpolatedline.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>

#include <new>
#include <type_traits>

namespace kx::test::failure {

/// A small graph with what an analysis shows.
struct TScene : TGraphForm {
    TScene() {
        Form->SetBounds(0, 0, 200, 150);
        Graph->SetBounds(0, 0, 200, 150);
        Series->SetdYPlus(DY);
        Line->SetParentSeries(Series);
        Make<TKxResultLabel>("Label1", "Series=Line1; Identifier=Slope");
        Make<TKxLegend>("Legend1", "Graph=Graph1");
        Fill({{1, 2}, {2, 3.5}, {3, 4}, {4, 6}});
        DY->Add(0.5);
    }
    std::string Changed() {
        Series->Modified(), Line->Modified();
        Graph->Modified();
        return Draw().ToText();
    }
    TKxDataWithErrorSeries* Series = AddSeries();
    TKxLinearRegressionLine* Line = Make<TKxLinearRegressionLine>("Line1");
};

/// Draws, for every failure.
void Draw(long Step) {
    TScene scene;
    scene.Changed();
    const std::string expected = scene.Changed();
    const long failures =
        ForEveryFailure([&] { scene.Changed(); }, [&] { EXPECT_EQ(scene.Changed(), expected); }, Step);
    EXPECT_GT(failures, 100);
}

/// Saves and loads a graph's outfit.
void SaveAndLoad(long Step) {
    TScene scene;
    TKxIniList kept;
    scene.Graph->SaveOutfit("Graph", kept);
    const auto saved = [&scene] {
        TKxIniList ini;
        scene.Graph->SaveOutfit("Graph", ini);
        return ini.GetText();
    };
    const auto saveAndLoad = [&] {
        saved();
        scene.Graph->LoadOutfit("Graph", kept);
    };
    EXPECT_GT(ForEveryFailure(
                  saveAndLoad, [&] { EXPECT_EQ(saved(), kept.GetText()); }, Step),
              100);
}

template <class... T>
void MakeEach(TComponent* Owner) {
    (new T(Owner), ...);
}

/// Makes a component of each kind.
void Construct(long Step) {
    const auto make = [] {
        TForm form(&TApplication::Instance());
        MakeEach<TKx2DGraph, TKxAxis, TKxLiveVector, TKxDataWithErrorSeries, TKxBarSeries, TKxArrowSeries,
                 TKxLinearRegressionLine, TKxPolynomLine, TKxFittedLine, TKxInterpolatedLine,
                 TKxApproxSplineLine, TKxDifferential, TKxIntegral, TKxLegend, TKxResultLabel>(&form);
    };
    EXPECT_GT(ForEveryFailure(
                  make, [] { EXPECT_EQ(TApplication::Instance().GetComponentCount(), 0); }, Step),
              50);
}

/// Gives a series another parent.
void Rejoin(long Step) {
    TScene scene;
    auto* other = scene.AddSeries();
    const long failures =
        ForEveryFailure([&] { scene.Line->SetParentSeries(other); },
                        [&] {
                            for (TKxNotCalculatedSeries* parent : {scene.Series, other})
                                EXPECT_EQ(std::ranges::count(parent->GetChildren(), scene.Line),
                                          scene.Line->GetParentSeries() == parent);
                            scene.Line->SetParentSeries(scene.Series);
                            scene.Draw();
                        },
                        Step);
    EXPECT_GT(failures, 10);
}

TEST(AllocationFailure, LeavesTheNextFrameAsItWas) { ExpectNoLeak(Draw); }
TEST(AllocationFailure, LeavesNoComponentHalfMade) { ExpectNoLeak(Construct); }
TEST(AllocationFailure, JoinsAParentWhollyOrNotAtAll) { ExpectNoLeak(Rejoin); }
TEST(AllocationFailure, LeavesAnOutfitAsItWas) { ExpectNoLeak(SaveAndLoad); }

/// Calculates a curve: where that fails the next frame does it.
template <class T>
void Calculate(T& Curve, TGraphForm& Form, long Step) {
    const auto shown = [&] { // the sections of a store may stand in another order
        std::multiset<std::string> lines{Form.Draw().ToText()};
        std::istringstream results(Curve.GetParentSeries()->GetResults().GetText());
        for (std::string line; std::getline(results, line);) lines.insert(line);
        return lines;
    };
    shown();
    const auto calculate = [&] {
        if constexpr (std::is_same_v<T, TKxFittedLine>) // which goes on from what it has found
            for (int i = 0; i < 2; ++i) Curve.SetCoefficient(i, 1);
        Curve.Calculate();
    };
    calculate();
    const auto expected = shown();
    const auto check = [&] {
        const auto now = shown();
        if (std::is_same_v<T, TKxFittedLine>)
            EXPECT_EQ(now.size(), expected.size());
        else
            EXPECT_EQ(now, expected);
    };
    EXPECT_GT(ForEveryFailure(calculate, check, Step), 10);
}

template <class T>
class TCurveFailure : public testing::Test {};
using TCurves = testing::Types<TKxLinearRegressionLine, TKxPolynomLine, TKxFittedLine, TKxInterpolatedLine,
                               TKxApproxSplineLine, TKxDifferential, TKxASplineDifferential, TKxIntegral,
                               TKxASplineIntegral>;
TYPED_TEST_SUITE(TCurveFailure, TCurves);

TYPED_TEST(TCurveFailure, IsMadeUpForByTheNextFrame) {
    ExpectNoLeak([](long Step) {
        TGraphForm form;
        form.Form->SetBounds(0, 0, 120, 90);
        form.Graph->SetBounds(0, 0, 120, 90);
        form.Fill({{1, 2}, {2, 3.5}, {3, 4}, {4, 6}, {5, 6.5}, {6, 9}});
        TypeParam curve(form.Form);
        if constexpr (std::is_base_of_v<TKxInterpolatedLine, TypeParam>) curve.SetDoSmoothing(true);
        if constexpr (std::is_same_v<TypeParam, TKxFittedLine>) {
            curve.SetIterations(10);
            curve.SetOrder(2);
            curve.SetFittingFunction([](double X, const TKxRealArray& C) { return C[0] + C[1] * X; });
        }
        curve.SetParentSeries(form.AddSeries());
        Calculate(curve, form, Step);
    });
}

/// A calculation that lacks memory every time.
TEST(AllocationFailure, IsToldOnceAFrame) {
    TScene scene;
    TKxFittedLine line(scene.Form);
    line.SetOrder(1);
    line.SetCoefficient(0, 1);
    line.SetFittingFunction([](double, const TKxRealArray&) -> double { throw std::bad_alloc(); });
    EXPECT_THROW(line.SetParentSeries(scene.Series), std::bad_alloc);
    for (int frame = 0; frame < 2; ++frame) {
        const TFaults faults;
        scene.Draw();
        EXPECT_EQ(faults.Count, 1);
    }
}

} // namespace kx::test::failure
