#include <kxgraph/persist/Kxoutfit.h>

#include "support/testing.h"

#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/objects/published.h>

namespace kx::test::outfit {

class TKeeper : public TComponent {
public:
    using TComponent::TComponent;
    TFont& GetFont() { return Font; }
    TKeeper* GetFriend() const { return Friend; }
    void SetFriend(TKeeper* Value) { Friend = Value, ++Befriended; }
    void SetStart(double Value) { Start = Value, Shown = false; }

    const TPropertyTable& PublishedProperties() const override {
        using T = TKeeper;
        static const TPropertyTable table(
            "TKeeper", &TComponent::Properties(),
            {PublishedObject<&T::GetFont>("Font", ""),
             Published<&T::Shown, &T::Shown>("Shown", false, "").IfMissing(true),
             Published<&T::Start, &T::SetStart>("Start", 0.0, "")
                 .WithKey("Begin")
                 .LoadedBy(Into<&T::Start>()),
             Published<&T::GetFriend, &T::SetFriend>("Friend", nullptr, "")},
            {"Font", "Name", "Shown", Kept<&T::Pen, &T::Pen>("Pen"), "Start",
             Kept<&T::Level, &T::Level>("Level"), ReadOnly<&T::Befriended>("Count"),
             Kept<&T::Reals, &T::Reals>("Reals"), "Friend"});
        return table;
    }

    bool Shown = false;
    TPenStyle Pen = psDash;
    double Start = 0;
    std::int8_t Level = 3;
    std::vector<double> Reals{1, 2};
    TFont Font;
    TKeeper* Friend = nullptr;
    int Befriended = 0;
};

TEST(Outfit, RowsAreSavedAndLoadedInTheirOrder) {
    TKeeper thing(&TApplication::Instance()), read(nullptr);
    thing.SetName("Thing1");
    thing.Shown = true;
    thing.Pen = psDot;
    thing.Start = 0.5;
    thing.Reals = {3, 4.5};
    thing.Friend = &thing;
    thing.Font.SetBold(true);
    TKxIniList ini;
    SaveRows(thing, "S", ini, "My.");
    EXPECT_EQ(
        ini.GetText().substr(ini.GetText().find("My.Font.StrikeOut")),
        "My.Font.StrikeOut=0\nMy.Name=Thing1\nMy.Shown=1\nMy.Pen=2\nMy.Begin=0.5\nMy.Level=3\nMy.Count=0\n"
        "My.Reals=3;4.5\nMy.Friend=Thing1\n");
    for (int round = 0; round < 2; ++round) LoadRows(read, "S", ini, "My.");
    EXPECT_EQ(std::tuple(read.GetName(), read.Pen, read.Start), std::tuple("Thing1", psDot, 0.5));
    EXPECT_TRUE(read.Shown) << "the setter of Start was called";
    EXPECT_EQ(read.Reals, thing.Reals);
    EXPECT_TRUE(read.Font.GetBold());
    EXPECT_EQ(read.Friend, &thing);
    EXPECT_EQ(read.Befriended, 1) << "again in the second round";
}

TEST(Outfit, WhatIsMissingOrNoValueLeavesWhatThereIs) {
    TComponent other(&TApplication::Instance());
    other.SetName("Other");
    TKeeper thing(nullptr);
    TKxIniList ini;
    ini.SetText("[S]\nPen=7\nLevel=128\nReals=1;2;3\nFriend=Other\nBegin=x\n");
    LoadRows(thing, "S", ini);
    EXPECT_EQ(std::tuple(thing.Pen, thing.Level, thing.Reals, thing.Befriended),
              std::tuple(psDash, 3, (std::vector<double>{1, 2}), 0));
    EXPECT_EQ(thing.Start, 0.0);
    EXPECT_TRUE(thing.Shown) << "what the row says";
}

} // namespace kx::test::outfit
