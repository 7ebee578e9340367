#pragma once
// The running integral of a series.

#include <kxgraph/analysis/Kxdifferential.h>

namespace kx {

/// The running integral of the interpolated curve.
class TKxIntegral : public TKxIntegralCurve<TKxInterpolatedSecondary> {
public:
    using TKxIntegralCurve::TKxIntegralCurve;

    static AnsiString CalculationID() { return "Integration"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxIntegral>(); }
};

} // namespace kx
