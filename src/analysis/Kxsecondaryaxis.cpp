#include <kxgraph/analysis/Kxsecondaryaxis.h>

#include <algorithm>

namespace kx {

namespace {

/// Whether a measured series stands on the axis.
bool IsTaken(TKx2DGraph& Graph, const TKxAxis* Axis) {
    return std::ranges::any_of(Graph.GetSeriesList(), [Axis](const TKxGraphSeries* Series) {
        const auto* series = dynamic_cast<const TKxSeries*>(Series);
        return series && (series->GetXAxis() == Axis || series->GetYAxis() == Axis);
    });
}

TKxAxis* FindAxis(const TKxNotCalculatedSeries& Parent) {
    TKxAxis& xAxis = *Parent.GetXAxis();
    auto* graph = dynamic_cast<TKx2DGraph*>(xAxis.GetParent());
    TKxAxis* found = nullptr;
    if (!xAxis.GetOwner()) return nullptr;
    for (TComponent* component : xAxis.GetOwner()->GetComponents()) {
        auto* axis = dynamic_cast<TKxAxis*>(component);
        if (!axis || axis->GetParent() != xAxis.GetParent() || axis->IsHorizontal()) continue;
        if (axis == Parent.GetYAxis() || axis->GetMirrorOf()) continue;
        if (graph && IsTaken(*graph, axis)) continue;
        axis->SetVisible(true);
        found = axis;
    }
    return found;
}

TKxAxis* MakeAxis(TComponent* Owner, const TKxAxis& XAxis) {
    auto* axis = new TKxAxis(Owner);
    axis->SetParent(XAxis.GetParent());
    axis->SetPosition(AxRightPos);
    int number = 1;
    const auto name = [&number] { return "SecondaryAxis" + std::to_string(number); };
    while (Owner->FindComponent(name())) ++number;
    axis->SetName(name());
    return axis;
}

} // namespace

void TKxSecondaryAxis::Test(TKxCalculatedSeries& Series, const TKxNotCalculatedSeries& Parent) {
    TKxAxis* xAxis = Parent.GetXAxis();
    if (Series.GetYAxis() || !xAxis) return;
    const auto* graph = dynamic_cast<const TKx2DGraph*>(xAxis->GetParent());
    TKxAxis* axis = graph && graph->GetZeroOrigin() ? Parent.GetYAxis() : nullptr;
    if (!axis) axis = FindAxis(Parent);
    TComponent* owner = Series.GetOwner() ? Series.GetOwner() : xAxis->GetOwner();
    if (!axis && owner) axis = MakeAxis(owner, *xAxis);
    if (!axis) return;
    Series.SetYAxis(axis);
    FWasSlave = axis->GetIsSlaveAxis();
    axis->SetIsSlave(false);
}

void TKxSecondaryAxis::GiveBack(TKxCalculatedSeries& Series) {
    if (FWasSlave && Series.GetYAxis()) Series.GetYAxis()->SetIsSlave(true);
}

} // namespace kx
