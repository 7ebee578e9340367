#pragma once
// Cuts lines and polygons to a window. Values off the scale saturate at +-2^30 pixels, where viewers
// overflow; what lies inside the window stays exactly where it was.

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/svg/Kxsvgmarkup.h>

#include <span>
#include <vector>

namespace kx::svg {

using TSvgLine = std::vector<TSvgPoint>;

/// The parts of a polyline inside Window, through pixel centres. A line wholly inside is one part.
std::vector<TSvgLine> LinesInside(std::span<const TRealPoint> Points, const TRect& Window);

/// The part of a closed polygon inside Window; sides along the window join where it was cut. Empty when
/// nothing is inside.
TSvgLine PolygonInside(std::span<const TRealPoint> Points, const TRect& Window);

/// The ellipse in the pixels of Rect as a polygon with two points in every column of Window.
std::vector<TPoint> EllipseInside(const TRect& Rect, const TRect& Window);

} // namespace kx::svg
