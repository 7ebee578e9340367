#pragma once
// What --man prints.

#include "kxplot/options/optiontable.h"

#include <string>

namespace kxplot {

/// The manual page for man(1), section 1, in the macros of man(7).
std::string ManPage(const std::string& Version, const std::string& Description, const TOptionTable& Table);

} // namespace kxplot
