#pragma once
// What lists and combos have in common: items, one of which is chosen.

#include <kxgraph/platform/widgets/inputcontrol.h>
#include <kxgraph/platform/widgets/listitems.h>
#include <kxgraph/platform/widgets/scrollpart.h>

#include <string>
#include <utility>
#include <vector>

namespace kx {

/// Items of which one is chosen: by the program, by keys, or by typing how one begins.
class TCustomChoice : public TInputControl, public TListItems {
public:
    using TInputControl::TInputControl;

    /// -1: none. An index behind the last item counts as none until there are so many.
    int GetItemIndex() const { return FItemIndex; }
    void SetItemIndex(int Index);
    /// Whether an item is chosen.
    bool HasItem() const { return FItemIndex >= 0 && FItemIndex < ItemCount(); }
    /// The height of an item in pixels; 0: that of a line of text and a little more.
    int GetItemHeight() const { return FItemHeight; }
    void SetItemHeight(int Height);
    /// To be called when the items are others.
    virtual void ItemsChanged();

    /// The user has chosen another item.
    TNotifyEvent OnSelect;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// By the user; Index differs from the present one. Overrides call the inherited one, which calls
    /// OnSelect.
    virtual void Select(int Index);
    /// The user wants the item, which may be the chosen one already, or none.
    virtual void Choose(int Index);
    /// Chooses what Stroke goes to, Page items a page, or what its text finds; false where it means neither.
    bool ChooseByKey(const TKeyStroke& Stroke, int Page);
    int ItemOrNone() const { return HasItem() ? FItemIndex : -1; }
    /// Brings an item into sight.
    virtual void ShowItem(int /*Index*/) {}
    /// Height or number of the items may be another.
    virtual void PlaceItems() { Invalidate(); }
    /// What a turn of the wheel comes to, PerNotch items a notch.
    int WheelSteps(const TWheelTurn& Turn, int PerNotch) { return FWheel.Take(Turn, PerNotch); }

private:
    int FItemIndex = -1, FItemHeight = 0;
    TWheelSteps FWheel;
    TTypedPrefix FPrefix;
};

/// A choice (TBase) whose items are texts that it keeps.
template <class TBase>
class TTextChoice : public TBase {
public:
    using TBase::TBase;

    const std::vector<std::string>& GetItems() const { return FItems; }
    void SetItems(std::vector<std::string> Items) {
        FItems = std::move(Items);
        this->ItemsChanged();
    }
    /// The same as lines of one text.
    std::string GetLines() const { return JoinLines(FItems); }
    void SetLines(const std::string& Lines) { SetItems(SplitLines(Lines)); }

    int ItemCount() const override { return static_cast<int>(FItems.size()); }
    std::string ItemText(int Index) const override { return FItems[static_cast<std::size_t>(Index)]; }

private:
    std::vector<std::string> FItems;
};

} // namespace kx
