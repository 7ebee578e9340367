#pragma once
// Which results --label means.

#include "kxplot/form/notes.h"

#include <vector>

namespace kxplot {

/// One for each label that is asked for. Raises TUsageError when there is no such result, unless the analysis
/// that should have it has failed or its data leave it open.
std::vector<TLabelSource> FindLabels(const TParts& Parts);

} // namespace kxplot
