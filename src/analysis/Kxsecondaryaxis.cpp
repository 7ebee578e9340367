#include <kxgraph/analysis/Kxsecondaryaxis.h>

namespace kx {

namespace {

TKxAxis* FindAxis(const TKxNotCalculatedSeries& Parent) {
    TKxAxis& xAxis = *Parent.GetXAxis();
    TKxAxis* found = nullptr;
    if (!xAxis.GetOwner()) return nullptr;
    for (TComponent* component : xAxis.GetOwner()->GetComponents()) {
        auto* axis = dynamic_cast<TKxAxis*>(component);
        if (!axis || axis->GetParent() != xAxis.GetParent() || axis->IsHorizontal()) continue;
        if (axis == Parent.GetYAxis()) continue;
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
