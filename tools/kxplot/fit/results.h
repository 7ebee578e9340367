#pragma once
// What the fits have found, as text.

#include "kxplot/form/parts.h"

#include <string>

namespace kxplot {

/// The stores of the series' results, one after the other. Where there are several series, the name of each
/// section begins with that of its series: [Series1.LinearRegression].
std::string ResultsText(const TParts& Parts);

} // namespace kxplot
