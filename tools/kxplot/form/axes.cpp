#include "kxplot/form/axes.h"

#include "kxplot/form/look.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/qt/Kxqtzone.h>

#include <algorithm>
#include <cstddef>

namespace kxplot {

using namespace kx;

namespace {

TKxAxis* MakeAxis(TParts& Parts, const std::string& Name, TKxAxisPos Position) {
    auto* axis = new TKxAxis(Parts.Form.get());
    axis->SetName(Name);
    axis->SetParent(Parts.Graph);
    axis->SetPosition(Position);
    DressAxis(*axis, Parts.Theme);
    Parts.Theme.ApplyTo(*axis);
    return axis;
}

void MakeMirror(TParts& Parts, TKxAxis& Axis, const std::string& Name) {
    TKxAxis* const mirror = MakeAxis(Parts, Name, Axis.GetSide().Opposite().Position());
    mirror->SetMirrorOf(&Axis);
    mirror->SetShowCaption(false);
}

void MakeBox(TParts& Parts) {
    MakeMirror(Parts, *Parts.XAxis, "XMirror");
    if (!Parts.Y2Axis && Parts.SideAxes.empty()) MakeMirror(Parts, *Parts.YAxis, "YMirror");
}

/// The only series that stands on the axis; null when there are none or several.
TKxNotCalculatedSeries* OnlySeriesOn(const TParts& Parts, const TKxAxis* Axis) {
    const auto stands = [Axis](const TKxNotCalculatedSeries* Series) { return Series->GetYAxis() == Axis; };
    const auto found = std::ranges::find_if(Parts.Series, stands);
    return std::ranges::count_if(Parts.Series, stands) == 1 ? *found : nullptr;
}

TKxZoneOffset OffsetOf(const std::optional<std::string>& Zone) {
    if (!Zone) return {};
    auto offset = qt::ZoneOffset(*Zone);
    if (!offset)
        FailUsage("--zone", *Zone, "is no time zone that is known here, such as Europe/Berlin or UTC+02:00");
    return offset;
}

void Configure(TKxAxis& Axis, const TLabelPlan& Plan, const TKxZoneOffset& Offset) {
    if (Plan.Kind != lkNumbers) {
        Axis.SetLabelKind(Plan.Kind);
        Axis.SetCategories(Plan.Categories);
    }
    if (Offset) Axis.SetOnZoneOffset(Offset);
}

} // namespace

void MakeAxes(TParts& Parts) {
    const TAxesPlan& plan = Parts.Plan.Axes;
    Parts.Graph->SetPrimaryXAxis(Parts.XAxis = MakeAxis(Parts, "XAxis", AxBottomPos));
    Parts.Graph->SetPrimaryYAxis(Parts.YAxis = MakeAxis(Parts, "YAxis", AxLeftPos));
    if (plan.Y2) Parts.Y2Axis = MakeAxis(Parts, "Y2Axis", AxRightPos);
    for (const auto& side : plan.Side) {
        auto* axis = MakeAxis(Parts, side.Name, AxRightPos);
        if (!Parts.Plan.SeveralSeries()) DressSideAxis(*axis, AnalysisColor(side.Place, Parts.Theme));
        Parts.SideAxes[side.Quantity] = axis;
    }
    if (plan.Box) MakeBox(Parts);
}

void ColourDataAxes(TParts& Parts) {
    if (!Parts.Y2Axis) return;
    for (TKxAxis* axis : {Parts.YAxis, Parts.Y2Axis})
        if (auto* series = OnlySeriesOn(Parts, axis)) DressSideAxis(*axis, series->GetLineStyle().GetColor());
}

void PutOnAxes(TParts& Parts) {
    if (!Parts.Y2Axis) return;
    for (std::size_t k = 0; k < Parts.Series.size(); ++k)
        Parts.Series[k]->SetYAxis(Parts.Plan.Series[k].OnY2 ? Parts.Y2Axis : Parts.YAxis);
}

void ConfigureLabels(TParts& Parts) {
    const TAxesPlan& plan = Parts.Plan.Axes;
    const TKxZoneOffset offset = OffsetOf(plan.Zone);
    Configure(*Parts.XAxis, plan.XLabels, offset);
    Configure(*Parts.YAxis, plan.YLabels, offset);
    if (Parts.Y2Axis) Configure(*Parts.Y2Axis, plan.Y2Labels, offset);
}

} // namespace kxplot
