#pragma once
// What mouse, wheel and keys do on a graph beside the zoom rectangle. The drawing world and the graph hand on
// what they hear; gestures are classes of their own.

#include <kxgraph/graph/Kxgraphmarkers.h>
#include <kxgraph/graph/Kxgraphzoom.h>
#include <kxgraph/graph/Kxreadout.h>

namespace kx {

class TKxGraphMouse {
public:
    explicit TKxGraphMouse(TKx2DGraph& Graph)
        : FGraph(Graph), FZoom(Graph), FMarkers(Graph), FReadout(Graph) {}

    // What the drawing world hears, in its pixels. True: it is taken, and begins no zoom rectangle.
    bool Down(TMouseButton Button, TShiftState Shift, TPoint At);
    void Move(TShiftState Shift, TPoint At);
    void Up(TMouseButton Button, TShiftState Shift, TPoint At);
    void Left();

    // What the graph hears, in its pixels. True: it is taken.
    bool Wheel(const TWheelTurn& Turn, TShiftState Shift, TPoint At);
    bool KeyDown(const TKeyStroke& Stroke);
    bool KeyUp(const TKeyStroke& Stroke);
    void LoseKeys() { FSpace = false; }

    void EndGesture() { FZoom.EndGesture(); }
    TKxGraphMarkers& Markers() { return FMarkers; }
    /// Over the series: markers, cross-hair and readout, but not in pictures that leave the window.
    void Paint(TCanvas& Canvas);

private:
    const TKxInteraction& Allowed() const { return FGraph.GetInteraction(); }
    bool ZoomKey(const TKeyStroke& Stroke);
    bool PickKey(int Key);
    bool BeginPan(TMouseButton Button, TPoint At);
    bool Escape();
    void ShowCursor(TCursor Cursor);

    TKx2DGraph& FGraph;
    TKxGraphZoom FZoom;
    TKxGraphMarkers FMarkers;
    TKxReadout FReadout;
    bool FSpace = false; // is held down
    TMouseButton FPanButton = mbMiddle;
    TCursor FOwnCursor = crDefault; // of the drawing world, while another one is shown
    bool FShowsCursor = false;
};

} // namespace kx
