#pragma once
// What is told although a picture was drawn.

#include "kxplot/form/parts.h"

namespace kxplot {

/// What users should know about the picture, a line each.
std::vector<std::string> NoticesOf(const TParts& Parts);

} // namespace kxplot
