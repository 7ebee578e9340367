#include <kxgraph/platform/controls/menuitem.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/published.h>

#include <utility>

namespace kx {

std::vector<TMenuItem*> TCustomMenu::GivenItems() const {
    std::vector<TMenuItem*> items;
    if (!GetOwner()) return items;
    for (TComponent* component : GetOwner()->GetComponents())
        if (auto* item = dynamic_cast<TMenuItem*>(component); item && item->GetMenu() == this)
            items.push_back(item);
    return items;
}

TMenuItem::TMenuItem(TComponent* Owner) : TCustomMenu(Owner) {}

/// What it stands in.
TCustomMenu* TMenuItem::Above() const { return FMenu ? FMenu : dynamic_cast<TCustomMenu*>(GetOwner()); }

void TMenuItem::SetMenu(TCustomMenu* Menu) {
    const TCustomMenu* above = Menu;
    while (above && above != this) {
        const auto* item = dynamic_cast<const TMenuItem*>(above);
        above = item ? item->Above() : nullptr;
    }
    if (above) throw Exception("A menu item cannot stand in itself");
    FMenu = Menu;
    if (Menu) Menu->FreeNotification(this);
}

void TMenuItem::Notification(TComponent* Component, TOperation Operation) {
    TCustomMenu::Notification(Component, Operation);
    if (Operation == opRemove && Component == FMenu) FMenu = nullptr;
}

TMenuItem& TMenuItem::Add(const std::string& Caption, TMenuEvent Click) {
    auto* item = new TMenuItem(this);
    item->SetCaption(Caption);
    item->OnClick = std::move(Click);
    return *item;
}

std::vector<TMenuItem*> TMenuItem::GetItems() const {
    std::vector<TMenuItem*> items;
    for (TComponent* component : GetComponents())
        if (auto* item = dynamic_cast<TMenuItem*>(component); item && (!item->FMenu || item->FMenu == this))
            items.push_back(item);
    for (TMenuItem* item : GivenItems()) items.push_back(item);
    return items;
}

THostMenu TMenuItem::ToHostMenu(const std::vector<TMenuItem*>& Items) {
    THostMenu menu;
    for (TMenuItem* item : Items) {
        if (!item->FVisible) continue;
        const auto pick = [picked = TComponentRef<TMenuItem>(item)] {
            if (picked && picked->FEnabled) picked->Click();
        };
        menu.push_back({.Caption = item->FCaption,
                        .ShortCut = item->FShortCut,
                        .Checked = item->FChecked,
                        .Enabled = item->FEnabled,
                        .Separator = item->FCaption == "-",
                        .Items = item->ToHostMenu(),
                        .Pick = pick});
    }
    return menu;
}

const TPropertyTable& TMenuItem::Properties() {
    using C = TMenuItem;
    static const TPropertyTable table(
        "TMenuItem", &TComponent::Properties(),
        {Published<&C::GetCaption, &C::SetCaption>("Caption", "", "Text of the item; - is a separator"),
         Published<&C::GetShortCut, &C::SetShortCut>("ShortCut", "", "Key that is shown beside the text"),
         Published<&C::GetChecked, &C::SetChecked>("Checked", false, "Whether it bears a tick"),
         Published<&C::GetEnabled, &C::SetEnabled>("Enabled", true, "Whether it can be picked"),
         Published<&C::GetVisible, &C::SetVisible>("Visible", true, "Whether it is in the menu"),
         Published<&C::GetMenu, &C::SetMenu>("Menu", nullptr, "Menu or item that it stands in"),
         PublishedEvent<&C::OnClick>("OnClick", "The item was picked")});
    return table;
}

} // namespace kx
