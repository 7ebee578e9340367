#pragma once
// Whether a table is followed while it grows.

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace kxplot {

/// The options as CLI11 stores them.
struct TFollowArguments {
    bool Follow = false;
    std::optional<std::string> Window;
};

struct TFollowRequest {
    bool Wanted = false;
    std::optional<int> Window; ///< so many rows are kept, the last ones
};

/// --follow and --window.
void AddFollowOptions(CLI::App& App, TFollowArguments& Given);
/// Raises TUsageError.
TFollowRequest ParseFollow(const TFollowArguments& Given);

} // namespace kxplot
