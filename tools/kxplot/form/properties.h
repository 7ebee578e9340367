#pragma once
// What --properties prints.

#include <kxgraph/platform/controls/form.h>

#include <string>

namespace kxplot {

/// Each property of component Name, or of all components of Form for an empty one, as --set takes it, with
/// the value that it has, and beneath it its kind, default and help in lines of at most Width characters.
/// Raises TUsageError for a component that there is not.
std::string PropertyList(kx::TForm& Form, const std::string& Name, int Width);

} // namespace kxplot
