#include <kxgraph/graph/Kxgraphlayout.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kx {

int TKxAxisThickness::Total() const {
    const int ticks = std::abs(MajorTickLength);
    const int caption = CaptionExtent > 0 ? CaptionExtent + CaptionGap : 0;
    const int plain = ticks + BorderGap + TicksGap + LabelExtent + caption;
    const int factored = ticks + ExponentGap + LabelExtent + TicksGap;
    return Factored ? std::max(plain, factored) : plain;
}

namespace {

bool Crosses(const TKxLayoutAxis& Axis) { return Axis.Crossed.has_value(); }

int StackThickness(const TKxLayoutInput& Input, TKxAxisPos Side) {
    int sum = 0;
    for (const auto& axis : Input.Axes)
        if (axis.Side.Position() == Side && !axis.Fixed && !Crosses(axis)) sum += axis.Thickness;
    return sum;
}

/// The margin that a crossing axis needs at its edge: its caption, which keeps off the data, and the part of
/// its labels that zero, a fraction of the world away from that edge, leaves outside. Span is the graph's
/// extent less the margin at the other side and what neighbours take at this one.
int CrossingMargin(const TKxLayoutAxis& Axis, int Span) {
    const TKxAxisMap& map = *Axis.Crossed;
    const double fromStart = map.Start / (map.Start - map.Stop);
    const bool startsAtEdge = Axis.Side.IsHorizontal() != map.Forward; // pixels count from the top
    const double f = std::clamp(startsAtEdge ? fromStart : 1 - fromStart, 0.0, 0.99);
    const double labels = Axis.Thickness - Axis.CaptionPart - Axis.Gap - 0.5; // half a pixel lower still fits
    const double beyond = std::max(0.0, (labels - f * (Span - Axis.CaptionPart - 1)) / (1 - f));
    return Axis.CaptionPart + static_cast<int>(std::ceil(beyond));
}

// The line of an axis stands on the outermost pixel of the world and counts in thickness and reach.
TRect MarginsOf(const TKxLayoutInput& Input) {
    const int least = std::max(0, Input.MinimalMargin);
    TRect m{least, least, least, least};
    const auto demand = [&m](TKxSide Side, int Pixels) { Side.Of(m) = std::max(Side.Of(m), Pixels); };
    for (const auto side : {AxLeftPos, AxTopPos, AxRightPos, AxBottomPos})
        demand(side, StackThickness(Input, side) - 1);
    for (const auto& axis : Input.Axes) {
        if (axis.Side.IsFree()) continue;
        demand(axis.Side.AtStart(), axis.StartReach - 1);
        demand(axis.Side.AtStop(), axis.StopReach - 1);
    }
    m.Right += Input.Reserved.Right;
    m.Top += Input.Reserved.Top + Input.TitleHeight;
    const TSize room{Input.Graph.Width - Input.Reserved.Left - m.Right,
                     Input.Graph.Height - Input.Reserved.Bottom - m.Top};
    for (const auto& axis : Input.Axes)
        if (Crosses(axis)) demand(axis.Side.Near(), CrossingMargin(axis, axis.Side.Across(room)));
    m.Left += Input.Reserved.Left;
    m.Bottom += Input.Reserved.Bottom;
    return m;
}

TRect WorldOf(const TKxLayoutInput& Input, const TRect& M) {
    return {M.Left, M.Top, std::max(Input.Graph.Width - M.Right, M.Left + 2),
            std::max(Input.Graph.Height - M.Bottom, M.Top + 2)};
}

/// Bounds of a stacked axis whose line stands at Line across.
TRect StackedBounds(const TKxLayoutInput& Input, const TKxLayoutAxis& Axis, int Line) {
    const int inner = Line - Axis.Side.Outward() * (Axis.LineThickness / 2);
    return Axis.Side.Band({0, 0, Input.Graph.Width, Input.Graph.Height}, inner,
                          std::max(1, Axis.Thickness - Axis.Gap));
}

/// Where the axis's map of the other direction has its zero. By the map itself: the line stands where the
/// other axis has its tick at zero, to the pixel.
int CrossingOf(const TKxLayoutAxis& Axis, const TRect& World) {
    const auto& map = *Axis.Crossed;
    const int length = Axis.Side.Across(World.Size()) - 1;
    const int zero = TKxAxisMap::Make(map.Scaling, map.Start, map.Stop, length, AxHorizontal, !map.Forward)
                         .RealToIntPosition(0);
    return Axis.Side.Across(World.TopLeft()) + zero;
}

/// The line of the axis that stands so many pixels outside the world's edge, or at the crossing.
int LineOf(const TKxLayoutAxis& Axis, const TRect& World, int Outside) {
    if (Axis.Fixed) return LineInside(Axis.Bounds, Axis.Side, Axis.LineThickness);
    if (Crosses(Axis)) return CrossingOf(Axis, World);
    return Axis.Side.OuterPixel(World) + Axis.Side.Outward() * (Outside + Axis.Gap);
}

/// How far the world's edge lies from the line of a crossing axis, on the side of its labels.
int DistanceToEdge(const TKxLayoutAxis& Axis, const TRect& World, int Line) {
    return Axis.Side.Outward() * (Axis.Side.OuterPixel(World) - Line);
}

TKxLayoutPlace PlaceOf(const TKxLayoutInput& Input, const TKxLayoutAxis& Axis, const TRect& World,
                       int Outside) {
    TKxLayoutPlace place;
    place.AxisLength = Axis.Side.Along(World.Size()) - 1;
    const int line = LineOf(Axis, World, Outside);
    place.Bounds = Axis.Fixed ? Axis.Bounds : StackedBounds(Input, Axis, line);
    if (Crosses(Axis) && !Axis.Fixed) place.CaptionFrom = DistanceToEdge(Axis, World, line);
    place.Origin = Axis.Side.Point(Axis.Side.Along(World.TopLeft()), line) - place.Bounds.TopLeft();
    return place;
}

} // namespace

int LineInside(const TRect& Bounds, TKxSide Side, int LineThickness) {
    return Side.InnerPixel(Bounds) + Side.Outward() * (LineThickness / 2);
}

TKxLayout LayOutGraph(const TKxLayoutInput& Input) {
    TKxLayout layout;
    layout.Title = TRect::Bounds(0, 0, Input.Graph.Width, Input.TitleHeight);
    layout.DrawingWorld = WorldOf(Input, MarginsOf(Input));
    TRect outside; // what the axes placed so far take, counted from the world outwards
    for (const auto& axis : Input.Axes) {
        const bool stacked = !axis.Fixed && !Crosses(axis) && !axis.Side.IsFree();
        const int distance = stacked ? axis.Side.Of(outside) : 0;
        layout.Axes.push_back(PlaceOf(Input, axis, layout.DrawingWorld, distance));
        if (stacked) axis.Side.Of(outside) += axis.Thickness;
    }
    return layout;
}

} // namespace kx
