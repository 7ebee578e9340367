#include "kxplot/options/functionsrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

namespace kxplot {

namespace {

std::pair<double, double> ParseRange(const std::string& Text) {
    const auto colon = Text.find(':');
    const auto from = ParseFinite(std::string_view(Text).substr(0, colon));
    const auto to = colon == Text.npos ? std::nullopt : ParseFinite(std::string_view(Text).substr(colon + 1));
    if (!from || !to || !(*from < *to)) FailUsage("--range", Text, "is not FROM:TO, the smaller one first");
    return {*from, *to};
}

std::pair<std::string, std::string> ParseDifference(const std::string& Text) {
    const auto comma = Text.find(',');
    const bool isOne = comma != Text.npos && Text.find(',', comma + 1) == Text.npos;
    if (!isOne || comma == 0 || comma + 1 == Text.size())
        FailUsage("--difference", Text, "is not A,B, two columns or two of the tables");
    return {Text.substr(0, comma), Text.substr(comma + 1)};
}

} // namespace

void AddFunctionOptions(CLI::App& App, TFunctionsRequest& Request) {
    App.add_option(
           "--function", Request.Functions,
           "draws a function of x, such as 'sin(x)/x', over the data or alone (several allowed); one that "
           "begins with - needs --function=")
        ->type_name("FORMULA")
        ->allow_extra_args(false);
    App.add_option_function<std::string>(
           "--range", [&Request](const std::string& Text) { Request.Range = ParseRange(Text); },
           "which x functions are drawn over (default: that of the data); one that begins with - needs "
           "--range=")
        ->type_name("FROM:TO");
    App.add_option_function<std::string>(
           "--difference",
           [&Request](const std::string& Text) { Request.Difference = ParseDifference(Text); },
           "draws A less B: two columns, or the columns of two of the tables, whose x must be equal")
        ->type_name("A,B");
}

void CheckFunctions(const TFunctionsRequest& Request, bool HasTable) {
    if (Request.Range && Request.Functions.empty()) throw TUsageError("--range: there is no --function");
    if (!HasTable && !Request.Functions.empty() && !Request.Range)
        throw TUsageError("--function: without DATA it needs --range");
    if (!HasTable && Request.Difference) throw TUsageError("--difference: there is no DATA");
}

} // namespace kxplot
