#pragma once
// Series of bars between bin edges, such as histograms: upright or lying, flat or as boxes, beside or on top
// of the bars of other series.

#include <kxgraph/series/Kxbargeometry.h>
#include <kxgraph/series/Kxdataseries.h>

#include <optional>
#include <vector>

namespace kx {

/// Bars between bin edges. Of upright bars XData holds the edges and YData the heights: bar i stands between
/// X[i] and X[i + 1] and reaches from zero (the start of a logarithmic axis) to Y[i]. Horizontal bars have
/// their edges in YData and their lengths in XData. A bar whose edges or value are not finite is not drawn.
///
/// Other bar series of the same owner take part: with ShiftOverlays the series stand side by side in each
/// bin, with StackOverlays bars begin where those of the bar series before this one among the owner's
/// components end (with StackSignsApart, where those end that lie on the same side of zero). Series of one
/// stack share the edge axis; in a bin that a series below does not have it carries nothing. When a series
/// below changes, those above follow with the next frame.
///
/// Flat bars are filled in the area style and outlined in the line style, as far as these are visible. The
/// faces of boxes have the area's colour also when the area is hidden; nothing is drawn when the line is
/// hidden, too. Series of boxes that share both axes are painted together, bin by bin, in the place of the
/// first of them: one after the other the depth of one series would lie on the bars of the next.
class TKxBarSeries : public TKxLineSeries {
public:
    /// Blue outline, navy area (hidden, not XORed); both extents are (0, 0).
    explicit TKxBarSeries(TComponent* Owner);
    ~TKxBarSeries() override;

    // In the form designer an empty vector of edges receives the sample edges 0, 10, ... 100.
    void SetXData(TKxCustomRealVector* Vector) override;
    void SetYData(TKxCustomRealVector* Vector) override;

    bool GetShow3DBars() const { return FShow3DBars; }
    void SetShowAs3D(bool Show);
    bool GetBarHorizontal() const { return FBarHorizontal; }
    void SetBarHorizontal(bool Horizontal);
    /// Side by side with the series of the same owner, axes and direction that have it set too, in component
    /// order; the smallest gap and depth among them serve all. Switches StackOverlays off.
    bool GetShiftOverlays() const { return FShiftOverlays; }
    void SetShiftOverlays(bool Shift);
    /// Switches ShiftOverlays off.
    bool GetStackOverlays() const { return FStackOverlays; }
    void SetStackOverlays(bool Stack);
    /// In a stack values above and below zero grow away from zero, each upon those of their own side: without
    /// it a negative value is drawn over what it is taken from. Default false.
    bool GetStackSignsApart() const { return FStackSignsApart; }
    void SetStackSignsApart(bool Apart);
    /// Depth of boxes in percent of the width of what stands in a bin.
    double GetDepthPercent() const { return FDepthPercent; }
    void Set3DDepthPercent(double Percent);
    /// Percentage of the bin's width that is free, half of it at each side.
    double GetBarsGapPercent() const { return FBarsGapPercent; }
    void SetBarsGapPercent(double Percent);

    /// The value at Index as it is drawn: of a stacked series' lengths with those of the series below.
    double GetX(int Index) const;
    double GetY(int Index) const;
    /// What the depth of bar Index adds to the extents: (E[i] - E[i-1]) (DepthPercent / 240 - BarsGapPercent
    /// / 200), in DY 400 in place of 240; E are the edges. 0 for the first bar and for flat ones. Kept: DY of
    /// upright bars and DX of horizontal ones are in the units of the edges, too.
    double GetDX(int Index) const { return DepthAt(Index, 240); }
    double GetDY(int Index) const { return DepthAt(Index, 400); }
    /// The series that this one is stacked upon, lowest first; as of the last frame.
    const std::vector<TKxBarSeries*>& GetStackList() const { return FStack; }

    /// The last bar whose end is no further than Tolerance pixels away. The last bar of all is not found.
    int FindPoint(int X, int Y, int Tolerance) const override;

    /// The middle of a bar's end.
    TKxDrawnPoint PointAt(int Index) const override;
    TKxDrawnPoint PointNear(TPoint At, int Reach) const override;

