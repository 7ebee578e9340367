#include "analysis/Kxakima.h"

#include "analysis/Kxsmoothing.h"
#include "numeric/Kxsort.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <tuple>
#include <utility>

namespace kx {

namespace {

constexpr int CLeastPoints = 3;
constexpr int CBlock = 256;

/// Value, or Otherwise when Value is not finite. Without a branch, for loops to be vectorised.
double Held(double Value, double Otherwise = 0) { return Value - Value == 0 ? Value : Otherwise; }

bool AllUsable(const double* X, const double* Y, double Start, double Stop) {
    std::int64_t usable = -1;
    for (int i = 0; i < CBlock; ++i) {
        usable &= -std::int64_t(X[i] >= Start) & -std::int64_t(X[i] <= Stop) & -std::int64_t(X[i]-X[i]+(Y[i]-Y[i])==0);
    }
    return usable;
}

/// Out[i] = the slope of the chord from point i to the next.
void ChordSlopes(const double* __restrict X, const double* __restrict A, double* __restrict Out, int Chords) {
    for (int i = 0; i < Chords; ++i) Out[i] = Held((A[i + 1] - A[i]) / (X[i + 1] - X[i]));
}

/// B[i] from the chords M[i..i+3], of which the middle ones meet at the knot.
void KnotSlopes(const double* __restrict M, double* __restrict B, int Knots) {
    for (int i = 0; i < Knots; ++i) {
        const double left = std::abs(M[i + 3] - M[i + 2]), right = std::abs(M[i + 1] - M[i]);
        const double weighted = Held((left * M[i + 1] + right * M[i + 2]) / (left + right));
        // Kept: between two straight stretches the knot has the slope of the right one, not the mean of both.
        const double straight = (M[i + 2] + M[i + 3]) * 0.5;
        B[i] = left + right == 0 ? straight : weighted;
    }
}

/// The upper coefficients of pieces with chords M.
void PieceCoeffs(const double* __restrict X, const double* __restrict B, const double* __restrict M,
                 double* __restrict C, double* __restrict D, int Pieces) {
    for (int i = 0; i < Pieces; ++i) {
        const double h = X[i + 1] - X[i];
        C[i] = Held((3 * M[i] - 2 * B[i] - B[i + 1]) / h);
        D[i] = Held((B[i] + B[i + 1] - 2 * M[i]) / (h * h));
    }
}

} // namespace

/// Returns the number of points, which are then in X and A.
int TKxAkima::TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                         const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights) {
    int n = std::min(XValues.GetCount(), YValues.GetCount());
    if (Weights) n = std::min(n, Weights->GetCount());
    for (TKxRealArray* array : {&X, &A}) array->SetLength(n + 4);
    const double* const x = XValues.Values().data();
    const double* const y = YValues.Values().data();
    const double* const w = Weights ? Weights->Values().data() : nullptr;
    double* const outX = X.Data();
    double* const outY = A.Data();
    int points = 0;
    for (int i = 0; i < n; ++i) {
        if (i % CBlock == 0 && !w && i + CBlock <= n && AllUsable(x + i, y + i, Start, Stop)) {
            std::copy_n(x + i, CBlock, outX + points);
            std::copy_n(y + i, CBlock, outY + points);
            points += CBlock;
            i += CBlock - 1;
            continue;
        }
        if (!(x[i] >= Start && x[i] <= Stop) || !std::isfinite(x[i]) || !std::isfinite(y[i])) continue;
        if (w && (w[i] == 0 || !std::isfinite(w[i]))) continue;
        outX[points] = x[i];
        outY[points++] = y[i];
    }
    return points;
}

/// Sorts and merges the points; Count becomes the number of knots.
void TKxAkima::OrderPoints(int Points) {
    double* const x = X.Data();
    double* const y = A.Data();
    bool ascending = true, distinct = true;
    for (int i = 1; i < Points; ++i) {
        ascending &= x[i - 1] <= x[i];
        distinct &= x[i - 1] < x[i];
    }
    if (!ascending) QuickSortYtoX(0, Points - 1, X, A);
    Count = Points;
    if (distinct) return;
    int knots = 1;
    for (int i = 1; i < Points; ++i) {
        if (x[i] == x[knots - 1]) {
            // Kept: not the mean of all, so later ones weigh more.
            y[knots - 1] = std::midpoint(y[knots - 1], y[i]);
        } else {
            x[knots] = x[i];
            y[knots++] = y[i];
        }
    }
    Count = knots;
}

