#pragma once
// How series are drawn and where the legend stands, as words.

#include "kxplot/options/options.h"

#include <string>

namespace kxplot {

/// Raises TUsageError that lists the styles.
TStyle ParseStyle(const std::string& Text);
/// The word for a style.
std::string WordOf(TStyle Style);
/// Raises TUsageError that lists the places.
kx::TKxLegendPlacement ParseLegendPlace(const std::string& Text);

} // namespace kxplot
