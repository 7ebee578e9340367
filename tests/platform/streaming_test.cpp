// Form files: what may stand in them, what is said of what may not, and that values come back as they were.

#include <kxgraph/platform/streaming/formfile.h>

#include "support/testing.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::test::streaming {

struct FormFile : testing::Test {
    FormFile() { RegisterClasses(); }

    std::unique_ptr<TComponent> Read(const std::string& Text) { return FormFromText(Text, "a.kxf"); }
    /// What is wrong with Lines in the form F.
    std::string Fault(const std::string& Lines) {
        return MessageOf<EFormError>([&] { Read("object F: TForm\n" + Lines + "\nend\n"); });
    }
    template <class T>
    static T& Get(const TComponent& Root, std::string_view Name) {
        return dynamic_cast<T&>(*Root.FindComponent(Name));
    }
};

TEST_F(FormFile, TellsWhatIsWrongAndWhere) {
    for (const auto& [lines, fault] : Cases<TText, TText>("forms", "faults"))
        EXPECT_EQ(Fault(lines), "a.kxf:" + fault) << lines;
    EXPECT_EQ(MessageOf([&] { Read(""); }), "a.kxf:1:1: the file ends where 'object' is expected");
}

TEST_F(FormFile, RefusesNestingThatIsTooDeep) {
    const auto faultOf = [&](const std::string& Text) { return MessageOf([&] { Read(Text); }); };
    const std::string fault = "objects stand in one another more than 1000 deep";
    std::string begins, ends;
    for (int i = 0; i < 1000; ++i) begins += "object TForm\n", ends += "end\n";
    EXPECT_EQ(faultOf(begins + ends), "");
    EXPECT_EQ(faultOf(begins + "object TForm\n"), "a.kxf:1001:1: " + fault);
    const std::string lists = "object F: TForm\nobject V: TKxRealVector\nValues = ";
    EXPECT_TRUE(Holds(faultOf(lists + std::string(100000, '(')), "more than 1000 deep"));
}

const std::string CFigure = ReadFile(KX_SOURCE "/tests/data/figure.kxf");

TEST_F(FormFile, BringsAFigureBackAndWritesItAlike) {
    const auto form = Read(CFigure);
    auto& graph = Get<TKx2DGraph>(*form, "Graph1");
    auto& axis = Get<TKxAxis>(*form, "XAxis1");
    EXPECT_EQ(dynamic_cast<TForm&>(*form).GetCaption(), "Kaffee \"kalt\"\n\\b");
    EXPECT_EQ(graph.GetParent(), form.get());
    EXPECT_EQ(axis.GetParent(), &graph);
    EXPECT_EQ(graph.GetPrimaryXAxis(), &axis);
    EXPECT_EQ(graph.GetMajorGridX().GetStyle(), psDash);
    EXPECT_EQ(Get<TKxDataSeries>(*form, "Series1").GetGraph(), &graph);
    EXPECT_EQ(Get<TKxLiveVector>(*form, "Y1").GetValue(2), -1e300);
    EXPECT_FALSE(form->IsIn(csLoading) || axis.IsIn(csLoading));
    std::string wanted = CFigure, text = FormToText(*form);
    wanted.erase(0, wanted.find('\n') + 1);
    wanted.erase(wanted.find(" // stands"), std::string(" // stands further below").size());
    EXPECT_EQ(text, wanted);
    EXPECT_EQ(FormToText(*Read(text)), text);
}

TEST_F(FormFile, CutOffAnywhereGivesNothing) {
    for (std::size_t length = 0; length + 1 < CFigure.size(); ++length)
        EXPECT_NE(MessageOf<EFormError>([&] { Read(CFigure.substr(0, length)); }), "") << length;
}

TEST_F(FormFile, NumbersComeBackBitForBit) {
    TForm form(nullptr);
    auto* vector = new TKxRealVector(&form);
    vector->SetName("V");
    vector->SetPersistentValues(true);
    using TLimits = std::numeric_limits<double>;
    for (const double value :
         {0.0, -0.0, 0.1, 1e23, 5e-324, TLimits::max(), TLimits::min(), TLimits::infinity(),
          -TLimits::infinity(), TLimits::quiet_NaN(), -TLimits::quiet_NaN()})
        vector->Add(value);
    std::mt19937_64 random(1);
    for (int i = 0; i < 3000; ++i) vector->Add(std::bit_cast<double>(random()));
    const std::string text = FormToText(form);
    const auto read = Read(text);
    const auto values = Get<TKxRealVector>(*read, "V").Values();
    ASSERT_EQ(values.size(), vector->Values().size());
    EXPECT_EQ(std::memcmp(values.data(), vector->Values().data(), values.size_bytes()), 0);
    EXPECT_TRUE(Holds(text, "(0 -0 0.1 1e+23 5e-324"));
}

TEST_F(FormFile, TextsComeBackByteForByte) {
    TForm form(nullptr);
    std::string all = "\xE2\x82\xAC \xF0\x9F\x93\x88 ";
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    form.SetHint(all);
    EXPECT_EQ(dynamic_cast<TForm&>(*Read(FormToText(form))).GetHint(), all);
}

void Doubled(TControl*) {}

