#pragma once
// The columns that options compute from those of a table.

#include "kxplot/options/options.h"

#include <kxgraph/table/Kxtable.h>

namespace kxplot {

/// Adds to Table what columns of series, errors and weights are computed by, under their texts. Raises
/// TUsageError for what cannot be computed.
void AddExpressions(kx::TKxTable& Table, const TOptions& Options);

/// The options with --difference of two columns as an expression among those of y. That of two of the tables
/// stays.
TOptions WithDifference(TOptions Options);

} // namespace kxplot
