#pragma once
// Numbers as options hold them.

#include <optional>
#include <string_view>

namespace kxplot {

/// A finite number in point form.
std::optional<double> ParseFinite(std::string_view Text);
/// A whole number of these bounds; digits and a sign alone.
std::optional<int> ParseWhole(std::string_view Text, int Lowest, int Highest);

} // namespace kxplot
