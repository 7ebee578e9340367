#include "analysis/Kxinterpol.h"

#include <cmath>
#include <functional>
#include <span>
#include <vector>

namespace kx {

namespace {

/// The running integral as a function of x, over the pieces up to Last, which has no end.
class TIntegral {
public:
    /// Zero is at knot First.
    TIntegral(TKxIntPolynom& Curve, int First, int Last)
        : FCurve(Curve), FLast(Last), FSums(std::size_t(Last) + 1) {
        for (int i = First; i < Last; ++i) At(i + 1) = At(i) + Whole(i);
        for (int i = First; i > 0; --i) At(i - 1) = At(i) - Whole(i - 1);
    }

    double InPiece(int i, double x) { return double(At(i) + Part(i, (long double)(x)-FCurve.X[i])); }
    double operator()(double x) { return InPiece(std::min(FCurve.FindIndex(x), FLast), x); }

private:
    long double& At(int i) { return FSums[std::size_t(i)]; }
    long double Whole(int i) { return Part(i, (long double)(FCurve.X[i + 1]) - FCurve.X[i]); }
    long double Part(int i, long double h) {
        return (((FCurve.D[i] * h / 4 + FCurve.C[i] / 3.0L) * h + FCurve.B[i] / 2) * h + FCurve.A[i]) * h;
    }

    TKxIntPolynom& FCurve;
    int FLast;
    std::vector<long double> FSums; // at each knot
};

/// Halves its way to the extremum of Integral, from Base + Reach on, within twice Reach.
/// Kept: it meets the turning point only where the integral bends one way all over that range; else it ends
/// at another point of the curve.
template <class F>
TKxRealPos Refine(TIntegral& Integral, double Base, double Reach, F Better) {
    double p = Reach, step = Reach;
    for (int i = 0; i < 31; ++i, step /= 2)
        p += Better(Integral(Base + (p - step)), Integral(Base + (p + step))) ? -step : step;
    return {Base + p, Integral(Base + p)};
}

void Append(TKxRealPosArray& Array, const TKxRealPos& Pos) {
    Array.SetLength(Array.Length() + 1);
    Array[Array.High()] = Pos;
}

std::vector<double> FiniteOnes(std::span<const double> Values) {
    std::vector<double> finite;
    finite.reserve(Values.size());
    for (const double v : Values)
        if (std::isfinite(v)) finite.push_back(v);
    return finite;
}

} // namespace

void TKxIntPolynom::Integrate(const TKxCustomRealVector& XValues, TKxRealVector& YValues) {
    IntMinima.SetLength(0);
    IntMaxima.SetLength(0);
    const std::vector<double> integrals = IntegralsAt(FiniteOnes(XValues.Values()));
    auto next = integrals.begin();
    double value = 0;
    for (int k = 0, n = XValues.GetCount(); k < n; ++k) {
        if (std::isfinite(XValues.GetValue(k))) value = *next++;
        YValues.SetValue(k, value);
    }
}

/// For finite abscissae; finds the extrema too.
std::vector<double> TKxIntPolynom::IntegralsAt(const std::vector<double>& Abscissae) {
    const std::vector<double>& x = Abscissae;
    std::vector<double> y(x.size());
    if (x.empty()) return y;
    const int first = FindIndex(x[0]);
    // Kept: the number of abscissae bounds the pieces that are passed.
    const int last = std::max(first, std::min({int(x.size()) - 2, Count - 1, LastPiece()}));
    TIntegral integral(*this, first, last);
    int i = first;
    for (std::size_t k = 1; k < x.size(); ++k) {
        while (i < last && x[k] >= X[i + 1]) ++i;
        y[k] = integral.InPiece(i, x[k]);
        if (k < 2 || k + 1 == x.size()) continue;
        const double base = X[std::max(i - 2, 0)], before = y[k - 2], middle = y[k - 1];
        if (middle < before && middle <= y[k])
            Append(IntMinima, Refine(integral, base, x[k] - base, std::less<>()));
        else if (middle > before && middle >= y[k])
            Append(IntMaxima, Refine(integral, base, x[k] - base, std::greater<>()));
    }
    return y;
}

} // namespace kx
