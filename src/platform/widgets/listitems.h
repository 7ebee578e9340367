#pragma once
// What lists and combos show, one under the other.

#include <kxgraph/platform/widgets/look.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// What a user types to find an item; begins anew after a second.
class TTypedPrefix {
public:
    /// The prefix with Text behind it. AsNext: whether the item behind the present one is looked for, as the
    /// first character was typed, or the same one again.
    const std::string& Add(std::string_view Text, bool& AsNext);
    void Clear();

private:
    std::string FText;
    std::unique_ptr<THostTimer> FTimer;
    void Elapsed();
};

/// Items by their index. A list whose items are pictures overrides DrawItem (and ItemText, which is typed to
/// find one, and read to those who do not see); one whose items are somewhere else overrides ItemCount.
class TListItems {
public:
    virtual ~TListItems() = default;
    virtual int ItemCount() const = 0;
    /// Index is one of the items.
    virtual std::string ItemText(int Index) const = 0;
    /// Draws an item on its ground, which is painted already, in the font of Canvas, whose colour is right
    /// for State.
    virtual void DrawItem(TCanvas& Canvas, int Index, const TRect& Rect, TDrawState State);
    /// Whether an item can be chosen.
    virtual bool ItemEnabled(int /*Index*/) const { return true; }

    /// The first item behind After whose text begins with Prefix but for the case, going round; -1: none.
    int FindItem(std::string_view Prefix, int After) const;
    /// The nearest item that can be chosen, Steps from Index on; Index itself where there is none.
    int StepFrom(int Index, int Steps) const;
    /// The item that a key goes to from At (-1: from none), Page items a page; -1 for a key that goes
    /// nowhere.
    int KeyTarget(int Key, int At, int Page) const;
    /// The item that typing Text finds from At on; -1: none.
    int TypedTarget(TTypedPrefix& Prefix, std::string_view Text, int At) const;
};

/// Texts, a line each.
std::string JoinLines(const std::vector<std::string>& Lines);
std::vector<std::string> SplitLines(std::string_view Text);

} // namespace kx
