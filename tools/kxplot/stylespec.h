#pragma once
// How series are drawn and where the legend stands, as words; what of it goes together.

#include "kxplot/options.h"

#include <string>

namespace kxplot {

/// Raises TUsageError that lists the styles.
TStyle ParseStyle(const std::string& Text);
/// Raises TUsageError that lists the places.
kx::TKxLegendPlacement ParseLegendPlace(const std::string& Text);
/// Raises TUsageError for styles of series and options that contradict one another.
void CheckTogether(const TOptions& Options);

} // namespace kxplot
