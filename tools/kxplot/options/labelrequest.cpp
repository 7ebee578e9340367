#include "kxplot/options/labelrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <limits>
#include <string_view>

namespace kxplot {

namespace {

constexpr int CMostDigits = 18;

} // namespace

// Keys hold no colon, and none begins with a digit.
TLabelRequest ParseLabel(const std::string& Text) {
    TLabelRequest label;
    label.Text = Text;
    std::string_view rest(Text);
    if (const auto colon = rest.rfind(':'); colon != std::string_view::npos) {
        std::string_view number = rest.substr(colon + 1);
        label.WithError = number.ends_with("+-");
        if (label.WithError) number.remove_suffix(2);
        const auto digits = ParseWhole(number, 0, CMostDigits);
        if (!digits) FailUsage("--label", Text, "is not KEY:DIGITS or KEY:DIGITS+- with 0 to 18 digits");
        label.Digits = *digits;
        rest = rest.substr(0, colon);
    }
    if (const auto point = rest.find('.'); point != std::string_view::npos) {
        label.Number = ParseWhole(rest.substr(0, point), 0, std::numeric_limits<int>::max());
        if (label.Number) rest = rest.substr(point + 1);
    }
    if (rest.empty()) FailUsage("--label", Text, "has no key");
    label.Key = rest;
    return label;
}

} // namespace kxplot
