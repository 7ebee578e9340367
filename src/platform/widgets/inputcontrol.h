#pragma once
// The base of the controls that a user puts values in.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/widgets/look.h>

namespace kx {

/// Takes the focus by Tab and press, has the ground of a field, and is painted anew where its state changes.
class TInputControl : public TCustomControl {
public:
    explicit TInputControl(TComponent* Owner);
    /// Whether it and all its parents are enabled.
    bool IsUsable() const;
    TAccessiblePart Accessible() const override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// odFocused, odHot and odDisabled as they are now.
    virtual TDrawState GetDrawState() const;
    /// Whether mouse or keys may change something now: not while a designer has the control.
    bool IsOperable() const { return IsUsable() && !IsIn(csDesigning); }
    bool IsHot() const { return FHot; }
    void CMEnabledChanged() override;
    void MouseEnter() override;
    void MouseLeave() override;
    bool IsOpaque() const override { return false; } // the corners

private:
    bool FHot = false;
};

} // namespace kx
