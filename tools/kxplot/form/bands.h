#pragma once
// Bands about fits, children of the series behind its fits.

#include "kxplot/form/parts.h"

#include <cstddef>

namespace kxplot {

/// Makes the bands of the analyses from First on, which are those of one series.
void AddBands(TParts& Parts, std::size_t First);
/// Makes them what the command line says. An outfit may have changed them.
void ConfigureBands(TParts& Parts);

} // namespace kxplot
