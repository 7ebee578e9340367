#pragma once
// How a wrong command line is told.

#include <stdexcept>
#include <string>
#include <string_view>

namespace kxplot {

/// Wrong options: the message for standard error, without the program's name.
class TUsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a user has given, within quotes, no longer than messages should be.
std::string Quoted(std::string_view Text);
/// Raises TUsageError "OPTION: 'TEXT' WHAT".
[[noreturn]] void FailUsage(const char* Option, std::string_view Text, const std::string& What);

} // namespace kxplot
