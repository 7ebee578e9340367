#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/objects/published.h>

#include "support/errors.h"

#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/text/numbertext.h>

#include <gtest/gtest.h>

#include <tuple>

namespace kx {
namespace {

class TThing : public TComponent {
public:
    using TComponent::TComponent;
    bool GetOn() const { return FOn; }
    void SetOn(bool On) { FOn = On; }
    int GetCount() const { return FCount; }
    void SetCount(int Count) { FCount = Count; }
    double GetStart() const { return FStart; }
    void SetStart(double Start) { FStart = Start; }
    TThing* GetPeer() const { return FPeer; }
    void SetPeer(TThing* Peer) { FPeer = Peer; }
    const TFont& GetFont() const { return FFont; }
    TEvent<int> OnCount;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties() {
        static const TPropertyTable table = [] {
            TProperty answer = Published<&TThing::GetCount, &TThing::SetCount>("Answer", 0, "");
            answer.Set = nullptr;
            return TPropertyTable(
                "TThing", &TComponent::Properties(),
                {Published<&TThing::GetOn, &TThing::SetOn>("On", false, ""),
                 Published<&TThing::GetCount, &TThing::SetCount>(
                     "Count", 3, "", [](const TPersistent& O) { return static_cast<const TThing&>(O).FOn; }),
                 Published<&TThing::GetStart, &TThing::SetStart>("Start", std::monostate{}, ""),
                 Published<&TThing::GetPeer, &TThing::SetPeer>("Peer", nullptr, ""),
                 PublishedObject<&TThing::GetFont>("Font", ""), std::move(answer),
                 PublishedEvent<&TThing::OnCount>("OnCount", ""),
                 Published<&TThing::GetCount, &TThing::SetCount>("tag", 0, "hides the inherited one")});
        }();
        return table;
    }

private:
    bool FOn = false;
    int FCount = 3;
    double FStart = 0;
    TThing* FPeer = nullptr;
    TFont FFont;
};

class PropertiesTest : public testing::Test {
protected:
    std::string Set(std::string_view Path, std::string_view Text) {
        const auto set = [&] { SetPropertyText(Thing, Path, Text, Find); };
        const std::string message = test::MessageOf<EPropertyError>(set);
        return message.empty() ? GetPropertyText(Thing, Path) : message;
    }
    TComponent Owner{nullptr};
    TThing Thing{&Owner};
    TComponentFinder Find = [this](std::string_view Name) { return Owner.FindComponent(Name); };
};

using TTextCases = std::vector<std::tuple<const char*, const char*, const char*>>;

TEST_F(PropertiesTest, EveryKindHasATextFormThatReadsBack) {
    Thing.SetName("Thing1");
    // clang-format off
    const TTextCases cases = {
        {"On", "TRUE", "1"}, {"on", " 0 ", "0"}, {"Count", "-2147483648", "-2147483648"},
        {"Start", "1e5", "100000"}, {"Start", "-1.7E308", "-1.7E308"},
        {"Start", "0.30000000000000004", "0.30000000000000004"}, {"Font.Pitch", "FPFIXED", "fpFixed"},
        {"Font.Pitch", "0", "fpDefault"}, {"Peer", "thing1", "Thing1"}, {"Peer", "", ""},
        {"Font.Color", "#0000ff", "clBlue"}, {"Font.Style", "fsUnderline, fsbold", "fsBold,fsUnderline"},
        {"Font.Italic", "1", "1"}, {"Font.Style", "", ""}, {"Font.Size", "8", "8"},
        {"Font.Height", "-11", "-11"}, {"Font.Name", " a b ", " a b "}, {"Name", "Thing2", "Thing2"}};
    // clang-format on
    for (const auto& [path, text, readBack] : cases) EXPECT_EQ(Set(path, text), readBack) << path;
    SetDecimalSeparator(',');
    EXPECT_EQ(Set("Start", "2.5"), "2.5");
    SetDecimalSeparator('.');
}

TEST_F(PropertiesTest, ErrorsNameThePlaceAndWhatWasExpected) {
    TComponent stranger(&Owner);
    stranger.SetName("Stranger");
    const TTextCases cases = {
        {"Foo", "1", "TThing has no property 'Foo'"},
        {"Font.Foo", "1", "TFont has no property 'Foo' (Font.Foo)"},
        {"Count.Foo", "1", "'Count' of TThing has no properties"},
        {"Font", "1", "Font is an object: its own properties are set one by one"},
        {"Answer", "1", "'Answer' of TThing is read only"},
        {"On", "yes", "On: 'yes' is not one of 1, 0, true, false"},
        {"Count", "2147483648", "Count: '2147483648' is not a whole number from -2147483648 to 2147483647"},
        {"Start", "a\nc", "Start: 'a\\x0Ac' is not a number"},
        {"Start", "1e999", "Start: '1e999' is not a number of up to 1.7E308"},
        {"Font.Pitch", "9", "Font.Pitch: '9' is not one of fpDefault, fpVariable, fpFixed"},
        {"Font.Style", "fsBold,x", "Font.Style: 'x' is not among fsBold, fsItalic, fsUnderline, fsStrikeOut"},
        {"Font.Color", "#12",
         "Font.Color: '#12' is not a colour (a name such as clRed, $BBGGRR, #RRGGBB or a number)"},
        {"Peer", "Nobody", "Peer: 'Nobody' is not the name of a component"},
        {"Peer", "Stranger", "Peer must be a TThing"},
        {"OnCount", "", "OnCount is an event: programs connect it, no text does"}};
    for (const auto& [path, text, message] : cases) EXPECT_EQ(Set(path, text), message);
    EXPECT_EQ(Thing.GetCount(), 3);
}

TEST_F(PropertiesTest, TheTableListsTheBaseFirstAndStoresWhatDiffersFromItsDefault) {
    const auto listed = [&](auto... Condition) {
        std::string names;
        for (const TProperty* p : TThing::Properties().All())
            if ((Condition(Thing, *p) && ...)) (names += p->Name) += ' ';
        return names;
    };
    const auto stored = [&] { return listed(IsStored); };
    EXPECT_EQ(listed(), "Name tag On Count Start Peer Font Answer OnCount ") << "a redeclared one once";
    EXPECT_EQ(stored(), "tag Start Font ");
    Thing.SetCount(0);
    Thing.SetOn(true); // lets the count be stored
    EXPECT_EQ(stored(), "On Count Start Font ");
}

TEST_F(PropertiesTest, EventsAreFoundByNameAndConnected) {
    const TProperty& event = *TThing::Properties().Find("OnCount");
    EXPECT_EQ(event.Kind, TPropertyKind::Event);
    EXPECT_EQ(GetPropertyText(Thing, "OnCount"), "");
    int heard = 0;
    event.Set(Thing, TEventValue(TEvent<int>([&](int Value) { heard = Value; })));
    Thing.OnCount(5);
    std::get<TEventValue>(event.Get(Thing)).As<TEvent<int>>()(heard + 2);
    EXPECT_EQ(heard, 7);
    EXPECT_EQ(GetPropertyText(Thing, "OnCount"), "assigned");
    EXPECT_FALSE(IsStored(Thing, event));
    EXPECT_THROW(event.Set(Thing, TEventValue(TEvent<>([] {}))), EPropertyError);
}

TEST_F(PropertiesTest, AssigningAnObjectGoesThroughToItAndRefusesAnotherClass) {
    TFont font;
    font.SetBold(true);
    TThing::Properties().Find("Font")->Set(Thing, static_cast<TPersistent*>(&font));
    EXPECT_TRUE(Thing.GetFont().GetBold());
    EXPECT_EQ(test::MessageOf([&] { font.Assign(Thing); }), "Cannot assign a TThing to a TFont");
}

} // namespace
} // namespace kx
