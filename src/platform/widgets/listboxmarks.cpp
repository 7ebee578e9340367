// Lists of which several items can be chosen.

#include <kxgraph/platform/widgets/listbox.h>

#include <algorithm>
#include <utility>

namespace kx {

void TCustomListBox::SetMultiSelect(bool MultiSelect) {
    if (FMultiSelect == MultiSelect) return;
    FMultiSelect = MultiSelect;
    FMarks = {};
    if (MultiSelect && HasItem()) FMarks.Set(FMarks.Anchor = GetItemIndex(), true);
    Invalidate();
}

bool TCustomListBox::IsSelected(int Index) const {
    return FMultiSelect ? FMarks.Has(Index) : HasItem() && Index == GetItemIndex();
}

void TCustomListBox::SetSelected(int Index, bool Selected) {
    if (!FMultiSelect) return SetItemIndex(Selected ? Index : Index == GetItemIndex() ? -1 : GetItemIndex());
    if (Index < ItemCount()) FMarks.Set(Index, Selected);
    Invalidate();
}

std::vector<int> TCustomListBox::GetSelected() const {
    if (FMultiSelect) return FMarks.GetAll();
    return HasItem() ? std::vector{GetItemIndex()} : std::vector<int>();
}

void TCustomListBox::MarkRange(int From, int To) {
    for (int i = std::min(From, To); i <= std::max(From, To); ++i)
        if (ItemEnabled(i)) FMarks.Set(i, true);
}

/// OnSelect is called where Marking has marked other items than before.
template <class F>
void TCustomListBox::MarkByUser(F Marking) {
    const std::vector<int> before = FMarks.GetAll();
    Marking();
    Invalidate();
    if (FMarks.GetAll() != before) OnSelect(this);
}

void TCustomListBox::SelectAll() {
    if (FMultiSelect && ItemCount() > 0) MarkRange(0, ItemCount() - 1);
    Invalidate();
}

void TCustomListBox::ClearSelection() {
    if (!FMultiSelect) return SetItemIndex(-1);
    FMarks.Clear();
    Invalidate();
}

/// The user goes to an item, which alone is chosen then; with Ctrl it is chosen or not, beside the others,
/// and with Shift all from the anchor on are.
void TCustomListBox::Pick(int Index, TShiftState Shift) {
    if (!FMultiSelect) return TCustomChoice::Choose(Index);
    if (Index < 0 || Index >= ItemCount() || !ItemEnabled(Index)) return;
    const bool adds = (Shift & ssCtrl) != 0, extends = (Shift & ssShift) != 0;
    const int anchor = std::clamp(FMarks.Anchor, 0, ItemCount() - 1);
    SetItemIndex(Index);
    ShowItem(Index);
    MarkByUser([&] {
        if (!adds) FMarks.Clear();
        if (extends) return MarkRange(anchor, Index);
        FMarks.Anchor = Index;
        FMarks.Set(Index, !adds || !FMarks.Has(Index));
    });
}

/// Ctrl moves without choosing; Space chooses.
bool TCustomListBox::MarkByKey(const TKeyStroke& Stroke) {
    const TShiftState shift = Stroke.Shift & (ssShift | ssCtrl);
    if (Stroke.Key == 'A' && shift == ssCtrl) return MarkByUser([this] { SelectAll(); }), true;
    if (Stroke.Key == kcSpace && HasItem()) {
        const int at = GetItemIndex();
        if (shift & ssShift)
            Pick(at, shift);
        else if (ItemEnabled(at))
            MarkByUser([&] { FMarks.Set(FMarks.Anchor = at, !(shift & ssCtrl) || !FMarks.Has(at)); });
        return true;
    }
    const int target = KeyTarget(Stroke.Key, HasItem() ? GetItemIndex() : -1, std::max(PageRows() - 1, 1));
    if (target < 0) return false;
    if (shift == ssCtrl)
        SetItemIndex(target), ShowItem(target);
    else
        Pick(target, shift);
    return true;
}

} // namespace kx
