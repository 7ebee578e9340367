#include <kxgraph/analysis/Kxinterpolatedline.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

TKxInterpolatedFunction::TKxInterpolatedFunction(TComponent* Owner, std::unique_ptr<TKxIntPolynom> Polynom)
    : TKxCalculatedSeries(Owner), FPolynom(std::move(Polynom)) {}

void TKxInterpolatedFunction::CalculateFunction() {
    const auto& source = GetDataSource();
    PreparePolynom();
    FPolynom->RecalculateCoeffs(GetCalculationStart(), GetCalculationStop(), source.GetXData(),
                                source.GetYData(), GetWeight());
    FindExtremaOfCurve();
    GetContinousLine();
}

void TKxInterpolatedFunction::CollectResults(TKxResults& Results) const {
    TKxCalculatedSeries::CollectResults(Results);
    Results.SetPoints("Minima", GetMinima());
    Results.SetPoints("Maxima", GetMaxima());
}

TKxAkimaFunction::TKxAkimaFunction(TComponent* Owner)
    : TKxAkimaFunction(Owner, std::make_unique<TKxAkima>()) {}

TKxAkimaFunction::TKxAkimaFunction(TComponent* Owner, std::unique_ptr<TKxAkima> Akima)
    : TKxInterpolatedFunction(Owner, std::move(Akima)), FAkima(static_cast<TKxAkima&>(Polynom())) {}

void TKxAkimaFunction::PreparePolynom() {
    FAkima.SmoothLog = GetXAxis() && GetXAxis()->GetScaling() != AxNormal;
}

void TKxAkimaFunction::SetSmoothM(double SmoothM) {
    if (FAkima.SmoothM == SmoothM) return;
    FAkima.Smooth = true;
    ChangeSetting(FAkima.SmoothM, SmoothM);
}

const TPropertyTable& TKxAkimaFunction::Properties() {
    using T = TKxAkimaFunction;
    static const TPropertyTable table(
        "TKxAkimaFunction", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoSmoothing, &T::SetDoSmoothing>("DoSmoothing", false, "smooths the data first")
                .LoadedBy(Into<&T::LoadSmoothing>())
                .IfMissing(false),
            Published<&T::GetSmoothM, &T::SetSmoothM>(
                "SmoothM", 0.0, "half the base of the smoothing average, units of x or decades")
                .LoadedBy(Into<&T::LoadSmoothM>())
                .IfMissing(0.0),
        },
        {"DoSmoothing", "SmoothM"});
    return table;
}

} // namespace kx
