#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

void TControl::FontChanged() {
    if (!FTakingParentFont) FParentFont = false;
    CMFontChanged();
}

void TControl::TakeParentFont() {
    const TScopedValue taking(FTakingParentFont, true);
    if (FParent) FFont.Assign(FParent->GetFont());
}

void TControl::SetParentFont(bool ParentFont) {
    FParentFont = ParentFont;
    if (ParentFont) TakeParentFont();
}

void TControl::TakeParentColor() {
    if (!FParent || FColor == FParent->GetColor()) return;
    FColor = FParent->GetColor();
    CMColorChanged();
}

void TControl::SetParentColor(bool ParentColor) {
    FParentColor = ParentColor;
    if (ParentColor) TakeParentColor();
}

void TControl::SetColor(TColor Color) {
    FParentColor = false;
    if (FColor == Color) return;
    FColor = Color;
    CMColorChanged();
}

void TControl::StoreShowHint(bool ShowHint) {
    if (FShowHint == ShowHint) return;
    FShowHint = ShowHint;
    CMShowHintChanged();
}

void TControl::TakeParentShowHint() {
    if (FParent) StoreShowHint(FParent->GetShowHint());
}

void TControl::SetParentShowHint(bool ParentShowHint) {
    FParentShowHint = ParentShowHint;
    if (ParentShowHint) TakeParentShowHint();
}

void TControl::SetShowHint(bool ShowHint) {
    FParentShowHint = false;
    StoreShowHint(ShowHint);
}

void TControl::SetPopupMenu(TPopupMenu* Menu) {
    FPopupMenu = Menu;
    if (Menu) Menu->FreeNotification(this);
}

void TControl::Notification(TComponent* Component, TOperation Operation) {
    TComponent::Notification(Component, Operation);
    if (Operation == opRemove && Component == FPopupMenu) FPopupMenu = nullptr;
}

void TControl::SetText(const std::string& Text) {
    if (FText == Text) return;
    FText = Text;
    CMTextChanged();
}

void TControl::CMFontChanged() { Invalidate(); }
void TControl::CMTextChanged() { Invalidate(); }
void TControl::CMColorChanged() { Invalidate(); }
void TControl::CMVisibleChanged() { Invalidate(); }
void TControl::CMEnabledChanged() { Invalidate(); }
void TControl::CMShowHintChanged() {}

void TControl::PaintOn(TCanvas&) {}

const TPropertyTable& TControl::Properties() {
    constexpr auto font = static_cast<const TFont& (TControl::*)() const>(&TControl::GetFont);
    constexpr std::monostate always;
    static const TPropertyTable table = [&] {
        using C = TControl;
        const auto ownColor = [](const TPersistent& O) { return !static_cast<const C&>(O).FParentColor; };
        const auto ownHint = [](const TPersistent& O) { return !static_cast<const C&>(O).FParentShowHint; };
        TProperty ownFont = PublishedObject<font>("Font", "Text font; setting it ends ParentFont");
        ownFont.Stored = [](const TPersistent& O) { return !static_cast<const C&>(O).FParentFont; };
        return TPropertyTable(
            "TControl", &TComponent::Properties(),
            {Published<&C::GetLeft, &C::SetLeft>("Left", always, "Left edge on the parent, pixels"),
             Published<&C::GetTop, &C::SetTop>("Top", always, "Top edge on the parent, pixels"),
             Published<&C::GetWidth, &C::SetWidth>("Width", always, "Width, pixels"),
             Published<&C::GetHeight, &C::SetHeight>("Height", always, "Height, pixels"),
             Published<&C::GetAlign, &C::SetAlign>("Align", alNone, "Edge of the parent to which it keeps"),
             Published<&C::GetVisible, &C::SetVisible>("Visible", true, "Whether it is shown"),
             Published<&C::GetEnabled, &C::SetEnabled>("Enabled", true, "Whether it takes the mouse"),
             PublishedColor<&C::GetColor, &C::SetColor>(
                 "Color", always, "Background colour; setting it ends ParentColor", ownColor),
             Published<&C::GetParentColor, &C::SetParentColor>("ParentColor", true,
                                                               "Whether the colour follows the parent's"),
             ownFont,
             Published<&C::GetParentFont, &C::SetParentFont>("ParentFont", true,
                                                             "Whether the font follows the parent's"),
             Published<&C::GetCursor, &C::SetCursor>("Cursor", crDefault, "Mouse cursor over the control"),
             Published<&C::GetHint, &C::SetHint>("Hint", "", "Text that explains the control"),
             Published<&C::GetShowHint, &C::SetShowHint>(
                 "ShowHint", always, "Whether the hint is shown; setting it ends ParentShowHint", ownHint),
             Published<&C::GetParentShowHint, &C::SetParentShowHint>("ParentShowHint", true,
                                                                     "Whether ShowHint follows the parent's"),
             Published<&C::GetPopupMenu, &C::SetPopupMenu>("PopupMenu", nullptr,
                                                           "Menu that a right click pops up"),
             Published<&C::GetDragMode, &C::SetDragMode>("DragMode", dmManual,
                                                         "Whether a left press and a move begin a drag"),
             Published<&C::GetDragCursor, &C::SetDragCursor>(
                 "DragCursor", crDrag, "Mouse cursor where the dragged control is accepted"),
             PublishedEvent<&C::OnClick>("OnClick", "Pressed and released with the left button"),
             PublishedEvent<&C::OnDblClick>("OnDblClick", "Pressed twice"),
             PublishedEvent<&C::OnMouseDown>("OnMouseDown", "A button was pressed"),
             PublishedEvent<&C::OnMouseMove>("OnMouseMove", "The mouse was moved"),
             PublishedEvent<&C::OnMouseWheel>("OnMouseWheel", "The wheel was turned over it"),
             PublishedEvent<&C::OnMouseEnter>("OnMouseEnter", "The mouse came over it"),
             PublishedEvent<&C::OnMouseLeave>("OnMouseLeave", "The mouse went from it"),
             PublishedEvent<&C::OnMouseUp>("OnMouseUp", "A button was released"),
             PublishedEvent<&C::OnStartDrag>("OnStartDrag", "It begins to be dragged"),
             PublishedEvent<&C::OnEndDrag>("OnEndDrag", "Its drag has ended"),
             PublishedEvent<&C::OnDragOver>("OnDragOver", "Something is dragged over it"),
             PublishedEvent<&C::OnDragDrop>("OnDragDrop", "Something was dropped on it")});
    }();
    return table;
}

const TPropertyTable& TControl::PublishedProperties() const { return Properties(); }

} // namespace kx
