#pragma once
// The series of measured data: a line, an area, symbols and error bars.

#include <kxgraph/series/Kxseries.h>

#include <algorithm>
#include <vector>

namespace kx {

/// A series whose data come from vectors, not from a computation.
class TKxNotCalculatedSeries : public TKxSeries {
public:
    using TKxSeries::TKxSeries;
};

/// A polyline through the points, optionally with the area down to the Y zero line (the lower axis end on a
/// logarithmic axis). Takes the axes of the last graph that its owner has.
class TKxLineSeries : public TKxNotCalculatedSeries {
public:
    explicit TKxLineSeries(TComponent* Owner);

    /// Points without a place interrupt the line and take no part in the extents. Off by default: the line
    /// then leaves out points that are no numbers and runs through all others.
    bool GetBreakAtGaps() const { return FBreakAtGaps; }
    void SetBreakAtGaps(bool Break);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLineSeries>(); }
    bool BreaksAtGaps() const override { return FBreakAtGaps; }

private:
    bool FBreakAtGaps = false;
};

/// Adds a symbol at each point.
class TKxDataSeries : public TKxLineSeries {
public:
    explicit TKxDataSeries(TComponent* Owner);

    TKxPointStyle& GetPointStyle() { return FPointStyle; }
    virtual void DrawPoints(TCanvas& Canvas);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxDataSeries>(); }
    void DrawMarks(TCanvas& Canvas) override { DrawPoints(Canvas); }
    void DrawSampleMark(TCanvas& Canvas, const TRect& Rect) override;
    /// Pen and brush of the symbols.
    void UseSymbolPen(TCanvas& Canvas) const;
    /// ForPlacedPoints with brush and pen set for symbols.
    void ForMarkedPoints(TCanvas& Canvas, const TDrawPoint& Draw);
    /// ForPlaces likewise.
    void ForMarkedPlaces(TCanvas& Canvas, const TDrawPlace& Draw);

    int DrawnReach() const override { return std::max(TKxSeries::DrawnReach(), MarkReach()); }
    TKxPointStyle FPointStyle;

private:
    int MarkReach() const { return FPointStyle.GetSize() + FPointStyle.GetWidth() + 1; }
    bool PrepareMarks(TCanvas& Canvas);
    template <class P>
    void DrawSymbols(TCanvas& Canvas, const std::vector<P>& Places);
};

/// Adds error bars from four vectors, each of which may be null or shorter than the data. Not owned.
class TKxDataWithErrorSeries : public TKxDataSeries {
public:
    explicit TKxDataWithErrorSeries(TComponent* Owner);

    TKxCustomRealVector* GetdXPlus() const { return FErrors[XPlus].Vector.GetVector(); }
    void SetdXPlus(TKxCustomRealVector* Vector) { SetErrors(XPlus, Vector); }
    TKxCustomRealVector* GetdXMinus() const { return FErrors[XMinus].Vector.GetVector(); }
    void SetdXMinus(TKxCustomRealVector* Vector) { SetErrors(XMinus, Vector); }
    TKxCustomRealVector* GetdYPlus() const { return FErrors[YPlus].Vector.GetVector(); }
    void SetdYPlus(TKxCustomRealVector* Vector) { SetErrors(YPlus, Vector); }
    TKxCustomRealVector* GetdYMinus() const { return FErrors[YMinus].Vector.GetVector(); }
    void SetdYMinus(TKxCustomRealVector* Vector) { SetErrors(YMinus, Vector); }
    TColor GetErrorIndicatorsColor() const { return FErrorColor; }
    void SetErrorColor(TColor Color);

    /// Magnitude of the error at a point; 0 without one, or while the symbols are hidden.
    double GetXPlusD(int Index) const { return ErrorAt(XPlus, Index); }
    double GetXMinusD(int Index) const { return ErrorAt(XMinus, Index); }
    double GetYPlusD(int Index) const { return ErrorAt(YPlus, Index); }
    double GetYMinusD(int Index) const { return ErrorAt(YMinus, Index); }

    /// Bars come and go with the symbols, and with them their part in the extents.
    void Modified() override;
    void DrawPoints(TCanvas& Canvas) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxDataWithErrorSeries>(); }
    void Notification(TComponent* Component, TOperation Operation) override;
    void GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const override;
    void CalculatePoint(int Index) override;
    void CalculateAllPoints() override;
    bool GoesByValues() const override { return !HasErrors(); }
    void DrawSampleMark(TCanvas& Canvas, const TRect& Rect) override;

private:
    enum TKind { XPlus, XMinus, YPlus, YMinus };
    static bool IsAlongX(TKind Kind) { return Kind == XPlus || Kind == XMinus; }
    const TKxChannel& ChannelOf(TKind Kind) const { return IsAlongX(Kind) ? FX : FY; }
    struct TErrors {
        explicit TErrors(const TKxValueIChangedEvent& Listener) : Vector(Listener) {}
        bool Has(int Index) const { return Index >= 0 && Index < Vector.GetCount(); }

        TKxBoundVector Vector;
        TKxIntegerVector Pixels; ///< signed, from the point to the end of the bar
    };
    template <TKind Kind>
    void ErrorsChanged(int, bool) {
        RangesModified();
    }
    template <TKind Kind>
    TKxValueIChangedEvent Listener() {
        return TKxValueIChangedEvent::Of<&TKxDataWithErrorSeries::ErrorsChanged<Kind>>(this);
    }
    void SetErrors(TKind Kind, TKxCustomRealVector* Vector);
    bool HasErrors() const;
    double ErrorAt(TKind Kind, int Index) const;
    int PixelLength(TKind Kind, int Index) const;
    double LengthOf(TKind Kind, int Index) const;
    void CalculateErrors(int Index);
    TKxInterval IntervalOf(const TKxChannel& Channel, int Index) const;
    void DrawBars(TCanvas& Canvas, int Index, TPoint P);
    void DrawBars(TCanvas& Canvas, int Index, TRealPoint P) const;
    template <class P>
    void DrawMarked(TCanvas& Canvas, int Index, P At);

    TErrors FErrors[4]{TErrors(Listener<XPlus>()), TErrors(Listener<XMinus>()), TErrors(Listener<YPlus>()),
                       TErrors(Listener<YMinus>())};
    TColor FErrorColor = clBlack;
    bool FCountsErrors = true; // in the extents
};

} // namespace kx
