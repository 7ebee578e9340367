#pragma once
// Following a table to its end.

#include "kxplot/options/options.h"

#include <string>

namespace kxplot {

/// Reads the table of Options.Data.File while it grows, until standard input is closed or Ctrl+C comes, and
/// returns the text of what is kept of it. Raises kx::EFileError.
std::string FollowToTheEnd(const TOptions& Options);

} // namespace kxplot
