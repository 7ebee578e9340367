// The document of a designer: files, history and commands.

#include <kxgraph/design/Kxdesignarrange.h>
#include <kxgraph/design/Kxdesignclipboard.h>
#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/design/Kxinspector.h>

#include "design/randomcommands.h"
#include "support/testing.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/analysis/Kxfitband.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::test::designdocument {

class DesignDocument : public testing::Test {
protected:
    template <class T>
    T& Get(const char* Name) {
        return dynamic_cast<T&>(*Document.Find(Name));
    }
    /// A graph with a series over two vectors.
    void Fill() {
        CreateComponent(Document, "TKx2DGraph", {nullptr, {16, 16}, {400, 300}});
        for (const char* name : {"Time", "Volts"}) {
            auto& vector = dynamic_cast<TKxLiveVector&>(*CreateComponent(Document, "TKxLiveVector"));
            RenameComponent(Document, vector, name);
            Document.Run({"Enter Values"}, [&] {
                vector.SetPersistentValues(true);
                for (int i = 0; i < 20; ++i) vector.Add(i * 0.5);
            });
        }
        CreateComponent(Document, "TKxDataSeries");
        Document.Run({"Bind"}, [&] {
            Get<TKxDataSeries>("DataSeries1").SetXData(&Get<TKxLiveVector>("Time"));
            Get<TKxDataSeries>("DataSeries1").SetYData(&Get<TKxLiveVector>("Volts"));
        });
    }

    const bool IsRegistered = (RegisterClasses(), true);
    TKxDesignDocument Document;
};

TEST_F(DesignDocument, BindsWhatItMakesAndRestoresReferencesOfWhatWasDeleted) {
    Fill();
    auto& series = Get<TKxDataSeries>("DataSeries1");
    EXPECT_EQ(series.GetXAxis(), Document.Find("XAxis"));
    EXPECT_EQ(series.GetYAxis(), Document.Find("YAxis"));
    CreateComponent(Document, "TKxLinearRegressionLine");
    EXPECT_EQ(Get<TKxCalculatedSeries>("LinearRegressionLine1").GetParentSeries(), &series);
    CreateComponent(Document, "TKxFitBand");
    EXPECT_EQ(Get<TKxFitBand>("FitBand1").GetFit(), Document.Find("LinearRegressionLine1"));
    const std::string before = Document.GetText();
    Document.Select({Document.Find("Graph1"), Document.Find("Time")});
    DeleteSelected(Document);
    EXPECT_EQ(series.GetXAxis(), nullptr);
    EXPECT_EQ(series.GetXData(), nullptr);
    EXPECT_FALSE(Document.Find("XAxis"));
    EXPECT_EQ(Document.GetUndoName(), "Delete 2 components");
    Document.Undo();
    EXPECT_EQ(Document.GetText(), before);
    EXPECT_EQ(series.GetXData(), Document.Find("Time"));
    EXPECT_EQ(Get<TKxLiveVector>("Time").GetCount(), 20);
    EXPECT_EQ(Document.GetRebuilds(), 0);
}

TEST_F(DesignDocument, KeepsComponentsThroughUndoOfRenaming) {
    Fill();
    TComponent* time = Document.Find("Time");
    Document.Select(time);
    RenameComponent(Document, *time, "Seconds");
    EXPECT_EQ(Document.GetPrimary(), time);
    Document.Undo();
    EXPECT_EQ(Document.Find("Time"), time);
    EXPECT_EQ(Document.GetPrimary(), time);
    EXPECT_THROW(RenameComponent(Document, *time, "volts"), EComponentError);
    EXPECT_THROW(RenameComponent(Document, *time, "form1"), EComponentError);
}

