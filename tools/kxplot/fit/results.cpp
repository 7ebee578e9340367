#include "kxplot/fit/results.h"

namespace kxplot {

std::string ResultsText(const std::vector<kx::TKxNotCalculatedSeries*>& Series) {
    std::string text;
    for (auto* series : Series) {
        const auto& results = series->GetResults();
        for (int i = 0; i < results.GetCount(); ++i) {
            std::string line = results.GetLine(i);
            // Sections that were erased leave their empty lines.
            if (line.empty() && (text.empty() || text.ends_with("\n\n"))) continue;
            if (Series.size() > 1 && !line.empty() && line.front() == '[')
                line.insert(1, series->GetName() + ".");
            text += line + "\n";
        }
    }
    while (text.ends_with("\n\n")) text.pop_back();
    return text;
}

} // namespace kxplot
