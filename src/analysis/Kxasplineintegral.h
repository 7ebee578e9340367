#pragma once
// The running integral of the approximating spline.

#include "analysis/Kxasplinedifferential.h"

namespace kx {

/// The integral of the spline from the first display position on, as TKxIntegral measures it.
class TKxASplineIntegral : public TKxApproxSplineSecondary {
public:
    using TKxApproxSplineSecondary::TKxApproxSplineSecondary;

    static AnsiString CalculationID() { return "Approximative Spline Integral"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return "Integration"; }
    TKxRealPosArray GetMinima() const override { return Polynom().IntMinima; }
    TKxRealPosArray GetMaxima() const override { return Polynom().IntMaxima; }
    /// A zoom does not move the place that the integral starts from: the curve stays.
    void CalculateLine() override;

protected:
    void FindExtremaOfCurve() override {} // found while integrating
    void FillCurve() override { FillIntegral(); }
};

} // namespace kx
