#pragma once
// Following a table to its end.

#include "kxplot/follow/followedtable.h"

#include <array>
#include <string>

namespace kxplot {

/// As long as it lives Ctrl+C and a request to end (SIGTERM) are heard, once; those that are ignored stay so.
class TEndSignals {
public:
    TEndSignals();
    ~TEndSignals();
    TEndSignals(const TEndSignals&) = delete;
    TEndSignals& operator=(const TEndSignals&) = delete;

    /// Whether one has come.
    static bool HaveCome();

private:
    std::array<void (*)(int), 2> FBefore;
};

/// Polls until the table has begun. False where it has not when its input ends or Ctrl+C comes.
bool WaitForTable(TFollowedTable& Table);

/// Reads the table of Options.Data.File while it grows, until standard input is closed or Ctrl+C comes, and
/// returns the text of what is kept of it. Raises kx::EFileError.
std::string FollowToTheEnd(const TOptions& Options);

} // namespace kxplot
