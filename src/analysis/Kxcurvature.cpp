#include <kxgraph/analysis/Kxcurvature.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <vector>

namespace kx {

namespace {

using TColumn = std::vector<double>;

constexpr double CInfinity = std::numeric_limits<double>::infinity();
constexpr double CStep = 7e-4;          // the fifth root of a double's resolution suits a fourth order rule
constexpr double CGoodAgreement = 1e-5; // of two differences; the improved one is then good to its square
constexpr double CPoorAgreement = 0.1;
constexpr double CStepRatio = 16;
constexpr int CSteps = 16;            // upward and downward each
constexpr double CIndependent = 1e-9; // of a column's length is left when it is no sum of others

/// The length, without overflow; NaN if there is one.
double Norm(const TColumn& Column) {
    double largest = 0, sum = 0;
    for (const double v : Column) {
        if (std::isnan(v)) return v;
        largest = std::max(largest, std::abs(v));
    }
    if (largest == 0) return 0;
    for (const double v : Column) sum += v / largest * (v / largest);
    return largest * std::sqrt(sum);
}

double Product(const TColumn& A, const TColumn& B) {
    double sum = 0;
    for (std::size_t i = 0; i < A.size(); ++i) sum += A[i] * B[i];
    return sum;
}

/// Derivatives of the model by one coefficient, times the roots of the weights.
class TDerivatives {
public:
    TDerivatives(std::span<const double> Coefficients, const TKxModelValues& Model,
                 const TColumn& RootWeights)
        : FCoefficients(Coefficients.begin(), Coefficients.end()), FModel(Model), FRootWeights(RootWeights) {}

    /// False when no step gives a derivative.
    bool Find(std::size_t Index, TColumn& Column);

private:
    /// How much differences of one and two steps disagree, in proportion to Column, the improved derivative.
    double Try(std::size_t Index, double Step, TColumn& Column);
    TColumn Difference(std::size_t Index, double Step);

    TColumn FCoefficients;
    const TKxModelValues& FModel;
    const TColumn& FRootWeights;
};

TColumn TDerivatives::Difference(std::size_t Index, double Step) {
    TColumn below(FRootWeights.size()), above(FRootWeights.size());
    const double value = FCoefficients[Index];
    const double from = FCoefficients[Index] = value - Step;
    FModel(FCoefficients, below);
    const double to = FCoefficients[Index] = value + Step;
    FModel(FCoefficients, above);
    FCoefficients[Index] = value;
    const double distance = to == from ? 1 : to - from; // no derivative, but no reason for NaN either
    for (std::size_t i = 0; i < above.size(); ++i)
        above[i] = FRootWeights[i] == 0 ? 0 : (above[i] - below[i]) / distance * FRootWeights[i];
    return above;
}

double TDerivatives::Try(std::size_t Index, double Step, TColumn& Column) {
    Column = Difference(Index, Step);
    TColumn error = Difference(Index, 2 * Step);
    for (std::size_t i = 0; i < Column.size(); ++i) {
        error[i] = Column[i] - error[i];
        Column[i] += error[i] / 3;
    }
    const double disagreement = Norm(error) / Norm(Column);
    return std::isfinite(disagreement) ? disagreement : CInfinity;
}

bool TDerivatives::Find(std::size_t Index, TColumn& Column) {
    const double value = FCoefficients[Index];
    const double step = CStep * (value == 0 ? 1 : std::abs(value));
    double best = Try(Index, step, Column);
    bool constant = Norm(Column) == 0;
    TColumn column;
    for (int i = 1; i <= CSteps && best > CGoodAgreement; ++i)
        for (const double factor : {std::pow(CStepRatio, -i), std::pow(CStepRatio, i)}) {
            const double disagreement = Try(Index, step * factor, column);
            constant = constant && Norm(column) == 0;
            if (disagreement >= best) continue;
            best = disagreement;
            Column.swap(column);
        }
    return best < CPoorAgreement || constant;
}

/// The triangle of the orthogonal decomposition of unit columns (modified Gram-Schmidt), with what is known
/// of each of them.
class TDecomposition {
public:
    explicit TDecomposition(std::vector<TColumn>& Columns);

