#include <kxgraph/analysis/Kxinterpol.h>

#include <kxgraph/analysis/Kxfitpoints.h>

#include <cmath>
#include <functional>

namespace kx {

namespace {

void Append(TKxRealPosArray& Array, double x, double y) {
    const int n = Array.Length();
    Array.SetLength(n + 1);
    Array[n] = {x, y};
}

} // namespace

void TKxIntPolynom::RecalculateCoeffs(double, double, TKxCustomRealVector*, TKxCustomRealVector*,
                                      TKxCustomRealVector*) {}

int TKxIntPolynom::Search(double x) {
    const int last = LastPiece();
    if (last < 0) RaiseNotEnoughData();
    constexpr int CNear = 16; // so many pieces are passed faster than halved
    const double* const knots = X.Data();
    int i = std::clamp(Index, 0, last);
    for (int steps = 0; steps < CNear && i < last && x >= knots[i + 1]; ++steps) ++i;
    for (int steps = 0; steps < CNear && i > 0 && x < knots[i]; ++steps) --i;
    const bool found = (i == 0 || x >= knots[i]) && (i == last || x < knots[i + 1]);
    if (!found) i = std::max(int(std::upper_bound(knots, knots + last + 1, x) - knots) - 1, 0);
    return Index = i;
}

void TKxIntPolynom::ClearExtrema() {
    for (TKxRealPosArray* array : {&Minima, &Maxima, &DiffMinima, &DiffMaxima, &IntMinima, &IntMaxima})
        array->SetLength(0);
}

void TKxIntPolynom::AddExtremum(double x) {
    // Kept: without curvature the point counts as a minimum, so a level point of inflection is two of them.
    Append(Curvature(x) < 0 ? Maxima : Minima, x, Interpolate(x));
}

// Not finite where the slope never vanishes.
TKxIntPolynom::TLevelPoints TKxIntPolynom::LevelPoints(int i) const {
    const double a = 3 * D[i];
    const double discriminant = C[i] * C[i] - a * B[i];
    if (!(discriminant >= 0) || std::isinf(discriminant)) return {NAN, NAN};
    // The root of greater magnitude, and the other one by their product B / 3D: so no digits cancel.
    const double q = -(C[i] + std::copysign(std::sqrt(discriminant), C[i]));
    const double greater = q == 0 ? 0 : q / a, other = q == 0 ? 0 : B[i] / q;
    return std::signbit(C[i]) ? TLevelPoints{greater, other} : TLevelPoints{other, greater};
}

void TKxIntPolynom::FindExtremaOfPiece(int i) {
    if (D[i] == 0) return;
    const auto [plus, minus] = LevelPoints(i);
    // The slopes of two pieces differ at their knot by rounding: an extremum there must not fall between
    // them.
    const double first = -RoundingAt(i), end = X[i + 1] - X[i] - RoundingAt(i + 1);
    // In order, for where both are nearly one they may count as the same kind.
    for (const double t : {std::min(plus, minus), std::max(plus, minus)})
        if (t >= first && t < end) AddExtremum(std::max(X[i], X[i] + t));
}

double TKxIntPolynom::RoundingAt(int Knot) const {
    constexpr double COfPiece = 1e-9;
    if (Knot <= 0 || Knot >= Count - 1) return 0;
    return COfPiece * std::min(X[Knot] - X[Knot - 1], X[Knot + 1] - X[Knot]);
}

void TKxIntPolynom::FindExtrema() {
    Minima.SetLength(0);
    Maxima.SetLength(0);
    const int pieces = std::min(Count - 1, LastPiece());
    for (int i = 0; i < pieces; ++i) FindExtremaOfPiece(i);
}

double TKxIntPolynom::SlopeAtInflection(int Piece, double Otherwise, double& x) {
    if (D[Piece] == 0) return Otherwise;
    // Kept: the inflection may lie outside its piece; the slope is then that of the curve there.
    x = X[Piece] - C[Piece] / (3 * D[Piece]);
    const double slope = std::isfinite(x) ? Slope(x) : Otherwise;
    return std::isfinite(slope) ? slope : Otherwise;
}

void TKxIntPolynom::FindDiffExtrema() {
    DiffMinima.SetLength(0);
    DiffMaxima.SetLength(0);
    const auto find = [this](int i, auto Better, double Worst, TKxRealPosArray& Found) {
        double leftX = 0, rightX = 0;
        const double left = SlopeAtInflection(i - 1, Worst, leftX),
                     right = SlopeAtInflection(i, Worst, rightX);
        if (Better(left, right))
            Append(Found, leftX, left);
        else if (right != Worst)
            Append(Found, rightX, right);
    };
    for (int i = 1, knots = std::min(Count - 1, LastPiece()); i < knots; ++i) {
        if (B[i] < B[i - 1] && B[i] <= B[i + 1]) find(i, std::less<>(), CMaxReal, DiffMinima);
        if (B[i] > B[i - 1] && B[i] >= B[i + 1]) find(i, std::greater<>(), -CMaxReal, DiffMaxima);
    }
}

} // namespace kx
