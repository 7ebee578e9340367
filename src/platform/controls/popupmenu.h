#pragma once
// A menu that a right click on a control asks for. The program shows it: the hosts have no menus of their
// own.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/objects/component.h>

namespace kx {

class TControl;

/// Controls refer to it by PopupMenu; one may serve many.
class TPopupMenu : public TComponent {
public:
    explicit TPopupMenu(TComponent* Owner);

    /// Asks for the menu of Source at a point in Source's pixels: calls OnPopup.
    virtual void Popup(TControl* Source, int X, int Y);
    TEvent<TControl*, int, int> OnPopup;

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TPopupMenu>(); }
};

} // namespace kx
