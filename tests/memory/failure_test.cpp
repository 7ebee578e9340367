// Every allocation may fail: nothing leaks, no file is lost, and the next frame is as if nothing had been.

#include "memory/allocations.h"
#include "support/graphfixture.h"
#include "support/recording.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/platform/text/files.h>

#include <filesystem>

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

const std::string COld =
    "[Window]\nLeft=10\nTop=20\n\n[Graph]\nTitle=a title that is too long for a short string\n";

std::string Contents(const std::string& File) { return FileExists(File) ? ReadFile(File) : "(lost)"; }

/// A directory with a settings file, which is changed.
void SaveSettings(long Step) {
    const TTemporaryDirectory directory;
    const std::string file = directory / "settings.ini";
    ReplaceFile(file, COld);
    std::string saved = COld;
    saved[saved.find("10") + 1] = '1';
    const long failures = ForEveryFailure(
        [&] {
            TKxLargeIniFile ini(file);
            ini.WriteInteger("Window", "Left", 11);
            ini.Save();
        },
        [&] {
            const std::string contents = Contents(file);
            EXPECT_TRUE(contents == COld || contents == saved) << contents;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory / ""), {}), 1)
                << "a temporary file stayed";
            ReplaceFile(file, COld);
        },
        Step);
    EXPECT_GT(failures, 20);
}

TEST(AllocationFailure, LosesNoSettingsFile) { ExpectNoLeak(SaveSettings); }

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
