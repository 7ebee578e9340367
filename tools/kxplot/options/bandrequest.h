#pragma once
// Which bands are drawn about fits.

#include "kxplot/options/analysisrequest.h"

#include <kxgraph/analysis/Kxbands.h>

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kxplot {

/// The options as CLI11 stores them.
struct TBandArguments {
    std::vector<std::string> Bands;
    std::optional<std::string> Level;
};

struct TBandRequest {
    std::vector<kx::TKxBandKind> Kinds; ///< the wider ones first, which lie beneath
    double Level = 0.95;
};

/// --band and --level.
void AddBandOptions(CLI::App& App, TBandArguments& Given);
/// Raises TUsageError.
TBandRequest ParseBands(const TBandArguments& Given, const std::vector<TAnalysisRequest>& Analyses);

} // namespace kxplot
