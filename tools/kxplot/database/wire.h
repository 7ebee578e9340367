#pragma once
// How a table goes from the program that asks a database to the one that draws it, both of one build.

#include <kxgraph/table/Kxgivencolumn.h>

#include <string>
#include <string_view>
#include <vector>

namespace kxplot {

/// The columns of a table, or a message why there are none.
struct TAnswerOfDatabase {
    std::vector<kx::TKxGivenColumn> Columns;
    std::string Failure; ///< empty: there is a table
};

std::string ToWire(const TAnswerOfDatabase& Answer);
/// Raises kx::Exception for a text that ends too early.
TAnswerOfDatabase FromWire(std::string_view Text);

} // namespace kxplot
