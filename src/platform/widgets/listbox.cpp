#include <kxgraph/platform/widgets/listbox.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <cmath>

namespace kx {

TCustomListBox::TCustomListBox(TComponent* Owner) : TInputControl(Owner) {
    TControl::SetBounds(0, 0, 120, 110);
}

void TCustomListBox::SetItemIndex(int Index) {
    Index = std::max(Index, -1);
    if (FItemIndex == Index) return;
    FItemIndex = Index;
    if (HasItem()) ShowItem(Index);
    Invalidate();
}

void TCustomListBox::SetItemHeight(int Height) {
    FItemHeight = std::clamp(Height, 0, CMostLength);
    PlaceScroll();
}

int TCustomListBox::RowHeight() const { return FItemHeight > 0 ? FItemHeight : LineHeight(GetFont()) + 5; }

TRect TCustomListBox::ItemsRect() const {
    const TRect all = GetClientRect();
    return {1, 1, all.Right - 1 - (FScroll.IsNeeded() ? CScrollWidth : 0), all.Bottom - 1};
}

int TCustomListBox::PageRows() const { return std::max((GetHeight() - 2) / RowHeight(), 1); }

void TCustomListBox::SetTopIndex(int Index) {
    FTopIndex = Index;
    PlaceScroll();
}

void TCustomListBox::PlaceScroll() {
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
    FPrefix.Clear();
    PlaceScroll();
    if (HasItem()) ShowItem(FItemIndex);
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

void TCustomListBox::Select(int Index) {
    SetItemIndex(Index);
    OnSelect(this);
}

void TCustomListBox::Choose(int Index) {
    if (Index < 0 || Index >= ItemCount() || !ItemEnabled(Index)) return;
    ShowItem(Index);
    if (Index != FItemIndex) Select(Index);
}

bool TCustomListBox::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomListBox> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || (Stroke.Shift & (ssCtrl | ssAlt)) || ItemCount() == 0) return false;
    const int at = HasItem() ? FItemIndex : -1;
    if (const int target = KeyTarget(Stroke.Key, at, std::max(PageRows() - 1, 1)); target >= 0)
        return Choose(target), true;
    if (Stroke.Text.empty() || Stroke.Text == " ") return false;
    Choose(TypedTarget(FPrefix, Stroke.Text, at));
    return true;
}

void TCustomListBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomListBox> self(this);
    if (Button == mbLeft && IsOperable()) {
        if (FScroll.Contains({X, Y})) {
            if (const auto top = FScroll.Press({X, Y})) SetTopIndex(RoundToInt(*top));
        } else {
            FPressed = true;
            Choose(ItemAt({X, Y}));
        }
    }
    if (self) TInputControl::MouseDown(Button, Shift, X, Y);
}

void TCustomListBox::MouseMove(TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomListBox> self(this);
    if (const auto top = FScroll.DragTo({X, Y})) SetTopIndex(RoundToInt(*top));
    const int item = ItemAt({X, Y});
    if (item != FHotItem) Invalidate();
    FHotItem = item;
    const int row = Y < 0 ? -1 : Y / RowHeight(); // beyond an edge the list scrolls along
    if (FPressed || (FollowsMouse() && item >= 0 && !FScroll.IsDragged()))
        Choose(item >= 0 ? item : FPressed ? std::clamp(FTopIndex + row, 0, ItemCount() - 1) : -1);
    if (self) TInputControl::MouseMove(Shift, X, Y);
}

void TCustomListBox::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) {
        FPressed = false;
        FScroll.Release();
        Invalidate();
    }
    TInputControl::MouseUp(Button, Shift, X, Y);
}

void TCustomListBox::MouseLeave() {
    FHotItem = -1;
    TInputControl::MouseLeave();
}

bool TCustomListBox::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TInputControl::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!IsOperable() || !FScroll.IsNeeded()) return false;
    SetTopIndex(FTopIndex + FWheel.Take(Turn, 3));
    return true;
}

void TCustomListBox::CMFontChanged() {
    TInputControl::CMFontChanged();
    PlaceScroll();
}

void TCustomListBox::SetBounds(int Left, int Top, int Width, int Height) {
    TInputControl::SetBounds(Left, Top, Width, Height);
    PlaceScroll();
}

void TCustomListBox::PaintItem(int Index) {
    TDrawState state = GetDrawState() & ~unsigned(odHot);
    if (Index == FItemIndex)
        state |= odSelected | (HasKeys() ? 0u : odInactive);
    else
        state &= ~unsigned(odFocused);
    if (Index == FHotItem && IsHot()) state |= odHot;
    if (!ItemEnabled(Index)) state |= odDisabled;
    const TRect rect = ItemRect(Index);
    const TCanvas::TSaved saved(GetCanvas());
    GetCanvas().SetClip(rect.Intersected(ItemsRect()).Intersected(GetCanvas().GetClipRect()));
    PaintItemGround(GetCanvas(), rect, state);
    GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    DrawItem(GetCanvas(), Index, rect, state);
    GetCanvas().Font.Assign(GetFont());
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
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::List;
    if (HasItem()) part.Value = ItemText(FItemIndex);
    const int last = std::min(FTopIndex + PageRows(), ItemCount());
    for (int i = FTopIndex; i < last; ++i)
        part.Parts.push_back({.Role = TAccessibleRole::ListItem,
                              .Name = ItemText(i),
                              .Value = {},
                              .Description = {},
                              .Bounds = ItemRect(i),
                              .Enabled = ItemEnabled(i),
                              .Checked = i == FItemIndex});
    return part;
}

const TPropertyTable& TCustomListBox::Properties() {
    using C = TCustomListBox;
    static const TPropertyTable table(
        "TCustomListBox", &TInputControl::Properties(),
        {Published<&C::GetItemIndex, &C::SetItemIndex>("ItemIndex", -1, "The chosen item; -1: none"),
         Published<&C::GetItemHeight, &C::SetItemHeight>("ItemHeight", 0,
                                                         "Height of an item, pixels; 0: that of its text"),
         PublishedEvent<&C::OnSelect>("OnSelect", "The user has chosen another item")});
    return table;
}

void TListBox::SetItems(std::vector<std::string> Items) {
    FItems = std::move(Items);
    ItemsChanged();
}

const TPropertyTable& TListBox::Properties() {
    using C = TListBox;
    static const TPropertyTable table(
        "TListBox", &TCustomListBox::Properties(),
        {Published<&C::GetLines, &C::SetLines>("Items", "", "The items, a line each")});
    return table;
}

} // namespace kx
