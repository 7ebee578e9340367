#pragma once
// Reads the command line.

#include "kxplot/options/options.h"

#include <optional>

namespace kxplot {

/// Nothing: help or version were asked for and have been printed. Raises TUsageError.
std::optional<TOptions> ParseOptions(int Count, char** Arguments);

} // namespace kxplot
