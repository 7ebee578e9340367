#pragma once
// What series are drawn as where nothing else was asked for.

#include "kxplot/options/options.h"
#include "kxplot/plan/direction.h"

#include <cstddef>
#include <span>
#include <string>

namespace kxplot {

/// What it depends on.
struct TStyleQuestion {
    std::size_t Rows = 0;
    TTurns X;                 ///< none of categories
    bool HasAnalysis = false; ///< a fit or a curve among the points
    bool HasCategories = false, AreDistinct = false;
    bool MayHaveBars = true; ///< nothing is asked for that bars have not
};

struct TStyleChoice {
    TStyle Style = TStyle::Both;
    bool SmallSymbols = false; ///< for a cloud of points
    std::string Why;
};

TStyleChoice ChooseStyle(const TStyleQuestion& Question);

/// Whether there are so many points that their symbols are small.
constexpr bool IsCloud(std::size_t Points) { return Points > 500; }

/// Whether most values have gaps on both sides, so that a line through them shows next to nothing.
bool StandAlone(std::span<const double> Values);

} // namespace kxplot
