#include <kxgraph/graph/Kxaxisrange.h>

#include <utility>

namespace kx {

// A zoomed view takes the end as well: what is set is seen at once.
bool TKxAxisRange::SetEnd(double TView::*End, double Shown, double Value) {
    if (Value == Shown && (IsZoomed() || Value == FUnzoomed.*End)) return false;
    FUnzoomed.*End = Value;
    FUnzoomed.IsRound = false;
    TView shown{FShown.GetStart(), FShown.GetStop()};
    shown.*End = Value;
    if (IsZoomed()) ZoomedView() = {shown.Start, shown.Stop, false, GetZoomGesture()};
    Show(shown);
    return true;
}

bool TKxAxisRange::SetKind(TKxAxEnd& Kind, TKxAxEnd Value, double TView::*End, double Shown) {
    if (Kind == Value) return false;
    if (Value == AxFixed && !IsZoomed()) FUnzoomed.*End = Shown;
    FUnzoomed.IsRound = false;
    Kind = Value;
    return true;
}

bool TKxAxisRange::SetScaling(TKxAxScaling Scaling) {
    if (Rules.Scaling == Scaling) return false;
    ForgetRounding();
    Rules.Scaling = Scaling;
    return true;
}

void TKxAxisRange::SetLabelling(TKxLabelling Labelling) {
    ForgetRounding();
    FLabelling = std::move(Labelling);
}

void TKxAxisRange::ForgetRounding() {
    FUnzoomed.IsRound = false;
    for (TView& view : FZooms) view.IsRound = false;
}

TKxScaleInput TKxAxisRange::InputOf(const TView& View) const {
    TKxScaleInput input = Rules;
    input.Start = View.Start;
    input.Stop = View.Stop;
    input.KeepStart = View.IsRound && Rules.StartEnd != AxFixed;
    input.KeepStop = View.IsRound && Rules.StopEnd != AxFixed;
    return input;
}

TKxAxisRange::TView TKxAxisRange::ShownUnzoomed() const {
    if (!IsZoomed()) return {FShown.GetStart(), FShown.GetStop()};
    const TKxScaleEnds ends = FLabelling.CalculateEnds(InputOf(FUnzoomed));
    return {ends.Start, ends.Stop};
}

void TKxAxisRange::TakeEnds(const TKxScaleInput& Input) {
    FEnds = FLabelling.CalculateEnds(Input);
    if (FEnds.Start != FShown.GetStart() || FEnds.Stop != FShown.GetStop()) KeepShown();
    Rules.TickPart = FEnds.TickPart;
    Rules.MajorTickPart = FEnds.MajorTickPart;
    Rules.LabelPart = FEnds.LabelPart;
}

void TKxAxisRange::Calculate() {
    if (!IsZoomed()) return TakeEnds(InputOf(FUnzoomed));
    TKxScaleInput input = InputOf(ZoomedView());
    input.KeepStart = input.KeepStop = ZoomedView().IsRound;
    TakeEnds(input);
    ZoomedView() = {FEnds.Start, FEnds.Stop, true, GetZoomGesture()};
}

void TKxAxisRange::CalculateAs(double Start, double Stop) {
    FUnzoomed = {Start, Stop, true};
    TKxScaleInput input = InputOf(FUnzoomed);
    input.KeepStart = input.KeepStop = true;
    TakeEnds(input);
}

void TKxAxisRange::Mirror(const TKxAxisRange& Other) {
    Rules.Scaling = Other.Rules.Scaling;
    FEnds = Other.FEnds;
    FUnzoomed = {FEnds.Start, FEnds.Stop, true};
    KeepShown();
}

/// Moves the ends of View that follow the data; returns whether one moved. An end that only grows grows from
/// where it is shown, for it must never be seen to move back; ends in the wrong order are not what is shown.
bool TKxAxisRange::FollowValues(TView& View) const {
    const auto follow = [](TKxAxEnd Kind, double& End, double Value, bool Grows) {
        const bool moves = (Kind == AxAutoRange && End != Value) || (Kind == AxFirstSet && Grows);
        if (moves) End = Value;
        return moves;
    };
    const double start = FValues.GetStart(), stop = FValues.GetStop();
    const bool growing = Rules.StartEnd == AxFirstSet || Rules.StopEnd == AxFirstSet;
    const TView shown = growing && !(View.Start > View.Stop) ? ShownUnzoomed() : View;
    TView moved = View;
    if (Rules.StartEnd == AxFirstSet) moved.Start = shown.Start;
    if (Rules.StopEnd == AxFirstSet) moved.Stop = shown.Stop;
    const bool startMoves = follow(Rules.StartEnd, moved.Start, start, start < shown.Start);
    const bool stopMoves = follow(Rules.StopEnd, moved.Stop, stop, stop > shown.Stop);
    if (startMoves || stopMoves) View = {moved.Start, moved.Stop};
    return startMoves || stopMoves;
}

/// Whether a layout would show what it has shown, so that a frame has nothing to lay out.
bool TKxAxisRange::RoundsToShown() const {
    const auto areShown = [this](const TKxScaleEnds& Ends) {
        return Ends.Start == FShown.GetStart() && Ends.Stop == FShown.GetStop() && !Ends.EndsCorrected;
    };
    return areShown(FEnds) && areShown(FLabelling.CalculateEnds(InputOf(FUnzoomed)));
}

bool TKxAxisRange::Follow(const TRange* Changed) {
    if (Changed) FExtents.Update(*Changed);
    const TKxRangeUnion::TEnds& all = FExtents.Union();
    if (all.Start > all.Stop) {
        FValues.Reset();
        return false;
    }
    FValues.SetStartStop(all.Start, all.Stop);
    if (!FollowValues(FUnzoomed) || IsZoomed() || RoundsToShown()) return false;
    // A fixed end is shown as before until it is known to what it snaps.
    Show({Rules.StartEnd == AxFixed ? FShown.GetStart() : FUnzoomed.Start,
          Rules.StopEnd == AxFixed ? FShown.GetStop() : FUnzoomed.Stop});
    return true;
}

void TKxAxisRange::Redo() {
    ForgetZooms();
    FExtents.UpdateAll();
    Follow(nullptr);
}

void TKxAxisRange::ForgetZooms() {
    const TView view = ShownUnzoomed();
    FZooms.clear();
    FZoomIndex = 0;
    Show(view);
}

TKxZoomGesture NewZoomGesture() {
    static TKxZoomGesture last = 0;
    return ++last;
}

void TKxAxisRange::ZoomIn(double Start, double Stop, TKxZoomGesture Gesture) {
    FZooms.push_back({Start, Stop, false, Gesture});
    FZoomIndex = static_cast<int>(FZooms.size()) + 1;
    Show(FZooms.back());
}

void TKxAxisRange::ShowPresentView() {
    if (IsZoomed()) return Show(ZoomedView());
    const TKxScaleEnds ends = FLabelling.CalculateEnds(InputOf(FUnzoomed));
    Show({ends.Start, ends.Stop});
}

bool TKxAxisRange::ZoomBack() {
    if (FZooms.empty()) return false;
    if (--FZoomIndex == 0) FZoomIndex = static_cast<int>(FZooms.size()) + 1;
    ShowPresentView();
    return true;
}

void TKxAxisRange::ZoomAlong(double Start, double Stop, TKxZoomGesture Gesture) {
    const std::size_t before = IsZoomed() ? ZoomedIndex() + (GetZoomGesture() != Gesture) : 0;
    FZooms.resize(before);
    FZooms.push_back({Start, Stop, true, Gesture});
    FZoomIndex = static_cast<int>(FZooms.size()) + 1;
    Show(FZooms.back());
}

bool TKxAxisRange::UndoZoom(TKxZoomGesture Gesture) {
    if (!IsZoomed() || GetZoomGesture() != Gesture) return false;
    FZooms.resize(ZoomedIndex());
    FZoomIndex = FZooms.empty() ? 0 : static_cast<int>(FZooms.size()) + 1;
    ShowPresentView();
    return true;
}

bool TKxAxisRange::Unzoom() {
    if (!IsZoomed()) return false;
    FZoomIndex = 1;
    ShowPresentView();
    return true;
}

} // namespace kx