TEST_F(FormFile, EventsGoByTheNamesThatTheProgramHasRegistered) {
    int calls = 0;
    const TNotifyEvent clicked([&](TControl*) { ++calls; });
    RegisterEvent("Clicked", clicked);
    RegisterEvent("Model", TKxFittingFkt([](double X, const TKxRealArray&) { return X; }));
    RegisterEvent("Nobody", TNotifyEvent(&Doubled));
    const std::string text = "object F: TForm\n  OnClick = clicked\n  object L: TKxFittedLine\n    "
                             "FittingFunction = Model\n  end\nend\n";
    const auto form = Read(text);
    dynamic_cast<TForm&>(*form).OnClick(nullptr);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(Get<TKxFittedLine>(*form, "L").GetFittingFunction()(3, {}), 3);
    const std::string again = FormToText(*form);
    EXPECT_TRUE(Holds(again, "OnClick = Clicked\n"));
    EXPECT_TRUE(Holds(again, "FittingFunction = Model\n"));
    EXPECT_EQ(Fault("OnMouseMove = Clicked"), "a.kxf:2:15: The event is of another type than the property");
    EXPECT_EQ(MessageOf([] { RegisterEvent("1st", TNotifyEvent(&Doubled)); }),
              "'1st' is not a valid component name");
    for (const char* name : {"Clicked", "Model", "Nobody"}) RegisterEvent(name, TNotifyEvent());
    EXPECT_EQ(FormToText(*form).find("OnClick"), std::string::npos) << "nobody knows its name any more";
    const auto designed = FormFromText(text, "", {.KeepsUnknownEvents = true});
    EXPECT_FALSE(dynamic_cast<TForm&>(*designed).OnClick);
    const std::string kept = FormToText(*designed);
    EXPECT_NE(kept.find("OnClick = clicked\n"), kept.npos);
    EXPECT_NE(kept.find("FittingFunction = Model\n"), kept.npos);
    UpdateForm(*designed, "object F: TForm\n  OnClick = nil\nend\n");
    EXPECT_EQ(FormToText(*designed).find("OnClick"), std::string::npos);
    EXPECT_NE(test::MessageOf([&] { FormFromText(kept); }), "") << "programs that run have their handlers";
}

TEST_F(FormFile, TheOrderOfControlsComesBack) {
    TForm form(nullptr);
    form.SetName("F");
    for (const char* name : {"A", "B", "C"}) {
        auto* label = new TKxLabel(&form);
        label->SetName(name);
        label->SetParent(&form);
    }
    const auto order = [](const TComponent& Form) {
        std::string names;
        for (const TControl* control : dynamic_cast<const TForm&>(Form).GetControls())
            names += control->GetName();
        return names;
    };
    EXPECT_FALSE(Holds(FormToText(form), "ControlOrder"));
    Get<TKxLabel>(form, "A").BringToFront();
    const auto read = Read(FormToText(form));
    EXPECT_EQ(order(*read), "BCA");
    EXPECT_EQ(FormToText(*read), FormToText(form));
}

TEST_F(FormFile, LabelsComeBackWhereTheyAreAnchored) {
    for (const TAlignment alignment : {taLeftJustify, taRightJustify, taCenter})
        for (const bool autoSize : {true, false}) {
            TForm form(nullptr);
            TKxLabel label(&form);
            label.SetName("L");
            label.SetParent(&form);
            label.SetCaption("some text");
            label.SetAlignment(alignment);
            label.SetXPosition(300);
            label.SetAutoSize(autoSize);
            label.GetFont().SetSize(14);
            const auto read = Read(FormToText(form));
            EXPECT_EQ(FormToText(*read), FormToText(form));
            auto& again = Get<TKxLabel>(*read, "L");
            EXPECT_EQ(again.GetBoundsRect(), label.GetBoundsRect());
            again.SetCaption("another text");
            label.SetCaption("another text");
            EXPECT_EQ(again.GetBoundsRect(), label.GetBoundsRect());
        }
}

class TOwnLabel : public TKxLabel {
    using TKxLabel::TKxLabel;
};

TEST_F(FormFile, WritesWhatCanBeRead) {
    TForm form(nullptr);
    auto* label = new TOwnLabel(&form);
    label->SetName("L");
    EXPECT_TRUE(Holds(FormToText(form), "object L: TKxLabel\n    Parent = nil\n"));
    EXPECT_EQ(Get<TKxLabel>(*Read(FormToText(form)), "L").GetParent(), nullptr);
    TKxRealVector stranger(nullptr);
    TKxDataSeries series(&form);
    series.SetYData(&stranger);
    EXPECT_EQ(MessageOf<EFormError>([&] { FormToText(form); }),
              "a TKxDataSeries without a name.YData refers to a TKxRealVector without a name, which is not "
              "of the form");
    series.SetYData(new TKxRealVector(&form));
    EXPECT_EQ(MessageOf<EFormError>([&] { FormToText(form); }),
              "a TKxDataSeries without a name.YData refers to a TKxRealVector without a name");
}

TEST_F(FormFile, FilesAreReplacedWhole) {
    const TTemporaryDirectory directory;
    const std::string name = directory / "form.kxf";
    TForm form(nullptr);
    form.SetCaption("first");
    SaveForm(form, name);
    const std::string before = ReadFile(name);
    TKxDataSeries series(&form);
    series.SetYData(new TKxRealVector(&form));
    EXPECT_THROW(SaveForm(form, name), EFormError);
    EXPECT_EQ(ReadFile(name), before);
    EXPECT_EQ(dynamic_cast<TForm&>(*LoadForm(name)).GetCaption(), "first");
    ReplaceFile(name, "object");
    EXPECT_EQ(MessageOf<EFormError>([&] { LoadForm(name); }),
              name + ":1:7: the file ends where the name of an object is expected");
    std::filesystem::remove(name);
    EXPECT_THROW(LoadForm(name), EFileError);
}

TEST_F(FormFile, ClassesStandOnPages) {
    EXPECT_EQ(PalettePages(), (std::vector<std::string_view>{CGeneralPage, CGraphPage}));
    EXPECT_EQ(FindClass("TKxLiveVector")->Page, "Kx-General");
    EXPECT_EQ(FindClass("TKxAxis")->Page, "Kx-Graph2D");
}

} // namespace kx::test::streaming
