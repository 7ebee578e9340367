#include <kxgraph/analysis/Kxakima.h>

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxsmoothing.h>
#include <kxgraph/numeric/Kxlanes.h>
#include <kxgraph/numeric/Kxsort.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

namespace kx {

namespace {

constexpr int CLeastPoints = 3;
constexpr int CBlock = 64; // so few that the stores of one overlap with the divisions of the next

/// Value, or Otherwise when Value is not finite. Without a branch, for loops to be vectorised.
double Held(double Value, double Otherwise = 0) { return Value - Value == 0 ? Value : Otherwise; }

/// Whether point i is a knot: it takes part and has a weight.
bool Takes(const TKxFitPoints& P, std::size_t i) { return P.Takes(i) && P.WeightAt(i) != 0; }

/// Whether all points of a block are knots and ascend.
bool TakesInOrder(const TKxFitPoints& P, std::size_t Begin, std::size_t End) {
    if (P.W || !Takes(P, Begin) || !Takes(P, End - 1)) return false;
    std::size_t i = Begin + 1;
    TKxLanesMask ordered = ~TKxLanesMask{};
    for (; i + CLanes <= End; i += CLanes) {
        const TKxLanes y = LoadLanes(P.Y + i);
        ordered &= (LoadLanes(P.X + i - 1) < LoadLanes(P.X + i)) & (y - y == 0);
    }
    if (!HoldsForAll(ordered)) return false;
    for (; i < End; ++i)
        if (!(P.X[i - 1] < P.X[i]) || !std::isfinite(P.Y[i])) return false;
    return true;
}

/// Out[i] = the slope of the chord from point i to the next.
void ChordSlopes(const double* __restrict X, const double* __restrict A, double* __restrict Out, int Chords) {
    for (int i = 0; i < Chords; ++i) Out[i] = Held((A[i + 1] - A[i]) / (X[i + 1] - X[i]));
}

/// B[i] from the chords M[i..i+3], of which the middle ones meet at the knot.
void KnotSlopes(const double* __restrict M, double* __restrict B, int Knots) {
    for (int i = 0; i < Knots; ++i) {
        const double left = std::abs(M[i + 3] - M[i + 2]), right = std::abs(M[i + 1] - M[i]);
        // Kept: between two straight stretches, where the quotient is 0 / 0, the knot has the slope of the
        // right one, not the mean of both.
        const double straight = Held((M[i + 2] + M[i + 3]) * 0.5);
        B[i] = Held((left * M[i + 1] + right * M[i + 2]) / (left + right), straight);
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

/// Puts Count points into X and A. As long as they ascend, what they determine of the coefficients follows at
/// once, while they are in the cache. Returns the number of pieces complete, or -1 when points do not ascend.
int TKxAkima::TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                         const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights) {
    const TKxFitPoints points = TKxFitPoints::Of(XValues, YValues, Weights).Within(Start, Stop);
    SetLengths(static_cast<int>(points.Count));
    bool ascending = true;
    const auto take = [&, x = X.Data(), a = A.Data()](std::size_t i, std::size_t Points) {
        ascending &= Count == 0 || x[Count - 1] < points.X[i];
        std::copy_n(points.X + i, Points, x + Count);
        std::copy_n(points.Y + i, Points, a + Count);
        Count += static_cast<int>(Points);
    };
    int pieces = 0;
    for (std::size_t begin = 0; begin < points.Count; begin += CBlock) {
        const std::size_t end = std::min<std::size_t>(begin + CBlock, points.Count);
        if (TakesInOrder(points, begin, end)) {
            take(begin, end - begin);
        } else {
            for (std::size_t i = begin; i < end; ++i)
                if (Takes(points, i)) take(i, 1);
        }
        if (ascending && !Smooth) pieces = CompletePieces(pieces);
    }
    return ascending ? pieces : -1;
}

/// Chords and coefficients as far as Count points determine them, the first Done pieces being complete.
/// Returns how many are complete then.
int TKxAkima::CompletePieces(int Done) {
    const int pieces = Count - 3;
    if (pieces <= Done) return Done;
    const int chords = Done > 0 ? Done + 2 : 0;
    ChordSlopes(X.Data() + chords, A.Data() + chords, M.Data() + 2 + chords, Count - 1 - chords);
    if (Done == 0) ExtrapolateLeft();
    CalcPieces(Done, pieces);
    return pieces;
}

/// Count becomes the number of distinct x.
void TKxAkima::SortAndMerge() {
    double* const x = X.Data();
    double* const y = A.Data();
    if (!std::is_sorted(x, x + Count)) QuickSortYtoX(0, Count - 1, X, A);
    int knots = 1;
    for (int i = 1; i < Count; ++i) {
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
    const int pieces = TakePoints(Start, Stop, *XValues, *YValues, Weights);
    if (Count >= CLeastPoints && pieces < 0) SortAndMerge();
    const int knots = std::exchange(Count, 0);
    if (knots < CLeastPoints) RaiseNotEnoughData();
    if (Smooth) {
        X.SetLength(knots);
        A.SetLength(knots);
        (SmoothLog ? SmoothVectorLog : SmoothVector)(SmoothM, X, A);
    }
    Count = knots;
    SetLengths(Count);
    if (pieces > 0)
        ExtrapolateRight();
    else
        Extrapolate();
    CalcCoeffsFrom(std::max(pieces, 0));
}

/// Of all arrays, for Knots knots.
void TKxAkima::SetLengths(int Knots) {
    for (TKxRealArray* array : {&X, &A, &B, &C, &D}) array->SetLength(Knots + 4);
    M.SetLength(Knots + 5);
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
    // Kept: the slope at X[Count] takes the first of them for the chord that is not there.
    M[n + 3] = M[n + 4] = 0;
}

void TKxAkima::Extrapolate() {
    SetLengths(Count);
    ChordSlopes(X.Data(), A.Data(), M.Data() + 2, Count - 1);
    ExtrapolateLeft();
    ExtrapolateRight();
}

void TKxAkima::CalcPieces(int Begin, int End) {
    KnotSlopes(M.Data() + Begin, B.Data() + Begin, End + 1 - Begin);
    PieceCoeffs(X.Data() + Begin, B.Data() + Begin, M.Data() + Begin + 2, C.Data() + Begin, D.Data() + Begin,
                End - Begin);
}

void TKxAkima::CalcCoeffsFrom(int Begin) {
    const int n = Count;
    for (; Begin < n; Begin += CBlock) CalcPieces(Begin, std::min(Begin + CBlock, n));
    B[n + 1] = B[n - 1];
    B[n + 2] = B[n];
    B[n + 3] = C[n + 3] = D[n + 3] = 0;
    PieceCoeffs(X.Data() + n, B.Data() + n, M.Data() + n + 2, C.Data() + n, D.Data() + n, 3);
    Index = 0;
}

void TKxAkima::CalcCoeffs() {
    ClearExtrema();
    CalcCoeffsFrom(0);
}

} // namespace kx
