#pragma once
// What is told of what would be drawn.

#include "kxplot/plan/columns.h"
#include "kxplot/plan/plan.h"
#include "kxplot/plan/style.h"

#include <kxgraph/table/Kxtable.h>

#include <string>
#include <vector>

namespace kxplot {

/// Sentences about what is drawn over what, and why so; Plan has been made of the columns of the table.
std::vector<std::string> ExplainColumns(const kx::TKxTable& Table, const TColumns& Columns, const TPlan& Plan,
                                        const TStyleChoice& Style);

} // namespace kxplot
