#include <kxgraph/analysis/Kxapproxsplineline.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

TKxApproxSplineFunction::TKxApproxSplineFunction(TComponent* Owner)
    : TKxApproxSplineFunction(Owner, std::make_unique<TKxApproxSpline>()) {}

TKxApproxSplineFunction::TKxApproxSplineFunction(TComponent* Owner, std::unique_ptr<TKxApproxSpline> Spline)
    : TKxInterpolatedFunction(Owner, std::move(Spline)), FSpline(static_cast<TKxApproxSpline&>(Polynom())) {}

const TPropertyTable& TKxApproxSplineFunction::Properties() {
    using T = TKxApproxSplineFunction;
    static const TPropertyTable table(
        "TKxApproxSplineFunction", &TKxCalculatedSeries::Properties(),
        {Published<&T::GetWeightFactor, &T::SetWeightFactor>("WeightFactor", 1.0, "multiplies all weights")
             .IfMissing(1.0)},
        {"WeightFactor"});
    return table;
}

} // namespace kx
