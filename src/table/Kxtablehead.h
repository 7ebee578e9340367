#pragma once
// Finds where a table begins that cannot be read from its first line on, and what its header is.

#include <kxgraph/table/Kxtableseparator.h>

#include <optional>
#include <string_view>

namespace kx {

/// Looks from the last of the first rows upward for where rows of as many cells begin that hold numbers, for
/// their header (perhaps one cell short, for names of the rows), a row of units below it and the preamble
/// above. Nothing when there is none, or when what stands above might be data.
std::optional<TKxTableShape> FindTable(const TKxTableLines& Lines, const TKxTableFormat& Format);

/// A header that stands in the last comment, or in the one before above a comment of units. Shape, which has
/// none, gets it.
void FindHeaderInComments(const TKxTableLines& Lines, TKxTableShape& Shape);

} // namespace kx
