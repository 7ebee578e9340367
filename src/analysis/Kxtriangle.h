#pragma once
// Linear least squares by orthogonal transformations. Pure: numbers in, numbers out.

#include <span>
#include <vector>

namespace kx {

/// Columns of equal length.
using TKxMatrixColumns = std::vector<std::vector<double>>;

/// Turns Columns, at least as long as there are many of them, into an upper triangle R by the reflections of
/// A. S. Householder, Journal of the ACM 5 (1958) 339, and Right along with them: the length of
/// Columns * p - Right is for every p that of R * p - Right then, and what no p changes stands behind the
/// triangle. Columns are cut to the triangle: row i of column k is Columns[k][i], i <= k.
void Triangulate(TKxMatrixColumns& Columns, std::vector<double>& Right);
/// Solves R * p = Right. A p that the triangle leaves open is 0.
std::vector<double> SolveTriangle(const TKxMatrixColumns& Triangle, std::span<const double> Right);

/// Solves R' * p = Right likewise.
std::vector<double> SolveTransposed(const TKxMatrixColumns& Triangle, std::span<const double> Right);

} // namespace kx
