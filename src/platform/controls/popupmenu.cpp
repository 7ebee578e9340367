#include <kxgraph/platform/controls/popupmenu.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

TPopupMenu::TPopupMenu(TComponent* Owner) : TComponent(Owner) {}

void TPopupMenu::Popup(TControl* Source, int X, int Y) { OnPopup(Source, X, Y); }

const TPropertyTable& TPopupMenu::PublishedProperties() const { return Properties(); }

const TPropertyTable& TPopupMenu::Properties() {
    static const TPropertyTable table(
        "TPopupMenu", &TComponent::Properties(),
        {PublishedEvent<&TPopupMenu::OnPopup>("OnPopup", "The menu is asked for at a point of a control")});
    return table;
}

} // namespace kx
