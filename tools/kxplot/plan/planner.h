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

/// Enters what follows from the series that are in it: the analyses of each, and whether there is a legend;
/// and the requests that are for later steps.
void CompletePlan(TPlan& Plan, const TOptions& Options);

} // namespace kxplot
