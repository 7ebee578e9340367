#include "kxplot/form/lines.h"

#include "kxplot/form/bands.h"
#include "kxplot/form/look.h"
#include "kxplot/methods/methods.h"

#include <kxgraph/annotation/Kxcaption.h>

#include <string>

namespace kxplot {

using namespace kx;

namespace {

/// How many analyses each series has.
std::size_t CountOf(const TParts& Parts) {
    const TPlan& plan = Parts.Plan;
    return plan.Series.empty() ? 0 : plan.Analyses.size() / plan.Series.size();
}

TKxCaption CaptionOf(const TAnalysis& Analysis) {
    const std::string name = EscapeCaption(Analysis.Plan->Text);
    return Analysis.Plan->Place.SeveralSeries ? Analysis.Parent->GetCaption() + ": " + name : name;
}

TKxAxis* YAxisOf(const TParts& Parts, const TAnalysis& Analysis) {
    const auto side = Parts.SideAxes.find(Analysis.Plan->Request.Quantity);
    return side == Parts.SideAxes.end() ? Analysis.Parent->GetYAxis() : side->second;
}

void Configure(const TParts& Parts, const TAnalysis& Analysis) {
    ConfigureLine(*Analysis.Line, Analysis.Plan->Request, Parts.Plan.Fitting);
    Analysis.Line->SetYAxis(
        YAxisOf(Parts, Analysis)); // of the series in an outfit another one may stand here
    if (!Analysis.Line->GetDoUserCaption()) Analysis.Line->SetCaption(CaptionOf(Analysis));
}

} // namespace

void AddLines(TParts& Parts, TKxNotCalculatedSeries& Series) {
    const std::size_t first = Parts.Analyses.size(), count = CountOf(Parts);
    for (std::size_t k = first; k < first + count; ++k) {
        const TAnalysisPlan& plan = Parts.Plan.Analyses[k];
        TAnalysis analysis{&plan, &Series, MakeLine(plan.Request, Parts.Form.get()), {}};
        analysis.Line->SetName(plan.Name);
        analysis.Line->OnError = [](TComponent*, const Exception&) {}; // told at the end
        Configure(Parts, analysis);
        Parts.Analyses.push_back(analysis);
        analysis.Line->SetParentSeries(&Series);
    }
    if (count > 0) DressLines(Parts, first / count, 0);
    AddBands(Parts, first);
}

void DressLines(TParts& Parts, std::size_t Series, std::size_t First) {
    const std::size_t count = CountOf(Parts);
    for (std::size_t k = First; k < count; ++k) {
        const TAnalysis& analysis = Parts.Analyses[Series * count + k];
        DressAnalysis(*analysis.Line, analysis.Plan->Place,
                      Parts.SideAxes.contains(analysis.Plan->Request.Quantity), Parts.Theme);
        Parts.Theme.ApplyTo(*analysis.Line);
    }
}

void ConfigureLines(TParts& Parts) {
    for (const auto& analysis : Parts.Analyses) Configure(Parts, analysis);
    ConfigureBands(Parts);
}

} // namespace kxplot
