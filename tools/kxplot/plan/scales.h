#pragma once
// What the numbers along the axes stand for.

#include <string>
#include <vector>

namespace kxplot {

struct TScalesPlan {
    bool XIsDate = false, YIsDate = false; ///< seconds since 1970, UTC
    std::vector<std::string> Categories;   ///< what stands at x = 1, 2, 3, ...; empty: numbers or dates
};

} // namespace kxplot
