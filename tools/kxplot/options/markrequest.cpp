#include "kxplot/options/markrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kxplot {

namespace {

/// The first Count numbers of Text, divided by commas, and where what follows begins; nothing when there are
/// not so many.
std::optional<std::vector<double>> NumbersIn(const std::string& Text, std::size_t Count, std::size_t& At) {
    std::vector<double> numbers;
    for (At = 0; numbers.size() < Count;) {
        if (At > Text.size()) return std::nullopt;
        const std::size_t comma = std::min(Text.find(',', At), Text.size());
        const auto number = ParseFinite(std::string_view(Text).substr(At, comma - At));
        if (!number) return std::nullopt;
        numbers.push_back(*number);
        At = comma + 1;
    }
    return numbers;
}

std::vector<double> Values(const char* Option, const std::vector<std::string>& Texts) {
    std::vector<double> values;
    for (const std::string& text : Texts) {
        const auto value = ParseFinite(text);
        if (!value) FailUsage(Option, text, "is not a number");
        values.push_back(*value);
    }
    return values;
}

TTextMark ParseText(const std::string& Text) {
    std::size_t at = 0;
    const auto place = NumbersIn(Text, 2, at);
    if (!place || at >= Text.size()) FailUsage("--text", Text, "is not X,Y,CAPTION");
    return {(*place)[0], (*place)[1], Text.substr(at)};
}

TArrowMark ParseArrow(const std::string& Text) {
    std::size_t at = 0;
    const auto ends = NumbersIn(Text, 4, at);
    if (!ends || at <= Text.size()) FailUsage("--arrow", Text, "is not X1,Y1,X2,Y2");
    return {(*ends)[0], (*ends)[1], (*ends)[2], (*ends)[3]};
}

} // namespace

void AddMarkOptions(CLI::App& App, TMarkArguments& Given) {
    const auto several = [&App](const char* Name, std::vector<std::string>& Target, const char* Type,
                                const char* Help) {
        App.add_option(Name, Target, Help)->type_name(Type)->allow_extra_args(false);
    };
    several("--vline", Given.Vertical, "X", "draws a vertical line at this x (several allowed)");
    several("--hline", Given.Horizontal, "Y", "draws a horizontal line at this y (several allowed)");
    several("--text", Given.Texts, "X,Y,CAPTION", "writes a caption, whose left end stands at this point");
    several("--arrow", Given.Arrows, "X1,Y1,X2,Y2", "draws an arrow from the first point to the second");
}

TMarkRequest ParseMarks(const TMarkArguments& Given) {
    TMarkRequest request{Values("--vline", Given.Vertical), Values("--hline", Given.Horizontal), {}, {}};
    for (const std::string& text : Given.Texts) request.Texts.push_back(ParseText(text));
    for (const std::string& text : Given.Arrows) request.Arrows.push_back(ParseArrow(text));
    return request;
}

} // namespace kxplot
