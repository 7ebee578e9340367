#pragma once
// The window of --show.

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace kxplot {

/// The options as CLI11 stores them.
struct TWindowArguments {
    bool Show = false;
    std::optional<std::string> Seconds;
};

struct TWindowRequest {
    bool Show = false;
    std::optional<double> Seconds; ///< after which it closes by itself
};

/// --show and --show-for.
void AddWindowOptions(CLI::App& App, TWindowArguments& Given);
/// Raises TUsageError.
TWindowRequest ParseWindow(const TWindowArguments& Given);

} // namespace kxplot
