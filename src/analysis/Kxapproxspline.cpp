#include "analysis/Kxapproxspline.h"

#include "analysis/Kxmatrix.h"
#include "analysis/Kxsplinesmoother.h"
#include "numeric/Kxsort.h"
#include "numeric/Kxvector.h"
#include "platform/matherror.h"

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

constexpr int CLeastPoints = 6;
// Of the part of the band matrix that the weights make up, in proportion to the rest: nine digits are
// certain.
constexpr double CWellConditioned = 1e6;

[[noreturn]] void RaiseNotEnough() { throw EMathError("Not enough data!"); }

} // namespace

int TKxApproxSpline::TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                                const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights) {
    int n = std::min(XValues.GetCount(), YValues.GetCount());
    if (Weights) n = std::min(n, Weights->GetCount());
    for (TKxRealArray* array : {&X, &A, &W}) array->SetLength(n);
    const auto x = XValues.Values(), y = YValues.Values();
    int points = 0;
    for (int i = 0; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const double weight = Weights ? Weights->Values()[k] : 1;
        if (!(x[k] >= Start && x[k] <= Stop) || !std::isfinite(x[k]) || !std::isfinite(y[k])) continue;
        if (!std::isfinite(weight) || !std::isfinite(WeightFactor)) continue;
        X[points] = x[k];
        A[points] = y[k];
        W[points++] = std::min(std::abs(weight * WeightFactor), CMaxReal);
    }
    return points;
}

int TKxApproxSpline::MergeEqual(int Points) {
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
    if (points < CLeastPoints) RaiseNotEnough();
    QuickSortYWtoX(0, points - 1, X, A, W);
    const int knots = MergeEqual(points);
    if (knots < CLeastPoints) RaiseNotEnough();
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
    if (PrepareBand()) {
        SolveCurvatures();
        SmoothOrdinates();
    } else {
        const auto n = static_cast<std::size_t>(Count);
        if (!SmoothSpline({X.Data(), n}, {W.Data(), n}, {A.Data(), n}, {C.Data(), n})) RaiseNotEnough();
    }
    CompletePieces();
}

/// B becomes 6 / W. False when the band system is too ill-conditioned or not finite.
bool TKxApproxSpline::PrepareBand() {
    for (int i = 0; i < Count; ++i) B[i] = 6 / W[i];
    double worst = 0;
    for (int i = 0; i + 2 < Count; ++i) {
        const double r = 1 / (X[i + 1] - X[i]), next = 1 / (X[i + 2] - X[i + 1]);
        const double pull = B[i] * r * r + B[i + 1] * (r + next) * (r + next) + B[i + 2] * next * next;
        const double ratio = pull / (2 * (X[i + 2] - X[i]));
        if (!(ratio <= worst)) worst = ratio;
        if (!(worst <= CWellConditioned)) return false;
    }
    return true;
}

/// C becomes half the second derivative at each knot, from B = 6 / W.
void TKxApproxSpline::SolveCurvatures() {
    const int n = Count;
    TKxRealArray h(n), r(n);
    TKxRealMatrix q(n, 5);
    for (int i = 0; i < n - 1; ++i) {
        h[i] = X[i + 1] - X[i];
        r[i] = 1 / h[i];
        C[i] = r[i] * r[i];
    }
    for (int i = 1; i < n - 1; ++i) D[i] = r[i - 1] + r[i];
    for (int i = 2; i < n - 2; ++i) q[i - 2][4] = q[i][0] = B[i] * r[i - 1] * r[i];
    for (int i = 1; i < n - 2; ++i)
        q[i - 1][3] = q[i][1] = h[i] - B[i] * r[i] * D[i] - B[i + 1] * r[i] * D[i + 1];
    for (int i = 0; i < n - 2; ++i)
        q[i][2] = B[i] * C[i] + 2 * (h[i] + h[i + 1]) + B[i + 1] * D[i + 1] * D[i + 1] + B[i + 2] * C[i + 1];
    for (int i = 0; i < n - 2; ++i) C[i] = 3 * ((A[i + 2] - A[i + 1]) * r[i + 1] - (A[i + 1] - A[i]) * r[i]);
    SolveBand(n - 2, 2, 2, q, C);
    for (int i = n - 2; i > 0; --i) C[i] = C[i - 1];
    C[0] = C[n - 1] = 0;
}

void TKxApproxSpline::SmoothOrdinates() {
    const int last = Count - 1;
    double left = 0; // the slope of C in the piece before the knot
    for (int i = 0; i <= last; ++i) {
        const double right = i < last ? (C[i + 1] - C[i]) / (X[i + 1] - X[i]) : 0;
        A[i] -= B[i] / 3 * (right - left);
        left = right;
    }
}

void TKxApproxSpline::CompletePieces() {
    const int n = Count;
    for (int i = 0; i < n - 1; ++i) {
        const double h = X[i + 1] - X[i];
        B[i] = (A[i + 1] - A[i]) / h - (2 * C[i] + C[i + 1]) * h / 3;
        D[i] = (C[i + 1] - C[i]) / h / 3;
    }
    // Kept: the last knot has the slope of the one before it, and so the curve beyond the points.
    B[n - 1] = B[n - 2];
    D[n - 1] = 0;
    X[n] = X[n - 1];
    for (TKxRealArray* array : {&A, &B, &C, &D}) {
        (*array)[n] = (*array)[n - 1];
        for (const double v : *array) CheckedResult(v);
    }
}

} // namespace kx
