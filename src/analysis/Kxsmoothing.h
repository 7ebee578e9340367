#pragma once
// The triangular moving average of unevenly spaced points.

#include <kxgraph/numeric/Kxconsts.h>

namespace kx {

/// Replaces each Y[i] by the mean of all Y[l] with |X[i] - X[l]| < M, weighted by 1 - |X[i] - X[l]| / M.
/// Pairs the arrays up to the shorter one; elements beyond stay as they are. A point of which x or y is not
/// finite takes no part and stays as it is. An M that is not positive changes nothing. Where X neither
/// ascends nor descends, a mean takes in only the neighbours on each side up to the first one at a distance
/// of M or more.
///
/// Raises EMathError "Not enough data!" for fewer than three points (that take part, when M is positive).
///
/// O(N) for ascending or descending X, whatever M. The weights are linear in x on each side, so sums of 1, x,
/// y and xy serve; they are kept about a point in the window and only ever added to, with hardly any
/// rounding. So a result has the digits that its own window allows, wherever x is and whatever lies outside
/// the window. O(N * window) otherwise.
void SmoothVector(double M, const TKxRealArray& X, TKxRealArray& Y);

/// The same with distances |log10 X[i] - log10 X[l]|, M in decades. Raises EInvalidOp, before any change, for
/// an x that is not positive.
void SmoothVectorLog(double M, const TKxRealArray& X, TKxRealArray& Y);

} // namespace kx
