#include "kxplot/options/methodrequest.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/analysis/Kxcoefficientlists.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kxplot {

namespace {

/// The entries of lists divided by commas.
std::vector<std::string> EntriesOf(const std::vector<std::string>& Lists) {
    std::vector<std::string> entries;
    for (const std::string& list : Lists)
        for (std::size_t at = 0; at <= list.size();) {
            const std::size_t comma = std::min(list.find(',', at), list.size());
            entries.emplace_back(kx::Trimmed(std::string_view(list).substr(at, comma - at)));
            at = comma + 1;
        }
    return entries;
}

/// The name that an entry begins with.
std::string NameIn(const std::string& Entry) {
    return std::string(kx::Trimmed(std::string_view(Entry).substr(0, Entry.find('='))));
}

bool HasCoefficient(const TAnalysisRequest& Formula, const std::string& Name) {
    return std::ranges::any_of(Formula.Start, [&](const TStartValue& Value) { return Value.Name == Name; });
}

std::string ListFor(const TAnalysisRequest& Formula, const std::vector<std::string>& Entries) {
    std::string list;
    for (const std::string& entry : Entries)
        if (HasCoefficient(Formula, NameIn(entry))) list.append(list.empty() ? "" : ",").append(entry);
    return list;
}

void CheckNames(const char* Option, const std::vector<std::string>& Entries,
                const std::vector<TAnalysisRequest>& Analyses) {
    for (const std::string& entry : Entries)
        if (std::ranges::none_of(Analyses, [&](const auto& A) { return HasCoefficient(A, NameIn(entry)); }))
            FailUsage(Option, NameIn(entry), "is a coefficient of no formula");
}

std::vector<kx::TKxCoefficientLimits> LimitsOf(const TAnalysisRequest& Formula,
                                               const TMethodRequest& Request) {
    std::vector<std::string> names;
    std::vector<double> values;
    for (const auto& [name, value] : Formula.Start) {
        names.push_back(name);
        values.push_back(value);
    }
    try {
        return kx::ReadCoefficientLimits(Request.FixedOf(Formula), Request.BoundsOf(Formula), names, values);
    } catch (const kx::EMathError& error) { // "Fitted Line: 'entry' ..."
        const std::string message = error.what();
        throw TUsageError("--bounds: " + kx::Escaped(message.substr(message.find('\''))));
    }
}

void CheckFormula(const TAnalysisRequest& Formula, const TMethodRequest& Request, bool Simplex) {
    const auto limits = LimitsOf(Formula, Request);
    for (std::size_t k = 0; k < limits.size(); ++k) {
        const auto& [name, value] = Formula.Start[k];
        const std::string start = name + "=" + kx::FloatToStr(value);
        if (!limits[k].Contains(value)) FailUsage("--start", start, "lies outside of its --bounds");
        if (Simplex && value == 0 && !limits[k].IsFixed())
            FailUsage("--start", start,
                      "would stay 0 for ever with the simplex; another start value is needed");
    }
    if (std::ranges::all_of(limits, &kx::TKxCoefficientLimits::IsFixed))
        FailUsage("--fix", Formula.Formula, "has no coefficient left to fit");
}

kx::TKxFittingMethod MethodOf(const TMethodArguments& Given) {
    if (!Given.Method) return kx::fmDampedFirst;
    if (*Given.Method == "damped") return kx::fmDamped;
    if (*Given.Method != "simplex") FailUsage("--method", *Given.Method, "is not damped or simplex");
    return kx::fmSimplex;
}

} // namespace

std::string TMethodRequest::FixedOf(const TAnalysisRequest& Formula) const { return ListFor(Formula, Fixed); }
std::string TMethodRequest::BoundsOf(const TAnalysisRequest& Formula) const {
    return ListFor(Formula, Bounds);
}

void AddMethodOptions(CLI::App& App, TMethodArguments& Given) {
    App.add_option("--method", Given.Method,
                   "how formulas are fitted: damped for damped least squares, which stop by themselves, or "
                   "simplex (default: damped, and where that finds no minimum from what the simplex finds)")
        ->type_name("damped|simplex");
    App.add_option("--fix", Given.Fixed,
                   "coefficients of formulas that keep their start values (several allowed)")
        ->type_name("a,b,...")
        ->allow_extra_args(false);
    App.add_option("--bounds", Given.Bounds,
                   "where coefficients of formulas stay, both ends included; either may be left out (several "
                   "allowed)")
        ->type_name("a=0..1,b=0..,...")
        ->allow_extra_args(false);
}

TMethodRequest ParseMethod(const TMethodArguments& Given, const std::vector<TAnalysisRequest>& Analyses,
                           bool Covariance) {
    TMethodRequest request{MethodOf(Given), EntriesOf(Given.Fixed), EntriesOf(Given.Bounds)};
    CheckNames("--fix", request.Fixed, Analyses);
    CheckNames("--bounds", request.Bounds, Analyses);
    for (const auto& analysis : Analyses)
        if (analysis.Method == TMethod::Formula)
            CheckFormula(analysis, request, Covariance || request.Method == kx::fmSimplex);
    return request;
}

} // namespace kxplot
