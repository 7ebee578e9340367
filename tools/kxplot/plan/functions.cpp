// Functions of x as series.

#include "kxplot/options/usageerror.h"
#include "kxplot/plan/bins.h"
#include "kxplot/plan/joined.h"
#include "kxplot/plan/planner.h"

#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

/// That of all data over which something is drawn.
std::pair<double, double> RangeOf(const TPlan& Plan) {
    TFiniteRange range;
    if (Plan.Series.empty() || !Plan.Series.front().X) range.Include(Plan.X.Values);
    for (const TSeriesPlan& series : Plan.Series)
        if (series.X) range.Include(series.X->Values);
    if (range.IsEmpty() || !(range.Low < range.High))
        throw TUsageError("--function: the data have no range of x; it needs --range");
    return {range.Low, range.High};
}

/// Two a pixel. An even number: a pole in the middle is met by none.
std::vector<double> Samples(std::pair<double, double> Range, int Width, bool IsLogarithmic) {
    const auto [from, to] = Range;
    const int count = std::max(4, 2 * Width);
    const bool byFactors = IsLogarithmic && from > 0;
    std::vector<double> samples(std::size_t(count), from);
    for (int i = 1; i < count; ++i) {
        const double part = double(i) / (count - 1);
        samples[std::size_t(i)] =
            byFactors ? from * std::pow(to / from, part) : from * (1 - part) + to * part;
    }
    samples.back() = to;
    return samples;
}

TSeriesPlan Planned(const std::string& Text, std::size_t Index, const std::vector<double>& X) {
    const std::string number = std::to_string(Index + 1);
    std::vector<double> y(X.size());
    try {
        TKxFormula formula(Text);
        formula.SetCoefficientNames({});
        formula.Evaluate(X, {}, y);
    } catch (const EFormulaError& error) {
        throw TUsageError(std::string("--function: ") + error.what());
    }
    TSeriesPlan series;
    series.Name = "Function" + number;
    series.Caption = EscapeCaption(Escaped(Text));
    series.ShownColumn = Abridged(Text);
    series.X = TVectorPlan{"FunctionX" + number, X};
    series.Y = {"FunctionY" + number, std::move(y)};
    series.Kind = TPointsPlan();
    return series;
}

} // namespace

TPlan PlanOfFunctions(const TOptions& Options) {
    TPlan plan;
    plan.Table = "functions";
    plan.Size = Options.Outputs.Size.Whole();
    plan.Axes.X = "x";
    plan.Axes.Box = Options.Axes.Box;
    plan.Drawing = Options.Drawing;
    CompletePlan(plan, Options);
    return plan;
}

void AddFunctions(TPlan& Plan, const TOptions& Options) {
    const TFunctionsRequest& request = Options.Functions;
    if (request.Functions.empty()) return;
    const auto x =
        Samples(request.Range ? *request.Range : RangeOf(Plan), Plan.Size.Width, Options.Look.LogX);
    for (const auto& text : request.Functions)
        Plan.Functions.push_back(Planned(text, Plan.Functions.size(), x));
    if (Plan.Series.empty() && Plan.Functions.size() == 1) Plan.Axes.Y = Plan.Functions.front().Caption;
    CompletePlan(Plan, Options);
}

} // namespace kxplot
