#include <kxgraph/platform/controls/frame.h>

#include "support/testing.h"

#include <kxgraph/platform/controls/form.h>

namespace kx::test::frame {

/// Writes its text when painted; asks for some rounds of settling.
struct TBox : TGraphicControl {
    TBox(TWinControl* Parent, const std::string& Text, const TRect& R) : TGraphicControl(nullptr) {
        SetBounds(R.Left, R.Top, R.Width(), R.Height());
        SetText(Text);
        SetParent(Parent);
    }
    bool NeedsSettling() const override { return Rounds > 0; }
    void Settle() override {
        ++Settled;
        if (Fails) throw std::runtime_error(GetText());
        --Rounds;
    }
    void Paint() override {
        GetCanvas().SetOrigin({1000, 1000});
        GetCanvas().SetClip(TRect{0, 0, 1, 1});
        if (Fails) throw std::runtime_error(GetText());
        GetCanvas().SetOrigin(GetParent()->ClientToRoot({GetLeft(), GetTop()}));
        GetCanvas().SetClip({});
        GetCanvas().TextOut(1, 1, GetText());
    }
    int Rounds = 0, Settled = 0;
    bool Fails = false;
};

TEST(Frame, SettlesInRoundsUntilNobodyAsks) {
    const struct {
        int Rounds[2];
        bool Settled;
        int Calls[2];
    } cases[] = {{{1, 3}, true, {1, 3}}, {{24, 1}, true, {24, 1}}, {{25, 0}, false, {24, 0}}};
    for (const auto& c : cases) {
        TForm form(nullptr);
        TCustomPanel panel(nullptr);
        panel.SetParent(&form);
        TBox a(&form, "a", {}), b(&panel, "b", {});
        a.Rounds = c.Rounds[0];
        b.Rounds = c.Rounds[1];
        EXPECT_EQ(SettleTree(form), c.Settled);
        EXPECT_TRUE(a.Settled == c.Calls[0] && b.Settled == c.Calls[1]) << c.Rounds[0] << c.Rounds[1];
    }
}

TEST(Frame, PaintsInOrderWithOriginAndClipAndGoesOnAfterAFailure) {
    const TFaults faults;
    TForm form(nullptr);
    form.SetBounds(300, 300, 100, 80);
    TCustomPanel panel(nullptr);
    panel.SetBounds(40, 40, 100, 100);
    panel.SetParent(&form);
    panel.SetColor(clRed);
    TBox above(&panel, "inner", {10, 10, 30, 20}), below(&form, "below", {10, 5, 50, 45}),
        hidden(&form, "hidden", {0, 0, 50, 50}), outside(&form, "outside", {100, 0, 200, 50}),
        failing(&form, "failing", {0, 70, 9, 99});
    hidden.SetVisible(false);
    failing.Fails = true;
    failing.Rounds = below.Rounds = 1;
    TRecorder device({100, 80}), part({100, 80});
    PaintFrame(form, device);
    EXPECT_EQ(faults.Text, "failingfailing") << "once settling, once painting";
    EXPECT_EQ(below.Settled, 1);
    ExpectRecording("frame", device.Recording.ToText());
    EXPECT_EQ(failing.GetCanvas().GetDevice(), nullptr) << "given back after the failure, too";
    PaintTree(form, part, {55, 55, 56, 56});
    EXPECT_FALSE(Holds(part.Recording.ToText(), "below"));
}

} // namespace kx::test::frame
