#pragma once
// The running integral of the approximating spline.

#include <kxgraph/analysis/Kxasplinedifferential.h>

namespace kx {

/// The running integral of the spline.
class TKxASplineIntegral : public TKxIntegralCurve<TKxApproxSplineSecondary> {
public:
    using TKxIntegralCurve::TKxIntegralCurve;

    static AnsiString CalculationID() { return "Approximative Spline Integral"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return "Integration"; }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxASplineIntegral>(); }
};

} // namespace kx
