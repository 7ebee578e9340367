#pragma once
// Sorting of an X array that carries one or two arrays along.

#include <kxgraph/numeric/Kxconsts.h>

namespace kx {

/// Sorts X[iLo..iHi] ascending and applies every exchange to Y (and W) as well; iLo and iHi lie inside all
/// arrays. Not stable, but the order among equal X is always the same for the same input. A range of less
/// than two elements stays as it is; with NaNs among the X the order is unspecified. O(n log n) for any
/// order, stack depth O(log n): a quicksort, of which parts that get too deep are sorted as heaps.
void QuickSortYtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y);
void QuickSortYWtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y, TKxRealArray& W);

} // namespace kx
