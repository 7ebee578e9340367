#include <kxgraph/platform/widgets/inputcontrol.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

TInputControl::TInputControl(TComponent* Owner) : TCustomControl(Owner) {
    SetTabStop(true);
    SetColor(clWindow);
    TWinControl::SetBounds(0, 0, 120, CFieldHeight);
}

bool TInputControl::IsUsable() const {
    const TControl* control = this;
    while (control && control->GetEnabled()) control = control->GetParent();
    return !control;
}

TDrawState TInputControl::GetDrawState() const {
    return (HasKeys() ? odFocused : 0u) | (FHot ? odHot : 0u) | (IsUsable() ? 0u : odDisabled);
}

void TInputControl::CMEnabledChanged() {
    FHot = FHot && GetEnabled();
    TCustomControl::CMEnabledChanged();
}

void TInputControl::MouseEnter() {
    FHot = true;
    Invalidate();
    TCustomControl::MouseEnter();
}

void TInputControl::MouseLeave() {
    FHot = false;
    Invalidate();
    TCustomControl::MouseLeave();
}

TAccessiblePart TInputControl::Accessible() const {
    TAccessiblePart part = TCustomControl::Accessible();
    part.Name = GetName();
    part.Enabled = IsUsable();
    return part;
}

const TPropertyTable& TInputControl::Properties() {
    using C = TInputControl;
    static const TPropertyTable table(
        "TInputControl", &TWinControl::Properties(),
        {Published<&C::GetTabStop, &C::SetTabStop>("TabStop", true,
                                                   "Whether Tab and a press give it the keys"),
         Published<&C::GetParentColor, &C::SetParentColor>("ParentColor", false,
                                                           "Whether the colour follows the parent's"),
         PublishedColor<&C::GetColor, &C::SetColor>(
             "Color", clWindow, "Background colour; setting it ends ParentColor",
             [](const TPersistent& O) { return !static_cast<const C&>(O).GetParentColor(); })});
    return table;
}

} // namespace kx
