#pragma once
// The derivative of the approximating spline.

#include "analysis/Kxapproxsplineline.h"
#include "analysis/Kxsecondaryaxis.h"

namespace kx {

/// The base of spline curves that are drawn against a secondary axis, as TKxInterpolatedSecondary is.
class TKxApproxSplineSecondary : public TKxApproxSplineFunction {
public:
    using TKxApproxSplineFunction::TKxApproxSplineFunction;
    ~TKxApproxSplineSecondary() override { FSecondary.GiveBack(*this); }

    /// Makes sure of a Y axis; see TKxSecondaryAxis.
    void TestSecondaryAxis();

protected:
    void TakeYAxis(TKxNotCalculatedSeries& Parent) override;

private:
    TKxSecondaryAxis FSecondary;
};

/// The slope of the spline, with its extrema.
class TKxASplineDifferential : public TKxApproxSplineSecondary {
public:
    using TKxApproxSplineSecondary::TKxApproxSplineSecondary;

    static AnsiString CalculationID() { return "Approximative Spline Differentiation"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return "Differentiation"; }
    double GetY(double X) const override { return Polynom().Slope(X); }
    TKxRealPosArray GetMinima() const override { return Polynom().DiffMinima; }
    TKxRealPosArray GetMaxima() const override { return Polynom().DiffMaxima; }

protected:
    void FindExtremaOfCurve() override { Polynom().FindDiffExtrema(); }
};

} // namespace kx
