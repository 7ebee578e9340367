#include "graph/Kxaxis.h"

#include "numeric/Kxconsts.h"
#include "platform/application.h"

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
    FEndsAreRound = false;
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

void TKxAxis::SetStart(double Start) {
    if (Start == GetStart()) return;
    FRange.SetStart(Start);
    MarkChanged();
}

void TKxAxis::SetStop(double Stop) {
    if (Stop == GetStop()) return;
    FRange.SetStop(Stop);
    MarkChanged();
}

void TKxAxis::SetRange(TRange* Range) {
    FRange.Assign(*Range);
    MarkChanged();
}

void TKxAxis::SetValuesRange(TRange* Range) {
    FValuesRange.Assign(*Range);
    MarkChanged();
}

void TKxAxis::SetPosition(TKxAxisPos Position) {
    if (Position == AxBottomPos || Position == AxTopPos) FOrientation = AxHorizontal;
    if (Position == AxLeftPos || Position == AxRightPos) FOrientation = AxVertical;
    Change(FPosition, Position);
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

void TKxAxis::ValuesRangeChanged(TRange*) {
    FValuesRange.Reset();
    for (TRange* range : FValuesRangeList) {
        if (!(range->GetStop() >= range->GetStart())) continue;
        FValuesRange.IfRangeChanged(range->GetStart());
        FValuesRange.IfRangeChanged(range->GetStop());
    }
    if (FValuesRange.GetStart() > FValuesRange.GetStop()) return;
    FEndsAreRound = false;
    const auto follow = [this](TKxAxEnd End, double Value, void (TRange::*Set)(double)) {
        if (End == AxAutoRange) {
            (FRange.*Set)(Value);
            FChanged = true;
        } else if (End == AxFirstSet && FRange.IfRangeChanged(Value) != rgNotChanged) {
            FChanged = true;
        }
    };
    follow(FStartEnd, FValuesRange.GetStart(), &TRange::SetStart);
    follow(FStopEnd, FValuesRange.GetStop(), &TRange::SetStop);
    if (FChanged) Invalidate();
}

void TKxAxis::RedoRanges() {
    if (FValuesRangeList.GetCount() == 0) return;
    ValuesRangeChanged(nullptr);
    FZoomList.clear();
    FZoomIndex = 0;
    Invalidate();
}

namespace {

std::unique_ptr<TRange> RangeOf(double Start, double Stop) {
    auto range = std::make_unique<TRange>();
    range->SetStartStop(Start, Stop);
    return range;
}

} // namespace

void TKxAxis::ZoomIn(double Start, double Stop) {
    if (FZoomList.empty()) FZoomList.push_back(RangeOf(GetStart(), GetStop()));
    SetStart(Start);
    SetStop(Stop);
    FZoomList.push_back(RangeOf(GetStart(), GetStop()));
    FZoomIndex = static_cast<int>(FZoomList.size());
}

void TKxAxis::ZoomBack() {
    if (FZoomList.empty()) return;
    if (--FZoomIndex == 0) FZoomIndex = static_cast<int>(FZoomList.size());
    const TRange& view = *FZoomList[static_cast<std::size_t>(FZoomIndex - 1)];
    SetStart(view.GetStart());
    SetStop(view.GetStop());
    FEndsAreRound = FZoomIndex == 1; // the unzoomed view was kept as it was shown
}

TKxScaleInput TKxAxis::GetScaleInput() const {
    return {FScaling,  GetStart(),     GetStop(),  FStartEnd,          FStopEnd,          FAutoTicks,
            FTickPart, FMajorTickPart, FLabelPart, FMaxExpForScaleExp, FMinExpForScaleExp};
}

// Ends that are round already are not rounded again: under a wider step of the table they would creep away
// from the data with every layout.
void TKxAxis::CalculateEnds() {
    FNeedsTicks = true;
    if (FRoundedInput == GetScaleInput()) return;
    TKxScaleInput input = GetScaleInput();
    if (FEndsAreRound) input.StartEnd = input.StopEnd = AxFixed;
    FEndsAreRound = false;
    FEnds = kx::CalculateEnds(input);
    FRange.SetStartStop(FEnds.Start, FEnds.Stop);
    FTickPart = FEnds.TickPart;
    FMajorTickPart = FEnds.MajorTickPart;
    FLabelPart = FEnds.LabelPart;
    FRoundedInput = GetScaleInput();
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

// An axis that stands on no graph takes the length that its own bounds leave beside its labels.
void TKxAxis::LayOutAlone() {
    CalculateEnds();
    for (int round = 0; round < 3; ++round) {
        CalculateTicks();
        TKxLayoutAxis own = GetLayoutAxis();
        const int extent = IsHorizontal() ? GetWidth() : GetHeight();
        const int length = std::max(0, extent - 1 - own.StartReach - own.StopReach);
        const int across = (IsHorizontal() ? GetHeight() : GetWidth()) - 1;
        const bool far = FPosition == AxTopPos || OutwardSign() < 0;
        const int line = far ? across - FAxisThicknes / 2 : FAxisThicknes / 2;
        SetPlace(IsHorizontal() ? TPoint{own.StartReach, line} : TPoint{line, own.StopReach}, length);
    }
    if (FNeedsTicks) CalculateTicks();
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
