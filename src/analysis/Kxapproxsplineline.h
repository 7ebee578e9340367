#pragma once
// Curves near the points of a series by the approximating spline.

#include <kxgraph/analysis/Kxapproxspline.h>
#include <kxgraph/analysis/Kxinterpolatedline.h>

namespace kx {

/// Makes the polynomial as an approximating spline.
class TKxApproxSplineFunction : public TKxInterpolatedFunction {
public:
    explicit TKxApproxSplineFunction(TComponent* Owner);

    /// Multiplies all weights; the larger, the closer to the points. 1 at first.
    double GetWeightFactor() const { return FSpline.WeightFactor; }
    void SetWeightFactor(double Factor) { ChangeSetting(FSpline.WeightFactor, Factor); }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

private:
    TKxApproxSplineFunction(TComponent* Owner, std::unique_ptr<TKxApproxSpline> Spline);

    TKxApproxSpline& FSpline; ///< the polynomial
};

/// The spline with its minima and maxima.
class TKxApproxSplineLine : public TKxApproxSplineFunction {
public:
    using TKxApproxSplineFunction::TKxApproxSplineFunction;

    static AnsiString CalculationID() { return "Approximative Spline"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }
    double GetY(double X) const override { return Polynom().Interpolate(X); }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxApproxSplineLine>(); }
};

} // namespace kx
