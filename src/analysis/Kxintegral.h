#pragma once
// The running integral of a series.

#include "analysis/Kxdifferential.h"

namespace kx {

/// The integral of the interpolated curve from the first display position on, with its extrema. It is 0 there
/// if that position is a knot; it is measured from the knot left of it otherwise.
class TKxIntegral : public TKxInterpolatedSecondary {
public:
    using TKxInterpolatedSecondary::TKxInterpolatedSecondary;

    static AnsiString CalculationID() { return "Integration"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }
    TKxRealPosArray GetMinima() const override { return Polynom().IntMinima; }
    TKxRealPosArray GetMaxima() const override { return Polynom().IntMaxima; }
    /// A zoom does not move the place that the integral starts from: the curve stays.
    void CalculateLine() override;

protected:
    void FindExtremaOfCurve() override {} // found while integrating
    void FillCurve() override { FillIntegral(); }
};

} // namespace kx
