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

bool IsHorizontal(TKxAxisPos Position) { return Position == AxBottomPos || Position == AxTopPos; }
bool Crosses(const TKxLayoutAxis& Axis) { return Axis.Crossed.has_value(); }

/// The space between graph edge and drawing world at each side.
struct TMargins {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;

    int& At(TKxAxisPos Side) {
        switch (Side) {
        case AxLeftPos: return Left;
        case AxTopPos: return Top;
        case AxRightPos: return Right;
        default: return Bottom;
        }
    }
};

int StackThickness(const TKxLayoutInput& Input, TKxAxisPos Side) {
    int sum = 0;
    for (const auto& axis : Input.Axes)
        if (axis.Position == Side && !axis.Fixed && !Crosses(axis)) sum += axis.Thickness;
    return sum;
}

/// The margin that a crossing axis needs at its edge: its caption, which keeps off the data, and the part of
/// its labels that zero, a fraction of the world away from that edge, leaves outside. Span is the graph's
/// extent less the margin at the other side and what neighbours take at this one.
int CrossingMargin(const TKxLayoutAxis& Axis, int Span) {
    const TKxAxisMap& map = *Axis.Crossed;
    const double fromStart = map.Start / (map.Start - map.Stop);
    const bool startsAtEdge = IsHorizontal(Axis.Position) != map.Forward; // pixels count from the top
    const double f = std::clamp(startsAtEdge ? fromStart : 1 - fromStart, 0.0, 0.99);
    const double labels = Axis.Thickness - Axis.CaptionPart - Axis.Gap - 0.5; // half a pixel lower still fits
    const double beyond = std::max(0.0, (labels - f * (Span - Axis.CaptionPart - 1)) / (1 - f));
    return Axis.CaptionPart + static_cast<int>(std::ceil(beyond));
}

// The line of an axis stands on the outermost pixel of the world and counts in thickness and reach.
TMargins MarginsOf(const TKxLayoutInput& Input) {
    const int least = std::max(0, Input.MinimalMargin);
    TMargins m{least, least, least, least};
    for (const auto side : {AxLeftPos, AxTopPos, AxRightPos, AxBottomPos})
        m.At(side) = std::max(m.At(side), StackThickness(Input, side) - 1);
    for (const auto& axis : Input.Axes) {
        if (axis.Position == AxFreeFloating) continue;
        int& start = IsHorizontal(axis.Position) ? m.Left : m.Bottom;
        int& stop = IsHorizontal(axis.Position) ? m.Right : m.Top;
        start = std::max(start, axis.StartReach - 1);
        stop = std::max(stop, axis.StopReach - 1);
    }
    m.Right += Input.Reserved.Right;
    m.Top += Input.Reserved.Top + Input.TitleHeight;
    const int width = Input.Graph.Width - Input.Reserved.Left - m.Right;
    const int height = Input.Graph.Height - Input.Reserved.Bottom - m.Top;
    for (const auto& axis : Input.Axes) {
        if (!Crosses(axis)) continue;
        if (IsHorizontal(axis.Position))
            m.Bottom = std::max(m.Bottom, CrossingMargin(axis, height));
        else
            m.Left = std::max(m.Left, CrossingMargin(axis, width));
    }
    m.Left += Input.Reserved.Left;
    m.Bottom += Input.Reserved.Bottom;
    return m;
}

TRect WorldOf(const TKxLayoutInput& Input, const TMargins& M) {
    return {M.Left, M.Top, std::max(Input.Graph.Width - M.Right, M.Left + 2),
            std::max(Input.Graph.Height - M.Bottom, M.Top + 2)};
}

/// Bounds of a stacked axis whose line stands at Line (y of a horizontal axis, x of a vertical one).
TRect StackedBounds(const TKxLayoutInput& Input, const TKxLayoutAxis& Axis, int Line) {
    const int half = Axis.LineThickness / 2;
    const int w = Input.Graph.Width, h = Input.Graph.Height, t = std::max(1, Axis.Thickness - Axis.Gap);
    switch (Axis.Position) {
    case AxTopPos: return TRect::Bounds(0, Line + 1 + half - t, w, t);
    case AxLeftPos: return TRect::Bounds(Line + 1 + half - t, 0, t, h);
    case AxRightPos: return TRect::Bounds(Line - half, 0, t, h);
    default: return TRect::Bounds(0, Line - half, w, t);
    }
}

