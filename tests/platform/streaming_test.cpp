// Form files: what may stand in them, what is said of what may not, and that values come back as they were.

#include <kxgraph/platform/streaming/formfile.h>

#include "support/errors.h"
#include "support/recording.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/series/Kxdataseries.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <filesystem>
#include <limits>
#include <random>

namespace kx {
namespace {

struct FormFile : testing::Test {
    FormFile() { RegisterClasses(); }

    std::unique_ptr<TComponent> Read(const std::string& Text) { return FormFromText(Text, "a.kxf"); }
    /// What is wrong with Lines in the form F.
    std::string Fault(const std::string& Lines) {
        return test::MessageOf<EFormError>([&] { Read("object F: TForm\n" + Lines + "\nend\n"); });
    }
    template <class T>
    static T& Get(const TComponent& Root, std::string_view Name) {
        return dynamic_cast<T&>(*Root.FindComponent(Name));
    }
};

TEST_F(FormFile, TellsWhatIsWrongAndWhere) {
    const char* const cases[][2] = {
        {"object S: TKxDataSeries\n  LineStyle.Colour = clRed\nend",
         "3:13: unknown property 'Colour' of TKxLineStyle; did you mean 'Color'?"},
        {"  Captoin = \"\"", "2:3: unknown property 'Captoin' of TForm; did you mean 'Caption'?"},
        {"object V: TKxRealVector\nValue = (1)\nend",
         "3:1: unknown property 'Value' of TKxRealVector; did you mean 'Values'?"},
        {"object A: TKxAxes\nend", "2:11: unknown class 'TKxAxes'; did you mean 'TKxAxis'?"},
        {"object V: TTimer\nend\nobject v: TTimer\nend", "4:8: A component named v already exists"},
        {"object F: TTimer\nend", "2:8: A component named F already exists: the form"},
        {"Width = 5\nwidth = 6", "3:1: property 'width' is given a second time"},
        {"Visible = 1", "2:11: '1' is not True or False"},
        {"Width = \"5\"", "2:9: '\"5\"' is not a whole number"},
        {"Width = 2147483648", "2:9: '2147483648' is not a whole number from -2147483648 to 2147483647"},
        {"Caption = Kaffee", "2:11: 'Kaffee' is not a text in quotes"},
        {"Align = alTopp", "2:9: 'alTopp' is not one of alNone, alTop, alBottom, alLeft, alRight, alClient; "
                           "did you mean 'alTop'?"},
        {"Font.Style = fsBold", "2:14: 'fsBold' is not a set: [] or names in brackets"},
        {"Font.Style = [fsBold,]", "2:22: ']' is not a name"},
        {"Color = red", "2:9: 'red' is not a colour (a name such as clRed, $BBGGRR, #RRGGBB or a number)"},
        {"Font = 5", "2:1: 'Font' is an object: its own properties are given one by one"},
        {"Width.X = 5", "2:1: 'Width' of TForm has no properties"},
        {"OnClick = Foo", "2:11: no event 'Foo' is registered"},
        {"object A: TKxAxis\nStart = 1e999\nend", "3:9: '1e999' is not a number from 4.9e-324 to 1.7e308"},
        {"object G: TKx2DGraph\nPrimaryXAxis = Axis\nend\nobject Axis1: TKxAxis\nend",
         "3:16: there is no component 'Axis'; did you mean 'Axis1'?"},
        {"object G: TKx2DGraph\nPrimaryXAxis = V\nend\nobject V: TTimer\nend",
         "3:16: PrimaryXAxis must be a TKxAxis"},
        {"object A: TKxAxis\nobject L: TKxLabel\nend\nend",
         "3:11: A TKxLabel stands in controls that have children alone"},
        {"object G: TKx2DGraph\nobject V: TTimer\nend\nend", "3:11: A TTimer stands in no other component"},
        {"object V: TKxRealVector\nValues = (1 x)\nend", "3:13: 'x' is not a number"},
        {"object V: TKxRealVector\nValues = 1\nend", "3:10: '1' is not a list in parentheses"},
        {"object L: TKxFittedLine\nOrder = 2\nCoefficients = (1)\nend",
         "4:17: 2 coefficients are expected, not 1"},
        {"Hint = \"a", "2:8: the text has no closing quote"},
        {"Hint = \"\xC3\xA4\\q\"", "2:10: a backslash in a text stands before one of \\ \" n t r, or before "
                                   "x and two hexadecimal digits"},
        {"Hint = \xC3\xA4", "2:8: '\xC3\xA4' is not expected here"},
        {"Width =\n5", "2:7: a value is expected behind '='"},
        {"Width = 5 Height = 6", "2:11: a new line is expected here"},
        {"Width 5", "2:7: '5' is not '='"},
        {"end", "3:1: the file goes on behind the end of its form"},
        {"object A: TKxAxis", "4:1: the file ends before the 'end' of 'F'"},
    };
    for (const auto& [lines, fault] : cases) EXPECT_EQ(Fault(lines), std::string("a.kxf:") + fault) << lines;
    EXPECT_EQ(test::MessageOf([&] { Read(""); }), "a.kxf:1:1: the file ends where 'object' is expected");
}

TEST_F(FormFile, RefusesNestingThatIsTooDeep) {
    std::string nested, lists = "object F: TForm\nobject V: TKxRealVector\nValues = ";
    for (int i = 0; i < 1001; ++i) nested += "object TForm\n";
    EXPECT_EQ(test::MessageOf([&] { Read(nested); }),
              "a.kxf:1001:1: objects stand in one another more than 1000 deep");
    EXPECT_NE(test::MessageOf([&] { Read(lists + std::string(100000, '(')); }).find("more than 1000 deep"),
              std::string::npos);
    std::string deep;
    for (int i = 0; i < 1000; ++i) deep += "object TForm\n";
    for (int i = 0; i < 1000; ++i) deep += "end\n";
    EXPECT_EQ(test::MessageOf([&] { Read(deep); }), "");
}

constexpr const char* CFigure = R"(// as a program has it
object Form1: TForm
  Left = 10
  Top = 20
  Width = 420
  Height = 320
  Caption = "Kaffee \"kalt\"\n\\b"
  object Graph1: TKx2DGraph
    Left = 0
    Top = 0
    Width = 420
    Height = 320
    Align = alClient
    Color = clWhite
    PrimaryXAxis = XAxis1 // stands further below
    DataColor = $00F0F0F0
    MajorGridX.Style = psDash
    object XAxis1: TKxAxis
      Left = 0
      Top = 0
      Width = 50
      Height = 400
      Position = AxBottomPos
    end
    object TKxLabel
      Left = 5
      Top = 6
      Width = 7
      Height = 8
      Color = $00F0F0F0
      ParentColor = False
      AutoSize = False
      XPosition = 5
      Caption = "no name"
    end
  end
  object Y1: TKxLiveVector
    PersistentValues = True
    Capacity = 50
    Increment = 50
    Values = (1 2.5 -1e+300)
  end
  object Series1: TKxDataSeries
    XAxis = XAxis1
    YData = Y1
  end
end
)";

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
    const std::string whole = CFigure;
    for (std::size_t length = 0; length + 1 < whole.size(); ++length)
        EXPECT_NE(test::MessageOf<EFormError>([&] { Read(whole.substr(0, length)); }), "") << length;
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
    EXPECT_NE(text.find("(0 -0 0.1 1e+23 5e-324"), text.npos);
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
    EXPECT_NE(again.find("OnClick = Clicked\n"), again.npos);
    EXPECT_NE(again.find("FittingFunction = Model\n"), again.npos);
    EXPECT_EQ(Fault("OnMouseMove = Clicked"), "a.kxf:2:15: The event is of another type than the property");
    EXPECT_EQ(test::MessageOf([] { RegisterEvent("1st", TNotifyEvent(&Doubled)); }),
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
    EXPECT_EQ(FormToText(form).find("ControlOrder"), std::string::npos);
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
    EXPECT_NE(FormToText(form).find("object L: TKxLabel\n    Parent = nil\n"), std::string::npos);
    EXPECT_EQ(Get<TKxLabel>(*Read(FormToText(form)), "L").GetParent(), nullptr);
    TKxRealVector stranger(nullptr);
    TKxDataSeries series(&form);
    series.SetYData(&stranger);
    EXPECT_EQ(test::MessageOf<EFormError>([&] { FormToText(form); }),
              "a TKxDataSeries without a name.YData refers to a TKxRealVector without a name, which is not "
              "of the form");
    series.SetYData(new TKxRealVector(&form));
    EXPECT_EQ(test::MessageOf<EFormError>([&] { FormToText(form); }),
              "a TKxDataSeries without a name.YData refers to a TKxRealVector without a name");
}

TEST_F(FormFile, FilesAreReplacedWhole) {
    const test::TTemporaryDirectory directory;
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
    EXPECT_EQ(test::MessageOf<EFormError>([&] { LoadForm(name); }),
              name + ":1:7: the file ends where the name of an object is expected");
    std::filesystem::remove(name);
    EXPECT_THROW(LoadForm(name), EFileError);
}

TEST_F(FormFile, ClassesStandOnPages) {
    EXPECT_EQ(PalettePages(), (std::vector<std::string_view>{CGeneralPage, CGraphPage}));
    EXPECT_EQ(FindClass("TKxLiveVector")->Page, "Kx-General");
    EXPECT_EQ(FindClass("TKxAxis")->Page, "Kx-Graph2D");
}

} // namespace
} // namespace kx
