#pragma once
// Plans a picture.

#include "kxplot/plan/plan.h"

#include <kxgraph/table/Kxtable.h>

#include <string>
#include <vector>

namespace kxplot {

/// Reads the columns of the table that are asked for. Told gets sentences about what is drawn over what, and
/// why so. Raises kx::ETableError, and TUsageError for columns of
/// errors or arrow components that do not match the series.
TPlan MakePlan(const kx::TKxTable& Table, const TOptions& Options, std::vector<std::string>* Told = nullptr);

} // namespace kxplot
