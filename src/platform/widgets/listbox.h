#pragma once
// Lists from which one item is chosen.

#include <kxgraph/platform/widgets/inputcontrol.h>
#include <kxgraph/platform/widgets/listitems.h>
#include <kxgraph/platform/widgets/scrollpart.h>

#include <string>
#include <vector>

namespace kx {

/// Items one under the other, of which one is chosen. Up, Down, PageUp, PageDown, Home, End and the wheel;
/// what is typed finds the next item that begins with it.
class TCustomListBox : public TInputControl, public TListItems {
public:
    explicit TCustomListBox(TComponent* Owner);

    /// -1: none. An index behind the last item counts as none until there are so many.
    int GetItemIndex() const { return FItemIndex; }
    void SetItemIndex(int Index);
    /// Whether an item is chosen.
    bool HasItem() const { return FItemIndex >= 0 && FItemIndex < ItemCount(); }
    /// The height of an item in pixels; 0: that of a line of text and a little more.
    int GetItemHeight() const { return FItemHeight; }
    void SetItemHeight(int Height);
    int RowHeight() const;
    /// The first item that shows.
    int GetTopIndex() const { return FTopIndex; }
    void SetTopIndex(int Index);
    /// Where an item is, in pixels of the control; the item at a point, -1 for none.
    TRect ItemRect(int Index) const;
    int ItemAt(TPoint Pos) const;
    /// To be called when the items are others.
    virtual void ItemsChanged();

    /// The user has chosen another item.
    TNotifyEvent OnSelect;

    void SetBounds(int Left, int Top, int Width, int Height) override;
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// By the user; Index differs from the present one. Overrides call the inherited one, which calls
    /// OnSelect.
    virtual void Select(int Index);
    /// Whether the item under the mouse is chosen while no button is down, as in lists that drop down.
    virtual bool FollowsMouse() const { return false; }
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseLeave() override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    void CMFontChanged() override;

private:
    int PageRows() const;
    TRect ItemsRect() const;
    void Choose(int Index);
    void ShowItem(int Index);
    void PlaceScroll();
    void PaintItem(int Index);

    int FItemIndex = -1, FItemHeight = 0, FTopIndex = 0;
    int FHotItem = -1;
    bool FPressed = false;
    TScrollPart FScroll{true};
    TWheelSteps FWheel;
    TTypedPrefix FPrefix;
};

/// A list of texts.
class TListBox : public TCustomListBox {
public:
    using TCustomListBox::TCustomListBox;

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
    bool HearsOfAll() const override { return IsBeyond<TListBox>(); }

private:
    std::vector<std::string> FItems;
};

} // namespace kx
