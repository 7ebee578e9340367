#include <kxgraph/platform/controls/popupmenu.h>

#include <kxgraph/platform/controls/control.h>
#include <kxgraph/platform/objects/published.h>

#include <utility>
#include <vector>

namespace kx {

TPopupMenu::TPopupMenu(TComponent* Owner) : TCustomMenu(Owner), FItems(new TMenuItem(this)) {}

void TPopupMenu::Popup(TControl* Source, int X, int Y) {
    const TComponentRef<TPopupMenu> self(this);
    const TComponentRef<TControl> source(Source);
    OnPopup(Source, X, Y);
    if (!self || !source) return;
    std::vector<TMenuItem*> items = FItems->GetItems();
    for (TMenuItem* item : GivenItems()) items.push_back(item);
    if (THostMenu menu = TMenuItem::ToHostMenu(items); !menu.empty())
        Source->ShowMenu(std::move(menu), {X, Y});
}

const TPropertyTable& TPopupMenu::PublishedProperties() const { return Properties(); }

const TPropertyTable& TPopupMenu::Properties() {
    static const TPropertyTable table(
        "TPopupMenu", &TComponent::Properties(),
        {PublishedEvent<&TPopupMenu::OnPopup>("OnPopup", "The menu is asked for at a point of a control")});
    return table;
}

} // namespace kx
