#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/controls.h>

namespace kx {

namespace {

bool IsWindowed(const TControl* Control) { return dynamic_cast<const TWinControl*>(Control) != nullptr; }

/// Gives Control its strip of Free and takes that away from Free. The control keeps the size across its edge
/// even where that is more than what is free, so that it has it again when the parent grows.
void PlaceAligned(TControl& Control, TRect& Free) {
    TRect place = Free;
    switch (Control.GetAlign()) {
    case alTop:
        place.Bottom = place.Top + Control.GetHeight();
        Free.Top = std::min(place.Bottom, Free.Bottom);
        break;
    case alBottom:
        place.Top = place.Bottom - Control.GetHeight();
        Free.Bottom = std::max(place.Top, Free.Top);
        break;
    case alLeft:
        place.Right = place.Left + Control.GetWidth();
        Free.Left = std::min(place.Right, Free.Right);
        break;
    case alRight:
        place.Left = place.Right - Control.GetWidth();
        Free.Right = std::max(place.Left, Free.Left);
        break;
    case alClient:
    case alNone: break;
    }
    Control.SetBounds(place.Left, place.Top, place.Width(), place.Height());
}

} // namespace

TWinControl::TWinControl(TComponent* Owner) : TControl(Owner) {}

TControl* TWinControl::GetControl(int Index) const {
    return FControls.At(CheckedIndex(Index, FControls.GetCount())).Item;
}

bool TWinControl::ContainsControl(const TControl* Control) const {
    while (Control && Control != this) Control = Control->GetParent();
    return Control != nullptr;
}

bool TWinControl::IsCovered(const TRect& Rect) const {
    for (const TControl* child : FControls)
        if (child->FVisible && child->IsOpaque() && child->FBounds.Intersected(Rect) == Rect) return true;
    return false;
}

void TWinControl::InsertControl(TControl* Control) {
    Control->FParent = this;
    if (Control->FAlign != alNone) ++FAligned;
    EndRequests();
    Stack(Control, true);
    if (Control->FParentFont) Control->TakeParentFont();
    if (Control->FParentColor) Control->TakeParentColor();
    if (Control->FParentShowHint) Control->TakeParentShowHint();
    ControlsChanged(Control);
}

void TWinControl::RemoveControl(TControl* Control) {
    ForgetMouse(*Control);
    if (Control->FVisible) InvalidateRect(Control->FBounds);
    Unstack(Control);
    if (Control->FAlign != alNone) --FAligned;
    Control->FParent = nullptr;
    EndRequests();
    ControlsChanged(Control);
}

void TWinControl::Restack(TControl* Control, bool ToFront) {
    Unstack(Control);
    Stack(Control, ToFront);
}

void TWinControl::Stack(TControl* Control, bool ToFront) {
    const bool isWindowed = IsWindowed(Control);
    const std::size_t from = isWindowed ? FGraphics : 0, to = isWindowed ? FControls.GetCount() : FGraphics;
    const std::size_t index = ToFront ? to : from;
    FControls.Insert(index == FControls.GetCount() ? nullptr : &FControls.At(index), Control->FPlace);
    if (!isWindowed) ++FGraphics;
    Control->InvalidateRect(Control->GetClientRect());
}

// Where it stands tells what it is, or was: it may be in its destructor.
void TWinControl::Unstack(TControl* Control) {
    if (Control->FPlace.Index() < FGraphics) --FGraphics;
    FControls.Remove(Control->FPlace);
}

void TWinControl::AlignControls() {
    if (FAligning || FAligned == 0) return;
    const TScopedValue aligning(FAligning, true);
    TRect free = GetClientRect();
    for (const TAlign align : {alTop, alBottom, alLeft, alRight, alClient})
        for (int i = 0; i < GetControlCount(); ++i) // a control that is placed may change the list
            if (TControl* control = GetControl(i); control->GetAlign() == align && control->GetVisible())
                PlaceAligned(*control, free);
}

void TWinControl::SetBounds(int Left, int Top, int Width, int Height) {
    const TSize before = GetBoundsRect().Size();
    TControl::SetBounds(Left, Top, Width, Height);
    if (GetBoundsRect().Size() != before) AlignControls();
}

void TWinControl::ControlsChanged(TControl*) { AlignControls(); }

THostWindow* TWinControl::GetHostWindow() const {
    return GetParent() ? GetParent()->GetHostWindow() : nullptr;
}

void TWinControl::CMFontChanged() {
    TControl::CMFontChanged();
    for (int i = 0; i < GetControlCount(); ++i)
        if (TControl* control = GetControl(i); control->FParentFont) control->TakeParentFont();
}

void TWinControl::CMColorChanged() {
    TControl::CMColorChanged();
    for (int i = 0; i < GetControlCount(); ++i)
        if (TControl* control = GetControl(i); control->FParentColor) control->TakeParentColor();
}

void TWinControl::CMShowHintChanged() {
    TControl::CMShowHintChanged();
    for (int i = 0; i < GetControlCount(); ++i)
        if (TControl* control = GetControl(i); control->FParentShowHint) control->TakeParentShowHint();
}

} // namespace kx
