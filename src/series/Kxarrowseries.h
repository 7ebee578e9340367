#pragma once
// Vector fields: an arrow at each point.

#include <kxgraph/series/Kxdataseries.h>

namespace kx {

/// An arrow from each point (X, Y) to (X + dX, Y + dY), in the line style. Components beyond the end of their
/// vector are 0. An arrow with a value that is not finite, or from a point without a place on a logarithmic
/// axis, is not drawn; a tip that is not positive lies at the start of such an axis. The four vectors are not
/// owned. Takes the axes of the last graph that its owner has.
class TKxArrowSeries : public TKxNotCalculatedSeries {
public:
    explicit TKxArrowSeries(TComponent* Owner);

    TKxCustomRealVector* GetdXData() const { return FDX.GetVector(); }
    void SetDX(TKxCustomRealVector* Vector) { SetComponent(FDX, Vector, FEndXs); }
    TKxCustomRealVector* GetdYData() const { return FDY.GetVector(); }
    void SetDY(TKxCustomRealVector* Vector) { SetComponent(FDY, Vector, FEndYs); }
    /// Length of the head in pixels. With 0 or less arrows have none.
    int GetTipLength() const { return FTipLength; }
    void SetTipLength(int Length);
    /// Half the width of the head in pixels.
    int GetTipWidth() const { return FTipWidth; }
    void SetTipWidth(int Width);

    /// Components of arrow Index, signed; 0 without one, or while the line is hidden.
    double GetDX(int Index) const { return ComponentAt(FDX, Index); }
    double GetDY(int Index) const { return ComponentAt(FDY, Index); }
    /// Pixels of the tips.
    const TKxIntegerVector& GetEndXs() const { return FEndXs; }
    const TKxIntegerVector& GetEndYs() const { return FEndYs; }

    /// The tips' part in the extents comes and goes with the line.
    void Modified() override;
    void DrawLine(TCanvas& Canvas) override;
    /// One arrow to the right.
    void DrawSample(TCanvas& Canvas, const TRect& Rect) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxArrowSeries>(); }
    void Notification(TComponent* Component, TOperation Operation) override;
    void GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const override;
    void CalculatePoint(int Index) override;
    void CalculateAllPoints() override;
    bool GoesByValues() const override { return false; }

private:
    // Methods of their own: a vector may serve as X of one series and as dX of another one.
    void DXChanged(int Index, bool WasDeleted);
    void DYChanged(int Index, bool WasDeleted);
    void SetComponent(TKxBoundVector& Field, TKxCustomRealVector* Vector, TKxIntegerVector& Ends);
    double ComponentAt(const TKxBoundVector& Vector, int Index) const;
    static TKxInterval ArrowInterval(double Value, double Component);
    void CalculateEnd(int Index);
    TRealPoint TipAt(int Index) const;
    template <class P>
    void DrawOne(TCanvas& Canvas, P From, P To, int TipLength, int TipWidth) const;

    TKxBoundVector FDX{TKxValueIChangedEvent::Of<&TKxArrowSeries::DXChanged>(this)};
    TKxBoundVector FDY{TKxValueIChangedEvent::Of<&TKxArrowSeries::DYChanged>(this)};
    TKxIntegerVector FEndXs, FEndYs;
    int FTipLength = 10, FTipWidth = 3;
    bool FCountsTips = true; // in the extents
};

} // namespace kx
