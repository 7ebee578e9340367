#include <kxgraph/numeric/Kxsort.h>

#include <bit>
#include <cassert>
#include <utility>

namespace kx {

namespace {

/// Lets X[First + Root] sink in the heap of Count elements that begins at First.
template <class F>
void Sink(int First, int Root, int Count, const double* X, const F& Exchange) {
    for (int larger; Root < Count / 2; Root = larger) {
        larger = 2 * Root + 1;
        if (larger + 1 < Count && X[First + larger] < X[First + larger + 1]) ++larger;
        if (!(X[First + Root] < X[First + larger])) return;
        Exchange(First + Root, First + larger);
    }
}

template <class F>
void HeapSort(int First, int Last, const double* X, const F& Exchange) {
    int count = Last - First + 1;
    for (int root = count / 2; root-- > 0;) Sink(First, root, count, X, Exchange);
    while (count-- > 1) {
        Exchange(First, First + count);
        Sink(First, 0, count, X, Exchange);
    }
}

/// Sorts X[First..Last]; Exchange(i, j) exchanges the elements of all arrays.
/// Both scans stay inside the range for any values: at first the pivot stops them, later the elements that
/// they exchanged before, and a NaN, being neither less nor greater, stops them at once.
/// Partitions of partitions go Depth deep. Sweeps there and back again, whose middle holds an extreme, would
/// go as deep as they are long.
template <class F>
void SortRange(int First, int Last, int Depth, const double* X, const F& Exchange) {
    while (First < Last) {
        if (Depth-- == 0) return HeapSort(First, Last, X, Exchange);
        int lo = First;
        int hi = Last;
        const double pivot = X[First + (Last - First) / 2];
        do {
            while (X[lo] < pivot) ++lo;
            while (pivot < X[hi]) --hi;
            if (lo <= hi) Exchange(lo++, hi--);
        } while (lo <= hi);
        // Recursion into the smaller part bounds the stack.
        if (hi - First < Last - lo) {
            SortRange(First, hi, Depth, X, Exchange);
            First = lo;
        } else {
            SortRange(lo, Last, Depth, X, Exchange);
            Last = hi;
        }
    }
}

template <class F>
void Sort(int First, int Last, const double* X, const F& Exchange) {
    if (First < Last) SortRange(First, Last, 2 * std::bit_width(unsigned(Last - First)), X, Exchange);
}

[[maybe_unused]] bool Holds(const TKxRealArray& Array, int iLo, int iHi) {
    return iLo >= iHi || (iLo >= 0 && iHi < Array.Length());
}

} // namespace

void QuickSortYtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y) {
    assert(Holds(X, iLo, iHi) && Holds(Y, iLo, iHi));
    double* const x = X.Data();
    double* const y = Y.Data();
    Sort(iLo, iHi, x, [=](int i, int j) {
        std::swap(y[i], y[j]);
        std::swap(x[i], x[j]);
    });
}

void QuickSortYWtoX(int iLo, int iHi, TKxRealArray& X, TKxRealArray& Y, TKxRealArray& W) {
    assert(Holds(X, iLo, iHi) && Holds(Y, iLo, iHi) && Holds(W, iLo, iHi));
    double* const x = X.Data();
    double* const y = Y.Data();
    double* const w = W.Data();
    Sort(iLo, iHi, x, [=](int i, int j) {
        std::swap(w[i], w[j]);
        std::swap(y[i], y[j]);
        std::swap(x[i], x[j]);
    });
}

} // namespace kx
