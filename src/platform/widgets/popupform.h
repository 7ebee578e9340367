#pragma once
// A form that pops up beside a control.

#include <kxgraph/platform/controls/form.h>

namespace kx {

/// Shown without borders beside a control, over its window, until somebody presses elsewhere, Escape is
/// pressed or the program closes it. OnClose tells of each of these.
class TPopupForm : public TForm {
public:
    using TForm::TForm;
    /// Shows the form in that size below Beside, or above it where only there is room. False where Beside is
    /// in no window, or its host has no popups.
    bool Popup(const TControl& Beside, TSize Size);
    void CloseUp();

protected:
    bool HearsOfAll() const override { return IsBeyond<TPopupForm>(); }
    bool DialogKey(const TKeyStroke& Stroke) override;
};

} // namespace kx
