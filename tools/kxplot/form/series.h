#pragma once
// The series: of points, of bars and of arrows, and the vectors that they are bound to.

#include "kxplot/form/parts.h"

namespace kxplot {

/// Fills vectors with what the plan holds for them, which it holds no longer, and binds the series to them.
void MakeSeries(TParts& Parts);
/// Makes bars what the command line says. An outfit may come from other bars.
void ConfigureBars(TParts& Parts);

} // namespace kxplot
