#pragma once
// Finds out by looking at its first rows how a table is written.

#include <kxgraph/table/Kxtableformat.h>

#include <string>
#include <string_view>

namespace kx {

/// Looks at the head of Text, which stands in messages as Name. A table that can be read from its first line
/// on is; else lines in front of it are a preamble, where below them rows of as many cells begin that hold
/// numbers. Raises ETableError for a table without rows.
TKxTableShape LookAtTable(std::string_view Text, const std::string& Name, const TKxTableFormat& Format);

} // namespace kx
