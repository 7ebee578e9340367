#pragma once
// Lossless reduction of long polylines, shared by the painting devices.

#include <kxgraph/platform/drawing/geometry.h>

#include <span>
#include <vector>

namespace kx {

/// Shorter lines are never reduced.
inline constexpr int CReductionThreshold = 512;

/// Writes to Kept those of Points (in order) that a solid line in copy mode needs to touch exactly the pixels
/// of the full line: of every run of points in one pixel column the first, the highest, the lowest and the
/// last, and the neighbours of each kept point (a joint looks back at the line before). The first and the
/// last of Points are kept. One pass, no allocation but in Kept, which is reused.
void ReducePolyline(std::span<const TPoint> Points, std::vector<TPoint>& Kept);
void ReducePolyline(std::span<const TRealPoint> Points, std::vector<TRealPoint>& Kept);

} // namespace kx
