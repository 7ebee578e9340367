// Lists, combos and what they have in common.

#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/widgets/combobox.h>
#include <kxgraph/platform/widgets/listbox.h>

namespace kx::test::lists_combos {

const std::vector<std::string> CFruits{"Apple", "Banana", "Blueberry", "Cherry",
                                       "Date",  "Elder",  "Fig",       "Grape"};

/// Its third item cannot be chosen.
template <class T>
struct TWithout3 : T {
    using T::T;
    bool ItemEnabled(int Index) const override { return Index != 2; }
};

template <class T>
struct TChoiceForm : TWidgetForm<TWithout3<T>> {
    TChoiceForm() {
        this->Widget.SetItems(CFruits);
        this->Widget.OnSelect = [this](TControl*) { ++Selected; };
    }
    int Selected = 0;
};

template <class T>
class Choice : public testing::Test {};
using TChoices = testing::Types<TListBox, TComboBox>;
TYPED_TEST_SUITE(Choice, TChoices);

TYPED_TEST(Choice, IsMadeByKeysAndByTyping) {
    struct TCase {
        int Before;
        const char* Keys;
        int After, Selected;
    };
    const TCase cases[] = {{-1, "{Down}", 0, 1}, {-1, "{Up}", 0, 1},   {0, "{Up}", 0, 0},
                           {1, "{Down}", 3, 1},  {3, "{Up}", 1, 1},    {0, "{End}", 7, 1},
                           {5, "{Home}", 0, 1},  {0, "f", 6, 1},       {0, "b", 1, 1},
                           {1, "bl", 1, 0},      {0, "ch", 3, 1},      {7, "a", 0, 1},
                           {3, "zz", 3, 0},      {99, "{Down}", 0, 1}, {3, "{C-Down}", 3, 0}};
    for (const TCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.Before) + c.Keys);
        TChoiceForm<TypeParam> f;
        f.Widget.SetItemIndex(c.Before);
        Type(f.Client(), c.Keys);
        EXPECT_EQ(f.Widget.GetItemIndex(), c.After);
        EXPECT_EQ(f.Selected, c.Selected);
    }
    TChoiceForm<TypeParam> f;
    Type(f.Client(), "c");
    Host().Advance(1001);
    Type(f.Client(), "d");
    EXPECT_EQ(f.Widget.GetItemIndex(), 4) << "a pause begins anew";
    f.Widget.OnSelect = [&f](TControl*) { f.Widget.SetItems({}); };
    Type(f.Client(), "{Home}{Down}x");
    EXPECT_FALSE(f.Widget.HasItem());
}

TEST(ListBox, IsChosenFromAndScrolledByTheMouse) {
    TChoiceForm<TListBox> f;
    TListBox& list = f.Widget;
    list.SetItemHeight(10);
    list.SetBounds(20, 10, 120, 42); // four rows
    const auto row = [](int Row) { return TPoint{40, 10 + 1 + 10 * Row + 5}; };
    Click(f.Client(), row(1));
    EXPECT_EQ(list.GetItemIndex(), 1);
    Click(f.Client(), row(2));
    EXPECT_EQ(list.GetItemIndex(), 1) << "cannot be chosen";
    EXPECT_TRUE(Turn(f.Client(), -1, row(0)));
    EXPECT_EQ(list.GetTopIndex(), 3);
    Turn(f.Client(), -5, row(0));
    EXPECT_EQ(list.GetTopIndex(), 4);
    Mouse(f.Client(), TMouseKind::Down, row(0));
    Mouse(f.Client(), TMouseKind::Move, {40, 0});
    Mouse(f.Client(), TMouseKind::Up, {40, 0});
    EXPECT_EQ(list.GetItemIndex(), 3) << "scrolls along";
    EXPECT_EQ(list.GetTopIndex(), 3);
    const int bar = 20 + 120 - 1 - CScrollWidth / 2;
    Click(f.Client(), {bar, 12}); // above the thumb: a page
    EXPECT_EQ(list.GetTopIndex(), 0);
    Mouse(f.Client(), TMouseKind::Down, {bar, 14});
    Mouse(f.Client(), TMouseKind::Move, {bar, 200});
    EXPECT_EQ(list.GetTopIndex(), 4);
    Mouse(f.Client(), TMouseKind::Up, {bar, 200});
    Type(f.Client(), "{Home}");
    EXPECT_EQ(list.GetTopIndex(), 0);
    list.SetItems({"one"});
    EXPECT_FALSE(Turn(f.Client(), -1, row(0))) << "nothing to scroll: the turn is another's";
}

