#include <kxgraph/platform/controls/controlsmouse.h>

#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/drawing/shifting.h>

#include <utility>

namespace kx {

namespace {

unsigned FlagOf(TMouseButton Button) {
    return Button == mbLeft ? ssLeft : Button == mbRight ? ssRight : ssMiddle;
}

} // namespace

bool IsWithin(const TControl* Inner, const TControl& Outer) {
    while (Inner && Inner != &Outer) Inner = Inner->GetParent();
    return Inner != nullptr;
}

void ShowCursorOf(const TControl& Target) {
    const TControl* control = &Target;
    const TWinControl* top = nullptr;
    TCursor cursor = crDefault;
    for (; control; control = control->GetParent()) {
        if (cursor == crDefault) cursor = control->GetCursor();
        if (!control->GetParent()) top = dynamic_cast<const TWinControl*>(control);
    }
    if (THostWindow* window = top ? top->GetHostWindow() : nullptr) window->SetCursor(cursor);
}

void TWinControl::TDispatch::Press(TMouseButton Button, TShiftState Shift, TPoint Pos) {
    const bool twice = (Shift & ssDouble) != 0;
    if (Button == mbLeft) Root->FPressed = twice ? nullptr : Target;
    Target->SetMouseCapture(true);
    if (Button == mbLeft) Root->FocusByPress(*Target);
    if (twice && Button == mbLeft) Call([](TControl& T) { T.DblClick(); });
    Call([&](TControl& T) { T.MouseDown(Button, Shift, Pos.X, Pos.Y); });
}

void TWinControl::TDispatch::Release(TMouseButton Button, TShiftState Shift, TPoint Pos) {
    const bool within = Target->GetClientRect().Contains(Pos);
    const bool click = within && Button == mbLeft && Root->FPressed == Target;
    if (Button == mbLeft) Root->FPressed = nullptr;
    const bool othersDown = (Shift & (ssLeft | ssRight | ssMiddle) & ~FlagOf(Button)) != 0;
    if (!othersDown) Target->SetMouseCapture(false);
    if (click) Call([](TControl& T) { T.Click(); });
    Call([&](TControl& T) { T.MouseUp(Button, Shift, Pos.X, Pos.Y); });
    if (within && Button == mbRight) Call([&](TControl& T) { T.PopUpMenuAt(Pos); });
}

TWinControl::~TWinControl() {
    for (TDispatch* dispatch = FDispatch; dispatch; dispatch = dispatch->Outer) {
        dispatch->Root = nullptr;
        dispatch->Target = nullptr;
    }
    while (!FControls.IsEmpty()) {
        TControl* control = FControls.Last();
        ForgetMouse(*control);
        FControls.Remove(control->FPlace);
        control->FParent = nullptr;
    }
}

void TWinControl::DispatchMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) {
    TWinControl& root = *Topmost();
    if (!root.GetEnabled() || root.DragMouse(Kind, Button, Shift, ClientToRoot(Pos))) return;
    TDispatch dispatch(root, MouseTarget(Pos));
    root.HoverOver(dispatch.Target);
    if (!dispatch.Target) return;
    switch (Kind) {
    case TMouseKind::Down: return dispatch.Press(Button, Shift, Pos);
    case TMouseKind::Up: return dispatch.Release(Button, Shift, Pos);
    case TMouseKind::Move:
        ShowCursorOf(*dispatch.Target);
        return dispatch.Call([&](TControl& T) { T.MouseMove(Shift, Pos.X, Pos.Y); });
    }
}

bool TWinControl::DispatchWheel(const TWheelTurn& Turn, TShiftState Shift, TPoint Pos) {
    TWinControl& root = *Topmost();
    if (!root.GetEnabled()) return false;
    TDispatch dispatch(root, MouseTarget(Pos));
    bool taken = false;
    while (dispatch.Target && !taken) {
        dispatch.Call([&](TControl& T) { taken = T.MouseWheel(Turn, Shift, Pos.X, Pos.Y); });
        if (taken || !dispatch.Target) break;
        Pos = Shifted(Pos, dispatch.Target->FBounds.TopLeft());
        dispatch.Target = dispatch.Target->FParent;
    }
    return taken;
}

void TWinControl::DispatchMouseLeft() { Topmost()->HoverOver(nullptr); }

/// Tells the control that the mouse is over, and the one before, of this topmost control.
void TWinControl::HoverOver(TControl* Control) {
    if (Control == FHovered) return;
    TDispatch left(*this, FHovered), entered(*this, Control);
    FHovered = Control;
    left.Call([](TControl& T) { T.MouseLeave(); });
    if (entered.Root && FHovered == entered.Target) entered.Call([](TControl& T) { T.MouseEnter(); });
}

