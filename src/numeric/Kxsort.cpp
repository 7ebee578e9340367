#include "numeric/Kxsort.h"

#include <cassert>
#include <utility>

namespace kx {

namespace {

/// Sorts X[First..Last]; Exchange(i, j) exchanges the elements of all arrays.
/// Both scans stay inside the range for any values: at first the pivot stops them, later the elements that
/// they exchanged before, and a NaN, being neither less nor greater, stops them at once.
template <class F>
void SortRange(int First, int Last, const double* X, const F& Exchange) {
    while (First < Last) {
        int lo = First;
        int hi = Last;
        const double pivot = X[First + (Last - First) / 2];
        do {
            while (X[lo] < pivot) ++lo;
            while (pivot < X[hi]) --hi;
            if (lo <= hi) Exchange(lo++, hi--);
        } while (lo <= hi);
        // Recursion into the smaller part bounds the depth, also where the pivots are bad ones.
        if (hi - First < Last - lo) {
            SortRange(First, hi, X, Exchange);
            First = lo;
        } else {
            SortRange(lo, Last, X, Exchange);
            Last = hi;
        }
    }
}

[[maybe_unused]] bool Holds(const TKxRealArray& Array, int iLo, int iHi) {
    return iLo >= iHi || (iLo >= 0 && iHi < Array.Length());
}

} // namespace

void QuickSortYtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y) {
    assert(Holds(X, iLo, iHi) && Holds(Y, iLo, iHi));
    double* const x = X.Data();
    double* const y = Y.Data();
    SortRange(iLo, iHi, x, [=](int i, int j) {
        std::swap(y[i], y[j]);
        std::swap(x[i], x[j]);
    });
}

void QuickSortYWtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y, TKxRealArray& W) {
    assert(Holds(X, iLo, iHi) && Holds(Y, iLo, iHi) && Holds(W, iLo, iHi));
    double* const x = X.Data();
    double* const y = Y.Data();
    double* const w = W.Data();
    SortRange(iLo, iHi, x, [=](int i, int j) {
        std::swap(w[i], w[j]);
        std::swap(y[i], y[j]);
        std::swap(x[i], x[j]);
    });
}

} // namespace kx
