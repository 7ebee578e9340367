#include "kxplot/fit/results.h"

#include <cstddef>

namespace kxplot {

std::string ResultsText(const TParts& Parts) {
    std::string text;
    for (std::size_t k = 0; k < Parts.Analysed.size(); ++k) {
        const auto& results = Parts.Analysed[k]->GetResults();
        for (int i = 0; i < results.GetCount(); ++i) {
            std::string line = results.GetLine(i);
            // Sections that were erased leave their empty lines.
            if (line.empty() && (text.empty() || text.ends_with("\n\n"))) continue;
            if (Parts.Series.size() > 1 && !line.empty() && line.front() == '[')
                line.insert(1, Parts.Series[k]->GetName() + ".");
            text += line + "\n";
        }
    }
    while (text.ends_with("\n\n")) text.pop_back();
    return text;
}

} // namespace kxplot
