#pragma once
// Which options need others, and which do not go together. All raise TUsageError.

#include "kxplot/options/arguments.h"

namespace kxplot {

/// Of what series are drawn as.
void CheckDrawing(const TOptions& Options);
/// Of fits, curves and what is asked of them.
void CheckAnalyses(const TArguments& Given, const TOptions& Options);
/// What only formula fits heed needs one.
void CheckFormulaOptions(const TArguments& Given, bool HasFormula);

} // namespace kxplot
