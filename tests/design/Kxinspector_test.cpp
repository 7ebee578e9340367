#include <kxgraph/design/Kxinspector.h>

#include "support/graphfixture.h"
#include "support/othertext.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/design/Kxdesignrows.h>
#include <kxgraph/design/Kxreferenceeditors.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/series/Kxbarseries.h>

namespace kx::test::inspector {

/// Lists what is done; a failing step passes through.
struct TSteps : TKxDesignChange {
    void Run(const TKxDesignStep& Step, const std::function<void()>& Change) override {
        if (Depth++ == 0) Text += Step.Name + ";" + (Step.MergeKey.empty() ? "" : "(" + Step.MergeKey + ")");
        try {
            Change();
        } catch (...) {
            --Depth;
            throw;
        }
        --Depth;
    }
    std::string Text;
    int Depth = 0;
};

/// One handler for each type of event that classes of the library publish.
template <class E>
void RegisterHandler(const std::string& Name) {
    RegisterEvent(Name, E([](auto&&...) {}));
}
void RegisterHandlers() {
    RegisterHandler<TNotifyEvent>("Notified");
    RegisterHandler<TMouseEvent>("Pressed");
    RegisterHandler<TMouseMoveEvent>("Moved");
    RegisterHandler<TMouseWheelEvent>("Wheeled");
    RegisterHandler<TKeyEvent>("Keyed");
    RegisterHandler<TDragOverEvent>("DraggedOver");
    RegisterHandler<TDragDropEvent>("Dropped");
    RegisterHandler<TKxAnyEvent>("Told");
    RegisterHandler<TKxErrorEvent>("Failed");
    RegisterHandler<TKxEntryClickEvent>("EntryClicked");
    RegisterEvent("Model", TKxFittingFkt([](double X, const TKxRealArray&) { return X; }));
}

struct TInspected : TGraphForm {
    TInspected() {
        RegisterClasses();
        Form->SetDesigning(true);
    }
    void Select(std::initializer_list<TComponent*> Components) {
        const std::vector<TComponent*> all(Components);
        Inspector.Select(*Form, all);
    }
    std::string TextOf(std::string_view Path) const { return Inspector.Find(Path)->Text; }

    TSteps Steps;
    TKxInspector Inspector{Steps};
};

/// A form with one of each class, to be referred to, and a fresh one to be edited.
struct TEveryClass : TInspected {
    TEveryClass() {
        RegisterHandlers();
        int number = 0;
        for (const TComponentClass& type : RegisteredClasses())
            if (type.Name != "TForm") type.Make(Form)->SetName("Part" + std::to_string(++number));
    }

    void EditAndReset(const TComponentClass& Class, const std::string& Path) {
        const std::string told = std::string(Class.Name) + "." + Path;
        SCOPED_TRACE(told);
        const std::unique_ptr<TComponent> part(Class.Make(Form));
        part->SetName("Edited");
        Prepare(*part, Path);
        Select({part.get()});
        const TKxInspectorRow& row = *Inspector.Find(Path);
        // Members are reset with their set; Bold and Size of a font with its Style and Height.
        const TProperty& property = row.Editor->GetPlace().GetRow();
        const bool isDerived = Path.find('.') != Path.npos && property.Stored;
        const bool isMember = isDerived || property.Kind == TPropertyKind::Flags;
        const bool isEvent = row.Category == "Events";
        EXPECT_FALSE(row.Help.empty());
        if (property.Kind == TPropertyKind::SubObject) return EditPartAndReset(row, told);
        if (!property.Set) return; // only shown
        const std::string before = row.Text, other = OtherText(row);
        if (isEvent && other.empty()) return; // of a type without a handler here
        if (row.IsReadOnly || other.empty()) return Note(row.IsReadOnly ? ReadOnly : Without, told);
        const std::string error = MessageOf([&] { Inspector.SetText(Path, other); });
        if (row.Text == before) return Note(Unset, told + error);
        ++(isEvent ? Connected : Edited);
        const bool hasEnds = row.Editor->GetKind() == TKxEditorKind::Number;
        EXPECT_TRUE(row.Text.starts_with(other) || hasEnds) << row.Text << ", not " << other;
        if (isMember && !row.CanReset) return;
        if (!row.CanReset) return Note(Kept, Path);
        EXPECT_FALSE(row.IsDefault);
        Inspector.Reset(Path);
        if (!row.IsDefault) Note(Stuck, told);
    }
    /// An object is reset with all its parts.
    void EditPartAndReset(const TKxInspectorRow& Row, const std::string& Told) {
        for (const auto& part : Row.Parts) {
            const std::string other = part->IsReadOnly ? std::string() : OtherText(*part);
            if (!other.empty()) MessageOf([&] { Inspector.SetText(part->Path, other); });
        }
        if (Row.IsDefault) return; // its parts are objects
        if (Row.CanReset) Inspector.Reset(Row.Path);
        if (!Row.IsDefault) Note(Stuck, Told);
    }
    static void Note(std::set<std::string>& Where, const std::string& What) { Where.insert(What); }
    /// What a property counts for only where another one has this value.
    static void Prepare(TComponent& Part, const std::string& Path) {
        const bool isSize = Path == "Width" || Path == "Height";
        const char* other = isSize ? "AutoSize" : Path.ends_with("Part") ? "AutoTicks" : "-";
        if (Part.PublishedProperties().Find(other)) SetPropertyText(Part, other, "0");
    }
    void EditAll(const TComponentClass& Class, const std::vector<std::string>& Paths) {
        for (const std::string& path : Paths) EditAndReset(Class, path);
    }
    static void AddPaths(const std::vector<std::unique_ptr<TKxInspectorRow>>& Rows,
                         std::vector<std::string>& Paths) {
        for (const auto& row : Rows) {
            Paths.push_back(row->Path);
            AddPaths(row->Parts, Paths);
        }
    }

