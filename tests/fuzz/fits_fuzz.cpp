// Lines, polynomials and the simplex over all doubles: refused, or every result a number that can be shown.

#include "fuzz/fuzz.h"

#include <kxgraph/analysis/Kxcurvature.h>
#include <kxgraph/analysis/Kxlinregr.h>
#include <kxgraph/analysis/Kxpolyregr.h>
#include <kxgraph/analysis/Kxsimplex.h>

namespace kx::fuzz::fitstarget {

using TValues = std::vector<double>;
struct TCase : TPoints {
    double Start, Stop;
};

int Taking(const TCase& C, bool Weighted) {
    int count = 0;
    for (std::size_t i = 0; i < C.X.size(); ++i)
        count += C.X[i] >= C.Start && C.X[i] <= C.Stop && std::isfinite(C.X[i]) && std::isfinite(C.Y[i]) &&
                 (!Weighted || std::isfinite(C.W[i]));
    return count;
}

void DemandLine(const TCase& Case, bool Weighted, bool FixedOffset, double Offset) {
    TKxLinearRegessionResults r;
    r.Offset = Offset;
    try {
        const std::span<const double> x = Case.X, y = Case.Y, w = Case.W;
        if (Weighted && FixedOffset) OfsRegWithWeight(Case.Start, Case.Stop, x, y, w, r);
        if (Weighted && !FixedOffset) LinRegWithWeight(Case.Start, Case.Stop, x, y, w, r);
        if (!Weighted && FixedOffset) OfsReg(Case.Start, Case.Stop, x, y, r);
        if (!Weighted && !FixedOffset) LinReg(Case.Start, Case.Stop, x, y, r);
    } catch (const EMathError&) {
        return KX_DEMAND(Weighted || Taking(Case, false) < 2);
    }
    KX_DEMAND(r.Points == Taking(Case, Weighted), +std::to_string(r.Points));
    DemandFinite(TValues{r.Slope, r.DeltaSlope, r.DeltaOffset, r.AverageX, r.AverageY, r.VarianceX,
                         r.VarianceY, r.Determination, r.R, r.ChiSquare});
    KX_DEMAND(FixedOffset ? std::memcmp(&r.Offset, &Offset, sizeof Offset) == 0 : std::isfinite(r.Offset));
    if (Weighted) return; // weights may be negative
    KX_DEMAND(r.ChiSquare >= 0 && r.DeltaSlope >= 0 && r.VarianceX >= 0 && r.VarianceY >= 0);
    KX_DEMAND(std::fabs(r.R) <= 1.0000001 || r.R == CMaxReal, +std::to_string(r.R));
}

void DemandPolynomial(const TCase& Case, bool Weighted, int Order) {
    TKxPolynomRegessionResults r;
    r.Order = Order;
    try {
        if (Weighted)
            PolynomRegressionWithWeight(Case.X, Case.Y, Case.W, Case.Start, Case.Stop, r);
        else
            PolynomRegression(Case.X, Case.Y, Case.Start, Case.Stop, r);
    } catch (const EMathError&) {
        return KX_DEMAND(r.Points == 0 && r.Coefficients.IsEmpty());
    }
    KX_DEMAND(r.Points == Taking(Case, Weighted) && r.Coefficients.Length() == Order + 1);
    for (const auto& values : {r.Coefficients, r.DeltaCoefficients}) DemandFinite(values);
    DemandFinite(
        TValues{r.AverageX, r.AverageY, r.VarianceX, r.VarianceY, r.R2, r.QRel, r.ChiSquare, r.AdjR2});
    if (!Weighted) KX_DEMAND(r.ChiSquare >= 0 && r.R2 <= 1.0000001);
}

/// The best vertex never gets worse, and errors are numbers.
void DemandSimplex(const TCase& Case, TValues Vertex) {
    if (Vertex.empty()) return;
    const auto model = [&](std::span<const double> C, std::size_t I) {
        return C[0] + (C.size() > 1 ? C[1] * Case.X[I] : 0) + (C.size() > 2 ? std::sin(C[2] * Case.X[I]) : 0);
    };
    TKxSimplex simplex([&](std::span<const double> C) {
        DemandFinite(C);
        double sum = 0;
        for (std::size_t i = 0; i < Case.X.size(); ++i) sum += std::pow(Case.Y[i] - model(C, i), 2);
        return sum;
    });
    double last = std::numeric_limits<double>::infinity();
    simplex.Run(Vertex, 40, [&](const TKxSimplex& S) {
        KX_DEMAND(S.BestValue() <= last);
        last = S.BestValue();
        return true;
    });
    const TKxRealArray errors = StandardErrors(
        simplex.Best(),
        [&](std::span<const double> C, std::span<double> V) {
            for (std::size_t i = 0; i < V.size(); ++i) V[i] = model(C, i);
        },
        int(Case.X.size()), {}, simplex.BestValue());
    DemandFinite(errors);
    for (const double error : errors) KX_DEMAND(error >= 0, +std::to_string(error));
}

KX_FUZZ(fits) {
    TCase c;
    const int points = Data.Between(0, 24), order = Data.Between(0, 7);
    const bool weighted = Data.Flag(), isFixed = Data.Flag();
    c.Start = Data.Flag() ? -std::numeric_limits<double>::infinity() : Data.Real();
    c.Stop = Data.Flag() ? std::numeric_limits<double>::infinity() : Data.Real();
    c.Take(Data, points, weighted);
    DemandLine(c, weighted, isFixed, Data.Real());
    DemandPolynomial(c, weighted, order);
    DemandSimplex(c, Data.Reals(4));
}

} // namespace kx::fuzz::fitstarget
