#include <kxgraph/analysis/Kxapproxspline.h>

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxsplinesmoother.h>
#include <kxgraph/numeric/Kxsort.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/base/matherror.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

constexpr int CLeastPoints = 6;
// Of the part of the band matrix that the weights make up, in proportion to the rest: nine digits are
// certain.
constexpr double CWellConditioned = 1e6;

} // namespace

int TKxApproxSpline::TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                                const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights) {
    const TKxFitPoints source = TKxFitPoints::Of(XValues, YValues, Weights).Within(Start, Stop);
    for (TKxRealArray* array : {&X, &A, &W}) array->SetLength(static_cast<int>(source.Count));
    double *const outX = X.Data(), *const outY = A.Data(), *const outW = W.Data();
    if (!std::isfinite(WeightFactor)) return 0;
    int points = 0;
    for (std::size_t i = 0; i < source.Count; ++i) {
        if (!source.Takes(i)) continue;
        outX[points] = source.X[i];
        outY[points] = source.Y[i];
        outW[points++] = std::min(std::abs(source.WeightAt(i) * WeightFactor), CMaxReal);
    }
    return points;
}

int TKxApproxSpline::MergeEqual(int Points) {
    if (std::adjacent_find(X.begin(), X.begin() + Points) == X.begin() + Points) return Points;
    int knots = 1;
    for (int i = 1; i < Points; ++i) {
        if (X[i] == X[knots - 1]) {
            A[knots - 1] = A[knots - 1] / 2 + A[i] / 2;
            W[knots - 1] = W[knots - 1] / 2 + W[i] / 2;
        } else {
            X[knots] = X[i];
            A[knots] = A[i];
            W[knots++] = W[i];
        }
    }
    return knots;
}

void TKxApproxSpline::RecalculateCoeffs(double Start, double Stop, TKxCustomRealVector* XValues,
                                        TKxCustomRealVector* YValues, TKxCustomRealVector* Weights) {
    Count = 0;
    const int points = TakePoints(Start, Stop, *XValues, *YValues, Weights);
    if (points < CLeastPoints) RaiseNotEnoughData();
    const double* const x = X.Data();
    if (!std::is_sorted(x, x + points)) QuickSortYWtoX(0, points - 1, X, A, W);
    const int knots = MergeEqual(points);
    if (knots < CLeastPoints) RaiseNotEnoughData();
    for (TKxRealArray* array : {&X, &A, &B, &C, &D, &W}) array->SetLength(knots + 1);
    Count = knots;
    try {
        CalcCoeffs();
    } catch (...) {
        Count = 0;
        throw;
    }
}

void TKxApproxSpline::CalcCoeffs() {
    Index = 0;
    for (TKxRealPosArray* array : {&Minima, &Maxima, &DiffMinima, &DiffMaxima, &IntMinima, &IntMaxima})
        array->SetLength(0);
    if (SolveCurvatures()) {
        SmoothOrdinates();
    } else {
        const auto n = static_cast<std::size_t>(Count);
        if (!SmoothSpline({X.Data(), n}, {W.Data(), n}, {A.Data(), n}, {C.Data(), n}, {B.Data(), n},
                          {D.Data(), n}))
            RaiseNotEnoughData();
    }
    CompletePieces();
}

namespace {

/// What the band system takes from a knot and the distance to the next one.
struct TKnot {
    double H, R;  ///< distance and its inverse
    double Pull;  ///< 6 / weight
    double Chord; ///< slope to the next knot
};

TKnot KnotAt(int i, const double* X, const double* A, const double* W) {
    const double h = X[i + 1] - X[i], r = 1 / h;
    return {h, r, 6 / W[i], (A[i + 1] - A[i]) * r};
}

/// One row after its elimination: pivot and what lies right of it, that divided by the pivot, and the right
/// side.
struct TRow {
    double First = 0, Second = 0;
    double ByPivot1 = 0, ByPivot2 = 0;
    double Right = 0;
};

} // namespace

