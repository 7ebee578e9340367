// Akima's curve, the approximating spline, smoothing and sorting over all doubles.

#include "fuzz/fuzz.h"
#include "support/arrays.h"

#include <kxgraph/analysis/Kxakima.h>
#include <kxgraph/analysis/Kxapproxspline.h>
#include <kxgraph/analysis/Kxsmoothing.h>
#include <kxgraph/numeric/Kxsort.h>

namespace kx::fuzz::splinestarget {

using test::ArrayOf;

/// Knots ascend, coefficients are numbers, extrema lie in order, and integrals are not NaN where the curve is
/// mild.
void DemandCurve(TKxIntPolynom& Curve, bool PassesKnots) {
    KX_DEMAND(Curve.Count >= 3);
    for (int i = 0; i < Curve.Count; ++i) {
        KX_DEMAND(std::isfinite(Curve.X[i]) && std::isfinite(Curve.A[i]), +std::to_string(i));
        if (i > 0) KX_DEMAND(Curve.X[i] > Curve.X[i - 1], +std::to_string(i));
        KX_DEMAND(!PassesKnots || Curve.Interpolate(Curve.X[i]) == Curve.A[i], +std::to_string(i));
    }
    for (int i = 0; i < Curve.Count - 1; ++i)
        KX_DEMAND(std::isfinite(Curve.B[i]) && std::isfinite(Curve.C[i]) && std::isfinite(Curve.D[i]));
    Curve.FindExtrema();
    Curve.FindDiffExtrema();
    for (const auto* extrema : {&Curve.Minima, &Curve.Maxima})
        for (int i = 0; i < extrema->Length(); ++i) {
            KX_DEMAND(!std::isnan((*extrema)[i].X));
            if (i > 0) KX_DEMAND((*extrema)[i].X >= (*extrema)[i - 1].X);
        }
    TKxRealVector abscissae(nullptr), integrals(nullptr);
    const int count = 3 * Curve.Count;
    const double first = Curve.X[0], last = Curve.X[Curve.Count - 1];
    for (int i = 0; i <= count; ++i) abscissae.Add(first + (last / count - first / count) * i);
    Curve.Integrate(abscissae, integrals);
    KX_DEMAND(integrals.GetCount() == abscissae.GetCount() && integrals.GetValue(0) == 0);
}

template <class T>
void Try(T& Curve, bool PassesKnots, double Start, double Stop, TKxRealVector& X, TKxRealVector& Y,
         TKxRealVector* Weights) {
    try {
        Curve.RecalculateCoeffs(Start, Stop, &X, &Y, Weights);
    } catch (const EMathError&) {
        return KX_DEMAND(Curve.Count == 0);
    }
    DemandCurve(Curve, PassesKnots);
}

void DemandSorted(TKxRealArray X, TKxRealArray Y) {
    if (X.IsEmpty()) return;
    for (int i = 0; i < X.Length(); ++i)
        if (std::isnan(X[i])) return;
    QuickSortYtoX(0, X.High(), X, Y);
    for (int i = 1; i < X.Length(); ++i) KX_DEMAND(X[i] >= X[i - 1]);
}

void DemandSmoothed(double M, TKxRealArray X, const TKxRealArray& Y, bool Log) {
    TKxRealArray smooth = Y.Clone();
    try {
        (Log ? SmoothVectorLog : SmoothVector)(M, X, smooth);
    } catch (const EMathError&) {
        return;
    }
    double low = CMaxReal, high = -CMaxReal;
    for (const double y : Y)
        if (std::isfinite(y)) {
            low = std::min(low, y);
            high = std::max(high, y);
        }
    for (int i = 0; i < Y.Length(); ++i) { // a mean lies among its values
        if (!std::isfinite(X[i]) || !std::isfinite(Y[i])) continue;
        const double slack = 1e-9 * (std::fabs(low) + std::fabs(high));
        KX_DEMAND(smooth[i] >= low - slack && smooth[i] <= high + slack, +std::to_string(smooth[i]));
    }
}

KX_FUZZ(splines) {
    TKxAkima akima;
    TKxApproxSpline spline;
    const bool weighted = Data.Flag();
    const double start = Data.Flag() ? -CMaxReal : Data.Real(), stop = Data.Flag() ? CMaxReal : Data.Real();
    akima.Smooth = Data.Between(0, 3) == 0;
    akima.SmoothLog = akima.Smooth && Data.Flag();
    akima.SmoothM = Data.Real();
    spline.WeightFactor = Data.Flag() ? 1 : Data.Real();
    TPoints points;
    points.Take(Data, Data.Between(0, 24), weighted);
    TKxRealVector x(nullptr), y(nullptr), w(nullptr);
    x.AddValues(points.X);
    y.AddValues(points.Y);
    w.AddValues(points.W);
    Try(akima, true, start, stop, x, y, weighted ? &w : nullptr);
    Try(spline, false, start, stop, x, y, weighted ? &w : nullptr);
    DemandSorted(ArrayOf(points.X), ArrayOf(points.Y));
    DemandSmoothed(akima.SmoothM, ArrayOf(points.X), ArrayOf(points.Y), akima.SmoothLog);
}

} // namespace kx::fuzz::splinestarget
