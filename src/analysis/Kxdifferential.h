#pragma once
// The derivative of a series.

#include "analysis/Kxinterpolatedline.h"
#include "analysis/Kxsecondaryaxis.h"

namespace kx {

/// The base of curves that are drawn against a secondary axis, which is found or made when the series gets
/// its parent, unless it has a Y axis or is being loaded.
class TKxInterpolatedSecondary : public TKxAkimaFunction {
public:
    using TKxAkimaFunction::TKxAkimaFunction;
    ~TKxInterpolatedSecondary() override { FSecondary.GiveBack(*this); }

    /// Makes sure of a Y axis; see TKxSecondaryAxis.
    void TestSecondaryAxis();

protected:
    void TakeYAxis(TKxNotCalculatedSeries& Parent) override;

private:
    TKxSecondaryAxis FSecondary;
};

/// The slope of the interpolated curve, with its extrema.
class TKxDifferential : public TKxInterpolatedSecondary {
public:
    using TKxInterpolatedSecondary::TKxInterpolatedSecondary;

    static AnsiString CalculationID() { return "Differentiation"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }
    double GetY(double X) const override { return Polynom().Slope(X); }
    TKxRealPosArray GetMinima() const override { return Polynom().DiffMinima; }
    TKxRealPosArray GetMaxima() const override { return Polynom().DiffMaxima; }

protected:
    void FindExtremaOfCurve() override { Polynom().FindDiffExtrema(); }
};

} // namespace kx
