#pragma once
// What kxdesign is asked for when it is started.

#include <optional>
#include <string>

namespace kxdesign {

inline constexpr int CUsage = 2, CFailure = 1;

struct TOptions {
    std::string File;      ///< a form, or a table that is imported; empty: an empty form
    bool Untitled = false; ///< the form is a new one, which File only describes
};

/// Nothing where there is nothing to do but what has been printed; Status is then the exit status. Errors go
/// to standard error as "kxdesign: ...".
std::optional<TOptions> ParseOptions(int Count, char** Arguments, int& Status);
/// Whether a file is a form rather than a table.
bool IsFormFile(const std::string& FileName);
void TellError(const std::string& Message);

} // namespace kxdesign