/// C becomes half the second derivative at each knot. The elimination of SolveBand for this symmetric band of
/// width 2, row by row as the rows come into being: no matrix is stored, the factors stand in D and B. False
/// when the system is too ill-conditioned or not finite.
bool TKxApproxSpline::SolveCurvatures() {
    const int rows = Count - 2;
    const double *const x = X.Data(), *const a = A.Data(), *const w = W.Data();
    double *const b = B.Data(), *const c = C.Data(), *const d = D.Data();
    TKnot k0 = KnotAt(0, x, a, w), k1 = KnotAt(1, x, a, w);
    TRow last, before;
    for (int i = 0; i < rows; ++i) {
        const bool hasNext = i + 1 < rows; // beyond the last row there is only its end
        const TKnot k2 = hasNext ? KnotAt(i + 2, x, a, w) : TKnot{1, 0, 6 / w[i + 2], 0};
        const double sum = k0.R + k1.R, stiff = 2 * (k0.H + k1.H);
        const double pull = k0.Pull * k0.R * k0.R + k1.Pull * sum * sum + k2.Pull * k1.R * k1.R;
        if (!(pull <= CWellConditioned * stiff)) return false;
        TRow row;
        const double diagonal = stiff + pull - last.ByPivot1 * last.First - before.ByPivot2 * before.Second;
        if (hasNext)
            row.First =
                k1.H - k1.Pull * k1.R * sum - k2.Pull * k1.R * (k1.R + k2.R) - last.ByPivot1 * last.Second;
        if (i + 2 < rows) row.Second = k2.Pull * k1.R * k2.R;
        const double inverse = 1 / diagonal;
        row.ByPivot1 = row.First * inverse;
        row.ByPivot2 = row.Second * inverse;
        row.Right = 3 * (k1.Chord - k0.Chord) - last.ByPivot1 * last.Right - before.ByPivot2 * before.Right;
        c[i + 1] = row.Right * inverse;
        d[i + 1] = row.ByPivot1;
        b[i + 1] = row.ByPivot2;
        before = last;
        last = row;
        k0 = k1;
        k1 = k2;
    }
    c[0] = c[rows + 1] = c[rows + 2] = 0;
    double next = 0, second = 0;
    for (int i = rows; i > 0; --i) {
        const double value = c[i] - d[i] * next - b[i] * second;
        second = next;
        c[i] = next = value;
    }
    return true;
}

void TKxApproxSpline::SmoothOrdinates() {
    const int last = Count - 1;
    const double *const x = X.Data(), *const c = C.Data(), *const w = W.Data();
    double* const a = A.Data();
    double left = 0; // the slope of C in the piece before the knot
    for (int i = 0; i < last; ++i) {
        const double right = (c[i + 1] - c[i]) / (x[i + 1] - x[i]);
        a[i] -= 2 / w[i] * (right - left);
        left = right;
    }
    a[last] += 2 / w[last] * left;
}

void TKxApproxSpline::CompletePieces() {
    const int n = Count;
    const double *const x = X.Data(), *const a = A.Data(), *const c = C.Data();
    double *const b = B.Data(), *const d = D.Data();
    double notFinite = 0;
    for (int i = 0; i < n - 1; ++i) {
        const double h = x[i + 1] - x[i], r = 1 / h;
        b[i] = (a[i + 1] - a[i]) * r - (2 * c[i] + c[i + 1]) * h * (1.0 / 3);
        d[i] = (c[i + 1] - c[i]) * r * (1.0 / 3);
    }
    for (int i = 0; i < n - 1; ++i) notFinite += (a[i] - a[i]) + ((b[i] - b[i]) + (d[i] - d[i]));
    if (notFinite != 0) // or NaN
        for (TKxRealArray* array : {&A, &B, &C, &D})
            for (int i = 0; i < n - 1; ++i) CheckedResult((*array)[i]);
    // Kept: the last knot has the slope of the one before it, and so the curve beyond the points.
    b[n - 1] = b[n - 2];
    d[n - 1] = 0;
    X[n] = X[n - 1];
    for (TKxRealArray* array : {&A, &B, &C, &D}) (*array)[n] = CheckedResult((*array)[n - 1]);
}

} // namespace kx
