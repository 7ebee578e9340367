#pragma once
// Reduction of long lines through exact places, for devices that show fractions of pixels.

#include <kxgraph/platform/drawing/geometry.h>

#include <cmath>
#include <span>
#include <vector>

namespace kx {

/// Columns that are so narrow are as good as upright lines.
inline constexpr int CColumnsPerPixel = 32;
/// The column that a place stands in.
inline double ColumnOf(double X, int ColumnsPerPixel) { return std::floor(X * ColumnsPerPixel); }

/// What is left out of a line lies so near to the straight line that takes its place, in pixels.
inline constexpr double CStraightness = 0.01;

/// Writes to Kept those of Points (in order) that a line needs so that every point lies within a column, and
/// with CColumnsPerPixel within a twentieth of a pixel, of it: of every run of points in one column the
/// first, the highest, the lowest and the last (of all points where ColumnsPerPixel is 0); of these none that
/// the straight line between those before and after comes near to. The first and the last of Points are kept.
/// One pass, no allocation but in Kept, which is reused.
void SimplifyLine(std::span<const TRealPoint> Points, int ColumnsPerPixel, std::vector<TRealPoint>& Kept);

} // namespace kx
