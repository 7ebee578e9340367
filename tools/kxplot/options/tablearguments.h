#pragma once
// The options that say how the table is written.

#include "kxplot/options/options.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

namespace kxplot {

/// As CLI11 stores them, before they are checked.
struct TTableArguments {
    std::optional<std::string> Skip, Block, DateOrder, Decimal, Time;
    std::vector<std::string> Missing;
    bool Explain = false;
};

void AddTableOptions(CLI::App& App, TTableArguments& Given);
/// Raises TUsageError. The column of --time becomes that of x.
void ReadTableOptions(const TTableArguments& Given, TOptions& Options);

} // namespace kxplot
