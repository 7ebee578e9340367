#pragma once
// What the slope and the integral of a curve have in common, whichever way the curve was made: the bodies of
// the series of Kxdifferential, Kxintegral and their counterparts of the approximating spline.

#include <kxgraph/analysis/Kxinterpolatedline.h>
#include <kxgraph/analysis/Kxsecondaryaxis.h>
#include <kxgraph/platform/base/matherror.h>

#include <optional>

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

/// The integral of the curve, with its extrema. It is 0 at DisplayStart, or at the first point where that
/// lies left of all points; an automatic DisplayStart is CalculationStart, wherever the axis begins.
template <class Base>
class TKxIntegralCurve : public Base {
public:
    using Base::Base;
    /// Raises EMathError "Not enough data!" as long as no calculation has succeeded.
    double GetY(double X) const override {
        if (!FIntegral) RaiseNotEnoughData();
        return (*FIntegral)(X);
    }
    TKxRealPosArray GetMinima() const override { return this->Polynom().IntMinima; }
    TKxRealPosArray GetMaxima() const override { return this->Polynom().IntMaxima; }

protected:
    double AutomaticDisplayStart() const override { return this->GetCalculationStart(); }
    void CalculateFunction() override {
        FIntegral.reset();
        Base::CalculateFunction();
    }
    void FindExtremaOfCurve() override {
        FIntegral.emplace(this->Polynom(), this->GetDisplayStart());
        this->Polynom().FindIntExtrema(*FIntegral);
    }

private:
    std::optional<TKxRunningIntegral> FIntegral;
};

} // namespace kx
