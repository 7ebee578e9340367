#include <kxgraph/platform/widgets/spinbutton.h>

#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <cstdlib>

namespace kx {

TSpinButton::TSpinButton(TComponent* Owner) : TInputControl(Owner) {
    TWinControl::SetBounds(0, 0, CFieldButton, CFieldHeight);
}

void TSpinButton::SetInField(bool InField) {
    FInField = InField;
    SetTabStop(!InField);
    SetCursor(InField ? crArrow : crDefault);
    Invalidate();
}

void TSpinButton::Step(int Direction) { (Direction > 0 ? OnUpClick : OnDownClick)(this); }

bool TSpinButton::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TSpinButton> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    const bool arrow = Stroke.Key == kcUp || Stroke.Key == kcDown;
    if (!self || !IsOperable() || !arrow || (Stroke.Shift & (ssCtrl | ssAlt))) return false;
    Step(Stroke.Key == kcUp ? 1 : -1);
    return true;
}

/// 0: lets go.
void TSpinButton::Hold(int Direction) {
    constexpr int CFirst = 400; // milliseconds
    FHeld = Direction;
    FRepeats = false;
    FTimer.reset();
    Invalidate();
    if (Direction == 0) return;
    FTimer = TApplication::Instance().GetHost().StartTimer(CFirst, TEvent<>::Of<&TSpinButton::Repeat>(this));
    Step(Direction);
}

void TSpinButton::Repeat() {
    constexpr int CNext = 60; // milliseconds
    if (!FRepeats)
        FTimer =
            TApplication::Instance().GetHost().StartTimer(CNext, TEvent<>::Of<&TSpinButton::Repeat>(this));
    FRepeats = true;
    if (FOver == FHeld) Step(FHeld);
}

void TSpinButton::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TSpinButton> self(this);
    FOver = DirectionAt(Y);
    if (Button == mbLeft && IsOperable()) Hold(FOver);
    if (self) TInputControl::MouseDown(Button, Shift, X, Y);
}

void TSpinButton::MouseMove(TShiftState Shift, int X, int Y) {
    const int over = GetClientRect().Contains({X, Y}) ? DirectionAt(Y) : 0;
    if (over != FOver) Invalidate();
    FOver = over;
    TInputControl::MouseMove(Shift, X, Y);
}

void TSpinButton::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) Hold(0);
    TInputControl::MouseUp(Button, Shift, X, Y);
}

void TSpinButton::MouseLeave() {
    FOver = 0;
    TInputControl::MouseLeave();
}

bool TSpinButton::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TInputControl::MouseWheel(Turn, Shift, X, Y)) return true;
    if (FInField || !IsOperable()) return false;
    const TComponentRef<TSpinButton> self(this);
    const int steps = FWheel.Take(Turn, 1);
    for (int i = 0; i < std::min(std::abs(steps), 20) && self; ++i) Step(steps < 0 ? 1 : -1);
    return true;
}

void TSpinButton::CMEnabledChanged() {
    if (!GetEnabled() && FHeld != 0) Hold(0);
    TInputControl::CMEnabledChanged();
}

void TSpinButton::Paint() {
    const TDrawState state = GetDrawState();
    const TRect all = GetClientRect();
    if (!FInField) PaintButton(GetCanvas(), all, state & ~unsigned(odHot));
    const int middle = all.Height() / 2;
    for (const int direction : {1, -1}) {
        const TRect half = direction > 0 ? TRect{1, 1, all.Right - 1, middle}
                                         : TRect{1, middle, all.Right - 1, all.Bottom - 1};
        const TDrawState own = (state & odDisabled) | (IsHot() && FOver == direction ? odHot : 0u) |
                               (FHeld == direction && FOver == direction ? odPressed : 0u);
        PaintFieldButton(GetCanvas(), half, own);
        const TRect arrow = direction > 0 ? TRect{half.Left, half.Top + 1, half.Right, half.Bottom + 1}
                                          : TRect{half.Left, half.Top - 1, half.Right, half.Bottom - 1};
        PaintArrow(GetCanvas(), arrow, direction > 0 ? TArrow::Up : TArrow::Down, own);
    }
}

TAccessiblePart TSpinButton::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::SpinBox;
    return part;
}

const TPropertyTable& TSpinButton::Properties() {
    using C = TSpinButton;
    static const TPropertyTable table(
        "TSpinButton", &TInputControl::Properties(),
        {PublishedEvent<&C::OnUpClick>("OnUpClick", "The upper arrow was clicked, or is held"),
         PublishedEvent<&C::OnDownClick>("OnDownClick", "The lower arrow was clicked, or is held")});
    return table;
}

} // namespace kx
