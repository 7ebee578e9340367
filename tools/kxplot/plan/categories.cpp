#include "kxplot/plan/categories.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <unordered_map>

namespace kxplot {

bool TCategories::AreDistinct() const {
    const auto rows = std::ranges::count_if(Places, [](double Place) { return !std::isnan(Place); });
    return std::size_t(rows) == Texts.size();
}

TCategories CategoriesOf(const std::vector<std::string>& Rows) {
    TCategories found;
    std::unordered_map<std::string, std::size_t> places;
    for (const std::string& text : Rows) {
        if (text.empty()) {
            found.Places.push_back(std::numeric_limits<double>::quiet_NaN());
            continue;
        }
        const auto [place, isNew] = places.try_emplace(text, places.size() + 1);
        if (isNew) found.Texts.push_back(text);
        found.Places.push_back(double(place->second));
    }
    return found;
}

} // namespace kxplot
