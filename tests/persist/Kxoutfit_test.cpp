#include "persist/Kxoutfit.h"

#include "platform/application.h"
#include "platform/graphics.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

class TBase : public TComponent {
public:
    using TComponent::TComponent;
    const std::string& GetTitle() const { return FTitle; }
    void SetTitle(const std::string& Title) { FTitle = Title; }
    bool GetShown() const { return FShown; }
    void SetShown(bool Shown) { FShown = Shown; }

private:
    std::string FTitle = "none";
    bool FShown = false;
};

class TThing : public TBase {
public:
    using TBase::TBase;
    TPenStyle GetPen() const { return FPen; }
    void SetPen(TPenStyle Pen) { FPen = Pen; }
    double GetStart() const { return FStart; }
    void SetStart(double Start) { FStart = Start; }
    TFont* GetFont() { return &FFont; }
    TBase* GetFriend() const { return FFriend; }
    void SetFriend(TBase* Friend) {
        FFriend = Friend;
        ++Befriended;
    }
    int Befriended = 0;

private:
    TPenStyle FPen = psDash;
    double FStart = 0;
    TFont FFont;
    TBase* FFriend = nullptr;
};

const TKxOutfit<TThing>& ThingOutfit() {
    static const TKxOutfit<TThing> table{
        OutfitFont<&TThing::GetFont>("Font"),
        Outfit<&TThing::GetTitle, &TThing::SetTitle>("Title"), // inherited
        Outfit<&TThing::GetShown, &TThing::SetShown>("Shown", true),
        Outfit<&TThing::GetPen, &TThing::SetPen>("Pen"),
        Outfit<&TThing::GetStart, &TThing::SetStart>("Start"),
        OutfitRef<&TThing::GetFriend, &TThing::SetFriend>("Friend"),
    };
    return table;
}

TEST(Outfit, OneTableSavesAndLoads) {
    TThing thing(&TApplication::Instance()), read(nullptr);
    thing.SetName("Thing1");
    thing.SetTitle("a=b");
    thing.SetPen(psDot);
    thing.SetStart(0.5);
    thing.SetFriend(&thing);
    thing.GetFont()->SetBold(true);
    TKxIniList ini;
    SaveOutfitTable(thing, ThingOutfit(), "S", ini, "My.");
    TStringList keys;
    ini.ReadSection("S", keys);
    EXPECT_EQ(keys.GetLine(0), "My.Font.Name");
    EXPECT_EQ(keys.GetText().substr(keys.GetText().find("My.Title")),
              "My.Title\nMy.Shown\nMy.Pen\nMy.Start\nMy.Friend\n");
    for (int round = 0; round < 2; ++round) LoadOutfitTable(read, ThingOutfit(), "S", ini, "My.");
    EXPECT_EQ(read.GetTitle(), "a=b");
    EXPECT_EQ(read.GetPen(), psDot);
    EXPECT_EQ(read.GetStart(), 0.5);
    EXPECT_FALSE(read.GetShown());
    EXPECT_TRUE(read.GetFont()->GetBold());
    EXPECT_EQ(read.GetFriend(), &thing);
    EXPECT_EQ(read.Befriended, 1); // not again by the second round
}

TEST(Outfit, MissingAndWrongValuesLeaveTheObjectButForDefaults) {
    TThing thing(nullptr);
    TKxIniList ini;
    for (const int ordinal : {-1, 7, 2147483647}) {
        ini.WriteInteger("S", "Pen", ordinal);
        ini.WriteString("S", "Start", "soon");
        LoadOutfitTable(thing, ThingOutfit(), "S", ini);
        EXPECT_EQ(thing.GetPen(), psDash) << ordinal;
    }
    EXPECT_EQ(thing.GetStart(), 0);
    EXPECT_EQ(thing.GetTitle(), "none");
    EXPECT_TRUE(thing.GetShown());
    EXPECT_EQ(thing.Befriended, 0);
}

} // namespace
} // namespace kx
