#include <kxgraph/persist/Kxoutfit.h>

#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/host/application.h>

#include <gtest/gtest.h>

namespace kx {
namespace {

class TThing : public TComponent {
public:
    using TComponent::TComponent;
    bool GetShown() const { return Shown; }
    void SetShown(bool Value) { Shown = Value; }
    TFont* GetFont() { return &Font; }
    TThing* GetFriend() const { return Friend; }
    void SetFriend(TThing* Value) { Friend = Value, ++Befriended; }

    bool Shown = false;
    TPenStyle Pen = psDash;
    double Start = 0;
    TFont Font;
    TThing* Friend = nullptr;
    int Befriended = 0;
};

const TKxOutfit<TThing> CThingOutfit{
    OutfitFont<&TThing::GetFont>("Font"),
    Outfit<&TThing::GetName, &TThing::SetName>("Name"), // inherited
    Outfit<&TThing::GetShown, &TThing::SetShown>("Shown", true),
    Outfit<&TThing::Pen, [](TThing& T, TPenStyle Pen) { T.Pen = Pen; }>("Pen"),
    Outfit<&TThing::Start, [](TThing& T, double Start) { T.Start = Start; }>("Start"),
    OutfitRef<&TThing::GetFriend, &TThing::SetFriend>("Friend"),
};

TEST(Outfit, OneTableSavesAndLoads) {
    TThing thing(&TApplication::Instance()), read(nullptr);
    thing.SetName("Thing1");
    thing.Pen = psDot;
    thing.Start = 0.5;
    thing.Friend = &thing;
    thing.Font.SetBold(true);
    TKxIniList ini;
    SaveOutfitTable(thing, CThingOutfit, "S", ini, "My.");
    EXPECT_EQ(ini.GetText().substr(ini.GetText().find("My.Font.StrikeOut")),
              "My.Font.StrikeOut=0\nMy.Name=Thing1\nMy.Shown=0\nMy.Pen=2\nMy.Start=0.5\nMy.Friend=Thing1\n");
    for (int round = 0; round < 2; ++round) LoadOutfitTable(read, CThingOutfit, "S", ini, "My.");
    EXPECT_EQ(read.GetName(), "Thing1");
    EXPECT_EQ(read.Pen, psDot);
    EXPECT_EQ(read.Start, 0.5);
    EXPECT_FALSE(read.Shown);
    EXPECT_TRUE(read.Font.GetBold());
    EXPECT_EQ(read.Friend, &thing);
    EXPECT_EQ(read.Befriended, 1); // not again in the second round
    ini.SetText("[S]\nPen=7\n");   // wrong, and the others missing
    LoadOutfitTable(read, CThingOutfit, "S", ini);
    EXPECT_EQ(read.Pen, psDot);
    EXPECT_TRUE(read.Shown);
}

} // namespace
} // namespace kx
