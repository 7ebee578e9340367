#include <kxgraph/platform/controls/frame.h>

#include <kxgraph/platform/drawing/shifting.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kx {

namespace {

/// Settles a tree in rounds. A control that raised is reported once and left alone from then on.
class TSettling {
public:
    /// Whether any control of the tree asked. What settles calls handlers, which may take controls away.
    bool Round(TControl& Control) {
        const TComponentRef<const TWinControl> container(dynamic_cast<const TWinControl*>(&Control));
        bool asked = Ask(Control);
        for (int i = 0; container && i < container->GetControlCount(); ++i)
            asked = Round(*container->GetControl(i)) || asked;
        return asked;
    }
    bool AnyFailed() const { return !FFailed.empty(); }

private:
    bool Ask(TControl& Control) {
        if (std::ranges::find(FFailed, &Control) != FFailed.end()) return false;
        try {
            if (!Control.NeedsSettling()) return false;
            Control.Settle();
        } catch (const std::exception& error) {
            FFailed.push_back(&Control);
            HandleException(error);
        }
        return true;
    }

    std::vector<const TControl*> FFailed;
};

/// Calls Action for every control of a tree.
template <class F>
void ForTree(TControl& Control, const F& Action) {
    Action(Control);
    const auto* container = dynamic_cast<const TWinControl*>(&Control);
    for (int i = 0; container && i < container->GetControlCount(); ++i)
        ForTree(*container->GetControl(i), Action);
}

bool NeedsSettling(TControl& Root) {
    bool needs = false;
    ForTree(Root, [&](const TControl& Control) { needs = needs || Control.NeedsSettling(); });
    return needs;
}

std::vector<double> StateOf(TControl& Root) {
    std::vector<double> state;
    ForTree(Root, [&](const TControl& Control) { Control.AddSettledState(state); });
    return state;
}

} // namespace

bool SettleTree(TWinControl& Root) {
    constexpr int CFewRounds = 6; // more than a frame needs unless something goes round in a circle
    TSettling settling;
    std::vector<std::vector<double>> states;
    const TComponentRef<const TWinControl> root(&Root);
    for (int round = 0; round < CMaxSettleRounds; ++round) {
        if (!settling.Round(Root) || !root) return !settling.AnyFailed();
        if (round < CFewRounds) continue;
        std::vector<double> state = StateOf(Root);
        const bool comesBack = std::ranges::find(states, state) != states.end();
        states.push_back(std::move(state));
        if (!comesBack) continue;
        ForTree(Root, [](TControl& Control) {
            if (Control.NeedsSettling()) Guarded([&] { Control.StopSettling(); });
        });
        if (!NeedsSettling(Root)) break;
    }
    return !settling.AnyFailed() && !NeedsSettling(Root);
}

void PaintTree(TWinControl& Root, TCanvasDevice& Device, const TRect& Dirty) {
    // Paints one control with a canvas of its own, so that no pen, brush or clip outlives it, then its
    // children.
    const auto paint = [&Device](const auto& Self, TControl& Control, TPoint Origin, const TRect& Clip) {
        const TRect size = Control.GetClientRect(), visible = Shifted(size, Origin).Intersected(Clip);
        const auto* container = dynamic_cast<const TWinControl*>(&Control);
        const TRect painted = container ? size : Control.GetPaintedRect();
        if (size.IsEmpty() || Shifted(painted, Origin).Intersected(Clip).IsEmpty()) return;
        TCanvas canvas(&Device);
        canvas.Font.Assign(Control.GetFont());
        canvas.Brush.SetColor(Control.GetColor());
        canvas.SetOrigin(Origin);
        canvas.SetClip(size.Intersected(Shifted(Clip, {-Origin.X, -Origin.Y})));
        const bool paintsChildren = container && container->PaintsChildren(); // before a paint changes it
        // A graphic control is a part of its parent's surface and may lift its clip up to that.
        canvas.SetBaseClip(container ? visible : Clip);
        const TComponentRef<const TWinControl> shown(container); // a paint may take it away
        Guarded([&] { Control.PaintOn(canvas); });
        for (int i = 0; paintsChildren && shown && i < container->GetControlCount(); ++i) {
            TControl& child = *container->GetControl(i);
            if (child.GetVisible())
                Self(Self, child, Shifted(child.GetBoundsRect().TopLeft(), Origin), visible);
        }
    };
    paint(paint, Root, {}, Dirty);
    Device.SetClip({});
}

void PaintFrame(TWinControl& Root, TCanvasDevice& Device) {
    TWinControl* top = &Root;
    while (top->GetParent()) top = top->GetParent();
    SettleTree(*top);
    PaintTree(Root, Device, Root.GetClientRect());
}

} // namespace kx
