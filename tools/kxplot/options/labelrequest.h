#pragma once
// What --label asks for.

#include <optional>
#include <string>

namespace kxplot {

/// One result to be shown in the picture.
struct TLabelRequest {
    std::string Text;          ///< as it was given, for messages
    std::optional<int> Number; ///< of the analysis, 1-based; none: the first one that has the key
    std::string Key;
    int Digits = 8;         ///< significant ones, 0 to 18; 0: as many as there are
    bool WithError = false; ///< the standard error stands behind it
    std::string ErrorKey;   ///< that of the error, once the analysis is known
};

/// "Slope", "Slope:6", "2.Slope:6" or "Slope:3+-". Raises TUsageError.
TLabelRequest ParseLabel(const std::string& Text);

} // namespace kxplot
