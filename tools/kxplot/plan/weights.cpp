#include "kxplot/plan/weights.h"

#include <kxgraph/platform/text/numbertext.h>

#include <cmath>
#include <cstddef>

namespace kxplot {

namespace {

double ErrorOf(const TErrors& Errors, std::size_t Row) {
    if (Errors.Plus.empty()) return Errors.Minus[Row];
    if (Errors.Minus.empty()) return Errors.Plus[Row];
    return (Errors.Plus[Row] + Errors.Minus[Row]) / 2;
}

} // namespace

std::vector<double> WeightsByErrors(const kx::TKxTable& Table, const TErrors& Errors) {
    std::vector<double> weights;
    weights.reserve(Errors.Y.size());
    for (std::size_t i = 0; i < Errors.Y.size(); ++i) {
        const double sigma = ErrorOf(Errors, i), weight = 1 / sigma / sigma;
        const bool isPoint = std::isfinite(Errors.X[i]) && std::isfinite(Errors.Y[i]);
        if (isPoint && !(sigma > 0 && weight > 0 && std::isfinite(weight)))
            Table.FailInRow(i, "the error of " + Errors.Name + " is " +
                                   (std::isnan(sigma) ? "missing" : kx::FloatToStr(sigma)) +
                                   "; --weight-by-errors needs one above 0");
        weights.push_back(weight);
    }
    return weights;
}

} // namespace kxplot