TEST_F(DesignDocument, TakesBackAChangeThatFailsAndMergesSteps) {
    Fill();
    const std::string before = Document.GetText();
    EXPECT_THROW(Document.Run({"Fail"},
                              [&] {
                                  Get<TKxAxis>("XAxis").SetCaption("lost");
                                  new TKxAxis(&Document.GetForm());
                                  throw Exception("no");
                              }),
                 Exception);
    const std::string form = Document.GetForm().GetName();
    for (TComponent* component : {static_cast<TComponent*>(&Document.GetForm()), Document.Find("Graph1")}) {
        const auto taken = component == &Document.GetForm() ? "Graph1" : form;
        EXPECT_THROW(Document.Run({"Rename"}, [&] { component->SetName(taken); }), EComponentError) << taken;
        EXPECT_EQ(Document.GetText(), before) << "it could not be saved";
    }
    Document.Select(Document.Find("Graph1"));
    for (int i = 0; i < 3; ++i) MoveSelected(Document, {1, 0}, "move");
    EXPECT_EQ(Get<TControl>("Graph1").GetLeft(), 19);
    Document.Undo();
    EXPECT_EQ(Document.GetText(), before);
    Document.Redo();
    EXPECT_EQ(Get<TControl>("Graph1").GetLeft(), 19);
}

TEST_F(DesignDocument, PastesUnderFreeNamesThatReferToOneAnother) {
    Fill();
    Document.Select({Document.Find("Graph1"), Document.Find("Time"), Document.Find("DataSeries1")});
    CopySelected(Document);
    Paste(Document);
    auto& copy = Get<TKxDataSeries>("DataSeries2");
    EXPECT_EQ(copy.GetXAxis(), Document.Find("XAxis1"));
    EXPECT_EQ(copy.GetXData(), Document.Find("Time1"));
    EXPECT_EQ(copy.GetYData(), Document.Find("Volts"));
    EXPECT_EQ(Get<TKx2DGraph>("Graph2").GetPrimaryYAxis(), Document.Find("YAxis1"));
    TKxDesignDocument other;
    Paste(other);
    EXPECT_EQ(dynamic_cast<TKxDataSeries&>(*other.Find("DataSeries1")).GetYData(), nullptr);
    EXPECT_EQ(dynamic_cast<TKxLiveVector&>(*other.Find("Time")).GetCount(), 20);
    EXPECT_THROW(PasteComponents(other, "object A: TKxAxis\n"), EFormError);
}

TEST_F(DesignDocument, KeepsAndTakesNamesOfHandlersThatOtherProgramsHave) {
    Document.Read("object F: TForm\n  object B: TButton\n    OnClick = Theirs\n  end\nend\n", "", false);
    TKxInspector inspector(Document);
    inspector.Select(Document.GetForm(), std::vector{Document.Find("B")});
    const auto shown = [&](const char* Row) { return inspector.Find(Row)->Text; };
    const auto written = [&](const char* Line) { return Document.GetText().find(Line) != std::string::npos; };
    EXPECT_EQ(shown("OnClick"), "Theirs");
    EXPECT_FALSE(inspector.Find("OnClick")->IsDefault);
    inspector.SetText("OnEnter", " Mine ");
    EXPECT_THROW(inspector.SetText("OnExit", "no name"), Exception);
    inspector.SetText("OnClick", "Other");
    EXPECT_TRUE(written("OnClick = Other\n") && written("OnEnter = Mine\n") && !written("OnExit"));
    Document.Select(Document.Find("B"));
    CopySelected(Document);
    inspector.Reset("OnClick");
    EXPECT_TRUE(inspector.Find("OnClick")->IsDefault && !written("OnClick"));
    for (const char* wanted : {"OnClick = Other\n", "OnClick = Theirs\n"}) {
        Document.Undo();
        EXPECT_TRUE(written(wanted)) << wanted;
    }
    while (Document.CanRedo()) Document.Redo();
    EXPECT_FALSE(written("OnClick"));
    Paste(Document);
    EXPECT_TRUE(written("OnClick = Other\n")) << Document.GetText();
    EXPECT_FALSE(Get<TButton>("B1").OnClick);
    EXPECT_EQ(Document.GetRebuilds(), 0);
}

