#include "kxplot/analysisspec.h"

#include "kxplot/number.h"
#include "kxplot/options.h"

#include <kxgraph/platform/text/text.h>

#include <string_view>

namespace kxplot {

namespace {

constexpr int CHighestDegree = 1000000;

[[noreturn]] void Fail(const char* Option, const std::string& Text, const std::string& What) {
    throw TUsageError(std::string(Option) + ": '" + kx::Abridged(Text) + "' " + What);
}

TAnalysisSpec ParsePolynomial(const std::string& Text, std::string_view Degree) {
    const auto degree = ParseWhole(Degree, 2, CHighestDegree);
    if (!degree)
        Fail("--fit", Text,
             "is not poly:DEGREE with a degree from 2 to " + std::to_string(CHighestDegree) +
                 " (a straight line is --fit line)");
    TAnalysisSpec spec;
    spec.Method = TMethod::Polynomial;
    spec.Degree = *degree;
    return spec;
}

/// What stands behind Prefix; nothing when Text does not begin with it.
std::optional<std::string_view> Behind(std::string_view Prefix, std::string_view Text) {
    if (!Text.starts_with(Prefix)) return std::nullopt;
    return Text.substr(Prefix.size());
}

} // namespace

bool IsFormula(const std::string& Text) {
    return Text != "line" && !Text.starts_with("line:") && !Text.starts_with("poly:");
}

TAnalysisSpec ParseFit(const std::string& Text) {
    TAnalysisSpec spec;
    if (Text == "line") return spec;
    if (const auto degree = Behind("poly:", Text)) return ParsePolynomial(Text, *degree);
    const auto offset = Behind("line:offset=", Text);
    if (!offset) Fail("--fit", Text, "is not line, line:offset=VALUE or poly:DEGREE");
    spec.Setting = ParseFinite(*offset);
    if (!spec.Setting) Fail("--fit", Text, "is not line:offset=VALUE with a number");
    return spec;
}

TAnalysisSpec ParseCurve(const std::string& Text) {
    TAnalysisSpec spec;
    spec.Method = Text.starts_with("spline") ? TMethod::Spline : TMethod::Akima;
    if (Text == "akima" || Text == "spline") return spec;
    const char* const known = spec.Method == TMethod::Akima ? "akima:smooth=" : "spline:weight=";
    const auto setting = Behind(known, Text);
    if (!setting) Fail("--curve", Text, "is not akima, akima:smooth=WIDTH, spline or spline:weight=FACTOR");
    spec.Setting = ParseFinite(*setting);
    if (!spec.Setting || *spec.Setting <= 0)
        Fail("--curve", Text, "is not " + std::string(known) + "VALUE with a number above 0");
    return spec;
}

} // namespace kxplot
