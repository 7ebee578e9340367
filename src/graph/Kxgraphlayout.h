#pragma once
// Where title, axes and drawing world stand on a graph: sizes in, rectangles out. Knows no control and no
// canvas; all numbers are pixels of the graph.

#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/graph/Kxside.h>
#include <kxgraph/platform/drawing/geometry.h>

#include <optional>
#include <vector>

namespace kx {

/// What the layout has to know of one axis.
struct TKxLayoutAxis {
    TKxSide Side;
    int Thickness = 0;     ///< across the axis: ticks, gaps, labels and caption
    int CaptionPart = 0;   ///< what of Thickness is caption and its gaps
    int Gap = 0;           ///< between the drawing world's edge and the axis line, part of Thickness
    int LineThickness = 0; ///< pen width of the axis line; half of it lies on the other side of the line
    int StartReach = 0;    ///< how far the labels reach over the axis start, along the axis
    int StopReach = 0;     ///< the same at the other end
    bool Fixed = false;    ///< keeps its Bounds (no automatic size, or free floating)
    TRect Bounds;          ///< of a fixed axis
    /// A primary axis that is drawn through the zero of the other one: the map of that other axis, whatever
    /// its length. None for an axis that stands at its edge.
    std::optional<TKxAxisMap> Crossed;
};

struct TKxLayoutInput {
    TSize Graph;
    int TitleHeight = 0;               ///< 0 without title
    TRect Reserved{};                  ///< pixels that neighbours take at each of the four sides
    int MinimalMargin = 0;             ///< kept at each side whatever else is there
    std::vector<TKxLayoutAxis> Axes{}; ///< the first of a side stands next to the drawing world
};

/// The place of an axis and of its line inside it.
struct TKxLayoutPlace {
    TRect Bounds;  ///< of the control
    TPoint Origin; ///< inside the control: left end of a horizontal axis line, upper end of a vertical one
    int AxisLength = 0;
    int CaptionFrom = 0; ///< the caption stands at least so far from the line: outside the drawing world
};

struct TKxLayout {
    TRect Title;        ///< full width, at the top
    TRect DrawingWorld; ///< AxisLength + 1 pixels wide and high: both ends of every axis lie on it
    std::vector<TKxLayoutPlace> Axes;
};

/// Stacks the axes of each side from the graph's edge inwards (the last one outermost), keeps at each side at
/// least what the labels of crossing axes reach over it, and gives the rest to the drawing world, which is
/// never smaller than 2 x 2 pixels.
TKxLayout LayOutGraph(const TKxLayoutInput& Input);

/// Across: where the line of an axis on Side stands that has these bounds.
int LineInside(const TRect& Bounds, TKxSide Side, int LineThickness);

/// The thickness of an axis of labels LabelExtent across (0 without labels); ExponentGap counts when a
/// factored exponent shows, CaptionGap when CaptionExtent is not 0.
struct TKxAxisThickness {
    int MajorTickLength = 0;
    int BorderGap = 0;
    int TicksGap = 0;
    int LabelExtent = 0;
    int CaptionExtent = 0;
    int CaptionGap = 0;
    int ExponentGap = 0;
    bool Factored = false;
    int Total() const;
    /// The part of it that a caption takes; 0 without one.
    int CaptionPart() const { return CaptionExtent > 0 ? CaptionExtent + CaptionGap + BorderGap : 0; }
};

} // namespace kx
