#pragma once
// Which values of a plan are a column of its table as it stands.

#include "kxplot/plan/plan.h"

#include <string>

namespace kxplot {

/// Tells each vector of Plan that holds the values of a column of Table, read without any option, bit for
/// bit, where they come from; the file is named as seen from FormFile.
void FindSources(TPlan& Plan, const std::string& Table, const std::string& FormFile);

} // namespace kxplot
