#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/platform/controls/customlabel.h>
#include <kxgraph/platform/drawing/shifting.h>

namespace kx::test::controls {

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

/// A window that keeps what it was asked to paint, pixel by pixel.
struct TAsked : THostWindow {
    static constexpr int CSize = 40;
    explicit TAsked(THostClient& Client) : Client(Client) {}
    void SetBounds(const TRect&) override {}
    void SetVisible(bool) override {}
    void SetCaption(const std::string&) override {}
    void SetState(TWindowState) override {}
    void SetCapture(bool) override {}
    void SetCursor(TCursor) override {}
    void Invalidate(const TRect& Rect) override { Fill(Rect, true), ++Requests; }
    void Fill(const TRect& Rect, bool Value) {
        const TRect all = Rect.Intersected({0, 0, CSize, CSize});
        for (int y = all.Top; y < all.Bottom; ++y)
            for (int x = all.Left; x < all.Right; ++x) Pending[y][x] = Value;
    }
    bool Holds(const TRect& Rect) const {
        bool holds = true;
        for (int y = Rect.Top; y < Rect.Bottom; ++y)
            for (int x = Rect.Left; x < Rect.Right; ++x) holds = holds && Pending[y][x];
        return holds;
    }
    THostClient& Client;
    bool Pending[CSize][CSize] = {};
    int Requests = 0;
};
struct TAskedHost : THeadlessHost {
    std::unique_ptr<THostWindow> OpenWindow(THostClient& Client) override {
        auto window = std::make_unique<TAsked>(Client);
        Window = window.get();
        return window;
    }
    TAsked* Window = nullptr;
};

/// What of a control can be seen in its form, found by walking.
TRect ShownPart(const TControl& Control, const TForm& Form) {
    TRect rect = Control.GetClientRect();
    const TControl* control = &Control;
    for (; control != &Form; control = control->GetParent()) {
        if (!control->GetParent() || !control->GetVisible()) return {};
        rect = Shifted(rect, control->GetBoundsRect().TopLeft())
                   .Intersected(control->GetParent()->GetClientRect());
    }
    return Form.GetVisible() ? rect : TRect{};
}

/// Asks another one for a paint while it is painted, and may fail.
struct TAsking : TGraphicControl {
    using TGraphicControl::TGraphicControl;
    void Paint() override {
        if (Other) Other->Invalidate();
        if (Fails) throw Exception("no");
    }
    TControl* Other = nullptr;
    bool Fails = false;
};

// Whatever happened before: who asks for a paint has his window know of all that shows of him. And once.
TEST(Controls, AreAskedForByTheirWindowOnceAFrameAndNeverMissOne) {
    const TFaults faults;
    std::mt19937 random(11);
    const auto below = [&](int Count) { return int(random() % unsigned(Count)); };
    auto owned = std::make_unique<TAskedHost>();
    TAskedHost& host = *owned;
    TApplication::Instance().SetHost(std::move(owned));
    {
        TForm form(nullptr);
        form.SetBounds(0, 0, TAsked::CSize, TAsked::CSize);
        TCustomPanel panels[] = {TCustomPanel(nullptr), TCustomPanel(nullptr)};
        TAsking marks[] = {TAsking(nullptr), TAsking(nullptr), TAsking(nullptr)};
        std::vector<TControl*> all{&form};
        for (auto& panel : panels) all.push_back(&panel);
        for (auto& mark : marks) all.push_back(&mark);
        const auto any = [&]() -> TControl& { return *all[std::size_t(below(6))]; };
        const auto rect = [&] { return TRect::Bounds(below(30) - 5, below(30) - 5, below(30), below(30)); };
        const auto paint = [&](const TRect& Part) {
            TRecorder recorder({TAsked::CSize, TAsked::CSize});
            host.Window->Client.HostPaint(recorder, Part);
        };
        form.Show();
        for (int step = 0; step < 20000; ++step) {
            TControl& control = any();
            const TRect part = below(3) ? rect() : TRect{0, 0, TAsked::CSize, TAsked::CSize};
            switch (below(12)) {
            case 0:
                if (&control != &form) control.SetBounds(part.Left, part.Top, part.Width(), part.Height());
                break;
            case 1: control.SetVisible(below(3)); break;
            case 2:
                if (&control != &form && !dynamic_cast<TCustomPanel*>(&control))
                    control.SetParent(below(4) ? dynamic_cast<TWinControl*>(all[std::size_t(below(3))])
                                               : nullptr);
                break;
            case 3:
                panels[1].SetParent(below(3) ? below(2) ? &form : (TWinControl*)&panels[0] : nullptr);
                break;
            case 4: panels[0].SetParent(below(3) ? &form : nullptr); break;
            case 5: // takes what it paints, as windows do
                host.Window->Fill(part, false);
                paint(part);
                break;
            case 6: // counts what it has painted as valid
                paint(part);
                host.Window->Fill(part, false);
                break;
            case 7:
                host.Window->Fill(part, false);
                host.Window->Client.HostDropped();
                break;
            case 8: below(2) ? form.Show() : form.Hide(); break;
            case 9: marks[below(3)].Other = below(2) ? &any() : nullptr; break;
            case 10: marks[below(3)].Fails = below(2); break;
            default: any().Invalidate();
            }
            TControl& asking = any();
            asking.Invalidate();
            ASSERT_TRUE(host.Window->Holds(ShownPart(asking, form))) << "step " << step;
            const int requests = host.Window->Requests;
            asking.Invalidate();
            ASSERT_EQ(host.Window->Requests, requests) << "step " << step;
        }
    }
    TApplication::Instance().SetHost(std::make_unique<THeadlessHost>());
}

TEST(Controls, StackGraphicChildrenBelowWindowedOnes) {
    TForm form(nullptr);
    TCustomPanel w1(nullptr), w2(nullptr);
    w1.SetParent(&form);
    TMark g1(&form, {}), g2(&form, {});
    w2.SetParent(&form);
    g1.BringToFront();
    w2.SendToBack();
    const auto& stack = form.GetControls();
    EXPECT_EQ(std::vector(stack.begin(), stack.end()), (std::vector<TControl*>{&g2, &g1, &w2, &w1}));
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
    EXPECT_EQ(std::tuple(follower.GetFont().GetName(), follower.GetColor()), std::tuple("Courier", clRed));
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

} // namespace kx::test::controls
