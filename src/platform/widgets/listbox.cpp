#include <kxgraph/platform/widgets/listbox.h>

#include <kxgraph/platform/objects/textlists.h>

#include <algorithm>
#include <cmath>

namespace kx {

TCustomListBox::TCustomListBox(TComponent* Owner) : TCustomChoice(Owner) {
    TWinControl::SetBounds(0, 0, 120, 110);
}

int TCustomListBox::RowHeight() const {
    return GetItemHeight() > 0 ? GetItemHeight() : LineHeight(GetFont()) + 5;
}

TRect TCustomListBox::ItemsRect() const {
    const TRect all = GetClientRect();
    return {1, 1, all.Right - 1 - (FScroll.IsNeeded() ? CScrollWidth : 0), all.Bottom - 1};
}

int TCustomListBox::PageRows() const { return std::max((GetHeight() - 2) / RowHeight(), 1); }

void TCustomListBox::SetTopIndex(int Index) {
    FTopIndex = Index;
    PlaceItems();
}

void TCustomListBox::PlaceItems() {
    FTopIndex = std::clamp(FTopIndex, 0, std::max(ItemCount() - PageRows(), 0));
    const TRect all = GetClientRect();
    FScroll.Place({all.Right - 1 - CScrollWidth, 1, all.Right - 1, all.Bottom - 1}, ItemCount(), PageRows(),
                  FTopIndex);
    Invalidate();
}

void TCustomListBox::ShowItem(int Index) {
    if (Index < FTopIndex)
        SetTopIndex(Index);
    else if (Index >= FTopIndex + PageRows())
        SetTopIndex(Index - PageRows() + 1);
}

void TCustomListBox::ItemsChanged() {
    FHotItem = -1;
    FMarks.Limit(ItemCount());
    TCustomChoice::ItemsChanged();
}

TRect TCustomListBox::ItemRect(int Index) const {
    const TRect room = ItemsRect();
    const int top = room.Top + (Index - FTopIndex) * RowHeight();
    return {room.Left, top, room.Right, top + RowHeight()};
}

int TCustomListBox::ItemAt(TPoint Pos) const {
    if (!ItemsRect().Contains(Pos)) return -1;
    const int index = FTopIndex + (Pos.Y - 1) / RowHeight();
    return index < ItemCount() ? index : -1;
}

bool TCustomListBox::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomListBox> self(this);
    if (TCustomChoice::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || (Stroke.Shift & ssAlt) || ItemCount() == 0) return false;
    if (FMultiSelect && MarkByKey(Stroke)) return true;
    if ((Stroke.Shift & ssCtrl) || Stroke.Text == " ") return false;
    return ChooseByKey(Stroke, std::max(PageRows() - 1, 1));
}

void TCustomListBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomListBox> self(this);
    if (Button == mbLeft && IsOperable()) {
        if (FScroll.Contains({X, Y})) {
            if (const auto top = FScroll.Press({X, Y})) SetTopIndex(RoundToInt(*top));
        } else {
            FPressed = true;
            Pick(ItemAt({X, Y}), Shift);
        }
    }
    if (self) TCustomChoice::MouseDown(Button, Shift, X, Y);
}

void TCustomListBox::MouseMove(TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomListBox> self(this);
    if (const auto top = FScroll.DragTo({X, Y})) SetTopIndex(RoundToInt(*top));
    const int item = ItemAt({X, Y});
    if (item != FHotItem) Invalidate();
    FHotItem = item;
    const int row = Y < 0 ? -1 : Y / RowHeight(); // beyond an edge the list scrolls along
    if (FPressed || (FollowsMouse() && item >= 0 && !FScroll.IsDragged())) {
        const int target = item >= 0 ? item : FPressed ? std::clamp(FTopIndex + row, 0, ItemCount() - 1) : -1;
        if (target != GetItemIndex()) Pick(target, Shift | ssShift);
    }
    if (self) TCustomChoice::MouseMove(Shift, X, Y);
}

