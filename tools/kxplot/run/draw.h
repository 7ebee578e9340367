#pragma once
// One picture from its tables to its files.

#include "kxplot/options/options.h"

#include <string>

namespace kxplot {

/// Followed is the text of a table that was followed. Returns the exit status.
int Draw(const TOptions& Options, const std::string* Followed = nullptr);
/// The same of a form file.
int DrawForm(const TOptions& Options);
/// The same of a table that grows, in a window while it does. What is to be written is made in the end, of
/// all that the table has got.
int DrawFollowed(TOptions Options);

} // namespace kxplot
