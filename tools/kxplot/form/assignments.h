#pragma once
// --set.

#include "kxplot/options/options.h"

#include <kxgraph/platform/controls/form.h>

namespace kxplot {

/// Sets a property of a component of Form. Raises TUsageError for one that there is not, and for a text that
/// is no value of it.
void Assign(kx::TForm& Form, const TAssignment& Assignment);

} // namespace kxplot