TEST(ListBox, HasSeveralItemsChosenByMouseAndKeys) {
    TChoiceForm<TListBox> f; // without item 2
    f.Widget.SetBounds(20, 10, 120, 220);
    f.Widget.SetItemIndex(1);
    f.Widget.SetMultiSelect(true);
    const auto at = [&](int Item) { return f.Widget.ClientToRoot(f.Widget.ItemRect(Item).TopLeft()); };
    struct TStep {
        int Item; ///< where it is pressed; -1: Keys
        TShiftState Shift;
        const char *Keys, *Chosen;
        int ItemIndex, Selected;
    };
    const TStep steps[] = {{-1, 0, "", "1 ", 1, 0},
                           {4, ssCtrl, "", "1 4 ", 4, 1},
                           {1, ssCtrl, "", "4 ", 1, 1},
                           {5, ssShift, "", "1 3 4 5 ", 5, 1},
                           {3, ssShift, "", "1 3 ", 3, 1},
                           {6, 0, "", "6 ", 6, 1},
                           {0, ssShift | ssCtrl, "", "0 1 3 4 5 6 ", 0, 1},
                           {2, 0, "", "0 1 3 4 5 6 ", 0, 0},
                           {-1, 0, "{Down}", "1 ", 1, 1},
                           {-1, 0, "{S-Down}{S-Down}", "1 3 4 ", 4, 2},
                           {-1, 0, "{C-Down}", "1 3 4 ", 5, 0},
                           {-1, 0, "{C-Down}{Space}", "1 3 4 6 ", 6, 1},
                           {-1, 0, "{Space}", "1 3 4 6 ", 6, 0},
                           {-1, 0, "{C-Space}", "1 3 4 ", 6, 1},
                           {-1, 0, "{C-a}", "0 1 3 4 5 6 7 ", 6, 1},
                           {-1, 0, "d", "4 ", 4, 1}};
    const auto chosen = [&] {
        std::string text;
        for (const int item : f.Widget.GetSelected()) text += std::to_string(item) + " ";
        return text;
    };
    for (const TStep& s : steps) {
        SCOPED_TRACE(std::to_string(s.Item) + s.Keys + " " + s.Chosen);
        f.Selected = 0;
        if (s.Item >= 0)
            Click(f.Client(), at(s.Item), s.Shift);
        else
            Type(f.Client(), s.Keys);
        EXPECT_EQ(chosen(), s.Chosen);
        EXPECT_EQ(f.Widget.GetItemIndex(), s.ItemIndex);
        EXPECT_EQ(f.Selected, s.Selected);
    }
    TRecorder recorder({200, 260}, 96, false);
    PaintFrame(f.Form, recorder);
    EXPECT_NE(recorder.Recording.ToText().find("clip (22,12)-"), std::string::npos)
        << "the ring of the keys stays whole";
    Mouse(f.Client(), TMouseKind::Down, at(3));
    for (const int item : {5, 4}) Mouse(f.Client(), TMouseKind::Move, at(item));
    EXPECT_EQ(chosen(), "3 4 ") << "dragged over";
    EXPECT_TRUE(f.Widget.Accessible().Parts[4].Checked && !f.Widget.Accessible().Parts[5].Checked);
    f.Widget.SetItems({"a", "b", "c", "d"});
    EXPECT_EQ(chosen(), "3 ") << "what there is no more";
    f.Widget.SetMultiSelect(false);
    EXPECT_EQ(chosen(), "");
}