    bool IsKnown(std::size_t Index) const { return FKnown[Index]; }
    /// The root of element (Index, Index) of the inverse of the normal matrix.
    double InverseRoot(std::size_t Index) const;

private:
    /// Column Until is a sum of earlier ones: it and those with a share in it cannot be told apart.
    void MarkDependence(std::size_t Until);

    std::vector<TColumn> FTriangle; ///< [column][row]
    std::vector<bool> FKnown;
    std::vector<bool> FUsed; ///< not for columns that are sums of earlier ones
};

TDecomposition::TDecomposition(std::vector<TColumn>& Columns)
    : FTriangle(Columns.size(), TColumn(Columns.size())), FKnown(Columns.size(), true),
      FUsed(Columns.size(), true) {
    for (std::size_t k = 0; k < Columns.size(); ++k) {
        for (std::size_t j = 0; j < k; ++j) {
            if (!FUsed[j]) continue;
            const double part = FTriangle[k][j] = Product(Columns[j], Columns[k]);
            for (std::size_t i = 0; i < Columns[k].size(); ++i) Columns[k][i] -= part * Columns[j][i];
        }
        const double left = FTriangle[k][k] = Norm(Columns[k]);
        if (left < CIndependent)
            MarkDependence(k);
        else
            for (double& v : Columns[k]) v /= left;
    }
}

void TDecomposition::MarkDependence(std::size_t Until) {
    FUsed[Until] = FKnown[Until] = false;
    TColumn share = FTriangle[Until];
    for (std::size_t j = Until; j-- > 0;) {
        if (!FUsed[j]) continue;
        share[j] /= FTriangle[j][j];
        for (std::size_t i = 0; i < j; ++i) share[i] -= share[j] * FTriangle[j][i];
        if (std::abs(share[j]) > std::sqrt(CIndependent)) FKnown[j] = false;
    }
}

double TDecomposition::InverseRoot(std::size_t Index) const {
    TColumn row(FTriangle.size());
    for (std::size_t k = Index; k < row.size(); ++k) {
        if (!FUsed[k]) continue;
        double sum = k == Index ? 1 : 0;
        for (std::size_t j = Index; j < k; ++j) sum -= row[j] * FTriangle[k][j];
        row[k] = sum / FTriangle[k][k];
    }
    return Norm(row);
}

TColumn RootsOf(std::span<const double> Weights, int Points) {
    assert(Weights.empty() || Weights.size() == std::size_t(Points));
    TColumn roots(std::size_t(Points), 1.0);
    std::ranges::transform(Weights, roots.begin(), [](double w) { return std::sqrt(std::abs(w)); });
    return roots;
}

} // namespace

TKxRealArray StandardErrors(std::span<const double> Coefficients, const TKxModelValues& Model, int Points,
                            std::span<const double> Weights, double SumOfSquares) {
    const std::size_t n = Coefficients.size();
    TKxRealArray errors(static_cast<int>(n));
    std::fill(errors.begin(), errors.end(), CMaxReal);
    const TColumn roots = RootsOf(Weights, Points);
    const auto freedom = Points - std::ranges::count(roots, 0.0) - std::ptrdiff_t(n);
    if (freedom <= 0 || !(SumOfSquares >= 0 && std::isfinite(SumOfSquares))) return errors;

    TDerivatives derivatives(Coefficients, Model, roots);
    std::vector<TColumn> columns(n);
    TColumn lengths(n);
    for (std::size_t k = 0; k < n; ++k) {
        if (!derivatives.Find(k, columns[k])) return errors;
        lengths[k] = Norm(columns[k]);
        if (lengths[k] > 0)
            for (double& v : columns[k]) v /= lengths[k];
    }
    const TDecomposition decomposition(columns);
    const double deviation = std::sqrt(SumOfSquares / static_cast<double>(freedom));
    for (std::size_t k = 0; k < n; ++k) {
        const double error = deviation * decomposition.InverseRoot(k) / lengths[k];
        if (decomposition.IsKnown(k) && std::isfinite(error)) errors[static_cast<int>(k)] = error;
    }
    return errors;
}

} // namespace kx
