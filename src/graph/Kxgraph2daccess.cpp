// What a graph tells those who do not see it: its title, axes with their ranges, series and what was found.

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/persist/Kxlargeini.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

namespace kx {

namespace {

std::string NameOf(const AnsiString& Caption, const TComponent& Component) {
    const std::string plain = GetStrippedString(Caption);
    return plain.empty() ? Component.GetName() : plain;
}

TAccessiblePart PartOf(const TKxAxis& Axis) {
    return {.Role = TAccessibleRole::Axis,
            .Name = NameOf(Axis.GetCaption(), Axis),
            .Value = Axis.GetValueText(Axis.GetStart()) + " to " + Axis.GetValueText(Axis.GetStop()),
            .Description = Axis.GetHint(),
            .Bounds = Axis.GetBoundsRect()};
}

/// "Slope 2; Offset 1" of lines with an equals sign; without what the name of the series tells.
std::string ResultsOf(TKxGraphSeries& Series) {
    std::istringstream lines(Series.GetResults().GetText());
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        const std::string key = line.substr(0, equals);
        if (equals == std::string::npos || key == "Caption" || key == "Calculation") continue;
        line[equals] = ' ';
        text += (text.empty() ? "" : "; ") + line;
    }
    return text;
}

TAccessiblePart PartOf(TKxGraphSeries& Series, const TRect& World) {
    TAccessiblePart part{.Role = TAccessibleRole::Series,
                         .Name = NameOf(Series.GetCaption(), Series),
                         .Value = Series.IsCalculated() ? ResultsOf(Series) : std::string(),
                         .Description = {},
                         .Bounds = World};
    for (TKxGraphSeries* child : Series.GetChildSeries())
        part.Parts.push_back(PartOf(*child, {0, 0, World.Width(), World.Height()}));
    return part;
}

} // namespace

TAccessiblePart TKx2DGraph::Accessible() const {
    // What stands in it is told by the graph. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    TAccessiblePart graph = TControl::Accessible();
    graph.Role = TAccessibleRole::Graph;
    graph.Name = NameOf(GetCaption(), *this);
    graph.Focused = IsFocused();
    const auto axes = GetAxes();
    for (const TKxAxis* axis : axes)
        if (axis->GetVisible()) graph.Parts.push_back(PartOf(*axis));
    for (TKxGraphSeries* series : FWorld->GetSeriesList())
        graph.Parts.push_back(PartOf(*series, FWorld->GetBoundsRect()));
    for (const TControl* control : GetControls()) {
        const bool told = control == FWorld.get() || control == FTitleLabel.get() ||
                          std::ranges::find(axes, control) != axes.end();
        if (told || !control->GetVisible()) continue;
        TAccessiblePart part = control->Accessible();
        part.Role = TAccessibleRole::Text;
        part.Name = GetStrippedString(part.Name);
        graph.Parts.push_back(std::move(part));
    }
    return graph;
}

} // namespace kx
