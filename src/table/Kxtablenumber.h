#pragma once
// Numbers as people and programs write them into the cells of tables.

#include <optional>
#include <string_view>

namespace kx {

/// The value of Cell, which must be a number as a whole (blanks around it do not count): point form, with
/// DecimalComma also "1,5". "nan", "inf" and "infinity" in any case, signed or not, are values; a magnitude
/// beyond double is an infinity, one too small is 0. Nothing for any other text.
std::optional<double> ParseNumber(std::string_view Cell, bool DecimalComma);

/// The same for the exponents that Fortran writes, "1.5D+03" and "0.25-100". What could be a name, such as
/// "3D2", is none: the mantissa has a decimal sign, or the exponent a sign.
std::optional<double> ParseFortranNumber(std::string_view Cell, bool DecimalComma);

/// Which sign groups the thousands of a column.
enum class TKxGrouping { None, ByComma, ByPoint };

/// "1,234,567.8" by comma, "1.234.567,8" by point: groups of three digits, up to three in front; the other
/// sign is the decimal one. A number without groups is one too, in the decimal sign that remains.
std::optional<double> ParseGrouped(std::string_view Cell, TKxGrouping Grouping);

/// What Cell tells about the grouping of its column. A single group, "1,234", may as well be decimals.
struct TKxGroupingTold {
    bool IsGrouped = false; ///< in digits of groups by that sign
    bool IsProof = false;   ///< they cannot be anything else
};
TKxGroupingTold TellsGrouping(std::string_view Cell, TKxGrouping Grouping);

} // namespace kx
