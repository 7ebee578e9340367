#pragma once
// Reads numbers: of a table's cells and of options.

#include <optional>
#include <string_view>

namespace kxplot {

/// The value of Cell, which must be a number as a whole (blanks around it do not count): point form, with
/// DecimalComma also "1,5". "nan", "inf" and "infinity" in any case, signed or not, are values; a magnitude
/// beyond double is an infinity, one too small is 0. Nothing for any other text.
std::optional<double> ParseNumber(std::string_view Cell, bool DecimalComma);

/// A finite number in point form.
std::optional<double> ParseFinite(std::string_view Text);
/// A whole number of these bounds; digits and a sign alone.
std::optional<int> ParseWhole(std::string_view Text, int Lowest, int Highest);

} // namespace kxplot
