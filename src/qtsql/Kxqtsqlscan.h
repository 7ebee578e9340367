#pragma once
// Which one table a query is on. Looks at the words of the statement, and knows no database.

#include <string>
#include <string_view>

namespace kx::qt {

/// The table as it is written in the query, or why there is not one.
struct TOneTable {
    std::string Table;
    std::string Reason; ///< empty: there is one
};

/// Of "select ... from TABLE [as NAME] [where ...] [order by ...] [limit ...]" that table; anything else is
/// on several tables, or on none whose records are those of the query.
TOneTable OneTableOf(std::string_view Query);

} // namespace kx::qt
