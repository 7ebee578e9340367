#include <kxgraph/platform/widgets/choice.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>

namespace kx {

void TCustomChoice::SetItemIndex(int Index) {
    Index = std::max(Index, -1);
    if (FItemIndex == Index) return;
    FItemIndex = Index;
    if (HasItem()) ShowItem(Index);
    Invalidate();
}

void TCustomChoice::SetItemHeight(int Height) {
    FItemHeight = std::clamp(Height, 0, CMostLength);
    PlaceItems();
}

void TCustomChoice::ItemsChanged() {
    FPrefix.Clear();
    PlaceItems();
    if (HasItem()) ShowItem(FItemIndex);
}

void TCustomChoice::Select(int Index) {
    SetItemIndex(Index);
    OnSelect(this);
}

void TCustomChoice::Choose(int Index) {
    if (Index < 0 || Index >= ItemCount() || !ItemEnabled(Index)) return;
    ShowItem(Index);
    if (Index != FItemIndex) Select(Index);
}

bool TCustomChoice::ChooseByKey(const TKeyStroke& Stroke, int Page) {
    if (ItemCount() == 0) return false;
    if (const int target = KeyTarget(Stroke.Key, ItemOrNone(), Page); target >= 0)
        return Choose(target), true;
    if (Stroke.Text.empty()) return false;
    Choose(TypedTarget(FPrefix, Stroke.Text, ItemOrNone()));
    return true;
}

const TPropertyTable& TCustomChoice::Properties() {
    using C = TCustomChoice;
    static const TPropertyTable table(
        "TCustomChoice", &TInputControl::Properties(),
        {Published<&C::GetItemIndex, &C::SetItemIndex>("ItemIndex", -1, "The chosen item; -1: none"),
         Published<&C::GetItemHeight, &C::SetItemHeight>("ItemHeight", 0,
                                                         "Height of an item, pixels; 0: that of its text"),
         PublishedEvent<&C::OnSelect>("OnSelect", "The user has chosen another item")});
    return table;
}

} // namespace kx
