#pragma once
// A scroll bar as a part of the control that paints it.

#include <kxgraph/platform/widgets/look.h>

#include <optional>

namespace kx {

/// Total, Page and Position in any unit: rows, pixels. Positions go from 0 to Total - Page.
class TScrollPart {
public:
    explicit TScrollPart(bool Vertical) : FVertical(Vertical) {}
    /// Where it stands in its control, and what it shows.
    void Place(const TRect& Bounds, double Total, double Page, double Position);
    const TRect& GetBounds() const { return FBounds; }
    bool IsNeeded() const { return FTotal > FPage; }
    bool Contains(TPoint Pos) const { return IsNeeded() && FBounds.Contains(Pos); }
    bool IsDragged() const { return FGrip.has_value(); }

    /// The mouse, in pixels of the control: the position that follows from it, if it tells of any. A press
    /// beside the thumb goes a page; one on it begins a drag, until Release.
    std::optional<double> Press(TPoint Pos);
    std::optional<double> DragTo(TPoint Pos) const;
    void Release() { FGrip.reset(); }
    void Paint(TCanvas& Canvas, TDrawState State) const;
    TRect Thumb() const;

private:
    int Along(TPoint Pos) const { return FVertical ? Pos.Y - FBounds.Top : Pos.X - FBounds.Left; }
    double Length() const { return FVertical ? FBounds.Height() : FBounds.Width(); }
    double ThumbLength() const;
    double ThumbStart() const;

    bool FVertical;
    TRect FBounds;
    double FTotal = 0, FPage = 0, FPosition = 0;
    std::optional<double> FGrip; // from the start of the thumb to where it was pressed
};

/// Whole steps out of turns of a wheel, which may be fractions of one.
class TWheelSteps {
public:
    /// Steps to go on (down is positive) for a turn, at PerNotch a notch.
    int Take(const TWheelTurn& Turn, double PerNotch);

private:
    double FRest = 0;
};

} // namespace kx
