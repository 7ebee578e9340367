#pragma once
// Fits and curves as components, children of their series.

#include "kxplot/form/parts.h"

#include <cstddef>

namespace kxplot {

/// Makes the analyses of Series, the next one of the plan.
void AddLines(TParts& Parts, kx::TKxNotCalculatedSeries& Series);
/// Gives the analyses of a series that come after the First ones kxplot's own look.
void DressLines(TParts& Parts, std::size_t Series, std::size_t First);
/// Makes them what the command line says. An outfit may have changed them.
void ConfigureLines(TParts& Parts);

} // namespace kxplot
