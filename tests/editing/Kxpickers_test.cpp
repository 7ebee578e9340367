#include <kxgraph/editing/Kxpickers.h>

#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/editing/Kxcolorpicker.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx::test::pickers {

std::string Drawn(TListItems& Items, int Index, TDrawState State = 0) {
    TRecorder device({220, 20});
    TCanvas canvas(&device);
    Items.DrawItem(canvas, Index, {0, 0, 220, 20}, State);
    EXPECT_EQ(canvas.Brush.GetStyle(), bsSolid);
    return device.Recording.ToText();
}

// By the class's name alone: whatever is entered as a picker is walked.
TEST(Pickers, OfferEveryValueByKeysAndMouseWithItsNameBeside) {
    RegisterClasses();
    int walked = 0;
    for (const TComponentClass& type : RegisteredClasses()) {
        const TProperty* value = type.Properties().Find("Value");
        TForm form(nullptr);
        const std::unique_ptr<TComponent> made(type.Make(&form));
        auto* items = dynamic_cast<TListItems*>(made.get());
        if (!value || !items || !type.Name.starts_with("TKx")) continue;
        SCOPED_TRACE(type.Name);
        ++walked;
        auto& control = dynamic_cast<TWinControl&>(*made);
        control.SetBounds(10, 10, 150, 60);
        control.SetParent(&form);
        form.Show();
        control.SetFocus();
        int changes = 0;
        const TEventValue told(TNotifyEvent([&](TControl*) { ++changes; }));
        type.Properties().Find("OnChange")->Set(*made, told);
        const auto now = [&] { return std::get<std::int64_t>(value->Get(*made)); };

        Type(form.AsHostClient(), "{End}{Home}");
        const std::int64_t first = now();
        std::set<std::string> names, drawings;
        for (int i = 0; i < items->ItemCount(); ++i, Type(form.AsHostClient(), "{Down}")) {
            EXPECT_EQ(now(), first + i);
            names.insert(items->ItemText(i));
            const std::string drawn = Drawn(*items, i);
            drawings.insert(drawn.substr(0, drawn.find("\ntext")));
            EXPECT_NE(drawn.find('"' + items->ItemText(i) + '"'), drawn.npos);
            EXPECT_NE(Drawn(*items, i, odDisabled), drawn);
        }
        EXPECT_EQ(int(names.size()), items->ItemCount());
        EXPECT_EQ(int(drawings.size()), items->ItemCount());
        value->Set(*made, TPropertyValue(first + 1));
        value->Set(*made, TPropertyValue(first + 1));
        changes = 0;
        if (auto* list = dynamic_cast<TCustomListBox*>(&control)) {
            const TRect second = list->ItemRect(2);
            Click(form.AsHostClient(), control.ClientToRoot(second.TopLeft() + TPoint{3, 3}));
        } else {
            Type(form.AsHostClient(), "{F4}");
            THostClient* popup = Host().PopupBeside(form.AsHostClient());
            ASSERT_NE(popup, nullptr);
            Type(*popup, "{Down}{Return}");
        }
        EXPECT_EQ(now(), first + 2);
        EXPECT_EQ(changes, 1);
    }
    EXPECT_GE(walked, 8);
}

TEST(Pickers, DrawInTheLookThatIsSet) {
    TForm form(nullptr);
    TKxPointSymbolList symbols(&form);
    TKxLineStyleCombo lines(&form);
    TKxBrushStyleList brushes(&form);
    std::set<std::string> drawings{Drawn(symbols, SyDelta)};
    symbols.SetSampleSize(8);
    drawings.insert(Drawn(symbols, SyDelta));
    symbols.SetSampleWidth(3);
    drawings.insert(Drawn(symbols, SyDelta));
    symbols.SetSampleColor(clRed);
    drawings.insert(Drawn(symbols, SyDelta));
    EXPECT_EQ(drawings.size(), 4u);
    lines.SetSampleWidth(4);
    EXPECT_NE(Drawn(lines, psDot).find(" 4 dot"), std::string::npos) << Drawn(lines, psDot);
    brushes.SetSampleColor(clRed);
    EXPECT_NE(Drawn(brushes, bsCross).find("brush #ff0000 cross"), std::string::npos)
        << Drawn(brushes, bsCross);
}

