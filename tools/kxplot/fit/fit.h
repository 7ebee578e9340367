#pragma once
// Does the analyses of a picture and collects what became of them.

#include "kxplot/form/notes.h"

#include <string>
#include <vector>

namespace kxplot {

struct TFindings {
    std::string Results;               ///< as INI text
    std::vector<TLabelSource> Labels;  ///< one for each that was asked for
    std::vector<std::string> Failures; ///< a line for each analysis without a curve
    std::vector<std::string> Remarks;  ///< a line for each fit whose result is not the best there is
    bool Interrupted = false;          ///< the user ended a fit before its time
};

/// On a settled graph; nothing may be changed afterwards that analyses depend on. Raises TUsageError for a
/// label of a result that there is not.
TFindings Fit(TParts& Parts);

} // namespace kxplot
