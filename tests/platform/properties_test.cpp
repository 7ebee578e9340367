#include <kxgraph/platform/objects/propertytext.h>

#include "support/testing.h"

#include <kxgraph/platform/objects/published.h>

#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/objects/component.h>

namespace kx::test::properties {

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

class Properties : public testing::Test {
protected:
    std::string Set(std::string_view Path, std::string_view Text) {
        const auto set = [&] { SetPropertyText(Thing, Path, Text, Find); };
        const std::string message = MessageOf<EPropertyError>(set);
        return message.empty() ? GetPropertyText(Thing, Path) : message;
    }
    TComponent Owner{nullptr};
    TThing Thing{&Owner};
    TComponentFinder Find = [this](std::string_view Name) { return Owner.FindComponent(Name); };
};

TEST_F(Properties, HaveTextFormsThatReadBack) {
    Thing.SetName("Thing1");
    for (const auto& [path, text, readBack] : Cases<TText, TText, TText>("texts", "property texts"))
        EXPECT_EQ(Set(path, text), readBack) << path;
    SetDecimalSeparator(',');
    EXPECT_EQ(Set("Start", "2.5"), "2.5");
    SetDecimalSeparator('.');
}

TEST_F(Properties, NameThePlaceOfAnErrorAndWhatWasExpected) {
    TComponent stranger(&Owner);
    stranger.SetName("Stranger");
    for (const auto& [path, text, message] : Cases<TText, TText, TText>("texts", "property errors"))
        EXPECT_EQ(Set(path, text), message);
    EXPECT_EQ(Thing.GetCount(), 3);
}

TEST_F(Properties, ListTheBaseFirstAndStoreWhatDiffersFromItsDefault) {
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

TEST_F(Properties, FindAndConnectEventsByName) {
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

TEST_F(Properties, AssignToObjectsAndRefuseAnotherClass) {
    TFont font;
    font.SetBold(true);
    TThing::Properties().Find("Font")->Set(Thing, static_cast<TPersistent*>(&font));
    EXPECT_TRUE(Thing.GetFont().GetBold());
    EXPECT_EQ(MessageOf([&] { font.Assign(Thing); }), "Cannot assign a TThing to a TFont");
}

} // namespace kx::test::properties
