// Every allocation may fail: nothing leaks, no file is lost, and the next frame is as if nothing had been.

#include "analysis/Kxlinearregressionline.h"
#include "annotation/Kxlegend.h"
#include "annotation/Kxresultlabel.h"
#include "memory/allocations.h"
#include "support/graphfixture.h"

namespace kx::test {
namespace {

/// Runs Action with a failure at the first allocation, at the first but Step, ... and Check after each, until
/// there are no more. Returns how many there were.
template <class A, class C>
long ForEveryFailure(A Action, C Check, long Step = 1) {
    TFaults faults;
    for (long n = 1;; n += Step) {
        SCOPED_TRACE("failure of allocation " + std::to_string(n));
        bool failed = false;
        {
            const TFailingAllocation failing(n);
            try {
                Action();
            } catch (const std::exception&) { // std::bad_alloc, or the file that could not be read for it
            }
            failed = failing.HasFailed();
        }
        Check();
        if (!failed || testing::Test::HasFailure()) return n - 1;
    }
}

/// Expects Run, which gets the step, to leave no allocation behind but what is made once and kept: some
/// failures come before to make that.
void ExpectNoLeak(void (*Run)(long Step)) {
    constexpr long sample = 41;
    Run(sample);
    const long before = LiveAllocations();
    Run(1);
    EXPECT_EQ(LiveAllocations(), before);
}

/// A small graph with what an analysis shows.
struct TScene : TGraphForm {
    TScene() {
        Form->SetBounds(0, 0, 200, 150);
        Graph->SetBounds(0, 0, 200, 150);
        Series->SetdYPlus(DY);
        Line.SetParentSeries(Series);
        Label.SetParent(Graph);
        Label.SetSeries(&Line);
        Label.SetIdentifier("Slope");
        Legend.SetParent(Graph);
        Legend.SetGraph(Graph);
        Fill({{1, 2}, {2, 3.5}, {3, 4}, {4, 6}});
        DY->Add(0.5);
    }
    std::string Changed() {
        for (TKxSeries* one : {static_cast<TKxSeries*>(Series), static_cast<TKxSeries*>(&Line)})
            one->Modified();
        Graph->Modified();
        return Draw().ToText();
    }
    TKxDataWithErrorSeries* Series = AddSeries();
    TKxLinearRegressionLine Line{Form};
    TKxResultLabel Label{Form};
    TKxLegend Legend{Form};
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

TEST(AllocationFailure, LeavesTheNextFrameAsItWas) { ExpectNoLeak(Draw); }
TEST(AllocationFailure, LeavesAnOutfitAsItWas) { ExpectNoLeak(SaveAndLoad); }

} // namespace
} // namespace kx::test
