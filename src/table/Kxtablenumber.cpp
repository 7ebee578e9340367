#include <kxgraph/table/Kxtablenumber.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace kx {

namespace {

// Beyond double, long double tells large from small; beyond that too, the exponent's sign does.
double OutOfRange(const char* Begin, const char* End) {
    long double wide = 0;
    if (std::from_chars(Begin, End, wide).ec == std::errc()) return static_cast<double>(wide);
    const char* exponent = std::find_if(Begin, End, [](char C) { return C == 'e' || C == 'E'; });
    const bool tiny = exponent != End && exponent + 1 != End && exponent[1] == '-';
    const double size = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    return *Begin == '-' ? -size : size;
}

std::optional<double> ParsePointForm(const char* Begin, const char* End) {
    if (Begin != End && *Begin == '+') {
        ++Begin;
        if (Begin != End && *Begin == '-') return std::nullopt;
    }
    double value = 0;
    const auto [stop, error] = std::from_chars(Begin, End, value);
    if (stop != End || Begin == End) return std::nullopt;
    if (error == std::errc::result_out_of_range) return OutOfRange(Begin, End);
    if (error != std::errc()) return std::nullopt;
    return value;
}

} // namespace

std::optional<double> ParseNumber(std::string_view Cell, bool DecimalComma) {
    while (!Cell.empty() && (Cell.front() == ' ' || Cell.front() == '\t')) Cell.remove_prefix(1);
    while (!Cell.empty() && (Cell.back() == ' ' || Cell.back() == '\t')) Cell.remove_suffix(1);
    const auto comma = DecimalComma ? Cell.find(',') : std::string_view::npos;
    if (comma == std::string_view::npos) return ParsePointForm(Cell.data(), Cell.data() + Cell.size());
    if (Cell.find('.') != std::string_view::npos) return std::nullopt;
    std::string pointForm(Cell);
    pointForm[comma] = '.';
    return ParsePointForm(pointForm.data(), pointForm.data() + pointForm.size());
}

} // namespace kx
