#include <kxgraph/graph/Kxgraphmouse.h>

#include <kxgraph/platform/controls/controlsmouse.h>

#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double CNotch = 0.8; // of the span is left by a notch of the wheel
constexpr int CKeyPart = 10;   // of the view is an arrow's step

TKxGraphZoom::TAxes AxesOf(TShiftState Shift) {
    using enum TKxGraphZoom::TAxes;
    return Shift & ssShift ? Horizontal : Shift & ssCtrl ? Vertical : All;
}

/// Key as a step to the right or down, of 1.
TPoint StepOf(int Key) { return {(Key == kcRight) - (Key == kcLeft), (Key == kcDown) - (Key == kcUp)}; }

} // namespace

// Two cursors of the drawing world: its own one comes back.
void TKxGraphMouse::ShowCursor(TCursor Cursor) {
    TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    const bool shows = Cursor != crDefault;
    if (shows && !FShowsCursor) FOwnCursor = world.GetCursor();
    if (!shows && !FShowsCursor) return;
    FShowsCursor = shows;
    const TCursor cursor = shows ? Cursor : FOwnCursor;
    if (world.GetCursor() == cursor) return;
    world.SetCursor(cursor);
    ShowCursorOf(world);
}

bool TKxGraphMouse::BeginPan(TMouseButton Button, TPoint At) {
    if (!Allowed().Panning || !(Button == mbMiddle || (Button == mbLeft && FSpace))) return false;
    FPanButton = Button;
    FZoom.BeginPan(At);
    ShowCursor(crDrag);
    return true;
}

bool TKxGraphMouse::Down(TMouseButton Button, TShiftState Shift, TPoint At) {
    FZoom.EndGesture();
    if (FZoom.IsPanning() || FMarkers.IsDragging() || BeginPan(Button, At)) return true;
    if (Button != mbLeft) return false;
    if (FMarkers.Down(Shift, At)) return true;
    if (!(Shift & ssDouble) || !Allowed().UnzoomOnDblClick) return false;
    FGraph.Unzoom();
    return true;
}

void TKxGraphMouse::Move(TShiftState Shift, TPoint At) {
    if (FZoom.IsPanning()) return FZoom.PanTo(At, AxesOf(Shift));
    if (FMarkers.IsDragging()) return FMarkers.DragTo(At);
    ShowCursor(FMarkers.MarkerAt(At) ? FMarkers.GetCursor() : crDefault);
    if (Allowed().Readout || Allowed().CrossHair) FReadout.Follow(At);
}

void TKxGraphMouse::Up(TMouseButton Button, TShiftState Shift, TPoint At) {
    if (FMarkers.IsDragging() && Button == mbLeft) FMarkers.EndDrag();
    if (!FZoom.IsPanning() || Button != FPanButton) return;
    FZoom.PanTo(At, AxesOf(Shift));
    FZoom.EndPan();
    ShowCursor(crDefault);
}

void TKxGraphMouse::Left() {
    FZoom.EndGesture();
    FReadout.Leave();
}

void TKxGraphMouse::Paint(TCanvas& Canvas) {
    if (FGraph.GetWhiteBackground()) return;
    TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    if (FMarkers.GetSeries())
        for (const bool stop : {false, true}) world.PaintMarker(Canvas, stop);
    FReadout.Paint(Canvas);
}

// Where Shift is held, some systems turn the wheel to the side.
bool TKxGraphMouse::Wheel(const TWheelTurn& Turn, TShiftState Shift, TPoint At) {
    if (!Allowed().WheelZoom || FZoom.IsPanning()) return false;
    const double turn = Turn.Up == 0 && (Shift & ssShift) ? Turn.Right : Turn.Up;
    const TRect world = FGraph.GetDrawingWorld().GetBoundsRect();
    TKxAxis* axis = world.Contains(At) ? nullptr : TKxGraphZoom::AxisAt(FGraph, At);
    if (turn == 0 || !(axis || world.Contains(At))) return false;
    FZoom.Zoom(At - world.TopLeft(), std::pow(CNotch, turn), AxesOf(axis ? 0 : Shift), axis, Turn.Continues);
    return true;
}

bool TKxGraphMouse::Escape() {
    if (FMarkers.Escape()) return true;
    if (!FZoom.IsPanning()) return FReadout.KeyDown(kcEscape);
    FZoom.CancelPan();
    ShowCursor(crDefault);
    return true;
}

bool TKxGraphMouse::ZoomKey(const TKeyStroke& Stroke) {
    const TSize world = FGraph.GetDrawingWorld().GetBoundsRect().Size();
    const bool in = Stroke.Key == kcPlus || Stroke.Text == "+",
               out = Stroke.Key == kcMinus || Stroke.Text == "-";
    if (in || out) {
        FZoom.Zoom({world.Width / 2, world.Height / 2}, in ? CNotch : 1 / CNotch, TKxGraphZoom::TAxes::All);
        return true;
    }
    if (const TPoint step = StepOf(Stroke.Key); step != TPoint{}) {
        FZoom.Shift({step.X * world.Width / CKeyPart, step.Y * world.Height / CKeyPart});
        return true;
    }
    if (Stroke.Key != kcBack && Stroke.Key != kcHome) return false;
    FZoom.EndGesture();
    Stroke.Key == kcBack ? FGraph.ZoomBack() : FGraph.Unzoom();
    return true;
}

namespace {

void AddEntries(TKxGraphSeries& Series, std::vector<TKxGraphSeries*>& Entries) {
    if (Series.GetIncludeInLegend()) Entries.push_back(&Series);
    for (TKxGraphSeries* child : Series.GetChildSeries()) AddEntries(*child, Entries);
}

} // namespace

/// The digits 1 to 9 hide and show the first series of a legend.
bool TKxGraphMouse::PickKey(int Key) {
    std::vector<TKxGraphSeries*> entries;
    for (TKxGraphSeries* series : FGraph.GetSeriesList()) AddEntries(*series, entries);
    const int number = Key - '1';
    if (number < 0 || number > 8 || number >= int(entries.size())) return false;
    TKxGraphSeries* series = entries[std::size_t(number)];
    series->SetVisible(!series->GetVisible());
    return true;
}

bool TKxGraphMouse::KeyDown(const TKeyStroke& Stroke) {
    if (Stroke.Shift & (ssCtrl | ssAlt)) return false;
    if (Stroke.Key == kcEscape) return Escape();
    if (FZoom.IsPanning()) return Stroke.Key == kcSpace;
    if (FMarkers.KeyDown(Stroke) || FReadout.KeyDown(Stroke.Key)) return true;
    if (Stroke.Key == kcSpace && Allowed().Panning) return FSpace = true;
    if (Allowed().LegendPicking && PickKey(Stroke.Key)) return true;
    return Allowed().ZoomKeys && ZoomKey(Stroke);
}

bool TKxGraphMouse::KeyUp(const TKeyStroke& Stroke) {
    return Stroke.Key == kcSpace && std::exchange(FSpace, false);
}

} // namespace kx
