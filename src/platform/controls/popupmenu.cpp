#include <kxgraph/platform/controls/popupmenu.h>

#include <kxgraph/platform/controls/control.h>
#include <kxgraph/platform/objects/published.h>

#include <utility>

namespace kx {

TPopupMenu::TPopupMenu(TComponent* Owner) : TComponent(Owner), FItems(new TMenuItem(this)) {}

void TPopupMenu::Popup(TControl* Source, int X, int Y) {
    const TComponentRef<TPopupMenu> self(this);
    const TComponentRef<TControl> source(Source);
    OnPopup(Source, X, Y);
    if (!self || !source) return;
    if (THostMenu menu = FItems->ToHostMenu(); !menu.empty()) Source->ShowMenu(std::move(menu), {X, Y});
}

const TPropertyTable& TPopupMenu::PublishedProperties() const { return Properties(); }

const TPropertyTable& TPopupMenu::Properties() {
    static const TPropertyTable table(
        "TPopupMenu", &TComponent::Properties(),
        {PublishedEvent<&TPopupMenu::OnPopup>("OnPopup", "The menu is asked for at a point of a control")});
    return table;
}

} // namespace kx