struct TComboForm : TChoiceForm<TComboBox> {
    THostClient* Popup() { return Host().PopupBeside(Client()); }
    const THeadlessHost::TWindowView& View() { return *Host().WindowOf(*Popup()); }
};

TEST(ComboBox, DropsItsListDownAndTakesWhatIsChosen) {
    struct TCase {
        const char* What;
        void (*Open)(TComboForm&);
        void (*Act)(TComboForm&);
        int After;
    };
    const auto byKey = [](TComboForm& F) { Type(F.Client(), "{F4}"); };
    const auto byMouse = [](TComboForm& F) { Click(F.Client(), {30, 20}); };
    static const auto row = [](TComboForm& F, int Row) {
        return TPoint{10, 1 + Row * (F.View().Bounds.Height() - 2) / 4 + 3};
    };
    const TCase cases[] = {
        {"Return", byKey, [](TComboForm& F) { Type(*F.Popup(), "{Down}{Down}{Return}"); }, 3},
        {"Space", byMouse, [](TComboForm& F) { Type(*F.Popup(), "ch{Space}"); }, 3},
        {"Escape", byKey, [](TComboForm& F) { Type(*F.Popup(), "{Down}{Esc}"); }, 0},
        {"F4", byMouse, [](TComboForm& F) { Type(*F.Popup(), "{Down}{F4}"); }, 0},
        {"outside", byMouse, [](TComboForm& F) { Host().PressOutside(*F.Popup()); }, 0},
        {"click", byMouse, [](TComboForm& F) { Click(*F.Popup(), row(F, 1)); }, 1},
        {"hover and release", byMouse,
         [](TComboForm& F) {
             F.Popup()->HostMouse(TMouseKind::Move, mbLeft, 0, row(F, 3));
             Mouse(*F.Popup(), TMouseKind::Up, row(F, 3));
         },
         3},
        {"what cannot be chosen stays", byKey,
         [](TComboForm& F) { Click(*F.Popup(), row(F, 2)), F.Widget.CloseUp(false); }, 0},
        {"disabled", byKey, [](TComboForm& F) { F.Widget.SetEnabled(false); }, 0},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.What);
        TComboForm f;
        f.Widget.SetItemIndex(0);
        f.Widget.SetDropDownCount(4);
        c.Open(f);
        ASSERT_TRUE(f.Popup());
        EXPECT_EQ(f.View().Bounds.TopLeft(), (TPoint{20, 36}));
        Host().ProcessMessages();
        EXPECT_EQ(f.View().Frames, 1);
        c.Act(f);
        EXPECT_EQ(f.Widget.GetItemIndex(), c.After);
        EXPECT_EQ(f.Selected, c.After == 0 ? 0 : 1);
        EXPECT_FALSE(f.Popup());
        EXPECT_FALSE(f.Widget.IsDroppedDown());
    }
}

TEST(ComboBox, IsTurnedByTheWheelOnlyWhileItHasTheFocus) {
    TComboForm f;
    f.Widget.SetItemIndex(0);
    EXPECT_TRUE(Turn(f.Client(), -1, {30, 20}));
    EXPECT_EQ(f.Widget.GetItemIndex(), 1);
    f.Client().HostActivated(false);
    EXPECT_FALSE(Turn(f.Client(), -1, {30, 20}));
}

TEST(ComboBox, MayGoWhileItsListIsOpen) {
    auto form = std::make_unique<TForm>(nullptr);
    form->Show();
    auto* combo = new TComboBox(form.get());
    combo->SetParent(form.get());
    combo->OnDropDown = [combo](TControl*) { combo->SetItems(CFruits); };
    combo->OnSelect = [](TControl* C) { delete C; };
    combo->DropDown();
    const TComponentRef<TComboBox> kept(combo);
    Type(*Host().PopupBeside(form->AsHostClient()), "{End}{Return}");
    EXPECT_FALSE(kept);
    auto* second = new TComboBox(form.get());
    second->SetParent(form.get());
    second->SetItems(CFruits);
    second->DropDown();
    EXPECT_TRUE(second->IsDroppedDown());
    form.reset();
}

} // namespace kx::test::lists_combos
