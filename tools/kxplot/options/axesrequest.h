#pragma once
// --y2, --box and --zone: which axes there are, and what dates on them read.

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

namespace kxplot {

struct TAxesRequest {
    std::vector<std::string> Y2; ///< columns of series against an axis at the right
    bool Box = false;
    std::optional<std::string> Zone; ///< of dates, by its name; none: UTC
};

void AddAxesOptions(CLI::App& App, TAxesRequest& Request);
/// Raises TUsageError for what does not go together.
void CheckAxes(const TAxesRequest& Request, bool HasBars);

} // namespace kxplot