TEST_F(DesignDocument, SavesWhatItHasAndKnowsWhetherItHasChanged) {
    const std::string name = (std::filesystem::path(testing::TempDir()) / "designdocument.kxf").string();
    Fill();
    EXPECT_TRUE(Document.IsModified());
    Document.SaveAs(name);
    EXPECT_FALSE(Document.IsModified());
    EXPECT_EQ(ReadFile(name), Document.GetText());
    Document.Undo();
    EXPECT_TRUE(Document.IsModified());
    Document.Redo();
    EXPECT_FALSE(Document.IsModified());
    ReplaceFile(name, "object TForm\n  object TKxLabel\n  end\nend\n");
    Document.Open(name);
    EXPECT_TRUE(Document.Find("Label1"));
    ReplaceFile(name, "object TForm\n  Colour = 3\nend\n");
    EXPECT_THROW(Document.Open(name), EFormError);
    EXPECT_TRUE(Document.Find("Label1")) << "the form before is there";
    std::filesystem::remove(name);
}

TEST(DesignArrange, AlignsSpreadsAndSnaps) {
    const TRect model{100, 100, 150, 120}, small{0, 0, 11, 21};
    const auto aligned = [&](TKxDesignEdge Edge) { return AlignedTo(model, {small}, Edge)[0].TopLeft(); };
    EXPECT_EQ(aligned(TKxDesignEdge::Left), (TPoint{100, 0}));
    EXPECT_EQ(aligned(TKxDesignEdge::Center), (TPoint{119, 0}));
    EXPECT_EQ(aligned(TKxDesignEdge::Right), (TPoint{139, 0}));
    EXPECT_EQ(aligned(TKxDesignEdge::Middle), (TPoint{0, 99}));
    EXPECT_EQ(aligned(TKxDesignEdge::Bottom), (TPoint{0, 99}));
    const auto spread =
        Spread({{90, 0, 100, 9}, {0, 0, 10, 9}, {1, 0, 21, 9}}, TKxDesignSpread::Horizontally);
    EXPECT_EQ(spread[2], (TRect{40, 0, 60, 9}));
    const TKxDesignEdges all{true, true, true, true}, right{false, false, true, false};
    struct {
        TRect Rect;
        TKxDesignEdges Moving;
        TRect Snapped;
        std::size_t Guides;
    } const cases[]{
        {{11, 13, 31, 33}, all, {8, 16, 28, 36}, 0},     // the grid
        {{11, 97, 31, 117}, all, {8, 100, 28, 120}, 1},  // the edge of another one
        {{80, 40, 98, 60}, right, {80, 40, 100, 60}, 1}, // one edge alone
        {{-3, -5, 10, 10}, all, {0, -8, 13, 7}, 0},      // below zero
    };
    for (const auto& c : cases) {
        const auto snapped = Snapped(c.Rect, c.Moving, {8, 5, {model}});
        EXPECT_EQ(snapped.Rect, c.Snapped) << c.Rect.Left << " " << c.Rect.Top;
        EXPECT_EQ(snapped.Guides.size(), c.Guides);
    }
}

// KX_DESIGN_COMMANDS gives another number of commands.
TEST_F(DesignDocument, UndoesRandomCommandsToTheBeginningAndRedoesThemToTheEnd) {
    const char* wanted = std::getenv("KX_DESIGN_COMMANDS");
    const int count = wanted ? std::atoi(wanted) : 300;
    Fill();
    Document.Read(Document.GetText(), {}, false);
    TApplication::Instance().GetHost().CopyText({}); // what other tests have copied
    const std::string first = Document.GetText();
    TRandomCommands commands(Document, 1);
    for (int i = 0; i < count; ++i) commands.Step();
    while (Document.CanRedo()) Document.Redo();
    const std::string last = Document.GetText();
    while (Document.CanUndo()) Document.Undo();
    EXPECT_EQ(Document.GetText(), first);
    while (Document.CanRedo()) Document.Redo();
    EXPECT_EQ(Document.GetText(), last);
    RecordProperty("Rebuilds", Document.GetRebuilds());
    EXPECT_LE(Document.GetRebuilds(), 2 + count / 50) << "setters bring nearly all of it back";
}

} // namespace kx::test::designdocument
