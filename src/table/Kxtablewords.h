#pragma once
// What texts around a table are: units, or words of a sentence.

#include <span>
#include <string>
#include <string_view>

namespace kx {

/// Whether texts are units, at least one of them: symbols such as mV, kg/m^3 or µs, with prefixes; anything
/// in parentheses or brackets; a percent sign. The others are none, a dash or 1.
bool AreUnits(std::span<const std::string> Texts);

/// Whether Text is what stands in place of a unit: nothing, a dash or 1.
bool StandsForNoUnit(std::string_view Text);

/// Whether words, one a text, are rather a sentence than names of columns.
bool IsSentence(std::span<const std::string> Words);

} // namespace kx
