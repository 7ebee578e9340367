#pragma once
// What helps with a table that is refused.

#include "kxplot/options/options.h"

#include <kxgraph/table/Kxtable.h>

#include <string>

namespace kxplot {

/// How the table is written, by all options.
kx::TKxTableFormat FormatOf(const TOptions& Options);
/// The same error, its message with the option that helps behind it.
kx::ETableError WithRemedy(const kx::ETableError& Error);

} // namespace kxplot
