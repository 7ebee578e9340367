#include <kxgraph/analysis/Kxcurvature.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>
#include <vector>

namespace kx {

namespace {

using TColumn = std::vector<double>;

constexpr double CIndependent = 1e-9; // of a column's length is left when it is no sum of others

double Product(const TColumn& A, const TColumn& B) {
    double sum = 0;
    for (std::size_t i = 0; i < A.size(); ++i) sum += A[i] * B[i];
    return sum;
}

/// The triangle of the orthogonal decomposition of unit columns (modified Gram-Schmidt), with what is known
/// of each of them.
class TDecomposition {
public:
    explicit TDecomposition(std::vector<TColumn>& Columns);

    bool IsKnown(std::size_t Index) const { return FKnown[Index]; }
    /// Row Index of the inverse of the triangle; zeros for a column that is a sum of earlier ones.
    TColumn InverseRow(std::size_t Index) const;

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
        const double left = FTriangle[k][k] = LengthOf(Columns[k]);
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

TColumn TDecomposition::InverseRow(std::size_t Index) const {
    TColumn row(FTriangle.size());
    for (std::size_t k = Index; k < row.size(); ++k) {
        if (!FUsed[k]) continue;
        double sum = k == Index ? 1 : 0;
        for (std::size_t j = Index; j < k; ++j) sum -= row[j] * FTriangle[k][j];
        row[k] = sum / FTriangle[k][k];
    }
    return row;
}

TColumn RootsOf(std::span<const double> Weights, int Points) {
    assert(Weights.empty() || Weights.size() == std::size_t(Points));
    TColumn roots(std::size_t(Points), 1.0);
    std::ranges::transform(Weights, roots.begin(), [](double w) { return std::sqrt(std::abs(w)); });
    return roots;
}

/// The derivatives by all coefficients where they are given, else by those of Indices. Empty when one cannot
/// be had.
std::vector<TColumn> ColumnsOf(const TKxFitAtRest& Fit, const TColumn& Roots,
                               const std::vector<std::size_t>& Indices) {
    std::vector<TColumn> columns(Fit.Coefficients.size(), TColumn(Roots.size()));
    if (Fit.Derivatives) {
        Fit.Derivatives(Fit.Coefficients, std::vector<std::span<double>>(columns.begin(), columns.end()));
        for (TColumn& column : columns) Weigh(column, Roots);
    } else {
        TKxDifferences differences(Fit.Model, Roots, Fit.Limits);
        for (const std::size_t k : Indices)
            if (!differences.Find(Fit.Coefficients, k, columns[k])) return {};
    }
    const bool finite =
        std::ranges::all_of(columns, [](const TColumn& C) { return std::isfinite(LengthOf(C)); });
    return finite ? columns : std::vector<TColumn>();
}

} // namespace

TKxCovariance::TKxCovariance(const TKxFitAtRest& Fit)
    : FRoots(Fit.Coefficients.size()), FKnown(Fit.Coefficients.size()) {
    const TColumn roots = RootsOf(Fit.Weights, Fit.Points);
    std::vector<std::size_t> moving;
    std::ptrdiff_t fixed = 0;
    std::vector<bool> known(FKnown.size());
    for (std::size_t k = 0; k < known.size(); ++k) {
        const TKxCoefficientLimits limits = Fit.Limits.empty() ? TKxCoefficientLimits() : Fit.Limits[k];
        if (limits.IsFixed())
            ++fixed, known[k] = true;
        else if (limits.Low < Fit.Coefficients[k] && Fit.Coefficients[k] < limits.High)
            moving.push_back(k);
    }
    const auto freedom = Fit.Points - std::ranges::count(roots, 0.0) - std::ptrdiff_t(known.size()) + fixed;
    if (freedom <= 0 || !(Fit.SumOfSquares >= 0 && std::isfinite(Fit.SumOfSquares))) return;
    std::vector<TColumn> columns = ColumnsOf(Fit, roots, moving);
    if (columns.empty()) return;
    FFreedom = int(freedom);
    FDeviation = std::sqrt(Fit.SumOfSquares / double(freedom));
    FKnown = std::move(known);
    Decompose(columns, moving);
}

void TKxCovariance::Decompose(std::vector<TColumn>& Columns, const std::vector<std::size_t>& Indices) {
    std::vector<TColumn> moving;
    TColumn lengths;
    for (const std::size_t k : Indices) {
        const double length = LengthOf(Columns[k]);
        if (length > 0)
            for (double& v : Columns[k]) v /= length;
        lengths.push_back(length);
        moving.push_back(std::move(Columns[k]));
    }
    const TDecomposition decomposition(moving);
    for (std::size_t j = 0; j < Indices.size(); ++j) {
        TColumn row = decomposition.InverseRow(j);
        for (double& v : row) v *= lengths[j] > 0 ? FDeviation / lengths[j] : 0;
        if (!std::isfinite(LengthOf(row))) continue;
        FKnown[Indices[j]] = decomposition.IsKnown(j);
        FRoots[Indices[j]] = std::move(row);
    }
}

double TKxCovariance::ErrorOf(std::size_t Index) const {
    return FKnown[Index] ? LengthOf(FRoots[Index]) : CMaxReal;
}

double TKxCovariance::Between(std::size_t I, std::size_t J) const {
    if (!FKnown[I] || !FKnown[J]) return CMaxReal;
    const std::size_t count = std::min(FRoots[I].size(), FRoots[J].size());
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i) sum += FRoots[I][i] * FRoots[J][i];
    return sum;
}

double TKxCovariance::ErrorAlong(std::span<const double> Factors) const {
    if (FFreedom <= 0) return CMaxReal;
    TColumn sum(FRoots.size());
    for (std::size_t k = 0; k < FRoots.size(); ++k)
        for (std::size_t i = 0; i < FRoots[k].size(); ++i) sum[i] += Factors[k] * FRoots[k][i];
    return LengthOf(sum);
}

TKxRealArray StandardErrors(std::span<const double> Coefficients, const TKxModelValues& Model, int Points,
                            std::span<const double> Weights, double SumOfSquares) {
    const TKxCovariance covariance(
        {Model, {}, {Coefficients.begin(), Coefficients.end()}, Points, Weights, SumOfSquares, {}});
    TKxRealArray errors(int(covariance.Count()));
    for (std::size_t k = 0; k < covariance.Count(); ++k) errors[int(k)] = covariance.ErrorOf(k);
    return errors;
}

} // namespace kx
