#pragma once
// The base of labels: a graphic control that shows its text and can fit its size to it.

#include <kxgraph/platform/controls/controls.h>

namespace kx {

class TCustomLabel : public TGraphicControl {
public:
    explicit TCustomLabel(TComponent* Owner);

    bool GetAutoSize() const { return FAutoSize; }
    void SetAutoSize(bool AutoSize);
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool Transparent);
    TAlignment GetAlignment() const { return FAlignment; }
    virtual void SetAlignment(TAlignment Alignment);
    /// The control that a press on the label's access key activates; not owned.
    TWinControl* GetFocusControl() const { return FFocusControl; }
    void SetFocusControl(TWinControl* Control);

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    /// Fits the bounds to the text; called after every change that may matter.
    virtual void AdjustBounds() {}
    void StoreAlignment(TAlignment Alignment);
    void CMTextChanged() override;
    void CMFontChanged() override;
    void Loaded() override;
    void Notification(TComponent* Component, TOperation Operation) override;

private:
    bool FAutoSize = true;
    bool FTransparent = false;
    TAlignment FAlignment = taLeftJustify;
    TWinControl* FFocusControl = nullptr;
};

} // namespace kx
