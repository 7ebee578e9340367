#include "kxplot/fit/fit.h"

#include "kxplot/fit/labels.h"
#include "kxplot/fit/logarithms.h"
#include "kxplot/fit/results.h"
#include "kxplot/fit/told.h"
#include "kxplot/methods/formulaline.h"

#include <kxgraph/platform/controls/frame.h>

namespace kxplot {

using namespace kx;

namespace {

/// Returns false after an interruption.
bool RunFormulas(const TParts& Parts) {
    TFitWatch watch;
    for (const auto& analysis : Parts.Analyses)
        if (auto* line = dynamic_cast<TFormulaLine*>(analysis.Line))
            line->Run(Parts.Plan.Fitting.Repeat, watch, "fit " + std::to_string(analysis.Plan->Number));
    return !watch.WasInterrupted();
}

} // namespace

TFindings Fit(TParts& Parts) {
    TFindings found;
    RefuseLines(Parts);
    if (Parts.Plan.WeighLogarithms) WeighLogarithms(Parts);
    SettleTree(*Parts.Form);
    found.Interrupted = !RunFormulas(Parts);
    for (const TBand& band : Parts.Bands) band.Line->Calculate(); // of what formulas have found now
    Parts.Graph->Modified(); // curves that are calculated outside of a frame ask for none
    SettleTree(*Parts.Form);
    found.Labels = FindLabels(Parts);
    found.Results = ResultsText(Parts); // with the captions as they are, before the legend shortens them
    found.Failures = FailuresOf(Parts);
    found.Remarks = RemarksOf(Parts);
    return found;
}

} // namespace kxplot