/// The line of the axis that stands so many pixels outside the world's edge, or at the crossing.
int LineOf(const TKxLayoutAxis& Axis, const TRect& World, int Outside) {
    const int out = Outside + Axis.Gap;
    if (Crosses(Axis)) {
        // By the map itself: the line stands where the other axis has its tick at zero, to the pixel.
        const bool horizontal = IsHorizontal(Axis.Position);
        const int length = (horizontal ? World.Height() : World.Width()) - 1;
        const auto& map = *Axis.Crossed;
        const int zero =
            TKxAxisMap::Make(map.Scaling, map.Start, map.Stop, length, AxHorizontal, !map.Forward)
                .RealToIntPosition(0);
        return (horizontal ? World.Top : World.Left) + zero;
    }
    switch (Axis.Position) {
    case AxTopPos: return World.Top - out;
    case AxLeftPos: return World.Left - out;
    case AxRightPos: return World.Right - 1 + out;
    default: return World.Bottom - 1 + out;
    }
}

/// How far the world's edge lies from the line of a crossing axis, on the side of its labels.
int DistanceToEdge(const TKxLayoutAxis& Axis, const TRect& World, int Line) {
    switch (Axis.Position) {
    case AxTopPos: return Line - World.Top;
    case AxLeftPos: return Line - World.Left;
    case AxRightPos: return World.Right - 1 - Line;
    default: return World.Bottom - 1 - Line;
    }
}

TKxLayoutPlace PlaceOf(const TKxLayoutInput& Input, const TKxLayoutAxis& Axis, const TRect& World,
                       int Outside) {
    TKxLayoutPlace place;
    const bool horizontal =
        Axis.Position == AxFreeFloating ? Axis.Orientation == AxHorizontal : IsHorizontal(Axis.Position);
    place.AxisLength = (horizontal ? World.Width() : World.Height()) - 1;
    int line = LineOf(Axis, World, Outside);
    if (Axis.Fixed) {
        place.Bounds = Axis.Bounds;
        const int half = Axis.LineThickness / 2;
        switch (Axis.Position) {
        case AxTopPos: line = Axis.Bounds.Bottom - 1 - half; break;
        case AxLeftPos: line = Axis.Bounds.Right - 1 - half; break;
        case AxRightPos: line = Axis.Bounds.Left + half; break;
        case AxBottomPos: line = Axis.Bounds.Top + half; break;
        case AxFreeFloating: line = horizontal ? Axis.Bounds.Top + half : Axis.Bounds.Right - 1 - half; break;
        }
    } else {
        place.Bounds = StackedBounds(Input, Axis, line);
        if (Crosses(Axis)) place.CaptionFrom = DistanceToEdge(Axis, World, line);
    }
    place.Origin = horizontal ? TPoint{World.Left - place.Bounds.Left, line - place.Bounds.Top}
                              : TPoint{line - place.Bounds.Left, World.Top - place.Bounds.Top};
    return place;
}

} // namespace

TKxLayout LayOutGraph(const TKxLayoutInput& Input) {
    TKxLayout layout;
    layout.Title = TRect::Bounds(0, 0, Input.Graph.Width, Input.TitleHeight);
    layout.DrawingWorld = WorldOf(Input, MarginsOf(Input));
    TMargins outside; // what the axes placed so far take, counted from the world outwards
    for (const auto& axis : Input.Axes) {
        const bool stacked = !axis.Fixed && !Crosses(axis) && axis.Position != AxFreeFloating;
        const int distance = stacked ? outside.At(axis.Position) : 0;
        layout.Axes.push_back(PlaceOf(Input, axis, layout.DrawingWorld, distance));
        if (stacked) outside.At(axis.Position) += axis.Thickness;
    }
    return layout;
}

} // namespace kx
