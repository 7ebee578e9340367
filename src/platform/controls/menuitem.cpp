#include <kxgraph/platform/controls/menuitem.h>

#include <kxgraph/platform/objects/published.h>

#include <utility>

namespace kx {

TMenuItem::TMenuItem(TComponent* Owner) : TComponent(Owner) {}

TMenuItem& TMenuItem::Add(const std::string& Caption, TMenuEvent Click) {
    auto* item = new TMenuItem(this);
    item->SetCaption(Caption);
    item->OnClick = std::move(Click);
    return *item;
}

std::vector<TMenuItem*> TMenuItem::GetItems() const {
    std::vector<TMenuItem*> items;
    for (TComponent* component : GetComponents())
        if (auto* item = dynamic_cast<TMenuItem*>(component)) items.push_back(item);
    return items;
}

THostMenu TMenuItem::ToHostMenu() const {
    THostMenu menu;
    for (TMenuItem* item : GetItems()) {
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
         PublishedEvent<&C::OnClick>("OnClick", "The item was picked")});
    return table;
}

} // namespace kx
