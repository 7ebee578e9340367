#include "kxplot/fitspec.h"

#include "kxplot/number.h"
#include "kxplot/options.h"
#include "platform/text.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace kxplot {

namespace {

constexpr int CHighestDegree = 1000000, CMostDigits = 18;

std::optional<int> ParseWhole(std::string_view Text) {
    int value = 0;
    const auto [stop, error] = std::from_chars(Text.data(), Text.data() + Text.size(), value);
    if (error != std::errc() || stop != Text.data() + Text.size()) return std::nullopt;
    return value;
}

[[noreturn]] void Fail(const char* Option, const std::string& Text, const std::string& What) {
    throw TUsageError(std::string(Option) + ": '" + kx::Escaped(Text) + "' " + What);
}

TFitSpec ParsePolynomial(const std::string& Text, std::string_view Degree) {
    const auto degree = ParseWhole(Degree);
    if (!degree || *degree < 2 || *degree > CHighestDegree)
        Fail("--fit", Text,
             "is not poly:DEGREE with a degree from 2 to " + std::to_string(CHighestDegree) +
                 " (a straight line is --fit line)");
    return {*degree, {}};
}

} // namespace

TFitSpec ParseFit(const std::string& Text) {
    constexpr std::string_view polynomial = "poly:", offset = "line:offset=";
    const std::string_view view(Text);
    if (view == "line") return {};
    if (view.substr(0, polynomial.size()) == polynomial)
        return ParsePolynomial(Text, view.substr(polynomial.size()));
    if (view.substr(0, offset.size()) != offset)
        Fail("--fit", Text, "is not line, line:offset=VALUE or poly:DEGREE");
    const auto value = ParseNumber(view.substr(offset.size()), false);
    if (!value || !std::isfinite(*value)) Fail("--fit", Text, "is not line:offset=VALUE with a number");
    return {1, *value};
}

// Keys hold no colon, and none begins with a digit.
TLabelSpec ParseLabel(const std::string& Text) {
    TLabelSpec label;
    label.Text = Text;
    std::string_view rest(Text);
    if (const auto colon = rest.rfind(':'); colon != std::string_view::npos) {
        const auto digits = ParseWhole(rest.substr(colon + 1));
        if (!digits || *digits < 0 || *digits > CMostDigits)
            Fail("--label", Text, "is not KEY:DIGITS with 0 to 18 digits");
        label.Digits = *digits;
        rest = rest.substr(0, colon);
    }
    if (const auto point = rest.find('.'); point != std::string_view::npos) {
        label.Number = ParseWhole(rest.substr(0, point));
        if (label.Number) rest = rest.substr(point + 1);
    }
    if (rest.empty()) Fail("--label", Text, "has no key");
    label.Key = rest;
    return label;
}

} // namespace kxplot
