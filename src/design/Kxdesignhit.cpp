#include <kxgraph/design/Kxdesignhit.h>

#include <kxgraph/graph/Kxgraph2d.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

constexpr int CReach = 5; // pixels beside a line

/// The topmost visible child at Pos, which becomes that child's.
TControl* ChildAt(const TWinControl& Parent, TPoint& Pos) {
    TControl* topmost = nullptr;
    for (TControl* control : Parent.GetControls())
        if (control->GetVisible() && control->GetBoundsRect().Contains(Pos)) topmost = control;
    if (topmost) Pos = Pos - topmost->GetBoundsRect().TopLeft();
    return topmost;
}

TKxGraphSeries* SeriesAt(const TKxGraphSeries& Series, TPoint At) {
    const auto children = Series.GetChildSeries();
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        if (TKxGraphSeries* found = SeriesAt(**child, At)) return found;
    const bool near = Series.GetVisible() && Series.PointNear(At, CReach).Index >= 0;
    return near ? const_cast<TKxGraphSeries*>(&Series) : nullptr;
}

TKxGraphSeries* SeriesAt(TKx2DGraph& Graph, TPoint Pos) {
    const TPoint at = Graph.GetDrawingWorld().RootToClient(Graph.ClientToRoot(Pos));
    TKxSeriesList& list = Graph.GetSeriesList();
    for (int i = list.GetCount(); i-- > 0;)
        if (TKxGraphSeries* found = SeriesAt(*list.GetItem(i), at)) return found;
    return nullptr;
}

bool IsOfForm(const TForm& Form, const TComponent& Component) {
    return &Component == &Form || (Component.GetOwner() == &Form && !Component.GetName().empty());
}

} // namespace

TControl& ControlAt(TForm& Form, TPoint Pos) {
    TControl* found = &Form;
    TPoint at = Pos;
    for (const TWinControl* container = &Form; container;) {
        TControl* child = ChildAt(*container, at);
        if (!child) break;
        auto* owner = dynamic_cast<TControl*>(child->GetOwner()); // of a part, such as the title of an axis
        if (IsOfForm(Form, *child))
            found = child;
        else if (owner && IsOfForm(Form, *owner))
            found = owner;
        container = dynamic_cast<TWinControl*>(child);
    }
    return *found;
}

TKxDesignHit HitTest(TForm& Form, TPoint Pos) {
    TKxDesignHit hit{&ControlAt(Form, Pos), {}};
    auto* graph = dynamic_cast<TKx2DGraph*>(hit.Component);
    if (!graph) return hit;
    const TPoint inGraph = graph->RootToClient(Pos);
    if (TKxGraphSeries* series = SeriesAt(*graph, inGraph); series && IsOfForm(Form, *series))
        return {series, {}};
    if (graph->GetShowTitle() && graph->GetTitleLabel().GetBoundsRect().Contains(inGraph))
        hit.Property = "Caption";
    return hit;
}

TRect ShownRect(const TControl& Control) {
    if (!Control.GetParent()) return Control.GetClientRect();
    return Control.GetClientRect().MovedBy(Control.ClientToRoot({}));
}

std::vector<TPoint> ShownPoints(const TKxGraphSeries& Series) {
    constexpr int CMost = 12; // show which series it is
    std::vector<TPoint> points;
    const auto* axis = dynamic_cast<const TControl*>(Series.GetXAxis());
    const auto* graph = axis ? dynamic_cast<const TKx2DGraph*>(axis->GetParent()) : nullptr;
    if (!graph || !Series.GetVisible()) return points;
    const TKxDrawingWorld& world = graph->GetDrawingWorld();
    const int count = Series.GetPointsCount(), shown = std::min(count, CMost);
    for (int i = 0; i < shown; ++i) {
        const TKxDrawnPoint point = Series.PointAt(shown == 1 ? 0 : int((count - 1LL) * i / (shown - 1)));
        if (point.Index >= 0 && world.GetClientRect().Contains(point.At))
            points.push_back(world.ClientToRoot(point.At));
    }
    return points;
}

std::string NaturalProperty(const TComponent& Component) {
    static constexpr std::array<std::string_view, 8> names{"Values",  "Column", "Identifier", "Expression",
                                                           "Caption", "Text",   "Order",      "ParentSeries"};
    const TPropertyTable& table = Component.PublishedProperties();
    if (dynamic_cast<const TKxCustomRealVector*>(&Component) && !table.Find("Column")) return "Values";
    for (const std::string_view name : names)
        if (const TProperty* row = table.Find(name); row && row->Set) return std::string(name);
    return {};
}

std::string CaptionProperty(const TComponent& Component) {
    const TProperty* row = Component.PublishedProperties().Find("Caption");
    const bool isCaption = row && row->Set && row->TypeName == CTypeName<TKxCaption>;
    return isCaption ? "Caption" : NaturalProperty(Component);
}

} // namespace kx
