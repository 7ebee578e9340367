#include "support/headless.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/customlabel.h>

#include <gtest/gtest.h>

namespace kx {
namespace {

using test::Host, test::ViewOf;

struct TMark : TGraphicControl {
    TMark(TWinControl* Parent, const TRect& R) : TGraphicControl(nullptr) {
        SetBounds(R.Left, R.Top, R.Width(), R.Height());
        SetParent(Parent);
    }
};

/// A shown form whose invalid rectangle can be asked for and emptied.
struct TShown : TForm {
    TShown() : TForm(nullptr) { Show(); }
    TRect TakeInvalid() {
        const TRect invalid = ViewOf(*this).Invalid;
        Host().ProcessMessages();
        return invalid;
    }
};

TEST(Controls, InvalidateTheirVisiblePartInTheWindow) {
    TShown form;
    TCustomPanel panel(nullptr);
    panel.SetBounds(50, 50, 100, 100);
    panel.SetParent(&form);
    TMark mark(&panel, {80, 10, 120, 20});
    form.TakeInvalid();
    mark.Invalidate();
    EXPECT_EQ(form.TakeInvalid(), (TRect{130, 60, 150, 70})) << "clipped to the panel";
    mark.SetLeft(0);
    EXPECT_EQ(form.TakeInvalid(), (TRect{50, 60, 150, 70})) << "old and new place";
    panel.SetParent(nullptr);
    EXPECT_EQ(form.TakeInvalid(), (TRect{50, 50, 150, 150})) << "where it was";
    panel.SetParent(&form);
    panel.SetBounds(CMaxPixel, INT_MIN, INT_MAX, -5);
    EXPECT_EQ(panel.GetBoundsRect(), (TRect{CMaxPixel, -CMaxPixel, INT_MAX, -CMaxPixel}));
    EXPECT_EQ(panel.ClientToRoot({5, -5}), (TPoint{CMaxPixel, -CMaxPixel}));
}

TEST(Controls, StackGraphicChildrenBelowWindowedOnes) {
    TForm form(nullptr);
    TCustomPanel w1(nullptr), w2(nullptr);
    w1.SetParent(&form);
    TMark g1(&form, {}), g2(&form, {});
    w2.SetParent(&form);
    g1.BringToFront();
    w2.SendToBack();
    EXPECT_EQ(form.GetControls(), (std::vector<TControl*>{&g2, &g1, &w2, &w1}));
    EXPECT_THROW(form.SetParent(&w1), Exception);
    EXPECT_THROW(w1.SetParent(&w1), Exception);
}

TEST(Controls, TakeTheParentsFontAndColourUntilTheyHaveTheirOwn) {
    TForm form(nullptr);
    TMark follower(&form, {}), own(&form, {});
    own.GetFont().SetSize(20);
    own.SetColor(clLime);
    form.GetFont().SetName("Courier");
    form.SetColor(clRed);
    EXPECT_EQ(follower.GetFont().GetName(), "Courier");
    EXPECT_EQ(follower.GetColor(), clRed);
    EXPECT_EQ(own.GetColor(), clLime);
    own.SetParentColor(true);
    EXPECT_EQ(own.GetColor(), clRed);
}

TEST(Controls, AlignByEdgeAndKeepTheirThickness) {
    TForm form(nullptr);
    form.SetBounds(0, 0, 100, 80);
    TMark client(&form, {}), left(&form, {0, 0, 20, 1}), top(&form, {0, 0, 1, 10}),
        bottom(&form, {0, 0, 1, 30}), right(&form, {0, 0, 5, 5});
    client.SetAlign(alClient);
    left.SetAlign(alLeft);
    top.SetAlign(alTop);
    bottom.SetAlign(alBottom);
    right.SetAlign(alRight);
    EXPECT_EQ(client.GetBoundsRect(), (TRect{20, 10, 95, 50}));
    EXPECT_EQ(bottom.GetBoundsRect(), (TRect{0, 50, 100, 80}));
    top.SetVisible(false);
    form.SetBounds(0, 0, 200, 100);
    EXPECT_EQ(client.GetBoundsRect(), (TRect{20, 0, 195, 70}));
}

TEST(Form, KeepsItsWindowUpToDateAndItsNormalBoundsWhileMaximised) {
    TForm form(nullptr);
    form.SetPosition(poScreenCenter);
    form.Show();
    const auto& view = ViewOf(form);
    EXPECT_EQ(view.Bounds, TRect::Bounds(640, 300, 640, 480));
    form.SetCaption("After");
    EXPECT_EQ(view.Caption, "After");
    form.SetWindowState(wsMaximized);
    EXPECT_EQ(form.GetClientRect(), (TRect{0, 0, 1920, 1080}));
    form.SetBounds(1, 2, 30, 40);
    EXPECT_EQ(form.GetWidth(), 1920);
    form.SetWindowState(wsNormal);
    EXPECT_EQ(form.GetBoundsRect(), TRect::Bounds(1, 2, 30, 40));
    form.AsHostClient().HostClosed();
    EXPECT_FALSE(form.IsShown() || view.Visible);
}

} // namespace
} // namespace kx
