#include "kxplot/options/bandrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>

namespace kxplot {

namespace {

/// As a part of one: "0.95", "95" and "95%" are the same.
double ParseLevel(const std::string& Text) {
    std::string_view number = Text;
    const bool percent = number.ends_with('%');
    if (percent) number.remove_suffix(1);
    double level = ParseFinite(number).value_or(0);
    if (percent || level >= 1) level /= 100;
    if (!(level > 0 && level < 1)) FailUsage("--level", Text, "is no probability such as 95% or 0.95");
    return level;
}

kx::TKxBandKind ParseKind(const std::string& Text) {
    if (Text == "confidence") return kx::bkConfidence;
    if (Text != "prediction") FailUsage("--band", Text, "is not confidence or prediction");
    return kx::bkPrediction;
}

} // namespace

void AddBandOptions(CLI::App& App, TBandArguments& Given) {
    App.add_option("--band", Given.Bands,
                   "draws the band about every fit (several allowed): confidence, where the fitted curve may "
                   "lie, or prediction, where one further point may lie")
        ->type_name("confidence|prediction")
        ->allow_extra_args(false);
    App.add_option("--level", Given.Level, "with which probability they lie in the band (default: 95%)")
        ->type_name("P");
}

TBandRequest ParseBands(const TBandArguments& Given, const std::vector<TAnalysisRequest>& Analyses) {
    TBandRequest request;
    for (const std::string& text : Given.Bands) request.Kinds.push_back(ParseKind(text));
    std::ranges::sort(request.Kinds, std::ranges::greater());
    request.Kinds.erase(std::unique(request.Kinds.begin(), request.Kinds.end()), request.Kinds.end());
    if (!request.Kinds.empty() && std::ranges::none_of(Analyses, &TAnalysisRequest::IsFit))
        throw TUsageError("--band: there is no --fit that it could be for");
    if (Given.Level && request.Kinds.empty())
        throw TUsageError("--level: there is no --band that it could be for");
    if (Given.Level) request.Level = ParseLevel(*Given.Level);
    return request;
}

} // namespace kxplot
