#include "kxplot/options/analysisrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <string_view>

namespace kxplot {

namespace {

constexpr int CHighestDegree = 1000000;

TAnalysisRequest ParsePolynomial(const std::string& Text, std::string_view Degree) {
    const auto degree = ParseWhole(Degree, 2, CHighestDegree);
    if (!degree)
        FailUsage("--fit", Text,
                  "is not poly:DEGREE with a degree from 2 to " + std::to_string(CHighestDegree) +
                      " (a straight line is --fit line)");
    TAnalysisRequest request;
    request.Method = TMethod::Polynomial;
    request.Degree = *degree;
    return request;
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

TAnalysisRequest ParseFit(const std::string& Text) {
    TAnalysisRequest request;
    if (Text == "line") return request;
    if (const auto degree = Behind("poly:", Text)) return ParsePolynomial(Text, *degree);
    const auto offset = Behind("line:offset=", Text);
    if (!offset) FailUsage("--fit", Text, "is not line, line:offset=VALUE or poly:DEGREE");
    request.Setting = ParseFinite(*offset);
    if (!request.Setting) FailUsage("--fit", Text, "is not line:offset=VALUE with a number");
    return request;
}

TAnalysisRequest ParseCurve(const std::string& Text) {
    TAnalysisRequest request;
    request.Method = Text.starts_with("spline") ? TMethod::Spline : TMethod::Akima;
    if (Text == "akima" || Text == "spline") return request;
    const char* const known = request.Method == TMethod::Akima ? "akima:smooth=" : "spline:weight=";
    const auto setting = Behind(known, Text);
    if (!setting)
        FailUsage("--curve", Text, "is not akima, akima:smooth=WIDTH, spline or spline:weight=FACTOR");
    request.Setting = ParseFinite(*setting);
    if (!request.Setting || *request.Setting <= 0)
        FailUsage("--curve", Text, "is not " + std::string(known) + "VALUE with a number above 0");
    return request;
}

} // namespace kxplot
