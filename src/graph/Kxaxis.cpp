#include <kxgraph/graph/Kxaxis.h>

#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/platform/base/exceptions.h>

namespace kx {

void InitFields() {
    TKxLargeIniFile ini(UserSettings);
    auto& table = StepTable();
    const auto read = [&ini](const char* Ident, std::array<double, 11>& Column) {
        ini.ReadRealArray("GraphScale", Ident, &Column[1], 9);
    };
    read("RoundField", table.Rounding);
    read("TickField", table.Tick);
    read("MajorTickField", table.MajorTick);
    read("LabelsField", table.Label);
}

TKxAxis::TKxAxis(TComponent* Owner)
    : TGraphicControl(Owner), FCaptionLabel(std::make_unique<TKxLabel>(this)) {
    FLook.CaptionFont.OnChange = TEvent<>::Of<&TKxAxis::MarkChanged>(this);
    FCaptionLabel->SetTransparent(true);
    FCaptionLabel->SetAlignment(taCenter);
    FCaptionLabel->SetVisible(false);
    TGraphicControl::SetBounds(0, 0, 50, 400);
}

TKxAxis::~TKxAxis() { FLook.CaptionFont.OnChange = nullptr; }

void TKxAxis::MarkChanged() {
    FChanged = true;
    Invalidate();
}

void TKxAxis::Invalidate() {
    if (GetParent() && GetAxisHost())
        GetParent()->Invalidate();
    else
        TGraphicControl::Invalidate();
}

void TKxAxis::SetParent(TWinControl* Parent) {
    TGraphicControl::SetParent(Parent);
    FHost = dynamic_cast<TKxAxisHost*>(Parent);
    FCaptionLabel->SetParent(Parent);
    MarkChanged();
}

void TKxAxis::Notification(TComponent* Component, TOperation Operation) {
    TGraphicControl::Notification(Component, Operation);
    if (Operation == opRemove && Component == FMasterAxis) FMasterAxis = nullptr;
    if (Operation == opRemove && Component == FMirrorOf) FMirrorOf = nullptr;
}

void TKxAxis::SetIsSlave(bool IsSlave) {
    if (FIsSlaveAxis == IsSlave) return;
    FIsSlaveAxis = IsSlave;
    MarkChanged();
    if (auto* host = GetAxisHost()) host->Modified();
}

void TKxAxis::SetMasterAxis(TKxAxis* Master) {
    if (FMasterAxis == Master || Master == this) return;
    FMasterAxis = Master;
    if (Master) Master->FreeNotification(this);
    MarkChanged();
    if (auto* host = GetAxisHost()) host->Modified();
}

void TKxAxis::SetMirrorOf(TKxAxis* Axis) {
    if (FMirrorOf == Axis) return;
    for (const TKxAxis* other = Axis; other; other = other->FMirrorOf)
        if (other == this) throw EPropertyError("An axis cannot mirror one that mirrors it");
    FMirrorOf = Axis;
    if (Axis) Axis->FreeNotification(this);
    MarkChanged();
    if (auto* host = GetAxisHost()) host->Modified();
}

void TKxAxis::SetPlace(TPoint Origin, int AxisLength, int CaptionFrom) {
    if (Origin == FLine.Origin && AxisLength == FLine.Length && CaptionFrom == FLine.CaptionFrom) return;
    FLine = {FLine.Side, Origin, AxisLength, CaptionFrom};
    FMap.AxisLength = AxisLength;
    FNeedsTicks = true;
}

int TKxAxis::RealToIntPosition(double X) const { return FMap.RealToIntPosition(X); }
double TKxAxis::IntToRealPosition(int P) const { return FMap.IntToRealPosition(P); }

void TKxAxis::RealToIntPositions(std::span<const double> Values, int* First, std::ptrdiff_t Stride) const {
    FMap.RealToIntPositions(Values, First, Stride);
}

bool TKxAxis::NeedsSettling() const { return FChanged && !GetAxisHost(); }

void TKxAxis::Settle() { LayOutAlone(); }

void TKxAxis::SetBounds(int Left, int Top, int Width, int Height) {
    const TRect before = GetBoundsRect();
    TGraphicControl::SetBounds(Left, Top, Width, Height);
    if (before == GetBoundsRect()) return;
    if (GetAxisHost())
        PlaceCaptionLabel();
    else
        FChanged = true;
}

void TKxAxis::CMFontChanged() {
    TGraphicControl::CMFontChanged();
    FLabels.ForgetWidths();
    MarkChanged();
}

} // namespace kx
