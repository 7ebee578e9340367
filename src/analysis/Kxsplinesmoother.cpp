#include <kxgraph/analysis/Kxsplinesmoother.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace kx {

namespace {

/// Coefficients of the unknowns in their order of elimination, and the right side. P and Q are the second
/// derivatives at the two ends of a piece, G and S value and slope at a knot.
using TRow = std::array<double, 5>;
enum TUnknown { UnP, UnQ, UnG, UnS, UnRight };

/// Rotates two rows so that Other loses unknown K; earlier ones are gone from both.
inline void Rotate(TRow& Row, TRow& Other, int K) {
    const auto first = static_cast<std::size_t>(K);
    if (Other[first] == 0) return;
    const double length = std::sqrt(Row[first] * Row[first] + Other[first] * Other[first]);
    const double c = Row[first] / length, s = Other[first] / length;
    Row[first] = length;
    Other[first] = 0;
    for (std::size_t i = first + 1; i < Row.size(); ++i) {
        const double turned = c * Row[i] + s * Other[i];
        Other[i] = c * Other[i] - s * Row[i];
        Row[i] = turned;
    }
}

/// What is known about value and slope at a knot from the points up to it: two rows, the second without G.
struct TKnowledge {
    TRow Value{};
    TRow Slope{};

    void AddPoint(double Root, double Y) {
        TRow row{0, 0, Root, 0, Root * Y};
        Rotate(Value, row, UnG);
        Rotate(Slope, row, UnS);
    }
};

/// The second derivatives of a piece in terms of value and slope at its right end.
struct TPiece {
    double P, PQ, PG, PS, PRight;
    double Q, QG, QS, QRight;
};

/// Moves to the next knot, Width further on. Value and slope there replace those here by
/// s = S - h (P + Q) / 2, g = G - h S + h^2 (P / 6 + Q / 3); the integral over the piece adds the squares of
/// sqrt(h / 3) (P + Q / 2) and sqrt(h / 4) Q.
TPiece Move(TKnowledge& Known, double Width) {
    TRow& value = Known.Value;
    TRow& slope = Known.Slope;
    const double half = Width / 2;
    value[UnP] = Width * (value[UnG] * Width / 6 - value[UnS] / 2);
    value[UnQ] = Width * (value[UnG] * Width / 3 - value[UnS] / 2);
    value[UnS] -= value[UnG] * Width;
    slope[UnP] = slope[UnQ] = -half * slope[UnS];

    const double bend = std::sqrt(Width / 3);
    TRow p{bend, bend / 2, 0, 0, 0}, q{0, std::sqrt(half / 2), 0, 0, 0};
    Rotate(p, value, UnP);
    Rotate(p, slope, UnP);
    Rotate(q, value, UnQ);
    Rotate(q, slope, UnQ);
    Rotate(value, slope, UnG);
    return {p[UnP], p[UnQ], p[UnG], p[UnS], p[UnRight], q[UnQ], q[UnG], q[UnS], q[UnRight]};
}

/// The roots of the weights in units where the mean distance of knots is 1. Weights beyond what could change
/// the curve are moved to where their squares neither overflow nor vanish: above 1e120 the spline passes
/// through the points, below 1e-50 it is straight.
std::vector<double> ScaledRoots(std::span<const double> Weights, double Unit) {
    constexpr double least = 1e-75, straight = 1e-25, through = 1e60;
    std::vector<double> roots(Weights.size());
    const double scale = Unit * std::sqrt(Unit);
    std::ranges::transform(Weights, roots.begin(), [](double w) { return std::sqrt(w); });
    const double largest = *std::ranges::max_element(roots);
    const bool isStraight = largest * scale < straight;
    for (double& root : roots)
        if (root > 0)
            root = std::clamp(isStraight ? root / largest * straight : root * scale, least, through);
    return roots;
}

} // namespace

bool SmoothSpline(std::span<const double> X, std::span<const double> Weights, std::span<double> Y,
                  std::span<double> Curvatures) {
    const std::size_t last = X.size() - 1;
    const double unit = (X[last] - X[0]) / static_cast<double>(last);
    const std::vector<double> roots = ScaledRoots(Weights, unit);
    if (std::ranges::count_if(roots, [](double r) { return r > 0; }) < 2) return false;

    TKnowledge known;
    std::vector<TPiece> pieces(last);
    known.AddPoint(roots[0], Y[0]);
    for (std::size_t i = 0; i < last; ++i) {
        pieces[i] = Move(known, (X[i + 1] - X[i]) / unit);
        known.AddPoint(roots[i + 1], Y[i + 1]);
    }
    double s = known.Slope[UnRight] / known.Slope[UnS];
    double g = (known.Value[UnRight] - known.Value[UnS] * s) / known.Value[UnG];
    Y[last] = g;
    Curvatures[last] = 0;
    for (std::size_t i = last; i-- > 0;) {
        const TPiece& piece = pieces[i];
        const double h = (X[i + 1] - X[i]) / unit;
        const double q = (piece.QRight - piece.QG * g - piece.QS * s) / piece.Q;
        const double p = (piece.PRight - piece.PQ * q - piece.PG * g - piece.PS * s) / piece.P;
        g += h * (h * (p / 6 + q / 3) - s);
        s -= h * (p + q) / 2;
        Y[i] = g;
        Curvatures[i] = p / 2 / unit / unit;
    }
    Curvatures[0] = 0;
    return true;
}

} // namespace kx
