#pragma once
// Plans a picture.

#include "kxplot/plan/plan.h"

#include <kxgraph/table/Kxtable.h>

namespace kxplot {

/// Reads the columns of the table that are asked for. Raises kx::ETableError, and TUsageError for columns of
/// errors or arrow components that do not match the series.
TPlan MakePlan(const kx::TKxTable& Table, const TOptions& Options);

} // namespace kxplot
