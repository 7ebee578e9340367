#pragma once
// A menu that a right click on a control asks for.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/controls/menuitem.h>

namespace kx {

class TControl;

/// Controls refer to it by PopupMenu; one may serve many. Its items are shown by the host; a program that
/// shows a menu of its own gives it none.
class TPopupMenu : public TCustomMenu {
public:
    explicit TPopupMenu(TComponent* Owner);

    /// Asks for the menu of Source at a point in Source's pixels: calls OnPopup, which may still change the
    /// items, then shows them in Source's window.
    virtual void Popup(TControl* Source, int X, int Y);
    TEvent<TControl*, int, int> OnPopup;
    /// The item whose sub-menu is this menu; owned. Items whose Menu this is stand behind that item's.
    TMenuItem& GetItems() { return *FItems; }

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TPopupMenu>(); }

private:
    TMenuItem* FItems;
};

} // namespace kx
