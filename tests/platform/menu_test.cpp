#include <kxgraph/platform/controls/controlclasses.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/streaming/formfile.h>

#include "support/headless.h"
#include "support/testing.h"

namespace kx::test::menu {

TEST(Menu, IsShownByTheWindowAndItsItemsMayGoBeforeTheyArePicked) {
    TForm form(nullptr);
    TCustomPanel panel(&form);
    panel.SetBounds(100, 50, 60, 60);
    panel.SetParent(&form);
    auto menu = std::make_unique<TPopupMenu>(nullptr);
    std::string log;
    const auto note = [&](TMenuItem* Item) { log += Item->GetCaption() + " "; };
    auto& copy = menu->GetItems().Add("Copy", note);
    auto& fits = menu->GetItems().Add("Fits");
    fits.Add("Line", note).SetChecked(true);
    fits.Add("Hidden", note).SetVisible(false);
    fits.Add("Off", note).SetEnabled(false);
    panel.SetPopupMenu(menu.get());
    const auto pop = [&] { menu->Popup(&panel, 5, 6); };
    pop(); // no window: nobody shows it
    form.Show();
    const auto& view = ViewOf(form);
    EXPECT_TRUE(view.Menu.empty());
    menu->OnPopup = [&](TControl*, int, int) { copy.SetShortCut("Ctrl+C"); };
    pop();
    EXPECT_EQ(view.Menu[0].ShortCut, "Ctrl+C");
    EXPECT_TRUE(view.Menu[1].Items[0].Checked);
    EXPECT_EQ(view.MenuPos, (TPoint{105, 56}));
    const auto pick = [&](const char* Caption) { return Host().PickMenuItem(form.AsHostClient(), Caption); };
    EXPECT_TRUE(pick("Line"));
    log.clear();
    panel.SetFocus();
    EXPECT_TRUE(form.AsHostClient().HostKey({.Key = kcF1 + 9, .Shift = ssShift}, true));
    EXPECT_EQ(view.MenuPos, (TPoint{130, 80}));
    EXPECT_FALSE(pick("Hidden") || pick("Off") || pick("Fits!"));
    EXPECT_TRUE(pick("Line"));
    EXPECT_FALSE(pick("Copy")) << "it is closed";
    pop();
    delete &copy;
    menu->OnPopup = {};
    EXPECT_TRUE(pick("Copy"));
    EXPECT_EQ(log, "Line ");
    pop();
    menu.reset();
    EXPECT_TRUE(pick("Line"));
    EXPECT_EQ(log, "Line ");
}

TEST(Menu, TakesItemsOfTheSameFormWhichStayWhatTheyAreInAFormFile) {
    RegisterControlClasses();
    const std::string text =
        "object Form1: TForm\n  Left = 0\n  Top = 0\n  Width = 640\n  Height = 480\n"
        "  object Sub: TMenuItem\n    Caption = \"Sub\"\n    Menu = Fits\n  end\n"
        "  object Menu1: TPopupMenu\n  end\n"
        "  object Fits: TMenuItem\n    Caption = \"Fits\"\n    Menu = Menu1\n  end\n"
        "  object Last: TMenuItem\n    Caption = \"Last\"\n    Menu = Menu1\n  end\nend\n";
    const auto root = FormFromText(text);
    EXPECT_EQ(FormToText(*root), text);
    auto& form = dynamic_cast<TForm&>(*root);
    auto* menu = dynamic_cast<TPopupMenu*>(form.FindComponent("Menu1"));
    auto* fits = dynamic_cast<TMenuItem*>(form.FindComponent("Fits"));
    const auto shown = [&] {
        form.Show();
        menu->Popup(&form, 0, 0);
        std::string captions;
        for (const THostMenuItem& item : ViewOf(form).Menu) {
            captions += item.Caption;
            for (const THostMenuItem& below : item.Items) captions += "(" + below.Caption + ")";
        }
        return captions;
    };
    EXPECT_EQ(shown(), "Fits(Sub)Last");
    menu->GetItems().Add("First");
    EXPECT_EQ(shown(), "FirstFits(Sub)Last");
    EXPECT_THROW(fits->SetMenu(fits), Exception);
    EXPECT_THROW(fits->SetMenu(dynamic_cast<TMenuItem*>(form.FindComponent("Sub"))), Exception);
    fits->Add("Own").SetMenu(fits);
    EXPECT_EQ(shown(), "FirstFits(Own)(Sub)Last");
    delete fits;
    EXPECT_EQ(shown(), "FirstLast");
}

TEST(Hint, IsThatOfTheDeepestControlThatShowsOne) {
    TForm form(nullptr);
    TCustomPanel outer(&form), inner(&form);
    outer.SetBounds(10, 10, 200, 200), inner.SetBounds(20, 30, 50, 50);
    outer.SetParent(&form), inner.SetParent(&outer);
    outer.SetHint("outer"), inner.SetHint("inner");
    auto& client = form.AsHostClient();
    EXPECT_EQ(client.HostHint({35, 45}).Text, "");
    form.SetShowHint(true);
    EXPECT_EQ(client.HostHint({35, 45}).Text, "inner");
    EXPECT_EQ(client.HostHint({35, 45}).Area, (TRect{30, 40, 80, 90}));
    inner.SetShowHint(false);
    EXPECT_EQ(client.HostHint({35, 45}).Text, "outer");
    EXPECT_EQ(client.HostHint({5, 5}).Text, "") << "the form has none";
}

} // namespace kx::test::menu
