#pragma once
// Numbers as people and programs write them into the cells of tables.

#include <optional>
#include <string_view>

namespace kx {

/// The value of Cell, which must be a number as a whole (blanks around it do not count): point form, with
/// DecimalComma also "1,5". "nan", "inf" and "infinity" in any case, signed or not, are values; a magnitude
/// beyond double is an infinity, one too small is 0. Nothing for any other text.
std::optional<double> ParseNumber(std::string_view Cell, bool DecimalComma);

} // namespace kx
