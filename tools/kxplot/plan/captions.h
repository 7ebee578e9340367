#pragma once
// What the axes are called.

#include "kxplot/plan/columns.h"
#include "kxplot/plan/plan.h"

#include <string>

namespace kxplot {

/// What a column is called in a caption: its header, and its unit where there is one.
std::string HeaderWithUnit(const kx::TKxTable& Table, int Column);
/// Captions of headers; those of axes at the right are made of what the other axes show.
TAxesPlan PlanAxes(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options);

} // namespace kxplot
