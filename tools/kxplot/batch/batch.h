#pragma once
// One picture after the other for many tables, on all cores.

#include "kxplot/options/options.h"

#include <functional>

namespace kxplot {

/// Draws each table that the patterns of Options.Batch name by Draw, in processes of their own, as many at
/// once as there are cores. {name} in the names of outputs is the table's without folder and extension. What
/// one says on standard error goes there in one piece; a table that fails stops no other. Returns the exit
/// status: the greatest one. Raises TUsageError for patterns that no file matches, and for outputs that
/// would be written by several tables.
int DrawBatch(const TOptions& Options, const std::function<int(const TOptions&)>& Draw);

} // namespace kxplot
