#pragma once
// The markers of a calculation's start and stop, and how they are moved.

#include <kxgraph/graph/Kxgraph2d.h>

#include <optional>

namespace kx {

class TKxGraphMarkers {
public:
    enum class TEnd { Start, Stop };
    static constexpr int CReach = 4; ///< pixels within which a marker is near

    explicit TKxGraphMarkers(TKx2DGraph& Graph) : FGraph(Graph) {}

    /// Raises EPropertyError for a series that calculates nothing.
    void Show(TKxGraphSeries* Series);
    TKxGraphSeries* GetSeries() const { return FSeries.Get(); }
    /// In pixels of the drawing world.
    bool IsNear(TEnd End, TPoint At) const;
    void Paint(TCanvas& Canvas, TEnd End) const;

    /// What the mouse would take; of two that are near the nearer one, or the one that may move on.
    std::optional<TEnd> MarkerAt(TPoint At) const;
    bool IsDragging() const { return FDragging; }
    bool Down(TShiftState Shift, TPoint At);
    void DragTo(TPoint At);
    void EndDrag();
    /// Takes back what a drag, or keys since they took the marker, have moved; answers whether one was taken.
    bool Escape();
    bool KeyDown(const TKeyStroke& Stroke);
    TCursor GetCursor() const;

private:
    /// An end as it was.
    struct TBefore {
        bool Auto;
        double Value;
    };
    TKxStartStop* Calculation() const { return FSeries ? FSeries->GetStartStop() : nullptr; }
    const TKxAxis* Axis() const { return FSeries ? FSeries->GetXAxis() : nullptr; }
    std::optional<int> PixelOf(TEnd End) const;
    int Along(TPoint At) const;
    void Take(TEnd End);
    void MoveTo(int Pixel);
    void SetAutomatic(bool Auto) const;
    void SetValue(double Value) const;

    TKx2DGraph& FGraph;
    TComponentRef<TKxGraphSeries> FSeries;
    std::optional<TEnd> FTaken; // by the mouse or by a key
    TBefore FBefore{};          // when it was taken
    bool FDragging = false;
    int FOffset = 0; // from the mouse to the marker
};

} // namespace kx
