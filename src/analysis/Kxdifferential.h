#pragma once
// The derivative of a series.

#include <kxgraph/analysis/Kxderivedcurves.h>

namespace kx {

/// The base of curves that follow from the interpolated one and have an axis of their own.
class TKxInterpolatedSecondary : public TKxSecondaryCurve<TKxAkimaFunction> {
public:
    using TKxSecondaryCurve::TKxSecondaryCurve;
};

/// The slope of the interpolated curve.
class TKxDifferential : public TKxSlopeCurve<TKxInterpolatedSecondary> {
public:
    using TKxSlopeCurve::TKxSlopeCurve;

    static AnsiString CalculationID() { return "Differentiation"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxDifferential>(); }
};

} // namespace kx
