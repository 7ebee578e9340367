#pragma once
// What --completions prints.

#include "kxplot/options/optiontable.h"

#include <string>

namespace kxplot {

/// The script that makes a shell (bash, zsh or fish) complete options, the words that they take, and names
/// of files. Empty for another shell.
std::string CompletionsFor(const std::string& Shell, const TOptionTable& Table);

} // namespace kxplot
