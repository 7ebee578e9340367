#pragma once
// The tables of a run, and the plan of the picture that they give.

#include "kxplot/plan/plan.h"

#include <string>

namespace kxplot {

/// Reads the tables and plans the picture. Followed is the text of a table that was followed, null where it
/// is read from its file. Raises kx::ETableError with the option that helps, kx::EFileError, and TUsageError.
TPlan Planned(const TOptions& Given, const std::string* Followed = nullptr);

/// Tells how the tables are read, also one that then cannot be drawn. Returns the exit status.
int Explain(const TOptions& Given);

} // namespace kxplot
