#pragma once
// Whether x values go somewhere.

#include <span>

namespace kxplot {

/// How often values turn back.
struct TTurns {
    int Steps = 0; ///< from one value to the next; gaps make none
    int Turns = 0; ///< where the direction changes

    /// Whether a line through the points would run to and fro: more than a tenth of the steps turn back. Two
    /// turns are a closed curve or a sweep back and forth, unless there is hardly any other step.
    bool IsToAndFro() const { return Turns > 2 ? 10 * Turns > Steps : 2 * Turns > Steps; }
};

TTurns TurnsOf(std::span<const double> Values);

} // namespace kxplot
