#include "kxplot/fit/told.h"

#include "kxplot/plan/captiontext.h"

#include <kxgraph/analysis/Kxfittedline.h>

namespace kxplot {

using namespace kx;

namespace {

// Captions of analyses name their series where there are several.
std::string SeriesOf(const TAnalysis& Analysis) {
    return Analysis.Plan->Place.SeveralSeries ? "" : PlainText(Analysis.Parent->GetCaption()) + ": ";
}

/// Caption and reason of a failure; empty when there is none.
std::string FailureOf(const TAnalysis& Analysis) {
    const std::string caption = PlainText(Analysis.Line->GetCaption()) + ": ";
    if (!Analysis.Refusal.empty()) return caption + Analysis.Refusal;
    if (!Analysis.Line->GetError().empty()) return PlainText(Analysis.Line->GetError());
    return Analysis.HasCurve() ? "" : caption + "no curve can be computed from these data";
}

/// Whether one more run would gain something.
bool IsUnfinished(const TAnalysis& Analysis) {
    const auto* line = dynamic_cast<const TKxFittedLine*>(Analysis.Line);
    return line && !Analysis.HasFailed() && !line->GetConverged().value_or(true);
}

const char* WhyUnfinished(const TFitRequest& Fitting) {
    if (Fitting.How.Method != fmSimplex && !Fitting.Covariance)
        return "it has ended at no minimum (other values of --start, or more --iterations, may help)";
    return Fitting.Repeat ? "one more run lowers the sum of squares (--repeat auto goes on)"
                          : "the last run still lowered the sum of squares";
}

} // namespace

std::vector<std::string> FailuresOf(const TParts& Parts) {
    std::vector<std::string> failures;
    for (const auto& analysis : Parts.Analyses) {
        const std::string failure = FailureOf(analysis);
        if (!failure.empty()) failures.push_back(SeriesOf(analysis) + failure);
    }
    for (const TBand& band : Parts.Bands) {
        const TAnalysis& analysis = Parts.Analyses[band.Analysis];
        if (analysis.HasCurve() && !band.Line->GetError().empty())
            failures.push_back(SeriesOf(analysis) + PlainText(band.Line->GetError()));
    }
    return failures;
}

std::vector<std::string> RemarksOf(const TParts& Parts) {
    std::vector<std::string> remarks;
    for (const auto& analysis : Parts.Analyses)
        if (IsUnfinished(analysis))
            remarks.push_back(SeriesOf(analysis) + PlainText(analysis.Line->GetCaption()) +
                              ": the fit has not converged: " + WhyUnfinished(Parts.Plan.Fitting));
    return remarks;
}

} // namespace kxplot
