#pragma once
// The point that a graph reads out: which one, and the small box that tells it.

#include <kxgraph/graph/Kxgraph2d.h>

#include <string>
#include <vector>

namespace kx {

/// Nothing of it is in pictures that leave the window. What it changes on the screen it invalidates, and no
/// more than that.
class TKxReadout {
public:
    static constexpr int CReach = 12; ///< pixels from the mouse

    explicit TKxReadout(TKx2DGraph& Graph) : FGraph(Graph) {}

    /// The mouse is at a place of the drawing world.
    void Follow(TPoint At);
    void Leave();
    /// Reads points by keys; answers whether the key was one of them.
    bool KeyDown(int Key);
    /// Over the series.
    void Paint(TCanvas& Canvas);

private:
    struct TRead {
        TComponentRef<TKxGraphSeries> Series;
        TKxDrawnPoint Point;
        bool IsThere() const { return Series && Point.Index >= 0; }
    };
    const TKxInteraction& Allowed() const { return FGraph.GetInteraction(); }
    std::vector<TKxGraphSeries*> Candidates() const;
    TRead Nearest(TPoint At, int Reach) const;
    TRead Neighbour(int Step) const;
    TRead InOtherSeries(int Step) const;
    void ReadAnew();
    void Show(const TRead& Read);
    void Change(const TRead& Read, bool Inside, TPoint Mouse);
    void Invalidate() const;
    TPoint Center() const { return FByKeys ? FRead.Point.At : FMouse; }
    std::vector<std::string> Lines() const;
    TRect Box(const std::vector<std::string>& Lines) const;
    void PaintCrossHair(TCanvas& Canvas) const;
    void PaintBox(TCanvas& Canvas) const;

    TKx2DGraph& FGraph;
    TPoint FMouse;
    bool FInside = false; // the mouse is in the drawing world
    bool FByKeys = false;
    TRead FRead;
    TRect FBox; // as it was shown
};

} // namespace kx
