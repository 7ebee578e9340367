// What controls tell: hints, and names and values for those who do not see.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/drawing/shifting.h>

namespace kx {

THostHint TWinControl::HintAt(TPoint Pos) {
    TPoint inside = Pos;
    const TControl* control = DeepestAt(inside);
    while (control && (!control->GetShowHint() || control->GetHint().empty())) control = control->GetParent();
    if (!control) return {};
    return {control->GetHint(), Shifted(control->GetClientRect(), control->ClientToRoot({}))};
}

TAccessiblePart TControl::Accessible() const {
    return {.Role = TAccessibleRole::Panel,
            .Name = FText.empty() ? GetName() : FText,
            .Value = {},
            .Description = FHint,
            .Bounds = FBounds,
            .Enabled = FEnabled};
}

TAccessiblePart TWinControl::Accessible() const {
    TAccessiblePart part = TControl::Accessible();
    part.Focused = IsFocused();
    for (const TControl* child : FControls)
        if (child->GetVisible()) part.Parts.push_back(child->Accessible());
    return part;
}

} // namespace kx
