#pragma once
// What kxplot says.

#include <string>

namespace kxplot {

/// Writes Message as one line to standard error, with the program's name. A line has an end: one that is
/// longer than 1000 bytes is cut off.
void Tell(std::string Message);
/// Writes Text to standard output. Raises kx::EFileError when it cannot be written.
void Print(const std::string& Text);

} // namespace kxplot
