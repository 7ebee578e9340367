#pragma once
// Zooming and panning a graph by hand: which axes move, and what is one gesture, which is one entry of their
// zoom stacks.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/host/timer.h>
#include <kxgraph/platform/objects/guarded.h>

#include <memory>
#include <vector>

namespace kx {

/// A gesture of the wheel or of keys goes on until nothing came for CGesturePause milliseconds, or something
/// else ends it; a pan until the button is up. The views of a gesture are exact: nothing is rounded.
class TKxGraphZoom {
public:
    static constexpr int CGesturePause = 400;
    /// The axes that take part: all, or the horizontal or the vertical ones.
    enum class TAxes { All, Horizontal, Vertical };

    explicit TKxGraphZoom(TKx2DGraph& Graph) : FGraph(Graph) {}

    /// About At, in the drawing world. Alone is the one axis that is zoomed; null for all that Axes names.
    /// Continues: goes on with the gesture before even after a pause, unless that was ended.
    void Zoom(TPoint At, double Factor, TAxes Axes, TKxAxis* Alone = nullptr, bool Continues = false);
    /// Moves the view By pixels, to what lies there.
    void Shift(TPoint By);
    void EndGesture();

    void BeginPan(TPoint At);
    /// What was at the place where the pan began is At now.
    void PanTo(TPoint At, TAxes Axes);
    bool IsPanning() const { return FPanning; }
    void EndPan();
    /// Shows the view before the pan.
    void CancelPan();

    /// The axis of Graph at a place of it; null where there is none.
    static TKxAxis* AxisAt(const TKx2DGraph& Graph, TPoint At);

private:
    enum class TKind { None, Zoom, Shift };
    struct TMoved {
        TComponentRef<TKxAxis> Axis;
        double Start, Stop;
    };
    std::vector<TKxAxis*> Targets(TAxes Axes, TKxAxis* Alone) const;
    void GoOn(TKind Kind, TAxes Axes, const TKxAxis* Alone, bool Continues);
    void Settle();
    void Pause();
    TPoint OnAxes(TPoint At) const;

    TKx2DGraph& FGraph;
    TKind FKind = TKind::None;
    TAxes FAxes = TAxes::All;
    const TKxAxis* FAlone = nullptr; // compared only
    TKxZoomGesture FGesture = 0;
    std::unique_ptr<TTimer> FPause; // runs while the gesture goes on
    bool FPanning = false;
    TPoint FPanFrom;
    std::vector<TMoved> FPanned; // as the pan began
};

} // namespace kx
