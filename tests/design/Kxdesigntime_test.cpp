// What components do at design time, and what is on the palette.

#include "support/graphfixture.h"
#include "support/headless.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/design/Kxcaptionplace.h>
#include <kxgraph/design/Kxdesignhit.h>
#include <kxgraph/design/Kxpalette.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <initializer_list>
#include <map>
#include <set>

namespace kx::test::designtime {

std::string OrderOf(TKx2DGraph& Graph) {
    std::string names;
    for (int i = 0; i < Graph.GetSeriesList().GetCount(); ++i)
        names += Graph.GetSeriesList().GetItem(i)->GetName();
    return names;
}

TEST(DesignTime, SeriesFollowTheOrderOfComponentsAndDataAtOnce) {
    for (const bool isDesigning : {true, false}) {
        TGraphForm f;
        f.Fill({{0, 1}, {1, 3}, {2, 5}});
        auto *first = f.AddSeries(), *second = f.AddSeries();
        first->SetName("A");
        second->SetName("B");
        f.Form->SetDesigning(isDesigning); // as a form that was read
        TRecorder recorder({420, 320}, 96, false);
        PaintFrame(*f.Form, recorder);
        Host().Advance(150);
        PaintFrame(*f.Form, recorder);
        EXPECT_EQ(OrderOf(*f.Graph), "AB");
        second->SetComponentIndex(0);
        EXPECT_FALSE(f.Graph->NeedsSettling());
        Host().Advance(150);
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

TEST(DesignTime, CaptionsAreEditedWhereTheyShow) {
    TGraphForm f;
    f.Set("Graph1.ShowTitle=1;Graph1.Caption=Title;XAxis1.ShowCaption=1;YAxis1.ShowCaption=1");
    f.Set("XAxis1.Caption=c\\-0\\- / mM;YAxis1.Caption=absorption at 500 nm");
    f.Draw();
    const TRect room = f.Form->GetClientRect();
    for (TComponent* component : std::initializer_list<TComponent*>{f.Graph, f.X, f.Y}) {
        SCOPED_TRACE(component->GetName());
        const auto place = CaptionPlaceOf(*component, "Caption");
        ASSERT_TRUE(place);
        const TPoint middle{(place->Shown.Left + place->Shown.Right) / 2,
                            (place->Shown.Top + place->Shown.Bottom) / 2};
        EXPECT_EQ(HitTest(*f.Form, middle).Component, component);
        EXPECT_EQ(CaptionProperty(*component), "Caption");
        EXPECT_EQ(place->Shown.Height() > place->Shown.Width(), component == f.Y);
        const TRect field = CaptionFieldRect(place->Shown, {60, 26}, room);
        EXPECT_TRUE(field.Contains(middle) || component == f.Y);
        EXPECT_EQ(field.Intersected(room), field);
        EXPECT_EQ(field.Height(), 26);
    }
    EXPECT_EQ(CaptionFieldRect({100, 40, 120, 240}, {60, 26}, room), (TRect{80, 127, 140, 153})) << "turned";
    EXPECT_EQ(CaptionFieldRect({400, 40, 480, 60}, {60, 26}, room).Right, room.Right);
    f.Set("XAxis1.Caption=");
    f.Draw();
    EXPECT_TRUE(ShownRect(*f.X).Contains(CaptionPlaceOf(*f.X, "Caption")->Shown.TopLeft()));
    f.X->SetVisible(false);
    EXPECT_FALSE(CaptionPlaceOf(*f.X, "Caption") || CaptionPlaceOf(*f.Graph, "Name"));
    EXPECT_FALSE(CaptionPlaceOf(*f.AddSeries(), "UserCaption")) << "shows nowhere";
}

TEST(Palette, HasEveryClassThatStandsOnAForm) {
    RegisterClasses();
    std::set<std::string_view> off, controls;
    std::map<std::string, std::string> icons; // who has it
    const auto iconOf = [](const TComponentClass& Class) {
        TRecorder recorder({32, 32}, 96, false);
        TCanvas canvas(&recorder);
        PaintPaletteIcon(canvas, {0, 0, 32, 32}, Class);
        return recorder.Recording.ToText();
    };
    for (const TComponentClass& type : RegisteredClasses()) {
        off.insert(type.Name);
        if (type.Name == "TCustomControl") icons[iconOf(type)] = "what has none of its own";
    }
    const auto pages = MakePalette();
    ASSERT_GE(pages.size(), 2u);
    EXPECT_EQ(std::string(pages[0].Name) + ", " + std::string(pages[1].Name), "Kx-General, Kx-Graph2D");
    for (const auto& page : pages)
        for (const TKxPaletteEntry& entry : page.Entries) {
            off.erase(entry.Class->Name);
            if (entry.IsVisual) controls.insert(entry.Class->Name);
            std::string& other = icons[iconOf(*entry.Class)];
            EXPECT_EQ(other, "") << entry.Hint << " has the icon of another class";
            other = entry.Hint;
        }
    EXPECT_EQ(off, (std::set<std::string_view>{"TCustomControl", "TForm"}));
    EXPECT_TRUE(controls.contains("TKxAxis") && !controls.contains("TKxDataSeries"));
}

} // namespace kx::test::designtime
