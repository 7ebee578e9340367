#pragma once
// Results for programs that read JSON.

#include <string>

namespace kxplot {

/// The INI text of results as an object of an object a section; what is a number is one, all else a text.
std::string ResultsAsJson(const std::string& Ini);

} // namespace kxplot
