#pragma once
// Two arrows, one above the other.

#include <kxgraph/platform/widgets/inputcontrol.h>
#include <kxgraph/platform/widgets/scrollpart.h>

#include <memory>

namespace kx {

/// A press on an arrow steps, and goes on stepping while it is held; so do Up, Down and the wheel.
class TSpinButton : public TInputControl {
public:
    explicit TSpinButton(TComponent* Owner);

    TNotifyEvent OnUpClick, OnDownClick;
    /// Whether it is a part of a field: it has no frame then, and does not take the focus.
    void SetInField(bool InField);

    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TSpinButton>(); }
    /// 1 up, -1 down.
    virtual void Step(int Direction);
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseLeave() override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    void CMEnabledChanged() override;

private:
    int DirectionAt(int Y) const { return Y < GetHeight() / 2 ? 1 : -1; }
    void Hold(int Direction);
    void Repeat();

    bool FInField = false;
    int FHeld = 0, FOver = 0; // directions
    std::unique_ptr<THostTimer> FTimer;
    bool FRepeats = false;
    TWheelSteps FWheel;
};

} // namespace kx
