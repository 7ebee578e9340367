// The running integral of the curve, and its extrema.

#include <kxgraph/analysis/Kxinterpol.h>

#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace kx {

namespace {

std::vector<double> FiniteOnes(std::span<const double> Values) {
    std::vector<double> finite;
    finite.reserve(Values.size());
    for (const double v : Values)
        if (std::isfinite(v)) finite.push_back(v);
    return finite;
}

int SignOf(double Value) { return (Value > 0) - (Value < 0); }

} // namespace

TKxRunningIntegral::TKxRunningIntegral(TKxIntPolynom& Curve, double From)
    : FCurve(Curve), FSums(std::size_t(std::max(Curve.LastPiece(), 0)) + 1) {
    const int first = Curve.FindIndex(From), last = Curve.LastPiece();
    const auto at = [this](int Piece) -> long double& { return FSums[std::size_t(Piece)]; };
    const auto whole = [&](int Piece) {
        return Part(Piece, (long double)(Curve.X[Piece + 1]) - Curve.X[Piece]);
    };
    at(first) = From > Curve.X[first] ? -Part(first, (long double)(From)-Curve.X[first]) : 0;
    for (int i = first; i < last; ++i) at(i + 1) = at(i) + whole(i);
    for (int i = first; i > 0; --i) at(i - 1) = at(i) - whole(i - 1);
}

double TKxRunningIntegral::InPiece(int Piece, double x) const {
    return double(FSums[std::size_t(Piece)] + Part(Piece, (long double)(x)-FCurve.X[Piece]));
}

long double TKxRunningIntegral::Part(int i, long double h) const {
    return (((FCurve.D[i] * h / 4 + FCurve.C[i] / 3.0L) * h + FCurve.B[i] / 2) * h + FCurve.A[i]) * h;
}

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
    int i = FindIndex(x[0]);
    const TKxRunningIntegral integral(*this, X[i]);
    // Kept: the number of abscissae bounds the pieces that are passed.
    const int last = std::max(i, std::min({int(x.size()) - 2, Count - 1, LastPiece()}));
    for (std::size_t k = 1; k < x.size(); ++k) {
        while (i < last && x[k] >= X[i + 1]) ++i;
        y[k] = integral.InPiece(i, x[k]);
    }
    FindIntExtrema(integral);
    return y;
}

/// Places in a piece, from its knot to the next one, between which the curve goes one way.
TKxIntPolynom::TPlaces TKxIntPolynom::MonotoneParts(int Piece) const {
    const double end = X[Piece + 1] - X[Piece];
    const auto [plus, minus] = LevelPoints(Piece);
    TPlaces places{{0}, 1};
    for (const double t : {std::min(plus, minus), std::max(plus, minus)})
        if (t > 0 && t < end) places.At[places.Count++] = t;
    places.At[places.Count++] = end;
    return places;
}

/// 0 for what may be nothing but rounding, where the curve touches 0.
int TKxIntPolynom::SignIn(int Piece, double t) const {
    const double value = ValueIn(Piece, t), s = std::abs(t);
    const double terms = ((std::abs(D[Piece]) * s + std::abs(C[Piece])) * s + std::abs(B[Piece])) * s;
    const double rounding = 4 * std::numeric_limits<double>::epsilon() * (terms + std::abs(A[Piece]));
    return std::abs(value) <= rounding ? 0 : SignOf(value);
}

/// Where a piece gets the Sign that it has behind To but not at From.
double TKxIntPolynom::Crossing(int Piece, double From, double To, int Sign) const {
    constexpr int CHalvings = 100;
    for (int i = 0; i < CHalvings; ++i) {
        const double middle = From + (To - From) / 2;
        if (middle == From || middle == To) break;
        (SignOf(ValueIn(Piece, middle)) == Sign ? To : From) = middle;
    }
    return std::min(X[Piece] + To, X[Piece + 1]);
}

void TKxIntPolynom::FindIntExtrema(const TKxRunningIntegral& Integral) {
    IntMinima.SetLength(0);
    IntMaxima.SetLength(0);
    const int pieces = std::min(Count - 1, LastPiece());
    int sign = pieces > 0 ? SignOf(A[0]) : 0;
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    double zero = nowhere; // where the curve came to 0 from that sign
    for (int i = 0; i < pieces; ++i) {
        const auto [at, count] = MonotoneParts(i);
        for (int k = 1; k < count; ++k) {
            const bool atKnot = k + 1 == count;
            const int next = atKnot && i < A.High() ? SignOf(A[i + 1]) : SignIn(i, at[k]);
            if (next == 0) {
                if (std::isnan(zero)) zero = atKnot ? X[i + 1] : X[i] + at[k];
                continue;
            }
            if (sign * next < 0) {
                const double x = std::isnan(zero) ? Crossing(i, at[k - 1], at[k], next) : zero;
                TKxRealPosArray& found = next > 0 ? IntMinima : IntMaxima;
                found.SetLength(found.Length() + 1);
                found[found.High()] = {x, Integral(x)};
            }
            sign = next;
            zero = nowhere;
        }
    }
}

} // namespace kx
