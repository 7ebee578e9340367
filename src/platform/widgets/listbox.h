#pragma once
// Lists from which one item is chosen.

#include <kxgraph/platform/widgets/choice.h>
#include <kxgraph/platform/widgets/itemmarks.h>

#include <vector>

namespace kx {

/// Items one under the other, of which one is chosen. Up, Down, PageUp, PageDown, Home, End and the wheel;
/// what is typed finds the next item that begins with it. Of several ones (MultiSelect) Ctrl and a press
/// chooses another one, or no longer, Shift all as far as an item, Ctrl+A all; Ctrl and a key moves without
/// choosing, and Space chooses the item where it has come to.
class TCustomListBox : public TCustomChoice {
public:
    explicit TCustomListBox(TComponent* Owner);

    /// Whether several items can be chosen. ItemIndex is then where the keys are, chosen or not, and the
    /// program chooses by SetSelected. OnSelect tells of every other choice of the user.
    bool GetMultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool MultiSelect);
    bool IsSelected(int Index) const;
    void SetSelected(int Index, bool Selected);
    /// The chosen items, in ascending order.
    std::vector<int> GetSelected() const;
    /// All that are enabled. Nothing without MultiSelect.
    void SelectAll();
    void ClearSelection();
    /// Pixels.
    int RowHeight() const;
    /// The first item that shows.
    int GetTopIndex() const { return FTopIndex; }
    void SetTopIndex(int Index);
    /// Where an item is, in pixels of the control; the item at a point, -1 for none.
    TRect ItemRect(int Index) const;
    int ItemAt(TPoint Pos) const;
    void ItemsChanged() override;

    void SetBounds(int Left, int Top, int Width, int Height) override;
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// Whether the item under the mouse is chosen while no button is down, as in lists that drop down.
    virtual bool FollowsMouse() const { return false; }
    void ShowItem(int Index) override;
    void PlaceItems() override;
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
    void Choose(int Index) override { Pick(Index, 0); }
    void Pick(int Index, TShiftState Shift);
    bool MarkByKey(const TKeyStroke& Stroke);
    void MarkRange(int From, int To);
    template <class F>
    void MarkByUser(F Marking);
    void PaintItem(int Index);

    int FTopIndex = 0, FHotItem = -1;
    bool FPressed = false, FMultiSelect = false;
    TItemMarks FMarks; // with MultiSelect
    TScrollPart FScroll{true};
};

/// A list of texts.
class TListBox : public TTextChoice<TCustomListBox> {
public:
    using TTextChoice::TTextChoice;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TListBox>(); }
};

} // namespace kx
