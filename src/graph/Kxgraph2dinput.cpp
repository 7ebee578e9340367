// Mouse, wheel and keys: what the graph allows, and its views.

#include <kxgraph/graph/Kxgraphmouse.h>

#include <algorithm>

namespace kx {

void TKx2DGraph::Allow(bool TKxInteraction::*What, bool On) {
    if (FInteraction.*What == On) return;
    FInteraction.*What = On;
    const bool hasKeys = What == &TKxInteraction::Panning || What == &TKxInteraction::ZoomKeys ||
                         What == &TKxInteraction::Readout || What == &TKxInteraction::LegendPicking;
    if (On && hasKeys) SetTabStop(true);
    Invalidate();
}

bool TKx2DGraph::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    return TCustomPanel::MouseWheel(Turn, Shift, X, Y) || FMouse->Wheel(Turn, Shift, {X, Y});
}

bool TKx2DGraph::KeyDown(const TKeyStroke& Stroke) {
    return TCustomPanel::KeyDown(Stroke) || FMouse->KeyDown(Stroke);
}

bool TKx2DGraph::KeyUp(const TKeyStroke& Stroke) {
    return TCustomPanel::KeyUp(Stroke) || FMouse->KeyUp(Stroke);
}

void TKx2DGraph::Exit() {
    FMouse->LoseKeys();
    TCustomPanel::Exit();
}

// What an axis follows may stand on another graph.
std::vector<TKxAxis*> TKx2DGraph::ZoomedAxes() const {
    std::vector<TKxAxis*> axes = GetAxes();
    for (std::size_t i = 0; i < axes.size(); ++i)
        if (TKxAxis* followed = axes[i]->GetFollowed();
            followed && std::ranges::find(axes, followed) == axes.end())
            axes.push_back(followed);
    return axes;
}

void TKx2DGraph::ZoomBack() {
    const auto axes = ZoomedAxes();
    TKxZoomGesture newest = 0;
    for (const TKxAxis* axis : axes) newest = std::max(newest, axis->GetZoomGesture());
    for (TKxAxis* axis : axes)
        if (axis->GetZoomGesture() == newest) axis->ZoomBack();
    Modified();
}

void TKx2DGraph::Unzoom() {
    for (TKxAxis* axis : ZoomedAxes()) axis->Unzoom();
    Modified();
}

} // namespace kx
