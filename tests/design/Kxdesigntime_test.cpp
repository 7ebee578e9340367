// What components do at design time, and what is on the palette.

#include "support/graphfixture.h"
#include "support/headless.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/design/Kxpalette.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace kx {
namespace {

std::string OrderOf(TKx2DGraph& Graph) {
    std::string names;
    for (int i = 0; i < Graph.GetSeriesList().GetCount(); ++i)
        names += Graph.GetSeriesList().GetItem(i)->GetName();
    return names;
}

TEST(DesignTime, SeriesFollowTheOrderOfComponentsAndDataAtOnce) {
    for (const bool isDesigning : {true, false}) {
        test::TGraphForm f;
        f.Fill({{0, 1}, {1, 3}, {2, 5}});
        auto *first = f.AddSeries(), *second = f.AddSeries();
        first->SetName("A");
        second->SetName("B");
        f.Form->SetDesigning(isDesigning); // as a form that was read
        TRecorder recorder({420, 320}, 96, false);
        PaintFrame(*f.Form, recorder);
        test::Host().Advance(150);
        PaintFrame(*f.Form, recorder);
        EXPECT_EQ(OrderOf(*f.Graph), "AB");
        second->SetComponentIndex(0);
        EXPECT_FALSE(f.Graph->NeedsSettling());
        test::Host().Advance(150);
        EXPECT_EQ(f.Graph->NeedsSettling(), isDesigning);

        // What is bound at design time has its points, and its children theirs, before the next frame.
        TKxLiveVector other(f.Form);
        for (const double y : {2, 4, 8, 16}) other.Add(y);
        TKxLinearRegressionLine line(f.Form);
        line.SetParentSeries(first);
        line.SetAutoStart(false);
        first->SetYData(&other);
        EXPECT_EQ(first->GetYRange().GetStop() == 8, isDesigning); // of as many values as there are x
        line.SetCalculationStart(1);
        line.SetAutoStart(true);
        EXPECT_EQ(line.GetCalculationStart(), isDesigning ? 0 : 1);
    }
}

TEST(Palette, HasEveryClassThatStandsOnAForm) {
    RegisterClasses();
    std::set<std::string_view> off, controls;
    for (const TComponentClass& type : RegisteredClasses()) off.insert(type.Name);
    const auto pages = MakePalette();
    ASSERT_GE(pages.size(), 2u);
    EXPECT_EQ(std::string(pages[0].Name) + ", " + std::string(pages[1].Name), "Kx-General, Kx-Graph2D");
    for (const auto& page : pages)
        for (const TKxPaletteEntry& entry : page.Entries) {
            off.erase(entry.Class->Name);
            if (entry.IsVisual) controls.insert(entry.Class->Name);
            TRecorder recorder({32, 32}, 96, false);
            TCanvas canvas(&recorder);
            PaintPaletteIcon(canvas, {0, 0, 32, 32}, *entry.Class);
            EXPECT_FALSE(recorder.Recording.Calls.empty()) << entry.Hint;
        }
    EXPECT_EQ(off, (std::set<std::string_view>{"TCustomControl", "TForm"}));
    EXPECT_TRUE(controls.contains("TKxAxis") && !controls.contains("TKxDataSeries"));
}

} // namespace
} // namespace kx
