#pragma once
// What the axes are called.

#include "kxplot/plan/columns.h"
#include "kxplot/plan/plan.h"

namespace kxplot {

/// Captions of headers; those of axes at the right are made of what the other axes show.
TAxesPlan PlanAxes(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options);

} // namespace kxplot
