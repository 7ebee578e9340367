// Eigen: least squares by its fastest way, the normal equations, and a formula compiled into one loop.

#include "workloads.h"

#include <Eigen/Dense>

namespace {

using peers::TPoints, peers::TRows, peers::TValues;
using TMapped = Eigen::Map<const Eigen::VectorXd>;

TMapped Mapped(const TValues& Values) { return {Values.data(), Eigen::Index(Values.size())}; }

template <int Degree>
void FitPolynomial(const TPoints& Points) {
    Eigen::Matrix<double, Eigen::Dynamic, Degree + 1> design(Eigen::Index(Points.X.size()), Degree + 1);
    const TMapped x = Mapped(Points.X), y = Mapped(Points.Y);
    design.col(0).setOnes();
    for (int k = 1; k <= Degree; ++k) design.col(k) = design.col(k - 1).cwiseProduct(x);
    const Eigen::Matrix<double, Degree + 1, 1> solution =
        (design.transpose() * design).ldlt().solve(design.transpose() * y);
    peers::Keep((y - design * solution).squaredNorm());
}

} // namespace

int main(int Count, char** Arguments) {
    const TRows rows(Count, Arguments);
    const TPoints sine = peers::SineOf(1000000);
    rows.Time(peers::CLineFit, [&] { FitPolynomial<1>(sine); });
    rows.Time(peers::CPolynomialFit, [&] { FitPolynomial<5>(sine); });

    const TValues at = peers::FormulaX();
    const auto x = Mapped(at).array();
    Eigen::ArrayXd y(x.size());
    const auto& c = peers::CFormulaCoefficients;
    rows.Time(peers::CFormula, [&] {
        y = c[0] * (-c[1] * x).exp() + c[2] * (-c[3] * x).exp();
        peers::Keep(y[y.size() / 2]);
    });
}
