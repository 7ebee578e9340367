#pragma once
// What the slope and the integral of a curve have in common, whichever way the curve was made: the bodies of
// the series of Kxdifferential, Kxintegral and their counterparts of the approximating spline.

#include "analysis/Kxinterpolatedline.h"
#include "analysis/Kxsecondaryaxis.h"

namespace kx {

/// A curve in other units than its parent's: it is drawn against a secondary axis, which is found or made
/// when the series gets its parent, unless it has a Y axis or is being loaded.
template <class Base>
class TKxSecondaryCurve : public Base {
public:
    using Base::Base;
    ~TKxSecondaryCurve() override { FSecondary.GiveBack(*this); }

    /// Makes sure of a Y axis; see TKxSecondaryAxis.
    void TestSecondaryAxis() {
        if (const auto* parent = this->GetParentSeries()) FSecondary.Test(*this, *parent);
    }

protected:
    void TakeYAxis(TKxNotCalculatedSeries&) override {
        if (!this->IsIn(csLoading)) TestSecondaryAxis();
    }

private:
    TKxSecondaryAxis FSecondary;
};

/// The slope of the curve, with its extrema.
template <class Base>
class TKxSlopeCurve : public Base {
public:
    using Base::Base;
    double GetY(double X) const override { return this->Polynom().Slope(X); }
    TKxRealPosArray GetMinima() const override { return this->Polynom().DiffMinima; }
    TKxRealPosArray GetMaxima() const override { return this->Polynom().DiffMaxima; }

protected:
    void FindExtremaOfCurve() override { this->Polynom().FindDiffExtrema(); }
};

/// The integral of the curve from the first display position on, with its extrema. It is 0 there if that
/// position is a knot; it is measured from the knot left of it otherwise.
template <class Base>
class TKxIntegralCurve : public Base {
public:
    using Base::Base;
    TKxRealPosArray GetMinima() const override { return this->Polynom().IntMinima; }
    TKxRealPosArray GetMaxima() const override { return this->Polynom().IntMaxima; }
    /// A zoom does not move the place that the integral starts from: the curve stays.
    void CalculateLine() override {
        if (!this->CurveIsOutgrown()) return;
        FillCurve();
        this->CurveChanged();
    }

protected:
    void FindExtremaOfCurve() override {} // found while integrating
    void FillCurve() override { this->FillIntegral(); }
};

} // namespace kx