void TKxAkima::RecalculateCoeffs(double Start, double Stop, TKxCustomRealVector* XValues,
                                 TKxCustomRealVector* YValues, TKxCustomRealVector* Weights) {
    Count = 0;
    ClearExtrema();
    const int points = TakePoints(Start, Stop, *XValues, *YValues, Weights);
    if (points >= CLeastPoints) OrderPoints(points);
    const int knots = std::exchange(Count, 0);
    if (knots < CLeastPoints) throw EMathError("Not enough data!");
    if (Smooth) {
        X.SetLength(knots);
        A.SetLength(knots);
        (SmoothLog ? SmoothVectorLog : SmoothVector)(SmoothM, X, A);
    }
    Count = knots;
    Extrapolate();
    CalcCoeffs();
}

void TKxAkima::ExtrapolateLeft() {
    const double x1 = X[0] + X[1] - X[2], x0 = x1 + X[0] - X[1];
    const double a1 = Held((M[3] - 2 * M[2]) * (X[0] - x1) + A[0], A[0]);
    M[1] = Held((A[0] - a1) / (X[0] - x1));
    const double a0 = Held((M[2] - 2 * M[1]) * (x1 - x0) + a1, a1);
    M[0] = Held((a1 - a0) / (x1 - x0));
}

void TKxAkima::ExtrapolateRight() {
    const int n = Count;
    // Rounding may let the first of them fall behind the last point, far from zero.
    const double x1 = std::max(X[n - 1], X[n - 1] + X[n - 2] - X[n - 3]), x2 = x1 + X[n - 1] - X[n - 2];
    const double a1 = Held((x1 - X[n - 1]) * (2 * M[n] - M[n - 1]) + A[n - 1], A[n - 1]);
    M[n + 1] = Held((a1 - A[n - 1]) / (x1 - X[n - 1]));
    const double a2 = Held((x2 - x1) * (2 * M[n + 1] - M[n]) + a1, a1);
    M[n + 2] = Held((a2 - a1) / (x2 - x1));
    // Kept: the last point comes again between the extrapolated ones.
    for (const auto& [i, x, a] :
         {std::tuple(n, x1, a1), {n + 1, X[n - 1], A[n - 1]}, {n + 2, x1, a1}, {n + 3, x2, a2}}) {
        X[i] = x;
        A[i] = a;
    }
}

void TKxAkima::Extrapolate() {
    X.SetLength(Count + 4);
    A.SetLength(Count + 4);
    M.SetLength(Count + 5);
    ChordSlopes(X.Data(), A.Data(), M.Data() + 2, Count - 1);
    ExtrapolateLeft();
    ExtrapolateRight();
    M[Count + 3] = M[Count + 4] = 0;
}

void TKxAkima::CalcCoeffs() {
    ClearExtrema();
    for (TKxRealArray* array : {&B, &C, &D}) array->SetLength(Count + 4);
    // Kept: the slope at X[Count] takes M[Count + 3], which is 0, for the chord that is not there.
    constexpr int CBlock=512;
    KnotSlopes(M.Data(), B.Data(), 1);
    int i = 0;
    for (; i < Count; i += CBlock) {
        const int n = std::min(CBlock, Count - i);
        KnotSlopes(M.Data() + i+1, B.Data()+i+1, n);
        PieceCoeffs(X.Data() + i, B.Data() + i, M.Data() + i + 2, C.Data() + i, D.Data() + i, n);
    }
    B[Count + 1] = B[Count - 1];
    B[Count + 2] = B[Count];
    B[Count + 3] = C[Count + 3] = D[Count + 3] = 0;
    i = Count;
    PieceCoeffs(X.Data() + i, B.Data() + i, M.Data() + i + 2, C.Data() + i, D.Data() + i, 3);
    Index = 0;
}

} // namespace kx
