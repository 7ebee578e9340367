#pragma once
// How formulas are fitted: by which method, and which coefficients are fixed or held between bounds.

#include "kxplot/options/analysisrequest.h"

#include <kxgraph/analysis/Kxfittedline.h>

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kxplot {

/// The options as CLI11 stores them.
struct TMethodArguments {
    std::optional<std::string> Method;
    std::vector<std::string> Fixed, Bounds; ///< lists
};

struct TMethodRequest {
    kx::TKxFittingMethod Method = kx::fmDampedFirst;
    std::vector<std::string> Fixed, Bounds; ///< an entry each: b, a=0..1

    /// The entries that are about coefficients of a formula, as lists.
    std::string FixedOf(const TAnalysisRequest& Formula) const;
    std::string BoundsOf(const TAnalysisRequest& Formula) const;
};

/// --method, --fix and --bounds.
void AddMethodOptions(CLI::App& App, TMethodArguments& Given);
/// For the formulas among Analyses; with Covariance the simplex fits them whatever the method. Raises
/// TUsageError.
TMethodRequest ParseMethod(const TMethodArguments& Given, const std::vector<TAnalysisRequest>& Analyses,
                           bool Covariance);

} // namespace kxplot
