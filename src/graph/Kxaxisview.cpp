// What the axis shows: the ends that were set or that the data made, the views that were zoomed to, and the
// round ends that are made of the one in force.

#include <kxgraph/graph/Kxaxis.h>

namespace kx {

void TKxAxis::ShowView(const TView& View) {
    FRange.SetStartStop(View.Start, View.Stop);
    MarkChanged();
}

// A zoomed view takes the end as well: what is set is seen at once.
void TKxAxis::SetEnd(double TView::*End, double Shown, double Value) {
    if (Value == Shown && (IsZoomed() || Value == FUnzoomed.*End)) return;
    FUnzoomed.*End = Value;
    FUnzoomed.IsRound = false;
    TView shown{GetStart(), GetStop()};
    shown.*End = Value;
    if (IsZoomed()) ZoomedView() = shown;
    ShowView(shown);
}

void TKxAxis::SetEndKind(TKxAxEnd& Kind, TKxAxEnd Value, double TView::*End, double Shown) {
    if (Kind == Value) return;
    if (Value == AxFixed && !IsZoomed()) FUnzoomed.*End = Shown;
    FUnzoomed.IsRound = false;
    Change(Kind, Value);
}

void TKxAxis::SetScaling(TKxAxScaling Scaling) {
    if (FScaling == Scaling) return;
    FUnzoomed.IsRound = false;
    for (TView& view : FZooms) view.IsRound = false;
    Change(FScaling, Scaling);
}

void TKxAxis::SetRange(const TRange* Range) {
    SetStart(Range->GetStart());
    SetStop(Range->GetStop());
    MarkChanged();
}

void TKxAxis::SetValuesRange(const TRange* Range) {
    FValuesRange.Assign(*Range);
    MarkChanged();
}

TKxScaleInput TKxAxis::InputOf(const TView& View) const {
    return {.Scaling = FScaling,
            .Start = View.Start,
            .Stop = View.Stop,
            .StartEnd = FStartEnd,
            .StopEnd = FStopEnd,
            .AutoTicks = FAutoTicks,
            .TickPart = FTickPart,
            .MajorTickPart = FMajorTickPart,
            .LabelPart = FLabelPart,
            .MaxExpForScaleExp = FMaxExpForScaleExp,
            .MinExpForScaleExp = FMinExpForScaleExp,
            .KeepStart = View.IsRound && FStartEnd != AxFixed,
            .KeepStop = View.IsRound && FStopEnd != AxFixed};
}

TKxAxis::TView TKxAxis::ShownUnzoomed() const {
    if (!IsZoomed()) return {GetStart(), GetStop()};
    const TKxScaleEnds ends = kx::CalculateEnds(InputOf(FUnzoomed));
    return {ends.Start, ends.Stop};
}

void TKxAxis::TakeEnds(const TKxScaleInput& Input) {
    FNeedsTicks = true;
    FEnds = kx::CalculateEnds(Input);
    if (FEnds.Start != GetStart() || FEnds.Stop != GetStop()) FRange.SetStartStop(FEnds.Start, FEnds.Stop);
    FTickPart = FEnds.TickPart;
    FMajorTickPart = FEnds.MajorTickPart;
    FLabelPart = FEnds.LabelPart;
}

void TKxAxis::CalculateEnds() {
    if (!IsZoomed()) return TakeEnds(InputOf(FUnzoomed));
    TKxScaleInput input = InputOf(ZoomedView());
    input.KeepStart = input.KeepStop = ZoomedView().IsRound;
    TakeEnds(input);
    ZoomedView() = {FEnds.Start, FEnds.Stop, true};
}

void TKxAxis::CalculateEndsOfMaster() {
    SetScaling(FMasterAxis->GetScaling());
    SetAutoCaption(FMasterAxis->GetCaption());
    FUnzoomed = {FMasterAxis->GetStart(), FMasterAxis->GetStop(), true};
    TKxScaleInput input = InputOf(FUnzoomed);
    input.KeepStart = input.KeepStop = true;
    TakeEnds(input);
}

/// Moves the ends of View that follow the data; returns whether one moved. An end that only grows grows from
/// where it is shown, for it must never be seen to move back.
bool TKxAxis::FollowValues(TView& View) const {
    const auto follow = [](TKxAxEnd Kind, double& End, double Value, bool Grows) {
        const bool moves = (Kind == AxAutoRange && End != Value) || (Kind == AxFirstSet && Grows);
        if (moves) End = Value;
        return moves;
    };
    const double start = FValuesRange.GetStart(), stop = FValuesRange.GetStop();
    const bool growing = FStartEnd == AxFirstSet || FStopEnd == AxFirstSet;
    const TView shown = growing ? ShownUnzoomed() : View;
    TView moved = View;
    if (FStartEnd == AxFirstSet) moved.Start = shown.Start;
    if (FStopEnd == AxFirstSet) moved.Stop = shown.Stop;
    const bool startMoves = follow(FStartEnd, moved.Start, start, start < shown.Start);
    const bool stopMoves = follow(FStopEnd, moved.Stop, stop, stop > shown.Stop);
    if (startMoves || stopMoves) View = {moved.Start, moved.Stop};
    return startMoves || stopMoves;
}

void TKxAxis::ValuesRangeChanged(TRange*) {
    FValuesRange.Reset();
    for (TRange* range : FValuesRangeList) {
        if (!(range->GetStop() >= range->GetStart())) continue;
        FValuesRange.IfRangeChanged(range->GetStart());
        FValuesRange.IfRangeChanged(range->GetStop());
    }
    if (FValuesRange.GetStart() > FValuesRange.GetStop()) return;
    if (!FollowValues(FUnzoomed) || IsZoomed()) return;
    // A fixed end is shown as before until it is known to what it snaps.
    ShowView({FStartEnd == AxFixed ? GetStart() : FUnzoomed.Start,
              FStopEnd == AxFixed ? GetStop() : FUnzoomed.Stop});
}

void TKxAxis::KeepShown() {
    FRange.SetStartStop(FEnds.Start, FEnds.Stop);
    FChanged = false;
}

void TKxAxis::ForgetZooms() {
    const TView view = ShownUnzoomed();
    FZooms.clear();
    FZoomIndex = 0;
    FRange.SetStartStop(view.Start, view.Stop);
}

void TKxAxis::RedoRanges() {
    if (FValuesRangeList.GetCount() == 0) return;
    ForgetZooms();
    ValuesRangeChanged(nullptr);
    MarkChanged();
}

void TKxAxis::ZoomIn(double Start, double Stop) {
    FZooms.push_back({Start, Stop});
    FZoomIndex = static_cast<int>(FZooms.size()) + 1;
    ShowView(FZooms.back());
}

void TKxAxis::ZoomBack() {
    if (FZooms.empty()) return;
    if (--FZoomIndex == 0) FZoomIndex = static_cast<int>(FZooms.size()) + 1;
    if (IsZoomed()) return ShowView(ZoomedView());
    const TKxScaleEnds ends = kx::CalculateEnds(InputOf(FUnzoomed));
    ShowView({ends.Start, ends.Stop});
}

} // namespace kx
