#pragma once
// Texts over x.

#include <string>
#include <vector>

namespace kxplot {

/// Texts in the order in which they come first, and where each row stands among them, from 1; a NaN where
/// there is no text.
struct TCategories {
    std::vector<std::string> Texts;
    std::vector<double> Places;

    /// Whether no text stands in two rows.
    bool AreDistinct() const;
};

TCategories CategoriesOf(const std::vector<std::string>& Rows);

} // namespace kxplot