TEST(ColorPicker, TakesWhatIsTypedAndMarksWhatIsNone) {
    const struct {
        const char* Typed;
        std::optional<TColor> Color;
        const char* Shown;    ///< after Return
        TColor Last = clLime; ///< of a wrong text: what it was before
    } cases[] = {{"#1f77B4", RGB(31, 119, 180), "#1F77B4"},
                 {"1F77b4", RGB(31, 119, 180), "#1F77B4"},
                 {" 123456 ", RGB(0x12, 0x34, 0x56), "#123456"},
                 {"clred", clRed, "clRed"},
                 {"Navy", clNavy, "clNavy"},
                 {"BtnFace", clBtnFace, "clBtnFace"},
                 {"ff0000", clRed, "clRed"},
                 {"#1f77b4ff", {}, "#1f77b4ff", RGB(31, 119, 180)},
                 {"#fff", {}, "#fff"},
                 {"123", {}, "123"},
                 {"$FF", {}, "$FF"},
                 {"reddish", {}, "reddish", clRed},
                 {"", {}, ""}};
    for (const auto& c : cases) {
        TForm form(nullptr);
        TKxColorPicker picker(&form);
        picker.SetParent(&form);
        picker.SetValue(clLime);
        form.Show();
        Type(form.AsHostClient(), "{Tab}{Tab}{C-A}{Del}");
        Type(form.AsHostClient(), c.Typed);
        EXPECT_EQ(picker.IsWrong(), !c.Color) << c.Typed;
        EXPECT_EQ(picker.GetValue(), c.Color.value_or(c.Last)) << c.Typed;
        EXPECT_EQ(picker.GetTyped(), c.Typed);
        Type(form.AsHostClient(), "{Return}");
        EXPECT_EQ(picker.GetTyped(), c.Shown);
        Type(form.AsHostClient(), "{Tab}");
        EXPECT_EQ(picker.IsWrong(), !c.Color) << c.Typed;
        picker.SetValue(clLime);
        EXPECT_EQ(picker.GetTyped(), "clLime");
        EXPECT_FALSE(picker.IsWrong());
    }
}

TEST(ColorPicker, PicksSquaresByMouseAndKeysAndKeepsTheLastOnes) {
    TForm form(nullptr);
    TKxColorPicker picker(&form), other(&form);
    int changes = 0;
    picker.OnChange = [&](TControl*) { ++changes; };
    picker.SetParent(&form);
    form.Show();
    std::vector<TColor> picked;
    for (int row = 0; row < 7; ++row) {
        const TRect square = picker.SquareRect(row, row + 2);
        Click(form.AsHostClient(), picker.ClientToRoot(square.TopLeft() + TPoint{2, 2}));
        picked.insert(picked.begin(), picker.GetValue());
        EXPECT_EQ(picker.GetValue(), picker.ColorAt(row, row + 2));
    }
    EXPECT_EQ(changes, 7);
    Type(form.AsHostClient(), "{Home}{Up}{Right}{Space}{Space}");
    EXPECT_EQ(picker.GetValue(), picker.ColorAt(5, 1));
    picked.insert(picked.begin(), picker.GetValue());
    EXPECT_EQ(changes, 8);
    const std::vector<TColor> recent(TKxColorPicker::RecentColors().begin(),
                                     TKxColorPicker::RecentColors().begin() + 8);
    EXPECT_EQ(recent, picked);
    EXPECT_EQ(other.ColorAt(7, 7), picked[7]);
    const TRect square = picker.SquareRect(7, 4);
    Click(form.AsHostClient(), picker.ClientToRoot(square.TopLeft() + TPoint{2, 2}));
    EXPECT_EQ(picker.GetValue(), picked[4]);
    EXPECT_EQ(other.ColorAt(7, 0), picked[0]); // the row does not move under the mouse
    picker.SetEnabled(false);
    Click(form.AsHostClient(), {8, 8});
    EXPECT_EQ(picker.GetValue(), picked[4]);
}

} // namespace kx::test::pickers
