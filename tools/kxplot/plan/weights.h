#pragma once
// Weights that follow from the errors of the points.

#include <kxgraph/table/Kxtable.h>

#include <span>
#include <string>
#include <vector>

namespace kxplot {

/// A series and the errors of its y; one of the two columns of errors may be empty.
struct TErrors {
    std::string Name; ///< of the series, for messages
    std::span<const double> X, Y, Plus, Minus;
};

/// 1 / sigma^2 for each row, sigma being the error of y, or the mean of both where there are two. Raises
/// kx::ETableError, naming the line, where a point has an error that is missing or not above 0 (or beyond
/// what a weight can hold). Rows without a point have any weight.
std::vector<double> WeightsByErrors(const kx::TKxTable& Table, const TErrors& Errors);

} // namespace kxplot
