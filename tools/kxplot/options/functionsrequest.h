#pragma once
// --function, --range and --difference: what is drawn that stands in no column.

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kxplot {

struct TFunctionsRequest {
    std::vector<std::string> Functions;                            ///< of x
    std::optional<std::pair<double, double>> Range;                ///< of x; none: that of the data
    std::optional<std::pair<std::string, std::string>> Difference; ///< of two columns, or two of the tables
};

/// What an option cannot understand raises TUsageError.
void AddFunctionOptions(CLI::App& App, TFunctionsRequest& Request);
/// Raises TUsageError for what does not go together.
void CheckFunctions(const TFunctionsRequest& Request, bool HasTable);

} // namespace kxplot
