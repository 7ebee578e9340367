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

/// A line of a menu. Its sub-menu are the items that it owns, in their order.
class TMenuItem : public TComponent {
public:
    explicit TMenuItem(TComponent* Owner);

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
    THostMenu ToHostMenu() const;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TMenuItem>(); }

private:
    std::string FCaption, FShortCut;
    bool FChecked = false, FEnabled = true, FVisible = true;
};

} // namespace kx
