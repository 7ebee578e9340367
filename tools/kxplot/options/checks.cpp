#include "kxplot/options/checks.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/text/text.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace kxplot {

namespace {

struct TGiven {
    const char* Option;
    bool Given;
};

void Refuse(bool Given, const std::string& Message) {
    if (Given) throw TUsageError(Message);
}

void CheckNeeds(bool Met, const char* What, std::initializer_list<TGiven> Needs) {
    for (const auto& need : Needs)
        Refuse(need.Given && !Met,
               std::string(need.Option) + ": there is no " + What + " that it could be for");
}

void CheckTogether(const TOptions& Options) {
    const TDrawingRequest& drawing = Options.Drawing;
    const TStyle style = drawing.Style.value_or(TStyle::Bars);
    Refuse(drawing.Bins && style != TStyle::Bars && style != TStyle::Bars3D,
           "--hist: is drawn with --style bars or bars3d");
    Refuse(drawing.Bins && Options.Columns.X, "-x: --hist takes the columns of -y alone");
    Refuse(drawing.Stack && drawing.Shift, "--stack: does not go with --shift");
    Refuse(Options.Legend.None && Options.Legend.Place, "--legend: does not go with --no-legend");
    Refuse(drawing.HasArrows() && (Options.Columns.VX.empty() || Options.Columns.VY.empty()),
           "--style arrows: needs --vx and --vy");
}

void RefuseErrorBars(const TOptions& Options) {
    const TColumnRequest& columns = Options.Columns;
    if (!Options.Drawing.HasBars() && !Options.Drawing.HasArrows()) return;
    for (const auto& [option, given] : {TGiven{"--dx", !columns.DX.empty()},
                                        {"--dy", !columns.DY.empty()},
                                        {"--dx-minus", !columns.DXMinus.empty()},
                                        {"--dy-minus", !columns.DYMinus.empty()}})
        Refuse(given, std::string(option) + ": there are no error bars on " +
                          (Options.Drawing.HasBars() ? "bars" : "arrows"));
}

void RefuseWeightsOfBins(const TOptions& Options) {
    Refuse(Options.Drawing.Bins && Options.Columns.Weight, "--weight: a histogram has no weights");
}

void RefuseAnalyses(const TArguments& Given, const TDrawingRequest& Drawing) {
    if (!Drawing.HasBars() && !Drawing.HasArrows()) return;
    const bool upright =
        Drawing.Bins && !Drawing.Horizontal; // a histogram is fitted at the middles of its bins
    for (const auto& [option, given] : {TGiven{"--fit", !Given.Fits.empty() && !upright},
                                        {"--curve", !Given.Curves.empty()},
                                        {"--derivative", Given.Derivative},
                                        {"--integral", Given.Integral}})
        Refuse(given, std::string(option) + ": does not go with " +
                          (Drawing.HasBars() ? "bars, whose x are edges" : "arrows") +
                          "; it needs a line or points");
}

} // namespace

void CheckDrawing(const TOptions& Options) {
    const TDrawingRequest& drawing = Options.Drawing;
    CheckNeeds(
        drawing.HasBars(), "--style bars, --style bars3d or --hist",
        {{"--stack", drawing.Stack}, {"--shift", drawing.Shift}, {"--horizontal", drawing.Horizontal}});
    CheckNeeds(drawing.HasArrows(), "--style arrows",
               {{"--vx", !Options.Columns.VX.empty()}, {"--vy", !Options.Columns.VY.empty()}});
    CheckTogether(Options);
    RefuseErrorBars(Options);
}

void CheckFormulaOptions(const TArguments& Given, bool HasFormula) {
    CheckNeeds(HasFormula, "--fit with a formula",
               {{"--iterations", Given.Iterations.has_value()},
                {"--repeat", Given.Repeat.has_value()},
                {"--covariance", Given.Options.Fitting.Covariance},
                {"--method", Given.Method.Method.has_value()},
                {"--fix", !Given.Method.Fixed.empty()},
                {"--bounds", !Given.Method.Bounds.empty()}});
}

void CheckAnalyses(const TArguments& Given, const TOptions& Options) {
    const TFitRequest& fitting = Options.Fitting;
    if (fitting.From && fitting.To)
        Refuse(*fitting.From > *fitting.To,
               "--from: " + kx::Abridged(*Given.From) + " lies above --to " + kx::Abridged(*Given.To));
    CheckNeeds(!Options.Analyses.empty(), "--fit, --curve, --derivative or --integral",
               {{"--weight", Options.Columns.Weight.has_value()},
                {"--weight-by-errors", Options.Columns.WeightByErrors},
                {"--from", fitting.From.has_value()},
                {"--to", fitting.To.has_value()},
                {"--results", !Options.Outputs.Results.empty()},
                {"--curve-data", !Options.Outputs.CurveData.empty()},
                {"--label", !Options.Labels.empty()}});
    CheckNeeds(!Given.Fits.empty(), "--fit", {{"--residuals", fitting.Residuals}});
    RefuseAnalyses(Given, Options.Drawing);
    RefuseWeightsOfBins(Options);
}

} // namespace kxplot
