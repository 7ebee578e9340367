#pragma once
// What is told of analyses, a line of plain text each.

#include "kxplot/form/parts.h"

#include <string>
#include <vector>

namespace kxplot {

/// Of each analysis without a curve.
std::vector<std::string> FailuresOf(const TParts& Parts);
/// Of each fit that has not come to rest.
std::vector<std::string> RemarksOf(const TParts& Parts);

} // namespace kxplot
