#pragma once
// One picture of several tables, and of functions.

#include "kxplot/plan/plan.h"

#include <vector>

namespace kxplot {

/// One plan of several, of the same options: their series one after the other, each over its own x and
/// called by table and column. Raises kx::ETableError where x is something else in one table than in others,
/// and for texts over x.
TPlan Joined(std::vector<TPlan> Plans, const TOptions& Options);

/// The same, or the difference of two of them where that is asked for.
TPlan Combined(std::vector<TPlan> Plans, const TOptions& Options);

/// The plan of what First has less what Second has, series by series. Raises kx::ETableError where their
/// numbers of series or their x differ.
TPlan DifferenceOf(TPlan First, const TPlan& Second);

/// A plan without a table.
TPlan PlanOfFunctions(const TOptions& Options);
/// Enters the functions that are asked for. Raises TUsageError for one that cannot be understood, and where
/// there is no range for it.
void AddFunctions(TPlan& Plan, const TOptions& Options);

} // namespace kxplot
