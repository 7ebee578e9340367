#pragma once
// --db and --query: a table that a database gives.

#include <CLI/CLI.hpp>

#include <string>

namespace kxplot {

struct TDatabaseRequest {
    std::string Url, Query; ///< both are given, or none is

    bool IsGiven() const { return !Url.empty(); }
};

void AddDatabaseOptions(CLI::App& App, TDatabaseRequest& Request);
/// Raises TUsageError for what does not go together. Data is the file of another table; empty: there is none.
void CheckDatabase(const TDatabaseRequest& Request, const std::string& Data);

} // namespace kxplot
