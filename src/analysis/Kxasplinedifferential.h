#pragma once
// The derivative of the approximating spline.

#include <kxgraph/analysis/Kxapproxsplineline.h>
#include <kxgraph/analysis/Kxderivedcurves.h>

namespace kx {

/// The base of curves that follow from the spline and have an axis of their own.
class TKxApproxSplineSecondary : public TKxSecondaryCurve<TKxApproxSplineFunction> {
public:
    using TKxSecondaryCurve::TKxSecondaryCurve;
};

/// The slope of the spline.
class TKxASplineDifferential : public TKxSlopeCurve<TKxApproxSplineSecondary> {
public:
    using TKxSlopeCurve::TKxSlopeCurve;

    static AnsiString CalculationID() { return "Approximative Spline Differentiation"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return "Differentiation"; }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxASplineDifferential>(); }
};

} // namespace kx
