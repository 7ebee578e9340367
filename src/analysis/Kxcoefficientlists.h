#pragma once
// Which coefficients of a fit are fixed, and between which bounds others stay, as texts that people write:
// "b, c" and "a=0..1, c=..5". Pure.

#include <kxgraph/analysis/Kxderivatives.h>
#include <kxgraph/platform/text/text.h>

#include <span>
#include <string_view>
#include <vector>

namespace kx {

/// The limits of each coefficient: equal ones, its value, for those that Fixed lists, else those that Bounds
/// gives, both ends included, or none. An entry names a coefficient by its name, by its number from 1 or,
/// without names, by the letter that results give it; blanks around entries mean nothing. Either end of
/// bounds may be left out.
///
/// Raises EMathError "Fitted Line: ..." that quotes what is wrong: an entry of another form, a coefficient
/// that there is not, or twice, or one that is both fixed and bounded, and bounds that leave no room.
std::vector<TKxCoefficientLimits> ReadCoefficientLimits(std::string_view Fixed, std::string_view Bounds,
                                                        std::span<const AnsiString> Names,
                                                        std::span<const double> Values);

} // namespace kx
