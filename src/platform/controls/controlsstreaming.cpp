// What form files hold of controls: where they stand, and in which order.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/streaming/filer.h>

#include <utility>

namespace kx {

TComponent* TControl::GetParentComponent() const { return FParent; }

void TControl::SetParentComponent(TComponent* Parent) {
    auto* parent = dynamic_cast<TWinControl*>(Parent);
    if (!parent) throw EComponentError("A " + ClassName() + " stands in controls that have children alone");
    SetParent(parent);
}

namespace {

/// Whether Child is one of the components of the form that Parent is, or that owns it; others, such as the
/// title of a graph, are no part of form files.
bool IsOfForm(const TWinControl& Parent, const TControl& Child) {
    const TComponent* owner = Child.GetOwner();
    return owner && (owner == &Parent || owner == Parent.GetOwner()) && !Child.GetName().empty();
}

} // namespace

// Windowed controls are above graphic ones anyway.
bool TWinControl::IsRestacked() const {
    int before[2] = {-1, -1};
    for (const TControl* child : FControls) {
        if (!IsOfForm(*this, *child)) continue;
        int& last = before[dynamic_cast<const TWinControl*>(child) != nullptr];
        const int index = child->GetComponentIndex();
        if (index < last) return true;
        last = index;
    }
    return false;
}

void TWinControl::DefineProperties(TFiler& Filer) {
    TControl::DefineProperties(Filer);
    Filer.DefineProperty(
        "ControlOrder", [this](TReader& Reader) { ReadControlOrder(Reader); },
        [this](TWriter& Writer) { WriteControlOrder(Writer); }, [this] { return IsRestacked(); });
}

void TWinControl::ReadControlOrder(TReader& Reader) {
    Reader.ReadListBegin();
    while (!Reader.EndOfList()) FReadOrder.push_back(Reader.ReadIdent());
    Reader.ReadListEnd();
}

void TWinControl::WriteControlOrder(TWriter& Writer) const {
    Writer.WriteListBegin();
    for (const TControl* child : FControls)
        if (IsOfForm(*this, *child)) Writer.WriteIdent(child->GetName());
    Writer.WriteListEnd();
}

// A name that is none of a child's leaves the order as it is.
void TWinControl::Loaded() {
    TControl::Loaded();
    for (const std::string& name : std::exchange(FReadOrder, {}))
        for (const TComponent* form :
             {static_cast<const TComponent*>(this), static_cast<const TComponent*>(GetOwner())}) {
            auto* child = form ? FindComponentAs<TControl>(*form, name) : nullptr;
            if (child && child->GetParent() == this) child->BringToFront();
        }
}

} // namespace kx
