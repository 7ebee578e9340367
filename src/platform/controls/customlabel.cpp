#include <kxgraph/platform/controls/customlabel.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

TCustomLabel::TCustomLabel(TComponent* Owner) : TGraphicControl(Owner) {}

void TCustomLabel::SetAutoSize(bool AutoSize) {
    if (FAutoSize == AutoSize) return;
    FAutoSize = AutoSize;
    AdjustBounds();
}

void TCustomLabel::SetTransparent(bool Transparent) {
    if (FTransparent == Transparent) return;
    FTransparent = Transparent;
    Invalidate();
}

void TCustomLabel::StoreAlignment(TAlignment Alignment) {
    if (FAlignment == Alignment) return;
    FAlignment = Alignment;
    Invalidate();
}

void TCustomLabel::SetAlignment(TAlignment Alignment) { StoreAlignment(Alignment); }

void TCustomLabel::SetFocusControl(TWinControl* Control) {
    FFocusControl = Control;
    if (Control) Control->FreeNotification(this);
}

void TCustomLabel::CMTextChanged() {
    TGraphicControl::CMTextChanged();
    AdjustBounds();
}

void TCustomLabel::CMFontChanged() {
    TGraphicControl::CMFontChanged();
    AdjustBounds();
}

void TCustomLabel::Loaded() {
    TGraphicControl::Loaded();
    if (!GetText().empty() || GetHeight() > 0)
        AdjustBounds(); // one that never had a text has no size, either
}

void TCustomLabel::Notification(TComponent* Component, TOperation Operation) {
    TGraphicControl::Notification(Component, Operation);
    if (Operation == opRemove && Component == FFocusControl) FFocusControl = nullptr;
}

const TPropertyTable& TCustomLabel::Properties() {
    using C = TCustomLabel;
    static const TPropertyTable table(
        "TCustomLabel", &TControl::Properties(),
        {Published<&C::GetAlignment, &C::SetAlignment>("Alignment", taLeftJustify, "Where the text is kept"),
         Published<&C::GetAutoSize, &C::SetAutoSize>("AutoSize", true, "Whether the size follows the text"),
         Published<&C::GetTransparent, &C::SetTransparent>("Transparent", false,
                                                           "Whether what lies behind shows through"),
         Published<&C::GetFocusControl, &C::SetFocusControl>("FocusControl", nullptr,
                                                             "The control that the label belongs to")});
    return table;
}

const TPropertyTable& TCustomLabel::PublishedProperties() const { return Properties(); }

} // namespace kx
