// How uncertain a fit is, from the derivatives of its model.

#include <kxgraph/analysis/Kxfittedline.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kx {

/// X must outlive it.
TKxModelValues TKxFittedLine::ModelAt(std::span<const double> X) const {
    return [this, X, trial = TKxRealArray(GetOrder())](std::span<const double> Coefficients,
                                                       std::span<double> Values) {
        std::copy(Coefficients.begin(), Coefficients.end(), trial.begin());
        EvaluateModel(X, trial, Values);
    };
}

/// Empty when no derivatives are given. X must outlive it.
TKxModelDerivatives TKxFittedLine::DerivativesAt(std::span<const double> X) const {
    if (!FFittingDerivatives) return {};
    return [this, X, trial = TKxRealArray(GetOrder()), found = TKxRealArray(GetOrder())](
               std::span<const double> Coefficients, std::span<const std::span<double>> Columns) {
        std::copy(Coefficients.begin(), Coefficients.end(), trial.begin());
        for (std::size_t i = 0; i < X.size(); ++i) {
            TKxRealArray derivatives = found;
            FFittingDerivatives(X[i], trial, derivatives);
            for (std::size_t k = 0; k < Columns.size(); ++k) Columns[k][i] = derivatives[int(k)];
        }
    };
}

/// Of one of the mean weight of those that took part.
double TKxFittedLine::DeviationOfPoint() const {
    if (FTaken.W.empty()) return FCovariance.GetDeviation();
    const double sum = std::accumulate(FTaken.W.begin(), FTaken.W.end(), 0.0);
    const auto count = double(FTaken.W.size()) - double(std::ranges::count(FTaken.W, 0.0));
    return FCovariance.GetDeviation() * std::sqrt(count / sum);
}

std::vector<TKxBandValue> TKxFittedLine::GetBands(std::span<const double> X, double Level,
                                                  TKxBandKind Kind) const {
    const std::size_t order = FCovariance.Count();
    const bool known = order > 0 && int(order) == GetOrder();
    std::vector<double> y(X.size(), NAN), factors(order);
    std::vector<std::vector<double>> columns;
    if (known) {
        EvaluateModel(X, FCoefficients, y);
        columns = ColumnsAt(X, y);
    }
    const double deviation = known ? DeviationOfPoint() : 0;
    std::vector<TKxBandValue> bands;
    bands.reserve(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        std::ranges::transform(columns, factors.begin(), [i](const auto& Column) { return Column[i]; });
        const double error = known ? FCovariance.ErrorAlong(factors) : 0;
        bands.push_back(BandOf({y[i], error, deviation, double(FCovariance.GetFreedom())}, Level, Kind));
    }
    return bands;
}

/// The derivatives of the model, a column each coefficient, where it has values Y.
std::vector<std::vector<double>> TKxFittedLine::ColumnsAt(std::span<const double> X,
                                                          const std::vector<double>& Y) const {
    const std::vector<double> coefficients(FCoefficients.begin(), FCoefficients.end());
    std::vector<std::vector<double>> columns(coefficients.size(), std::vector<double>(X.size()));
    if (const TKxModelDerivatives given = DerivativesAt(X)) {
        given(coefficients, std::vector<std::span<double>>(columns.begin(), columns.end()));
        return columns;
    }
    std::vector<double> roots(X.size()); // 0 where there is nothing to differentiate
    std::ranges::transform(Y, roots.begin(), [](double Value) { return std::isfinite(Value) ? 1 : 0; });
    TKxDifferences differences(ModelAt(X), roots, FLimits);
    for (std::size_t k = 0; k < columns.size(); ++k)
        if (FLimits.empty() || !FLimits[k].IsFixed()) differences.Find(coefficients, k, columns[k]);
    return columns;
}

} // namespace kx