    int Edited = 0, Connected = 0;
    std::set<std::string> ReadOnly, Without, Unset, Kept, Stuck;
};

TEST(Inspector, EditsAndResetsEveryPropertyOfEveryClass) {
    TEveryClass all;
    TFaults faults;
    for (const TComponentClass& type : RegisteredClasses()) {
        std::vector<std::string> paths;
        {
            const std::unique_ptr<TComponent> part(type.Make(all.Form));
            all.Select({part.get()});
            TEveryClass::AddPaths(all.Inspector.GetRows(), paths);
        }
        all.EditAll(type, paths);
    }
    const std::set<std::string> none;
    EXPECT_GT(all.Edited, 800);
    EXPECT_GT(all.Connected, 100);
    EXPECT_EQ(all.ReadOnly, none);
    EXPECT_EQ(all.Unset, none);
    EXPECT_EQ(all.Without, none);
    EXPECT_EQ(all.Kept, std::set<std::string>{"Name"});
    EXPECT_EQ(all.Stuck, none);
}

/// A graph with data, a fit of them and a label of it.
struct TFitted : TInspected {
    TFitted() {
        Fill({{0, 1}, {1, 3}, {2, 5}});
        Series = AddSeries();
        Series->SetName("Series1");
        Fit->SetName("Fit1");
        Fit->SetParentSeries(Series);
        Label->SetName("Label1");
        Label->SetParent(Graph);
    }
    std::string ChoicesOf(std::string_view Path) const {
        std::string text;
        for (const TKxPropertyChoice& choice : Inspector.Find(Path)->Editor->GetChoices())
            text += choice.Text + (choice.Note.empty() ? "" : "=" + choice.Note) + ";";
        return text;
    }
    TKxDataWithErrorSeries* Series;
    TKxLinearRegressionLine* Fit = new TKxLinearRegressionLine(Form);
    TKxResultLabel* Label = new TKxResultLabel(Form);
};

TEST(Inspector, ChangesSeveralComponentsAtOnceOrNone) {
    TFitted f;
    f.Fit->Tag = 1;
    f.Select({f.Series, f.Fit});
    EXPECT_EQ(f.Inspector.GetTitle(), "2 components");
    for (const char* path : {"Name", "PointStyle", "ParentSeries"})
        EXPECT_FALSE(f.Inspector.Find(path)) << path;
    EXPECT_TRUE(f.Inspector.Find("Tag")->IsMixed);
    EXPECT_EQ(f.TextOf("Tag"), "");
    f.Inspector.SetText("LineStyle.Width", "3");
    f.Inspector.SetText("Tag", "7", true);
    EXPECT_EQ(f.Series->GetLineStyle().GetWidth() + f.Fit->GetLineStyle().GetWidth(), 6);
    EXPECT_EQ(f.Fit->Tag + f.Series->Tag, 14);
    EXPECT_EQ(f.Steps.Text, "Change LineStyle.Width;Change Tag;(Series1.Tag Fit1.Tag )");

    // The second one cannot be in itself.
    TCustomControl inner(f.Form), outer(f.Form);
    inner.SetParent(&outer);
    f.Select({&inner, &outer});
    struct TCase {
        const char *Path, *Text, *Message;
    };
    for (const TCase& c :
         {TCase{"Width", "wide", "Width: 'wide' is not a whole number from"},
          TCase{"Color", "clReed", "Color: 'clReed' is not a colour"},
          TCase{"Font.Style.fsBold", "maybe", "fsBold: 'maybe' is not one of 1, 0"},
          TCase{"Align", "alMiddle", "Align: 'alMiddle' is not one of alNone"},
          TCase{"PopupMenu", "XAxis1", "PopupMenu: 'XAxis1' is not a component of the form"},
          TCase{"OnClick", "no one", "OnClick: 'no one' is not the name of a handler"},
          TCase{"Colour", "clRed", "there is no property 'Colour' here; did you mean 'Color'?"}}) {
        const auto message = MessageOf<EPropertyError>([&] { f.Inspector.SetText(c.Path, c.Text); });
        EXPECT_EQ(message.substr(0, std::string(c.Message).size()), c.Message);
    }
    EXPECT_EQ(MessageOf([&] { f.Select({f.Label}), f.Inspector.SetText("Name", "Fit1"); }),
              "A component named Fit1 already exists");
    EXPECT_EQ(f.Label->GetName(), "Label1");
}

TEST(Inspector, EditsFontsInOneLine) {
    TInspected f;
    TKxLabel label(f.Form), other(f.Form);
    label.SetName("Label1");
    other.GetFont().SetSize(20);
    f.Select({&label, &other});
    const std::string first = f.TextOf("Font");
    struct TCase {
        const char *Text, *Shown;
        int OtherSize;
    };
    for (const TCase& c :
         {TCase{"fsItalic, Courier New,fsBold", "Courier New, 10, fsBold, fsItalic, clNavy", 20},
          {"Courier New, 14, fsBold", "Courier New, 14, fsBold, clNavy", 14},
          {"clRed, No Such Font", "No Such Font, 14, clRed", 14}}) {
        label.GetFont().SetColor(clNavy);
        f.Inspector.Refresh();
        f.Steps.Text.clear();
        f.Inspector.SetText("Font", c.Text);
        EXPECT_EQ(f.TextOf("Font"), c.Shown);
        EXPECT_EQ(other.GetFont().GetName(), label.GetFont().GetName());
        EXPECT_EQ(other.GetFont().GetSize(), c.OtherSize) << "what was not changed stays mixed";
        EXPECT_EQ(f.Steps.Text, "Change Font;");
    }
    for (const char* text : {"Arial, Times", "10, 12", "Arial, 0"})
        EXPECT_EQ(MessageOf<EPropertyError>([&] { f.Inspector.SetText("Font", text); }),
                  "Font: '" + std::string(text) + "' is not a font such as 'Arial, 10, fsBold'");
    f.Inspector.Reset("Font");
    EXPECT_EQ(f.TextOf("Font"), first);

    TKxPropertyEditor& family = *f.Inspector.Find("Font.Name")->Editor;
    EXPECT_EQ(family.GetKind(), TKxEditorKind::FontFamily);
    EXPECT_TRUE(std::ranges::any_of(family.GetChoices(), [](const auto& C) { return C.Text == "Arial"; }));
}

TEST(Inspector, OffersWhatTheFormHas) {
    TFitted f;
    f.Select({f.Label});
    EXPECT_EQ(f.ChoicesOf("Identifier"), "=none;");
    EXPECT_EQ(f.ChoicesOf("Series"), "=none;Fit1=TKxLinearRegressionLine;");
    f.Inspector.SetText("Series", "Fit1");
    EXPECT_NE(f.ChoicesOf("Identifier").find(";Slope=2;"), std::string::npos) << f.ChoicesOf("Identifier");
    f.Inspector.SetText("Identifier", "Slope");
    EXPECT_EQ(f.Label->GetCaption(), "2");

    f.Select({f.Fit});
    EXPECT_EQ(f.ChoicesOf("ParentSeries"), "=none;Series1=TKxDataWithErrorSeries;");
    f.Select({f.Series});
    EXPECT_EQ(f.ChoicesOf("YAxis"), "=none;XAxis1=TKxAxis;YAxis1=TKxAxis;(new secondary axis);");
    f.Steps.Text.clear();
    f.Inspector.SetText("YAxis", std::string(CNewSecondaryAxis));
    EXPECT_EQ(f.Steps.Text, "Change YAxis;");
    const TKxAxis* axis = f.Series->GetYAxis();
    EXPECT_EQ(axis->GetName(), "SecondaryAxis1");
    EXPECT_EQ(axis->GetParent(), f.Graph);
    EXPECT_EQ(axis->GetPosition(), AxRightPos);
    EXPECT_EQ(f.TextOf("YAxis"), "SecondaryAxis1");

    RegisterHandlers();
    f.Select({f.Graph});
    EXPECT_EQ(f.ChoicesOf("OnMouseMove"), "=none;Moved;");
    EXPECT_EQ(f.ChoicesOf("PrimaryYAxis").find("new"), std::string::npos);
    f.Inspector.SetText("OnMouseMove", "Moved");
    EXPECT_EQ(f.TextOf("OnMouseMove"), "Moved");
    f.Inspector.SetText("OnMouseMove", "");
    EXPECT_FALSE(f.Graph->OnMouseMove);
}

TEST(Inspector, AFitThatCannotBeCalculatedYetTakesItsSeries) {
    TFitted f;
    TKxFittedLine line(f.Form);
    line.SetName("Line1");
    f.Select({&line});
    f.Inspector.SetText("ParentSeries", "Series1");
    EXPECT_EQ(line.GetParentSeries(), f.Series);
    EXPECT_NE(line.GetError(), "");
}

TEST(Inspector, ShowsRowsUnderHeadingsAsFarAsTheyAreLookedFor) {
    TFitted f;
    f.Select({f.Series});
    const auto shown = [&](std::string_view Category) {
        std::string names;
        for (const TKxInspectorRow* row : f.Inspector.GetShown(Category)) names += row->Name + " ";
        return names;
    };
    EXPECT_EQ(shown("Component"), "Name Tag ");
    EXPECT_EQ(shown("Data"), "dXMinus dXPlus dYMinus dYPlus Weight XData YData ");
    EXPECT_EQ(shown("Axis"), "XAxis YAxis ");
    f.Inspector.SetHidesDefaults(true);
    EXPECT_EQ(shown(""), "XAxis XData YAxis YData ");
    f.Inspector.SetText("PointStyle.Color", "#ff0000");
    EXPECT_EQ(shown(""), "PointStyle XAxis XData YAxis YData ");
    EXPECT_FALSE(f.Inspector.Find("PointStyle.Size")->IsShown);
    f.Inspector.Reset("PointStyle.Color");
    EXPECT_EQ(f.Series->GetPointStyle().GetColor(), clBlue);
    EXPECT_EQ(shown(""), "XAxis XData YAxis YData ");
    f.Inspector.SetHidesDefaults(false);
    f.Inspector.SetSearch("size");
    EXPECT_EQ(shown(""), "PointStyle ");
    SetCategory("PointStyle", "Points");
    f.Select({f.Series});
    EXPECT_EQ(f.Inspector.GetCategories(), std::vector<std::string_view>{"Points"});
    SetCategory("PointStyle", "");
    f.Select({f.Series});
    EXPECT_EQ(shown("Style"), "PointStyle ");
}

TEST(Inspector, FollowsTheComponentsThatItShows) {
    TFitted f;
    std::string told;
    f.Inspector.OnChange = TEvent<bool>([&](bool Others) { told += Others ? "rows;" : "texts;"; });
    f.Select({f.Label, f.Fit});
    const TKxInspectorRow* row = f.Inspector.Find("Tag");
    f.Label->Tag = 3;
    f.Inspector.Refresh();
    f.Inspector.Refresh();
    EXPECT_EQ(row, f.Inspector.Find("Tag"));
    EXPECT_TRUE(row->IsMixed);
    delete f.Fit;
    EXPECT_EQ(f.TextOf("Tag"), "3");
    EXPECT_TRUE(f.Inspector.Find("Identifier"));
    delete f.Label;
    EXPECT_TRUE(f.Inspector.GetRows().empty());
    EXPECT_EQ(told, "rows;texts;rows;rows;");
}

/// What takes the form back, as a document does, by making its components anew.
TEST(Inspector, OutlivesAStepThatReplacesWhatItShows) {
    TFitted f;
    struct TReplacing : TKxDesignChange {
        void Run(const TKxDesignStep&, const std::function<void()>& Change) override {
            Change();
            delete Part;
        }
        TComponent* Part = nullptr;
    } replacing;
    TKxInspector inspector(replacing);
    replacing.Part = f.Label;
    inspector.Select(*f.Form, std::vector<TComponent*>{f.Label});
    inspector.SetText("Prefix", "y = ");
    EXPECT_TRUE(inspector.GetSelected().empty());
}

} // namespace kx::test::inspector
