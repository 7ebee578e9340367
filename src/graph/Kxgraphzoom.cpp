#include <kxgraph/graph/Kxgraphzoom.h>

#include <kxgraph/graph/Kxzoom.h>
#include <kxgraph/platform/controls/frame.h>

#include <algorithm>

namespace kx {

namespace {

/// The axis whose range Axis shows: its own, or that of what it follows at the end of the chain.
TKxAxis* Leader(TKxAxis* Axis) {
    constexpr int CLongest = 100; // slaves may follow one another in a circle
    for (int i = 0; i < CLongest && Axis->GetVisible() && Axis->GetFollowed(); ++i)
        Axis = Axis->GetFollowed();
    return Axis;
}

/// A view of the axis, as long as it is now.
TKxAxisMap MapOf(const TKxAxis& Axis, double Start, double Stop) {
    return TKxAxisMap::Make(Axis.GetScaling(), Start, Stop, Axis.GetAxisLength(), Axis.GetOrientation(),
                            Axis.GetTwisted());
}
/// Where the ends of the axis lie now, though it may not have been laid out since they changed.
TKxAxisMap PresentMap(const TKxAxis& Axis) { return MapOf(Axis, Axis.GetStart(), Axis.GetStop()); }

bool TakesPart(const TKxAxis& Axis, TKxGraphZoom::TAxes Axes) {
    return Axes == TKxGraphZoom::TAxes::All ||
           Axis.IsHorizontal() == (Axes == TKxGraphZoom::TAxes::Horizontal);
}

} // namespace

TKxAxis* TKxGraphZoom::AxisAt(const TKx2DGraph& Graph, TPoint At) {
    for (TKxAxis* axis : Graph.GetAxes())
        if (axis->GetVisible() && axis->GetBoundsRect().Contains(At)) return axis;
    return nullptr;
}

std::vector<TKxAxis*> TKxGraphZoom::Targets(TAxes Axes, TKxAxis* Alone) const {
    if (Alone) return {Leader(Alone)};
    std::vector<TKxAxis*> targets;
    for (TKxAxis* axis : FGraph.GetAxes()) {
        TKxAxis* leader = Leader(axis);
        if (TakesPart(*axis, Axes) && std::ranges::find(targets, leader) == targets.end())
            targets.push_back(leader);
    }
    return targets;
}

// Ends that the next layout would round are rounded before anything is reckoned from them.
void TKxGraphZoom::Settle() {
    if (FGraph.NeedsSettling()) SettleTree(FGraph);
}

void TKxGraphZoom::GoOn(TKind Kind, TAxes Axes, const TKxAxis* Alone, bool Continues) {
    const bool same = FKind == Kind && FAxes == Axes && FAlone == Alone;
    const bool runs = FPause && FPause->GetEnabled();
    if (!same || !(runs || Continues)) {
        Settle();
        FGesture = NewZoomGesture();
    }
    FKind = Kind;
    FAxes = Axes;
    FAlone = Alone;
    if (!FPause) {
        FPause = std::make_unique<TTimer>(nullptr);
        FPause->SetInterval(CGesturePause);
        FPause->OnTimer = TEvent<>::Of<&TKxGraphZoom::Pause>(this);
    }
    FPause->SetEnabled(false);
    FPause->SetEnabled(true);
}

void TKxGraphZoom::Pause() { FPause->SetEnabled(false); }

void TKxGraphZoom::EndGesture() {
    FKind = TKind::None;
    if (FPause) Pause();
}

TPoint TKxGraphZoom::OnAxes(TPoint At) const {
    const TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    return {At.X - world.GetXOrigin(), At.Y - world.GetYOrigin()};
}

void TKxGraphZoom::Zoom(TPoint At, double Factor, TAxes Axes, TKxAxis* Alone, bool Continues) {
    GoOn(TKind::Zoom, Axes, Alone, Continues);
    const TSize world = FGraph.GetDrawingWorld().GetBoundsRect().Size();
    for (TKxAxis* axis : Targets(Axes, Alone)) {
        const TKxSide side = axis->GetSide();
        // The leader of an axis may stand on another graph and have another length.
        const double part = side.Along(OnAxes(At)) / std::max(1.0, side.Along(world) - 1.0);
        if (const auto ends =
                ZoomedAbout(PresentMap(*axis), axis->GetLabelKind(), part * axis->GetAxisLength(), Factor))
            axis->ZoomAlong(ends->Start, ends->Stop, FGesture);
    }
    FGraph.Modified();
}

void TKxGraphZoom::Shift(TPoint By) {
    const TAxes axes = By.Y == 0 ? TAxes::Horizontal : By.X == 0 ? TAxes::Vertical : TAxes::All;
    GoOn(TKind::Shift, TAxes::All, nullptr, false);
    for (TKxAxis* axis : Targets(axes, nullptr))
        if (const auto ends = PannedBy(PresentMap(*axis), axis->GetLabelKind(), axis->GetSide().Along(By)))
            axis->ZoomAlong(ends->Start, ends->Stop, FGesture);
    FGraph.Modified();
}

void TKxGraphZoom::BeginPan(TPoint At) {
    EndGesture();
    Settle();
    FGesture = NewZoomGesture();
    FPanFrom = At;
    FPanning = true;
    FPanned.clear();
    for (TKxAxis* axis : Targets(TAxes::All, nullptr))
        FPanned.push_back({TComponentRef(axis), axis->GetStart(), axis->GetStop()});
    FGraph.HoldRoom(true);
}

void TKxGraphZoom::EndPan() {
    FPanning = false;
    FGraph.HoldRoom(false);
}

// From where the pan began, so that coming back there gives the very view of the beginning.
void TKxGraphZoom::PanTo(TPoint At, TAxes Axes) {
    for (const auto& [ref, start, stop] : FPanned) {
        TKxAxis* axis = ref.Get();
        if (!axis) continue;
        const TKxSide side = axis->GetSide();
        const int by = TakesPart(*axis, Axes) ? side.Along(FPanFrom) - side.Along(At) : 0;
        if (by == 0 && axis->GetZoomGesture() != FGesture) continue;
        if (const auto ends = PannedBy(MapOf(*axis, start, stop), axis->GetLabelKind(), by))
            axis->ZoomAlong(ends->Start, ends->Stop, FGesture);
    }
    FGraph.Modified();
}

void TKxGraphZoom::CancelPan() {
    EndPan();
    for (const TMoved& moved : FPanned)
        if (moved.Axis) moved.Axis->UndoZoom(FGesture);
    FGraph.Modified();
}

} // namespace kx
