#include "kxplot/plan/direction.h"

#include <cmath>
#include <cstddef>

namespace kxplot {

namespace {

bool Rise(std::span<const double> Values) {
    std::size_t rises = 0; // counted without a branch, as compilers make vectors of it
    for (std::size_t i = 1; i < Values.size(); ++i) rises += Values[i] > Values[i - 1];
    return rises + 1 == Values.size();
}

} // namespace

TTurns TurnsOf(std::span<const double> Values) {
    TTurns found;
    if (Rise(Values)) return {int(Values.size()) - 1, 0};
    bool wentUp = false, wentDown = false; // neither behind a gap
    for (std::size_t i = 1; i < Values.size(); ++i) {
        const double before = Values[i - 1], value = Values[i];
        if (std::isnan(before) || std::isnan(value)) {
            wentUp = wentDown = false;
            continue;
        }
        ++found.Steps;
        if (value == before) continue;
        found.Turns += value > before ? wentDown : wentUp;
        wentUp = value > before;
        wentDown = !wentUp;
    }
    return found;
}

} // namespace kxplot