/// The control that gets an event at Pos, which becomes that control's.
TControl* TWinControl::MouseTarget(TPoint& Pos) {
    if (TControl* captured = Topmost()->FCaptured) {
        Pos = captured->RootToClient(ClientToRoot(Pos));
        return captured;
    }
    return DeepestAt(Pos);
}

/// The deepest control at Pos, which becomes that control's; this one where there is none.
TControl* TWinControl::DeepestAt(TPoint& Pos) {
    TControl* target = this;
    const TWinControl* container = this;
    while (TControl* child = container ? container->ControlAt(Pos) : nullptr) {
        Pos = Pos - child->FBounds.TopLeft();
        target = child;
        container = dynamic_cast<const TWinControl*>(child);
    }
    return target;
}

TControl* TWinControl::ControlAt(TPoint Pos) const {
    TControl* topmost = nullptr;
    for (TControl* control : FControls)
        if (control->GetVisible() && control->GetEnabled() && control->GetBoundsRect().Contains(Pos))
            topmost = control;
    return topmost;
}

void TControl::SetMouseCapture(bool Capture) {
    TWinControl* root = Topmost();
    if (!root || Capture == (root->FCaptured == this)) return;
    root->FCaptured = Capture ? this : nullptr;
    if (THostWindow* window = root->GetHostWindow()) window->SetCapture(Capture);
}

bool TControl::GetMouseCapture() const {
    const TWinControl* root = Topmost();
    return root && root->FCaptured == this;
}

/// Ends what the mouse has begun on Control, a child, or inside it.
void TWinControl::ReleaseMouse(const TControl& Control) {
    for (TWinControl* root = this; root; root = root->GetParent()) {
        if (IsWithin(root->FPressed, Control)) root->FPressed = nullptr;
        if (IsWithin(root->FHovered, Control)) root->FHovered = nullptr;
        if (!root->FDragging.Active && IsWithin(root->FDragging.Source, Control)) root->FDragging = {};
        if (IsWithin(root->FCaptured, Control)) root->FCaptured->SetMouseCapture(false);
    }
}

/// The same for a child that leaves: an event on its way to it ends, too.
void TWinControl::ForgetMouse(const TControl& Control) {
    ReleaseMouse(Control);
    for (TWinControl* root = this; root; root = root->GetParent()) {
        root->ForgetDrag(Control);
        if (IsWithin(root->FFocused, Control)) {
            root->FFocused = nullptr;
            root->TextInputChanged();
        }
        for (TDispatch* dispatch = root->FDispatch; dispatch; dispatch = dispatch->Outer)
            if (IsWithin(dispatch->Target, Control)) dispatch->Target = nullptr;
    }
}

/// Pops up the menu of this control or of its nearest parent that has one. Answers whether there is one.
bool TControl::PopUpMenuAt(TPoint Pos) {
    TControl* control = this;
    THostMenu own;
    while (control && !control->FPopupMenu && (own = control->ContextMenu()).empty())
        control = control->FParent;
    if (!control) return false;
    const TPoint at = control->RootToClient(ClientToRoot(Pos));
    if (control->FPopupMenu)
        control->FPopupMenu->Popup(control, at.X, at.Y);
    else
        control->ShowMenu(std::move(own), at);
    return true;
}

void TControl::ShowMenu(THostMenu Menu, TPoint Pos) {
    const TWinControl* root = Topmost();
    if (THostWindow* window = root ? root->GetHostWindow() : nullptr)
        window->ShowMenu(std::move(Menu), ClientToRoot(Pos));
}

void TControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft && FDragMode == dmAutomatic) PrepareDrag({X, Y}); // the handler may destroy it
    OnMouseDown(this, Button, Shift, X, Y);
}

void TControl::MouseMove(TShiftState Shift, int X, int Y) { OnMouseMove(this, Shift, X, Y); }

void TControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    OnMouseUp(this, Button, Shift, X, Y);
}

bool TControl::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    bool taken = static_cast<bool>(OnMouseWheel);
    OnMouseWheel(this, Turn, Shift, X, Y, taken);
    return taken;
}

void TControl::MouseEnter() { OnMouseEnter(this); }
void TControl::MouseLeave() { OnMouseLeave(this); }
void TControl::Click() { OnClick(this); }
void TControl::DblClick() { OnDblClick(this); }

} // namespace kx
