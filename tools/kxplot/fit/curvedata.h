#pragma once
// The sampled curves of a picture as a table.

#include "kxplot/form/parts.h"

#include <string>

namespace kxplot {

/// CSV with a header: the x values of the curves and a column of each, in its order; curves that are sampled
/// at other x values follow with an x of their own, and the edges of bands likewise. Columns that end sooner
/// have empty cells.
std::string CurveData(const TParts& Parts);

} // namespace kxplot
