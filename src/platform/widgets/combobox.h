#pragma once
// A field that shows the chosen item of a list, which drops down.

#include <kxgraph/platform/widgets/choice.h>

#include <memory>

namespace kx {

/// Up, Down, PageUp, PageDown, Home and End, the wheel while it has the focus, and what is typed choose an
/// item; a press, Space, F4 and Alt+Down drop the list down. DrawItem draws the items of the list and, with
/// odComboEdit, the chosen one in the field.
class TCustomComboBox : public TCustomChoice {
public:
    explicit TCustomComboBox(TComponent* Owner);
    ~TCustomComboBox() override;

    /// Most items that the list shows at once, at least 1.
    int GetDropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int Count);
    void ItemsChanged() override;

    bool IsDroppedDown() const { return FDrop != nullptr; }
    void DropDown();
    /// Closes the list; Takes: chooses the item that is marked in it.
    void CloseUp(bool Takes);

    /// Before the list drops down: for whoever makes items when they are wanted.
    TNotifyEvent OnDropDown;

    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// The width of the list; that of the control at least.
    virtual int DropWidth() const { return 0; }
    /// The part of the field that shows the chosen item.
    TRect GetItemRect() const;
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    void CMEnabledChanged() override;
    void CMVisibleChanged() override;

private:
    class TDrop;

    int FDropDownCount = 8;
    std::unique_ptr<TDrop> FDrop; // while it is dropped down
};

/// A combo of texts.
class TComboBox : public TTextChoice<TCustomComboBox> {
public:
    using TTextChoice::TTextChoice;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TComboBox>(); }
};

} // namespace kx
