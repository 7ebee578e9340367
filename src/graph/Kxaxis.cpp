#include <kxgraph/graph/Kxaxis.h>

#include <kxgraph/numeric/Kxconsts.h>

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
    FRange.SetStartStop(0, 100);
    FCaptionFont.OnChange = TEvent<>::Of<&TKxAxis::MarkChanged>(this);
    FCaptionLabel->SetTransparent(true);
    FCaptionLabel->SetAlignment(taCenter);
    FCaptionLabel->SetVisible(false);
    TGraphicControl::SetBounds(0, 0, 50, 400);
}

TKxAxis::~TKxAxis() { FCaptionFont.OnChange = nullptr; }

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

void TKxAxis::SetPlace(TPoint Origin, int AxisLength, int CaptionFrom) {
    if (Origin == FAxisOrigin && AxisLength == FMap.AxisLength && CaptionFrom == FCaptionFrom) return;
    FCaptionFrom = CaptionFrom;
    FAxisOrigin = Origin;
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

// An axis that stands on no graph takes the length that its own bounds leave beside its labels. It begins
// with all of them, and shortens only: what it shows depends on nothing that was shown before.
void TKxAxis::LayOutAlone() {
    CalculateEnds();
    const TRect bounds{0, 0, GetWidth(), GetHeight()};
    const int extent = std::max(1, FSide.Along(bounds.Size()) - 1);
    const int line = LineInside(bounds, FSide, FAxisThicknes);
    int before = 0, behind = 0;
    constexpr int CRounds = 4;
    for (int round = 0; round < CRounds; ++round) {
        const int first = FSide.IsHorizontal() ? before : behind;
        SetPlace(FSide.Point(first, line), std::max(0, extent - before - behind));
        round == 0 ? MeasureTicks() : FitTicks();
        if (FStartReach <= before && FStopReach <= behind) break;
        before = std::max(before, FStartReach);
        behind = std::max(behind, FStopReach);
    }
    FinishTicks();
    FChanged = false;
}

void TKxAxis::SetBounds(int Left, int Top, int Width, int Height) {
    const TRect before = GetBoundsRect();
    TGraphicControl::SetBounds(Left, Top, Width, Height);
    if (before == GetBoundsRect()) return;
    if (GetAxisHost())
        PlaceCaptionLabel();
    else
        FChanged = true;
}

void TKxAxis::SetShowCaption(bool Show) {
    if (FShowCaption == Show) return;
    FShowCaption = Show;
    UpdateCaptionLabel();
    MarkChanged();
}

void TKxAxis::SetUserCaption(const AnsiString& Caption) {
    if (FUserCaption == Caption) return;
    FUserCaption = Caption;
    if (FDoUserCaption) SetCaption(Caption);
}

void TKxAxis::SetAutoCaption(const AnsiString& Caption) {
    FAutoCaption = Caption;
    if (!FDoUserCaption) SetCaption(Caption);
}

void TKxAxis::SetDoUserCaption(bool DoUser) {
    if (FDoUserCaption == DoUser) return;
    FDoUserCaption = DoUser;
    if (DoUser) SetCaption(FUserCaption);
}

void TKxAxis::CMFontChanged() {
    TGraphicControl::CMFontChanged();
    FLabelWidths.clear();
    MarkChanged();
}

void TKxAxis::CMTextChanged() {
    TGraphicControl::CMTextChanged();
    UpdateCaptionLabel();
    MarkChanged();
}

void TKxAxis::CMVisibleChanged() {
    TGraphicControl::CMVisibleChanged();
    UpdateCaptionLabel();
    MarkChanged();
}

} // namespace kx
