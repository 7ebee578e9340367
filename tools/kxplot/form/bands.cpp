#include "kxplot/form/bands.h"

#include "kxplot/form/look.h"
#include "kxplot/methods/methods.h"

#include <string>

namespace kxplot {

using namespace kx;

namespace {

void Configure(const TParts& Parts, const TBand& Band) {
    const TAnalysis& analysis = Parts.Analyses[Band.Analysis];
    Band.Line->SetKind(Band.Kind);
    Band.Line->SetLevel(Parts.Plan.Bands.Level);
    Band.Line->SetFit(analysis.Line);
    Band.Line->SetYAxis(analysis.Line->GetYAxis());
    ConfigureRange(*Band.Line, Parts.Plan.Fitting);
    const bool several = Parts.Plan.Analyses.size() > 1;
    if (!Band.Line->GetDoUserCaption())
        Band.Line->SetCaption((several ? analysis.Line->GetCaption() + ": " : "") + Band.Line->GetFormula());
}

} // namespace

void AddBands(TParts& Parts, std::size_t First) {
    for (const TKxBandKind kind : Parts.Plan.Bands.Kinds)
        for (std::size_t k = First; k < Parts.Analyses.size(); ++k) {
            const TAnalysis& analysis = Parts.Analyses[k];
            if (!analysis.Plan->Request.IsFit()) continue;
            const TBand band{new TKxFitBand(Parts.Form.get()), k, kind};
            band.Line->SetName("Band" + std::to_string(Parts.Bands.size() + 1));
            band.Line->OnError = [](TComponent*, const Exception&) {}; // told at the end
            Configure(Parts, band);
            DressBand(*band.Line, AnalysisColor(analysis.Plan->Place, Parts.Theme), Parts.Theme);
            Parts.Theme.ApplyTo(*band.Line);
            Parts.Bands.push_back(band);
            band.Line->SetParentSeries(analysis.Parent);
        }
}

void ConfigureBands(TParts& Parts) {
    for (const TBand& band : Parts.Bands) Configure(Parts, band);
}

} // namespace kxplot
