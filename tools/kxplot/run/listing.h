#pragma once
// What kxplot tells of properties in place of drawing.

#include "kxplot/options/options.h"

#include <string>

namespace kxplot {

/// Those of the components of the picture that the options describe. Returns the exit status, as the next
/// one.
int ListProperties(const TOptions& Options);
/// Those of a class of components, or of all where the name is empty.
int Describe(const std::string& Name);

} // namespace kxplot
