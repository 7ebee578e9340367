#pragma once
// The theme that --theme names.

#include <kxgraph/look/Kxtheme.h>

#include <string>

namespace kxplot {

/// A theme of the library by its name, or one from a file; the standard one for an empty name. Raises
/// TUsageError for a name that is neither, kx::EThemeError for a file that holds no theme, kx::EFileError.
kx::TKxTheme ThemeCalled(const std::string& Name);

} // namespace kxplot
