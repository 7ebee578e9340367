#pragma once
// What --fit and --label ask for.

#include <optional>
#include <string>

namespace kxplot {

/// A straight line, through a given offset or not, or a polynomial.
struct TFitSpec {
    int Degree = 1;
    std::optional<double> Offset; ///< of a line only
    friend bool operator==(const TFitSpec&, const TFitSpec&) = default;
};

/// One result to be shown in the picture.
struct TLabelSpec {
    std::string Text;          ///< as it was given, for messages
    std::optional<int> Number; ///< of the fit, 1-based; none: the first fit that has the key
    std::string Key;
    int Digits = 8; ///< 0 to 18
};

/// "line", "line:offset=1.5" or "poly:3". Raises TUsageError.
TFitSpec ParseFit(const std::string& Text);
/// "Slope", "Slope:6" or "2.Slope:6". Raises TUsageError.
TLabelSpec ParseLabel(const std::string& Text);

} // namespace kxplot
