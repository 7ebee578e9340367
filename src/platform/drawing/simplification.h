#pragma once
// Reduction of long lines through exact places, for devices that show fractions of pixels.

#include <kxgraph/platform/drawing/geometry.h>

#include <span>
#include <vector>

namespace kx {

/// Columns that are so narrow are as good as upright lines, in parts of a pixel.
inline constexpr double CColumnsPerPixel = 32;
/// The column that a place stands in.
inline double ColumnOf(double X) { return std::floor(X * CColumnsPerPixel); }

/// What is left out of a line lies so near to the straight line that takes its place, in pixels.
inline constexpr double CStraightness = 0.01;

/// Writes to Kept those of Points (in order) that a line needs so that every point lies within a twentieth of
/// a pixel of it: with Columns, of every run of points in one column the first, the highest, the lowest and
/// the last; of these none that the straight line between those before and after comes near to. The first and
/// the last of Points are kept. One pass, no allocation but in Kept, which is reused.
void SimplifyLine(std::span<const TRealPoint> Points, bool Columns, std::vector<TRealPoint>& Kept);

} // namespace kx
