#include <kxgraph/design/Kxcaptionplace.h>

#include <kxgraph/design/Kxdesignhit.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/widgets/look.h>

#include <algorithm>

namespace kx {

namespace {

/// The part that paints the caption of a component; null where that does it itself.
const TKxLabel* LabelOf(const TControl& Control) {
    if (const auto* axis = dynamic_cast<const TKxAxis*>(&Control)) return &axis->GetCaptionLabel();
    if (const auto* graph = dynamic_cast<const TKx2DGraph*>(&Control)) return &graph->GetTitleLabel();
    return nullptr;
}

/// Where the label stood if it had a text: at the top of a graph, at the outer end of an axis.
TRect PlaceWithout(const TControl& Control) {
    TRect rect = ShownRect(Control);
    const auto* axis = dynamic_cast<const TKxAxis*>(&Control);
    if (!axis)
        rect.Bottom = std::min(rect.Bottom, rect.Top + CFieldHeight);
    else if (axis->IsHorizontal())
        rect.Top = std::max(rect.Top, rect.Bottom - CFieldHeight);
    return rect;
}

} // namespace

std::optional<TKxCaptionPlace> CaptionPlaceOf(const TComponent& Component, std::string_view Property) {
    const TProperty* row = Component.PublishedProperties().Find(Property);
    const auto* control = dynamic_cast<const TControl*>(&Component);
    if (!row || !row->Set || row->TypeName != CTypeName<TKxCaption> || !control || !control->GetVisible())
        return {};
    const TKxLabel* label = LabelOf(*control);
    if (!label) return TKxCaptionPlace{ShownRect(*control), &control->GetFont()};
    const bool hasText = label->GetVisible() && !label->GetCaption().empty();
    return TKxCaptionPlace{hasText ? ShownRect(*label) : PlaceWithout(*control), &label->GetFont()};
}

TRect CaptionFieldRect(const TRect& Shown, TSize Wanted, const TRect& Room) {
    const bool isTurned = Shown.Height() > Shown.Width();
    const int roomForMore = 3 * CFieldPadding; // a character is added in sight
    const int width = std::max(Wanted.Width, isTurned ? 0 : Shown.Width() + 2 * CFieldPadding + roomForMore);
    const int left = isTurned ? (Shown.Left + Shown.Right - width) / 2 : Shown.Left - CFieldPadding;
    const int top = (Shown.Top + Shown.Bottom - Wanted.Height) / 2;
    const auto inside = [](int At, int Length, int Low, int High) {
        return std::max(std::min(At, High - Length), Low);
    };
    return TRect::Bounds(inside(left, width, Room.Left, Room.Right),
                         inside(top, Wanted.Height, Room.Top, Room.Bottom), width, Wanted.Height);
}

} // namespace kx
