#include "kxplot/options/number.h"

#include <kxgraph/table/Kxtabledates.h>
#include <kxgraph/table/Kxtablenumber.h>

#include <charconv>
#include <cmath>

namespace kxplot {

std::optional<double> ParseFinite(std::string_view Text) {
    const auto value = kx::ParseNumber(Text, false);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<double> ParsePlace(std::string_view Text) {
    if (const auto value = ParseFinite(Text)) return value;
    const auto date = kx::TKxDateCell::Parse(Text);
    if (!date || !date->KnowsItsOrder()) return std::nullopt;
    return date->Seconds(kx::TKxDateOrder::DayMonthYear);
}

std::optional<int> ParseWhole(std::string_view Text, int Lowest, int Highest) {
    int value = 0;
    const auto [stop, error] = std::from_chars(Text.data(), Text.data() + Text.size(), value);
    if (error != std::errc() || stop != Text.data() + Text.size()) return std::nullopt;
    if (value < Lowest || value > Highest) return std::nullopt;
    return value;
}

} // namespace kxplot
