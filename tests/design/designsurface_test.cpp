// Mouse and keys of a designer.

#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/design/Kxdesignsurface.h>

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::test::designsurface {

class DesignSurface : public testing::Test {
protected:
    DesignSurface() : Document(Registered()), Surface(Document) {
        Document.GetForm().Show();
        for (int i = 0; i < 3; ++i)
            CreateComponent(Document, "TKxLabel", {nullptr, {40, 40 + 60 * i}, {80, 40}});
        Document.Run({"Set"}, [&] {
            for (int i = 1; i <= 3; ++i) {
                auto& label = Get<TKxLabel>(("Label" + std::to_string(i)).c_str());
                label.SetAutoSize(false);
                label.SetBounds(40, 60 * i - 20, 80, 40);
            }
        });
        Surface.SetGrid(0);
        Surface.SetSnapsToEdges(false);
        Document.Select(std::vector<TComponent*>());
    }
    static TKxDesignDocument Registered() {
        RegisterClasses();
        return {};
    }

    template <class T>
    T& Get(const char* Name) {
        return dynamic_cast<T&>(*Document.Find(Name));
    }
    THostClient& Client() { return Document.GetForm().AsHostClient(); }
    void Press(TPoint At, TShiftState Shift = 0) {
        Client().HostMouse(TMouseKind::Down, mbLeft, Shift | ssLeft, At);
    }
    void Release(TPoint At, TShiftState Shift = 0) { Client().HostMouse(TMouseKind::Up, mbLeft, Shift, At); }
    void Click(TPoint At, TShiftState Shift = 0) { Press(At, Shift), Release(At, Shift); }
    void Drag(TPoint From, TPoint To, TShiftState Shift = 0) {
        Press(From, Shift);
        Client().HostMouse(TMouseKind::Move, mbLeft, Shift | ssLeft, To);
        Release(To, Shift);
    }
    bool Key(int Code, TShiftState Shift = 0) { return Client().HostKey({Code, {}, Shift}, true); }
    std::string Selected() const {
        std::string names;
        for (const TComponent* component : Document.GetSelection()) names += component->GetName() + " ";
        return names;
    }

    TKxDesignDocument Document;
    TKxDesignSurface Surface;
};

TEST_F(DesignSurface, SelectsByClicksAndByABand) {
    bool clicked = false;
    struct TClick {
        bool* Clicked;
        void Note(TControl*) { *Clicked = true; }
    } click{&clicked};
    Get<TKxLabel>("Label1").OnClick = TNotifyEvent::Of<&TClick::Note>(&click);
    struct {
        TPoint From, To;
        TShiftState Shift;
        const char* Selected;
    } const cases[]{
        {{50, 50}, {50, 50}, 0, "Label1 "},
        {{50, 110}, {50, 110}, ssShift, "Label1 Label2 "},
        {{50, 50}, {50, 50}, ssCtrl, "Label2 "},
        {{10, 10}, {60, 110}, 0, "Label1 Label2 "},
        {{10, 230}, {60, 170}, ssShift, "Label1 Label2 Label3 "},
        {{300, 300}, {300, 300}, 0, "Form1 "},
    };
    for (const auto& c : cases) {
        Drag(c.From, c.To, c.Shift);
        EXPECT_EQ(Selected(), c.Selected);
    }
    EXPECT_FALSE(clicked) << "controls hear nothing at design time";
    Get<TKxLabel>("Label1").OnClick = {};
}

TEST_F(DesignSurface, MovesAndResizesAsOneStepEach) {
    const std::string before = Document.GetText();
    Click({50, 50});
    Drag({50, 50}, {61, 45});
    EXPECT_EQ(Get<TControl>("Label1").GetBoundsRect(), TRect::Bounds(51, 35, 80, 40));
    Drag({130, 74}, {140, 94}); // the corner
    EXPECT_EQ(Get<TControl>("Label1").GetBoundsRect(), TRect::Bounds(51, 35, 90, 60));
    Drag({51, 35}, {500, 500}); // beyond the opposite corner
    EXPECT_EQ(Get<TControl>("Label1").GetBoundsRect(), TRect::Bounds(140, 94, 1, 1));
    for (int i = 0; i < 3; ++i) Document.Undo();
    EXPECT_EQ(Document.GetText(), before);
    Surface.SetGrid(8);
    Drag({50, 50}, {59, 50});
    EXPECT_EQ(Get<TControl>("Label1").GetLeft(), 48);
    Press({58, 50});
    Client().HostMouse(TMouseKind::Move, mbLeft, ssLeft, {90, 90});
    ASSERT_TRUE(Surface.GetDragged());
    Key(kcEscape);
    Release({90, 90});
    EXPECT_EQ(Get<TControl>("Label1").GetLeft(), 48) << "Escape takes the drag back";
}

TEST_F(DesignSurface, KeysDoWhatTheySay) {
    const std::string before = Document.GetText();
    Click({50, 50});
    struct {
        int Key;
        TShiftState Shift;
        std::string Selected;
        TRect First; // bounds of the first component; empty: there is none
    } const cases[]{
        {kcRight, 0, "Label1 ", TRect::Bounds(41, 40, 80, 40)},
        {kcDown, ssShift, "Label1 ", TRect::Bounds(41, 40, 80, 41)},
        {'D', ssCtrl, "Label4 ", TRect::Bounds(41, 40, 80, 41)},
        {'Z', ssCtrl, "", TRect::Bounds(41, 40, 80, 41)},
        {'Z', ssCtrl, "", TRect::Bounds(41, 40, 80, 40)},
        {'Y', ssCtrl, "", TRect::Bounds(41, 40, 80, 41)},
        {'A', ssCtrl, "Label1 Label2 Label3 ", TRect::Bounds(41, 40, 80, 41)},
        {'X', ssCtrl, "", {}},
        {'V', ssCtrl, "Label1 Label2 Label3 ", TRect::Bounds(57, 56, 80, 41)},
        {kcDelete, 0, "", {}},
        {'Z', ssCtrl, "", TRect::Bounds(57, 56, 80, 41)},
        {kcTab, 0, "Label1 ", TRect::Bounds(57, 56, 80, 41)},
        {kcTab, ssShift, "Label3 ", TRect::Bounds(57, 56, 80, 41)},
        {kcEscape, 0, "Form1 ", TRect::Bounds(57, 56, 80, 41)},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(Key(c.Key, c.Shift));
        EXPECT_EQ(Selected(), c.Selected) << c.Key;
        const auto* first = dynamic_cast<TControl*>(Document.Find("Label1"));
        EXPECT_EQ(first ? first->GetBoundsRect() : TRect(), c.First) << c.Key;
    }
    while (Document.CanUndo() && Document.GetText() != before) Document.Undo();
    EXPECT_EQ(Document.GetText(), before);
    EXPECT_FALSE(Key(kcF1)) << "left to the window";
}

TEST_F(DesignSurface, MakesWhatWasChosenWhereItIsDrawn) {
    struct TEdits {
        std::string Text;
        void Note(TComponent* Component, const std::string& Property) {
            Text = Component->GetName() + "." + Property;
        }
    } edits;
    Surface.OnEdit = TEvent<TComponent*, const std::string&>::Of<&TEdits::Note>(&edits);
    Surface.SetCreating("TKx2DGraph");
    Drag({200, 30}, {600, 330});
    auto& graph = Get<TKx2DGraph>("Graph1");
    EXPECT_EQ(graph.GetBoundsRect(), (TRect{200, 30, 600, 330}));
    EXPECT_EQ(Surface.GetCreating(), "");
    Document.Run({"Fill"}, [&] {
        for (const char* name : {"X", "Y"}) {
            auto* vector = new TKxLiveVector(&Document.GetForm());
            vector->SetName(name);
            for (int i = 0; i < 3; ++i) vector->Add(i);
        }
        auto* series = new TKxDataSeries(&Document.GetForm());
        series->SetName("Points");
        series->SetXData(&Get<TKxLiveVector>("X"));
        series->SetYData(&Get<TKxLiveVector>("Y"));
        series->SetXAxis(graph.GetPrimaryXAxis());
        series->SetYAxis(graph.GetPrimaryYAxis());
    });
    SettleTree(Document.GetForm());
    const auto points = ShownPoints(Get<TKxDataSeries>("Points"));
    ASSERT_EQ(points.size(), 3U);
    Click(points[1]);
    EXPECT_EQ(Selected(), "Points ");
    Click({points[1].X, points[1].Y - 30});
    EXPECT_EQ(Selected(), "Graph1 ");
    const TControl& axis = Get<TControl>("YAxis");
    const TPoint onAxis = axis.ClientToRoot({axis.GetWidth() / 2, axis.GetHeight() / 2});
    Drag(onAxis, onAxis + TPoint{40, 40});
    EXPECT_EQ(Selected(), "YAxis ");
    EXPECT_EQ(Document.GetUndoName(), "Fill") << "an axis lies where its graph lays it";
    Press(onAxis, ssDouble);
    EXPECT_EQ(edits.Text, "YAxis.Caption");
}

TEST_F(DesignSurface, PaintsHandlesInTheWindowAlone) {
    const auto picture = [&] {
        TRecorder recorder(Document.GetForm().GetBoundsRect().Size());
        PaintFrame(Document.GetForm(), recorder);
        return recorder.Recording.ToText();
    };
    const auto before = picture();
    Host().ProcessMessages();
    const auto window = ViewOf(Document.GetForm()).LastFrame.ToText();
    Click({50, 50});
    Host().ProcessMessages();
    EXPECT_EQ(picture(), before);
    EXPECT_NE(ViewOf(Document.GetForm()).LastFrame.ToText(), window);
}

} // namespace kx::test::designsurface
