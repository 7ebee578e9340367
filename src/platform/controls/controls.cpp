#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/drawing/shifting.h>
#include <kxgraph/platform/objects/ownthread.h>

#include <utility>

namespace kx {

TControl::TControl(TComponent* Owner) : TComponent(Owner) {
    FFont.OnChange = TEvent<>::Of<&TControl::FontChanged>(this);
}

TControl::~TControl() {
    FFont.OnChange = nullptr;
    if (FParent) FParent->RemoveControl(this);
}

void TControl::SetParent(TWinControl* Parent) {
    AssertOwnThread();
    if (Parent == FParent) return BringToFront();
    auto* self = dynamic_cast<TWinControl*>(this);
    if (self && self->ContainsControl(Parent)) throw Exception("A control cannot be its own parent");
    if (FParent)
        FParent->RemoveControl(this);
    else if (self)
        self->ForgetMouse(*this); // what it had begun as the topmost one
    if (Parent) Parent->InsertControl(this);
}

TRect TControl::LimitedBounds(int Left, int Top, int Width, int Height) {
    const auto place = [](int Value) { return std::clamp(Value, -CMaxPixel, CMaxPixel); };
    const auto size = [](int Value) { return std::clamp(Value, 0, CMaxPixel - 1); };
    return TRect::Bounds(place(Left), place(Top), size(Width), size(Height));
}

void TControl::SetBounds(int Left, int Top, int Width, int Height) {
    const TRect bounds = LimitedBounds(Left, Top, Width, Height);
    if (bounds == FBounds) return;
    Invalidate();
    FBounds = bounds;
    EndRequests();
    Invalidate();
    if (FParent) FParent->ControlsChanged(this);
}

void TControl::AddSettledState(std::vector<double>& State) const {
    for (const int edge : {FBounds.Left, FBounds.Top, FBounds.Right, FBounds.Bottom}) State.push_back(edge);
}

void TControl::SetAlign(TAlign Align) {
    if (FAlign == Align) return;
    if (FParent) FParent->FAligned += (Align != alNone) - (FAlign != alNone);
    FAlign = Align;
    if (FParent) FParent->ControlsChanged(this);
}

void TControl::SetVisible(bool Visible) {
    if (FVisible == Visible) return;
    Invalidate();
    FVisible = Visible;
    EndRequests();
    Invalidate();
    if (FParent && !Visible) FParent->ReleaseInput(*this);
    CMVisibleChanged();
    if (FParent) FParent->ControlsChanged(this);
}

void TControl::SetEnabled(bool Enabled) {
    if (FEnabled == Enabled) return;
    FEnabled = Enabled;
    if (FParent && !Enabled) FParent->ReleaseInput(*this);
    CMEnabledChanged();
}

void TControl::Invalidate() {
    AssertOwnThread();
    if (FRequested != FRequests) RequestPaint();
}

void TControl::RequestPaint() {
    const std::uint64_t round = FRequests; // a window that paints at once ends it
    InvalidateRect(GetClientRect());
    FRequested = round;
}

void TControl::InvalidateRect(const TRect& Rect) {
    if (FRequested == FRequests) return; // all of it
    TRect rect = Rect.Intersected(GetClientRect());
    TControl* control = this;
    for (; control->FParent && control->FVisible && !rect.IsEmpty(); control = control->FParent)
        rect = Shifted(rect, control->FBounds.TopLeft()).Intersected(control->FParent->GetClientRect());
    if (control->FParent || !control->FVisible || rect.IsEmpty()) return;
    const auto* top = dynamic_cast<const TWinControl*>(control);
    if (THostWindow* window = top ? top->GetHostWindow() : nullptr) window->Invalidate(rect);
}

void TControl::BringToFront() {
    if (FParent) FParent->Restack(this, true);
}

void TControl::SendToBack() {
    if (FParent) FParent->Restack(this, false);
}

const TWinControl* TControl::Topmost() const {
    const TControl* control = this;
    while (control->FParent) control = control->FParent;
    return dynamic_cast<const TWinControl*>(control);
}

TWinControl* TControl::Topmost() { return const_cast<TWinControl*>(std::as_const(*this).Topmost()); }

TPoint TControl::ClientToRoot(TPoint Pos) const {
    for (const TControl* control = this; control->FParent; control = control->FParent)
        Pos = Shifted(Pos, control->FBounds.TopLeft());
    return Pos;
}

TPoint TControl::RootToClient(TPoint Pos) const {
    const TPoint origin = ClientToRoot({});
    return Shifted(Pos, TPoint{-origin.X, -origin.Y});
}

} // namespace kx
