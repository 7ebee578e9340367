#pragma once
// How series are drawn and where the legend stands, as words.

#include "kxplot/options/options.h"

#include <string>

namespace kxplot {

/// Raises TUsageError that lists the styles.
TStyle ParseStyle(const std::string& Text);
/// Raises TUsageError that lists the places.
kx::TKxLegendPlacement ParseLegendPlace(const std::string& Text);

} // namespace kxplot