void TCustomListBox::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) {
        FPressed = false;
        FScroll.Release();
        Invalidate();
    }
    TCustomChoice::MouseUp(Button, Shift, X, Y);
}

void TCustomListBox::MouseLeave() {
    FHotItem = -1;
    TCustomChoice::MouseLeave();
}

bool TCustomListBox::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TCustomChoice::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!IsOperable() || !FScroll.IsNeeded()) return false;
    SetTopIndex(FTopIndex + WheelSteps(Turn, 3));
    return true;
}

void TCustomListBox::CMFontChanged() {
    TCustomChoice::CMFontChanged();
    PlaceItems();
}

void TCustomListBox::SetBounds(int Left, int Top, int Width, int Height) {
    TCustomChoice::SetBounds(Left, Top, Width, Height);
    PlaceItems();
}

void TCustomListBox::PaintItem(int Index) {
    TDrawState state = GetDrawState() & ~unsigned(odHot);
    if (IsSelected(Index)) state |= odSelected | (HasKeys() ? 0u : odInactive);
    if (Index != GetItemIndex()) state &= ~unsigned(odFocused);
    if (Index == FHotItem && IsHot()) state |= odHot;
    if (!ItemEnabled(Index)) state |= odDisabled;
    const TRect rect = ItemRect(Index), room = ItemsRect();
    const TRect inner{room.Left + 1, room.Top + 1, room.Right - 1,
                      room.Bottom - 1}; // within the ring of the keys
    const TCanvas::TSaved saved(GetCanvas());
    GetCanvas().SetClip(rect.Intersected(inner).Intersected(GetCanvas().GetClipRect()));
    PaintItemGround(GetCanvas(), rect, state);
    GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    DrawItem(GetCanvas(), Index, rect, state);
    GetCanvas().Font.Assign(GetFont());
    if (FMultiSelect && (state & odFocused)) // it need not be chosen, and is seen among others that are
        PaintOutline(GetCanvas(), {rect.Left + 2, rect.Top + 1, rect.Right - 2, rect.Bottom - 1},
                     state & odSelected ? Blended(clHighlight, clHighlightText, 0.75) : clHighlight);
}

void TCustomListBox::Paint() {
    PaintField(GetCanvas(), GetClientRect(), GetColor(), GetDrawState() & ~unsigned(odHot));
    const TRect dirty = GetCanvas().GetClipRect();
    const int last = std::min(FTopIndex + GetHeight() / RowHeight() + 1, ItemCount());
    for (int i = FTopIndex; i < last; ++i)
        if (!ItemRect(i).Intersected(dirty).IsEmpty()) PaintItem(i);
    FScroll.Paint(GetCanvas(), GetDrawState());
}

TAccessiblePart TCustomListBox::Accessible() const {
    TAccessiblePart part = TCustomChoice::Accessible();
    part.Role = TAccessibleRole::List;
    if (HasItem()) part.Value = ItemText(GetItemIndex());
    const int last = std::min(FTopIndex + PageRows(), ItemCount());
    for (int i = FTopIndex; i < last; ++i)
        part.Parts.push_back({.Role = TAccessibleRole::ListItem,
                              .Name = ItemText(i),
                              .Value = {},
                              .Description = {},
                              .Bounds = ItemRect(i),
                              .Focused = part.Focused && i == GetItemIndex(),
                              .Enabled = ItemEnabled(i),
                              .Checked = IsSelected(i)});
    return part;
}

const TPropertyTable& TCustomListBox::Properties() {
    static const TPropertyTable table("TCustomListBox", &TCustomChoice::Properties(), {});
    return table;
}

const TPropertyTable& TListBox::Properties() {
    using C = TListBox;
    static const TPropertyTable table(
        "TListBox", &TCustomListBox::Properties(),
        {PublishedTexts<&C::GetLines, &C::SetLines>(CLinesType, "Items", "The items, a line each"),
         Published<&C::GetMultiSelect, &C::SetMultiSelect>("MultiSelect", false,
                                                           "Whether several items can be chosen")});
    return table;
}

} // namespace kx
