#pragma once
// A field that shows the chosen item of a list, which drops down.

#include <kxgraph/platform/widgets/inputcontrol.h>
#include <kxgraph/platform/widgets/listitems.h>
#include <kxgraph/platform/widgets/scrollpart.h>

#include <memory>
#include <string>
#include <vector>

namespace kx {

/// Up, Down, PageUp, PageDown, Home and End, the wheel while it has the focus, and what is typed choose an
/// item; a press, Space, F4 and Alt+Down drop the list down. DrawItem draws the items of the list and, with
/// odComboEdit, the chosen one in the field.
class TCustomComboBox : public TInputControl, public TListItems {
public:
    explicit TCustomComboBox(TComponent* Owner);
    ~TCustomComboBox() override;

    /// -1: none. An index behind the last item counts as none until there are so many.
    int GetItemIndex() const { return FItemIndex; }
    void SetItemIndex(int Index);
    bool HasItem() const { return FItemIndex >= 0 && FItemIndex < ItemCount(); }
    /// Most items that the list shows at once, at least 1.
    int GetDropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int Count);
    /// The height of an item in the list, pixels; 0: that of a line of text and a little more.
    int GetItemHeight() const { return FItemHeight; }
    void SetItemHeight(int Height);
    /// To be called when the items are others.
    virtual void ItemsChanged();

    bool IsDroppedDown() const { return FDrop != nullptr; }
    void DropDown();
    /// Closes the list; Takes: chooses the item that is marked in it.
    void CloseUp(bool Takes);

    /// The user has chosen another item.
    TNotifyEvent OnSelect;
    /// Before the list drops down: for whoever makes items when they are wanted.
    TNotifyEvent OnDropDown;

    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// By the user. Overrides call the inherited one, which calls OnSelect.
    virtual void Select(int Index);
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
    void Choose(int Index);

    int FItemIndex = -1, FDropDownCount = 8, FItemHeight = 0;
    std::unique_ptr<TDrop> FDrop; // while it is dropped down
    TWheelSteps FWheel;
    TTypedPrefix FPrefix;
};

/// A combo of texts.
class TComboBox : public TCustomComboBox {
public:
    using TCustomComboBox::TCustomComboBox;

    const std::vector<std::string>& GetItems() const { return FItems; }
    void SetItems(std::vector<std::string> Items);
    /// The same as lines of one text.
    std::string GetLines() const { return JoinLines(FItems); }
    void SetLines(const std::string& Lines) { SetItems(SplitLines(Lines)); }

    int ItemCount() const override { return static_cast<int>(FItems.size()); }
    std::string ItemText(int Index) const override { return FItems[static_cast<std::size_t>(Index)]; }
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TComboBox>(); }

private:
    std::vector<std::string> FItems;
};

} // namespace kx
