#include <kxgraph/platform/controls/controlsmouse.h>

#include <cstdlib>
#include <utility>

namespace kx {

namespace {

constexpr int CDragDistance = 4; // pixels that a click may move

bool IsFar(TPoint A, TPoint B) {
    return std::abs(A.X - B.X) > CDragDistance || std::abs(A.Y - B.Y) > CDragDistance;
}

} // namespace

void TControl::BeginDrag() {
    if (TWinControl* root = Topmost()) root->StartDrag(*this);
}

bool TControl::IsDragging() const {
    const TWinControl* root = Topmost();
    return root && root->FDragging.Active && root->FDragging.Source == this;
}

/// Remembers that the left press at Pos, this control's pixels, may become a drag of it.
void TControl::PrepareDrag(TPoint Pos) {
    TWinControl* root = Topmost();
    if (!root || root->FDragging.Source) return;
    root->FDragging.Source = this;
    root->FDragging.Pressed = ClientToRoot(Pos);
}

void TWinControl::StartDrag(TControl& Source) {
    if (FDragging.Active) return;
    const TPoint pressed = FDragging.Pressed;
    TDispatch source(*this, &Source);
    TDispatch captured(*this, FDragging.LeftDown ? FCaptured : nullptr);
    FDragging = {.Source = &Source, .Over = nullptr, .Pressed = pressed, .Last = pressed, .Active = true};
    FPressed = nullptr;
    SetMouseCapture(true);
    // The release will be the drag's; the pressed control gets its own where the press was, so that nothing
    // that it has begun there stays open.
    captured.Call([&](TControl& T) {
        const TPoint at = T.RootToClient(pressed);
        T.MouseUp(mbLeft, 0, at.X, at.Y);
    });
    source.Call([](TControl& S) { S.OnStartDrag(&S); });
}

/// Gives a mouse event at Pos of this topmost control to its drag; false when there is none. This control may
/// be gone afterwards where it answers true.
bool TWinControl::DragMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) {
    const bool left = Kind != TMouseKind::Move && Button == mbLeft;
    if (!FDragging.Active) {
        if (left) FDragging = {.Pressed = Pos, .LeftDown = Kind == TMouseKind::Down};
        const bool starts =
            Kind == TMouseKind::Move && (Shift & ssLeft) && FDragging.Source && IsFar(Pos, FDragging.Pressed);
        if (!starts) return false;
        const TDispatch alive(*this, this);
        StartDrag(*FDragging.Source);
        if (!alive.Root || !FDragging.Active) return true;
    }
    if (Kind == TMouseKind::Move) DragTo(Pos);
    if (left && Kind == TMouseKind::Up) DropAt(Pos);
    return true;
}

/// Whom a drag at Pos of this topmost control is over; null outside.
TControl* TWinControl::DragTarget(TPoint Pos) {
    return GetClientRect().Contains(Pos) ? DeepestAt(Pos) : nullptr;
}

bool TWinControl::TDispatch::AskDragOver(TDragState State, TPoint Pos) {
    TControl* source = Root->FDragging.Source;
    bool accept = false;
    Call([&](TControl& T) {
        const TPoint at = T.RootToClient(Pos);
        bool answer = static_cast<bool>(T.OnDragOver);
        T.OnDragOver(&T, source, at.X, at.Y, State, answer);
        accept = answer;
    });
    return accept;
}

void TWinControl::DragTo(TPoint Pos) {
    TDispatch over(*this, FDragging.Over);
    const auto ended = [&] { return !over.Root || !FDragging.Active; };
    FDragging.Last = Pos;
    if (over.Target && over.Target != DragTarget(Pos)) {
        FDragging.Over = nullptr;
        over.AskDragOver(dsDragLeave, Pos);
        if (ended()) return;
    }
    TControl* target = DragTarget(Pos);
    const TDragState state = target == FDragging.Over ? dsDragMove : dsDragEnter;
    FDragging.Over = over.Target = target;
    const bool accepted = over.AskDragOver(state, Pos);
    if (ended()) return;
    FDragging.Accepted = accepted && FDragging.Over;
    if (THostWindow* window = GetHostWindow())
        window->SetCursor(FDragging.Accepted ? FDragging.Source->GetDragCursor() : crNoDrop);
}

void TWinControl::DropAt(TPoint Pos) {
    TDispatch source(*this, FDragging.Source);
    if (Pos != FDragging.Last || DragTarget(Pos) != FDragging.Over) DragTo(Pos);
    if (!source.Target || !FDragging.Active) return;
    TDispatch target(*this, FDragging.Accepted ? FDragging.Over : nullptr);
    StopDrag();
    target.Call([&](TControl& T) {
        const TPoint at = T.RootToClient(Pos);
        T.OnDragDrop(&T, source.Target, at.X, at.Y);
    });
    source.Call([&](TControl& S) {
        const TPoint at = S.RootToClient(Pos);
        S.OnEndDrag(&S, target.Target, at.X, at.Y);
    });
}

/// Lets the mouse go and forgets the drag, without a word to anybody.
void TWinControl::StopDrag() {
    const TDragging dragging = std::exchange(FDragging, {});
    if (!dragging.Active) return;
    SetMouseCapture(false);
    ShowCursorOf(dragging.Over ? *dragging.Over : *this);
}

/// Control, which leaves the tree of this topmost control, is neither dragged nor dropped on.
void TWinControl::ForgetDrag(const TControl& Control) {
    if (IsWithin(FDragging.Over, Control)) {
        FDragging.Over = nullptr;
        FDragging.Accepted = false;
    }
    if (IsWithin(FDragging.Source, Control)) StopDrag();
}

} // namespace kx
