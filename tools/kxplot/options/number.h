#pragma once
// Numbers as options hold them.

#include <optional>
#include <string_view>

namespace kxplot {

/// A finite number in point form.
std::optional<double> ParseFinite(std::string_view Text);
/// The same, or a date of which it is clear what stands first, such as 2003-09-19 or "19-Sep-03 13:05", in
/// seconds since 1970-01-01 00:00 UTC.
std::optional<double> ParsePlace(std::string_view Text);
/// A whole number of these bounds; digits and a sign alone.
std::optional<int> ParseWhole(std::string_view Text, int Lowest, int Highest);

} // namespace kxplot
