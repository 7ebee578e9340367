#pragma once
// Items of menus.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/host/hostmenu.h>
#include <kxgraph/platform/objects/component.h>

#include <string>
#include <vector>

namespace kx {

class TMenuItem;
using TMenuEvent = TEvent<TMenuItem*>;

/// What menu items stand in: a menu, or an item for its sub-menu.
class TCustomMenu : public TComponent {
public:
    explicit TCustomMenu(TComponent* Owner) : TComponent(Owner) {}

protected:
    /// The items of this one's owner whose Menu it is, in their order.
    std::vector<TMenuItem*> GivenItems() const;
    bool HearsOfAll() const override { return IsBeyond<TCustomMenu>(); }
};

/// A line of a menu. Its sub-menu are the items that it owns and then those of its owner whose Menu it is, in
/// their order.
class TMenuItem : public TCustomMenu {
public:
    explicit TMenuItem(TComponent* Owner);

    /// The menu or the item that it stands in, which has the same owner, as in a form; null for an item that
    /// is owned by the one that it stands in. Not owned. Raises Exception for an item that would stand in
    /// itself.
    TCustomMenu* GetMenu() const { return FMenu; }
    void SetMenu(TCustomMenu* Menu);

    /// An ampersand stands before the letter that picks the item; "-" is a separator.
    const std::string& GetCaption() const { return FCaption; }
    void SetCaption(const std::string& Caption) { FCaption = Caption; }
    /// Text that is shown beside the caption, such as "Ctrl+C". The key does nothing by itself.
    const std::string& GetShortCut() const { return FShortCut; }
    void SetShortCut(const std::string& ShortCut) { FShortCut = ShortCut; }
    bool GetChecked() const { return FChecked; }
    void SetChecked(bool Checked) { FChecked = Checked; }
    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool Enabled) { FEnabled = Enabled; }
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool Visible) { FVisible = Visible; }
    TMenuEvent OnClick;

    /// A new item at the end of the sub-menu, owned by this one.
    TMenuItem& Add(const std::string& Caption, TMenuEvent Click = {});
    std::vector<TMenuItem*> GetItems() const;
    /// What the user does by picking it: calls OnClick.
    virtual void Click() { OnClick(this); }

    /// The visible items of the sub-menu. Items may go before they are picked.
    THostMenu ToHostMenu() const { return ToHostMenu(GetItems()); }
    /// Those of Items that are visible.
    static THostMenu ToHostMenu(const std::vector<TMenuItem*>& Items);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void Notification(TComponent* Component, TOperation Operation) override;
    bool HearsOfAll() const override { return IsBeyond<TMenuItem>(); }

private:
    TCustomMenu* Above() const;

    TCustomMenu* FMenu = nullptr;
    std::string FCaption, FShortCut;
    bool FChecked = false, FEnabled = true, FVisible = true;
};

} // namespace kx