    void Modified() override;
    void CalculatePoints() override;
    void DrawLine(TCanvas& Canvas) override;
    /// One bar.
    void DrawSample(TCanvas& Canvas, const TRect& Rect) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxBarSeries>(); }
    void DataChanged(const TKxCustomRealVector* Vector) override;
    /// The smaller of the number of bins and the number of values; there is one point more.
    void SetPointsCount() override;
    void CalcXValue(int Index) override { CalcBarValue(FX, Index); }
    void CalcYValue(int Index) override { CalcBarValue(FY, Index); }
    /// There is one edge more than bars.
    int IdxNeeded(const TKxChannel& Channel) const override;
    void GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const override;
    /// Bars begin at zero, which a logarithmic axis does not have.
    TKxInterval GetLeastExtent(const TKxChannel& Channel) const override;
    /// Point Index and the next one, the other edge of its bin.
    void CalculatePoint(int Index) override;
    void CalculateAllPoints() override;
    bool GoesByValues() const override { return false; }
    /// What has no place on a logarithmic axis never takes part in the extents: bars are not joined.
    bool BreaksAtGaps() const override { return true; }

private:
    TKxChannel& Edges() { return FBarHorizontal ? FY : FX; }
    TKxChannel& Lengths() { return FBarHorizontal ? FX : FY; }
    const TKxChannel& Edges() const { return FBarHorizontal ? FY : FX; }
    const TKxChannel& Lengths() const { return FBarHorizontal ? FX : FY; }
    void CalcBarValue(const TKxChannel& Channel, int Index);
    int PixelOf(const TKxChannel& Channel, int Index) const;
    int EdgeAt(int Index) const { return Edges().In(FPoints.Values()[std::size_t(Index)]); }
    int EndAt(int Index) const { return Lengths().In(FPoints.Values()[std::size_t(Index)]); }
    double LengthAt(int Index) const;
    double StackStart(std::span<const TKxBarValues> Below, int Index) const;
    double DepthAt(int Index, double Divisor) const;
    template <class T>
    void Change(T& Field, T Value);
    void ChangeOverlay(bool& Field, bool& Other, bool Value);
    void FillSampleEdges(TKxCustomRealVector* Vector) const;

    void RebuildStack();
    void LeaveStack();
    void TellAbove();
    TKxBarValues OwnValues() const;
    std::span<const TKxBarValues> ValuesBelow() const;

    TKxInterval WithDepth(double Value, double Depth, const TKxChannel& Channel) const;

    struct TPlan; // what is the same for all bars of a paint
    struct TBar {
        TRect Outline;
        TKxBarSlot Slot;
    };
    TKxBarLayout GetLayout() const;
    TPlan MakePlan() const;
    TBar BarAt(const TPlan& Plan, int Index) const;
    double PlaceAt(const TKxChannel& Channel, double Value) const;
    TRealRect ExactOutline(const TPlan& Plan, int Index) const;
    template <class R, class F>
    void ForBars(bool AreaOnly, F Draw) const;
    template <class E>
    void DrawFlat(TCanvas& Canvas, E ForEach) const;
    std::vector<TKxBarSeries*> BoxGroup();
    void DrawBoxes(TCanvas& Canvas);
    void DrawBoxesTogether(TCanvas& Canvas, const std::vector<TKxBarSeries*>& Group) const;
    template <class R>
    void DrawBox(TCanvas& Canvas, const R& Outline, const TKxBarSlot& Slot) const;
    bool IsShown() const { return LineStyle().GetVisible() || AreaStyle().GetVisible(); }
    void FillBar(TCanvas& Canvas, const TRealRect& Area, bool Xored) const;

    std::vector<TKxBarSeries*> FStack; // below this one
    std::vector<TKxBarSeries*> FAbove; // those that have this one in their stack
    mutable std::vector<TKxBarValues> FBelow;
    std::vector<double> FSums;
    double FDepthPercent = 50, FBarsGapPercent = 0;
    bool FShow3DBars = false, FBarHorizontal = false, FShiftOverlays = false, FStackOverlays = false,
         FStackSignsApart = false;
    bool FStackIsOld = true;
};

} // namespace kx
