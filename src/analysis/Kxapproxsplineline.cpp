#include <kxgraph/analysis/Kxapproxsplineline.h>

namespace kx {

TKxApproxSplineFunction::TKxApproxSplineFunction(TComponent* Owner)
    : TKxApproxSplineFunction(Owner, std::make_unique<TKxApproxSpline>()) {}

TKxApproxSplineFunction::TKxApproxSplineFunction(TComponent* Owner, std::unique_ptr<TKxApproxSpline> Spline)
    : TKxInterpolatedFunction(Owner, std::move(Spline)), FSpline(static_cast<TKxApproxSpline&>(Polynom())) {}

void TKxApproxSplineFunction::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxInterpolatedFunction::WriteToIni(Ini, Section);
    Ini.WriteReal(Section, "WeightFactor", FSpline.WeightFactor);
}

void TKxApproxSplineFunction::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxInterpolatedFunction::ReadFromIni(Ini, Section);
    SetWeightFactor(Ini.ReadReal(Section, "WeightFactor", 1.0));
}

const TPropertyTable& TKxApproxSplineFunction::Properties() {
    using T = TKxApproxSplineFunction;
    static const TPropertyTable table(
        "TKxApproxSplineFunction", &TKxCalculatedSeries::Properties(),
        {Published<&T::GetWeightFactor, &T::SetWeightFactor>("WeightFactor", 1.0, "multiplies all weights")});
    return table;
}

} // namespace kx
