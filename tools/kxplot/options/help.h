#pragma once
// What --help prints.

#include "kxplot/options/optiontable.h"

#include <string>

namespace kxplot {

/// Usage, the groups of options and examples in lines of at most Width characters (from 40 on).
std::string HelpText(const std::string& Description, const TOptionTable& Table, int Width);

} // namespace kxplot
