#pragma once
// The series of measured data: what binds an X and a Y vector to a pair of axes, keeps extents and screen
// points up to date with them, and draws a line, an area, symbols and error bars.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/host/timer.h>
#include <kxgraph/series/Kxdraw.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kx {

/// What a series asks of a child that is computed from it.
class TKxCalculatedItem {
public:
    virtual void Calculate() = 0;     ///< computes the results from the parent's data
    virtual void CalculateLine() = 0; ///< follows the axes' present range and length

protected:
    ~TKxCalculatedItem() = default;
};

/// The base of every series drawn in a graph. A component of the form: it refers to its axes, its vectors and
/// its drawing world and owns none of them; it owns its styles, its extents, its screen points and its result
/// store. Whatever it refers to may be destroyed first.
///
/// A vector that tells of its values (TKxLiveVector) moves the axes by itself; for what is written into any
/// other one after it was bound, RangesModified is called. A vector has one listener of each method: of two
/// series on one X vector the one bound last follows it (see Kxvector.h).
///
/// A reference that is destroyed has the effect of one that is set to null: by the next frame the extents,
/// and the axes that follow them, are those of what is left, and what is computed from the series is computed
/// anew or gone.
class TKxSeries : public TKxGraphSeries {
public:
    explicit TKxSeries(TComponent* Owner);
    ~TKxSeries() override;

    // Binding.
    TKxAxis* GetXAxis() const { return FXAxis; }
    /// Enters the series in the drawing world of the graph that the axis stands on. Children that stood on
    /// the axis before move along.
    void SetXAxis(TKxAxis* Axis);
    TKxAxis* GetYAxis() const { return FYAxis; }
    void SetYAxis(TKxAxis* Axis);
    TKxCustomRealVector* GetXData() const { return FXData; }
    virtual void SetXData(TKxCustomRealVector* Vector);
    TKxCustomRealVector* GetYData() const { return FYData; }
    virtual void SetYData(TKxCustomRealVector* Vector);
    virtual TKxCustomRealVector* GetWeight() const { return FWeight; }
    virtual void SetWeight(TKxCustomRealVector* Vector);
    TKxDrawingWorld* GetDrawingWorld() const { return FDrawingWorld; }
    /// The graph of the drawing world; null without one.
    TKx2DGraph* GetGraph() const { return FDrawingWorld ? &FDrawingWorld->GetGraph() : nullptr; }

    // Appearance, captions.
    TKxLineStyle& GetLineStyle() { return FLineStyle; }
    TKxAreaStyle& GetAreaStyle() { return FAreaStyle; }
    bool GetIncludeInLegend() const override { return FIncludeInLegend; }
    void SetIncludeInLegend(bool Include);
    const AnsiString& GetCaption() const override { return FCaption; }
    /// Also stored as the automatic caption when DoUserCaption is on, else as the user's.
    void SetCaption(const AnsiString& Caption);
    bool GetDoUserCaption() const { return FDoUserCaption; }
    void SetDoUserCaption(bool DoUser);
    const AnsiString& GetUserCaption() const { return FUserCaption; }
    void SetUserCaption(const AnsiString& Caption);
    const AnsiString& GetAutoCaption() const { return FAutoCaption; }
    void SetAutoCaption(const AnsiString& Caption);

    // Extents and screen points.
    /// Drawable points: the smaller count of the two vectors.
    int GetPointsCount() const { return FPointsCount; }
    const TKxPointVector& GetPoints() const { return FPoints; }
    TRange& GetXRange() { return FXRange; }
    TRange& GetYRange() { return FYRange; }
    /// Indices of the points that hold the extents; -1 when unknown.
    int GetXMinIndex() const { return FXMinIndex; }
    int GetXMaxIndex() const { return FXMaxIndex; }
    int GetYMinIndex() const { return FYMinIndex; }
    int GetYMaxIndex() const { return FYMaxIndex; }
    /// Drawing world pixels to values and back.
    int RealToIntX(double X) const { return FXAxis->RealToIntPosition(X) + OriginX(); }
    int RealToIntY(double Y) const { return FYAxis->RealToIntPosition(Y) + OriginY(); }
    double IntToRealX(int P) const { return FXAxis->IntToRealPosition(P - OriginX()); }
    double IntToRealY(int P) const { return FYAxis->IntToRealPosition(P - OriginY()); }
    /// Index of the last point no further than Tolerance pixels from (X, Y) in x and in y; -1 for none.
    virtual int FindPoint(int X, int Y, int Tolerance) const;

    // Change tracking.
    void Modified() override;
    void ChildModified();
    void RangesModified();
    /// Point count and extents as of now, without waiting for the next frame. Returns whether they had to be
    /// found anew.
    bool RefreshExtents();
    /// In the form designer everything is calculated at once; elsewhere nothing happens.
    void DsgnUpdate();
    bool NeedsCalculation() const override;
    void CalculatePoints() override;
    void CalculateChildPoints() override;

    // Children: series computed from this one; owned by the form.
    const std::vector<TKxSeries*>& GetChildren() const { return FChildren; }
    void AddChild(TKxSeries* Child);
    void RemoveChild(TKxSeries* Child);
    std::vector<TKxGraphSeries*> GetChildSeries() const override {
        return {FChildren.begin(), FChildren.end()};
    }
    /// A child that fails does not keep the others from their calculation; the error goes to the application.
    void RecalculateChilds();

    void Draw(TCanvas& Canvas) override;
    /// Area and line.
    virtual void DrawLine(TCanvas& Canvas);
    /// A swatch of the area, the line across the middle, and DrawSampleMark on it.
    void DrawSample(TCanvas& Canvas, const TRect& Rect) override;
    bool IsCalculated() const override { return false; }

    virtual void WriteToIni(TKxIniList& Ini, const AnsiString& Section);
    virtual void ReadFromIni(TKxIniList& Ini, const AnsiString& Section);
    void SaveOutfit(const std::string& Section, TKxIniList& Ini) override { WriteToIni(Ini, Section); }
    void LoadOutfit(const std::string& Section, TKxIniList& Ini) override { ReadFromIni(Ini, Section); }
    TKxIniList& GetResults() override { return FResults; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void Notification(TComponent* Component, TOperation Operation) override;

    virtual void SetPointsCount();
    /// How many values are scanned for extents.
    virtual int XIdxNeeded() const;
    virtual int YIdxNeeded() const;
    /// With an Index of -1 also where the weights come or go as a whole.
    virtual void FOnWeightChanged(int Index, bool WasDeleted);
    void FOnXIChanged(int Index, bool WasDeleted);
    void FOnYIChanged(int Index, bool WasDeleted);
    /// Of one of the two something has changed, which the series has not looked at yet.
    virtual void DataChanged(const TKxCustomRealVector*) {}
    /// Whether a notice of Vector tells of an insertion in front of its end, so that all values behind Index
    /// have moved. KnownCount is kept from one notice to the next, CountOf(Vector) at first.
    static int CountOf(const TKxCustomRealVector* Vector) { return Vector ? Vector->GetCount() : 0; }
    static bool WasInserted(const TKxCustomRealVector* Vector, int& KnownCount, int Index, bool WasDeleted);
    /// Full scan of the extents.
    virtual void GetNewXStartStop();
    virtual void GetNewYStartStop();
    /// One value that is new or has changed.
    virtual void CalcXValue(int Index);
    virtual void CalcYValue(int Index);
    virtual void CalculatePoint(int Index);
    /// CalculatePoint of all points in tight loops; overridden together with it.
    virtual void CalculateAllPoints();
    /// Whether a point that has no place (not finite, or not positive on a logarithmic axis) interrupts the
    /// line and takes no part in the extents.
    virtual bool BreaksAtGaps() const { return false; }
    /// Whether the series listens to its X and Y vectors. One that fills them itself does not.
    virtual bool FollowsVectors() const { return true; }
    /// Symbols and the like, painted after the line.
    virtual void DrawMarks(TCanvas&) {}
    /// One of them in the middle of a sample.
    virtual void DrawSampleMark(TCanvas&, const TRect&) {}
    /// What precedes the drawing: calculates what is due. Returns whether there is something to draw on now.
    bool PrepareDrawing();
    /// Whether both axes are zoomed; what reaches over the drawing world's border is cut off then.
    bool IsZoomed() const;
    /// Draw(i) for every point that has a place, under the clip in force when both axes are zoomed. Otherwise
    /// the clip is lifted, so that what stands on the border is whole, and points beyond it are left out.
    template <class F>
    void ForPlacedPoints(TCanvas& Canvas, F Draw);
    /// The axes of the last graph among the components of Owner, and its drawing world.
    void TakeAxes(const TComponent* Owner);
    /// Whether the extents will be found anew anyway.
    bool AwaitsRescan() const { return FChildModified; }
    const TKxLineStyle& LineStyle() const { return FLineStyle; }
    const TKxAreaStyle& AreaStyle() const { return FAreaStyle; }
    /// The pens that line and outline are drawn with: the style, a line of width 1 as a cosmetic one.
    void UseLinePen(TCanvas& Canvas) const;

    /// An interval that takes part in the extents; not finite: nothing does.
    struct TInterval {
        double Low, High;
    };
    static constexpr TInterval CEmptyInterval{1.7e308, -1.7e308};
    /// The smallest and the largest of Count intervals and of From, and the first indices that they have; -1
    /// where there are none.
    template <class F>
    void ScanExtents(TRange& Range, int& MinIndex, int& MaxIndex, int Count, F IntervalOf,
                     TInterval From = CEmptyInterval);
    /// One changed interval; rescans when an extreme may have moved inward.
    template <class F>
    void UpdateExtents(TRange& Range, int& MinIndex, int& MaxIndex, int Index, TInterval Value, F Rescan);
    bool TakesPart(double Value, const TKxAxis* Axis) const;
    TInterval PointInterval(double Value, const TKxAxis* Axis) const;

    bool HasPlace(int Index) const {
        const TPoint p = FPoints.Values()[std::size_t(Index)];
        return p.X != CNoPixel && p.Y != CNoPixel;
    }
    void InvalidateWorld();
    void UpdateLegend();
    int OriginX() const { return FDrawingWorld ? FDrawingWorld->GetXOrigin() : 0; }
    int OriginY() const { return FDrawingWorld ? FDrawingWorld->GetYOrigin() : 0; }
    /// Replaces a reference to a component that tells of its removal.
    template <class T>
    void Refer(T*& Field, T* Value) {
        if (Value) Value->FreeNotification(this);
        Field = Value;
    }
    /// The world to paint in as long as there is no X axis.
    void ReferToWorld(TKxDrawingWorld& World) { Refer(FDrawingWorld, &World); }

    TKxPointVector FPoints;
    int FPointsCount = 0;
    int FXMinIndex = -1, FXMaxIndex = -1, FYMinIndex = -1, FYMaxIndex = -1;
    TRange FXRange, FYRange;

private:
    TKxValueIChangedEvent XHandler() { return TKxValueIChangedEvent::Of<&TKxSeries::FOnXIChanged>(this); }
    TKxValueIChangedEvent YHandler() { return TKxValueIChangedEvent::Of<&TKxSeries::FOnYIChanged>(this); }
    TKxValueIChangedEvent WeightHandler() {
        return TKxValueIChangedEvent::Of<&TKxSeries::CallWeightChanged>(this);
    }
    void ValueChanged(int Index, bool WasDeleted, const TKxCustomRealVector* Partner,
                      void (TKxSeries::*CalcOwn)(int), void (TKxSeries::*CalcPartner)(int));
    void CallWeightChanged(int Index, bool WasDeleted) { FOnWeightChanged(Index, WasDeleted); }
    void EnterRange(TKxAxis* Axis, TRange& Range, const TKxCustomRealVector* Data);
    void EnterRanges();
    static void WithdrawRange(TKxAxis* Axis, TRange& Range);
    void EnterDrawingWorld(TKxDrawingWorld* World);
    void ForgetData(TKxCustomRealVector*& Field, TKxAxis* Axis, TRange& Range);
    void SetBound(TKxCustomRealVector*& Field, TKxCustomRealVector* Vector,
                  const TKxValueIChangedEvent& Handler, bool Listens);
    void MoveChildren(TKxAxis* (TKxSeries::*Get)() const, void (TKxSeries::*Set)(TKxAxis*), TKxAxis* From,
                      TKxAxis* To);
    bool IsLogX() const { return FXAxis && FXAxis->GetScaling() != AxNormal; }
    bool IsLogY() const { return FYAxis && FYAxis->GetScaling() != AxNormal; }
    bool ExtentsAreStale() const;
    void ForChildren(const std::function<void(TKxSeries*)>& Action);
    void UpdateChildren(bool PassOn);
    void StoreCaption(const AnsiString& Caption);
    void TestOrder();
    void MarkGaps(int First, int Last);
    std::vector<std::span<const TPoint>> DrawableRuns();
    void DrawArea(TCanvas& Canvas, const std::vector<std::span<const TPoint>>& Runs);
    void DrawPolylines(TCanvas& Canvas, const std::vector<std::span<const TPoint>>& Runs);

    TKxCustomRealVector* FXData = nullptr;
    TKxCustomRealVector* FYData = nullptr;
    TKxCustomRealVector* FWeight = nullptr;
    TKxAxis* FXAxis = nullptr;
    TKxAxis* FYAxis = nullptr;
    TKxDrawingWorld* FDrawingWorld = nullptr;
    TKxLineStyle FLineStyle;
    TKxAreaStyle FAreaStyle;
    TKxIniList FResults;
    std::vector<TKxSeries*> FChildren;
    std::vector<TPoint> FScratch;
    std::unique_ptr<TTimer> FDesignTimer;
    AnsiString FCaption, FUserCaption, FAutoCaption;
    int FComponentIndex = -1;
    int FKnownXCount = 0, FKnownYCount = 0; // of the vectors when they last told of themselves
    int FScannedCount = -1;                 // points of the last full scan
    bool FScannedLogX = false, FScannedLogY = false;
    bool FChildrenLogX = false, FChildrenLogY = false; // scalings of the children's last calculation
    bool FPointsDirty = true, FChildModified = false, FRangesModified = false;
    bool FDoUserCaption = false, FIncludeInLegend = true;
};

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
    void WriteToIni(TKxIniList& Ini, const AnsiString& Section) override;
    void ReadFromIni(TKxIniList& Ini, const AnsiString& Section) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void DrawMarks(TCanvas& Canvas) override { DrawPoints(Canvas); }
    void DrawSampleMark(TCanvas& Canvas, const TRect& Rect) override;
    /// Pen and brush of the symbols.
    void UseSymbolPen(TCanvas& Canvas) const;
    /// ForPlacedPoints with brush and pen set for symbols.
    template <class F>
    void ForMarkedPoints(TCanvas& Canvas, F Draw);

    TKxPointStyle FPointStyle;
};

/// Adds error bars from four vectors, each of which may be null or shorter than the data. Not owned.
class TKxDataWithErrorSeries : public TKxDataSeries {
public:
    explicit TKxDataWithErrorSeries(TComponent* Owner);
    ~TKxDataWithErrorSeries() override;

    TKxCustomRealVector* GetdXPlus() const { return FErrors[XPlus].Vector; }
    void SetdXPlus(TKxCustomRealVector* Vector) { SetErrors(XPlus, Vector); }
    TKxCustomRealVector* GetdXMinus() const { return FErrors[XMinus].Vector; }
    void SetdXMinus(TKxCustomRealVector* Vector) { SetErrors(XMinus, Vector); }
    TKxCustomRealVector* GetdYPlus() const { return FErrors[YPlus].Vector; }
    void SetdYPlus(TKxCustomRealVector* Vector) { SetErrors(YPlus, Vector); }
    TKxCustomRealVector* GetdYMinus() const { return FErrors[YMinus].Vector; }
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
    void WriteToIni(TKxIniList& Ini, const AnsiString& Section) override;
    void ReadFromIni(TKxIniList& Ini, const AnsiString& Section) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void Notification(TComponent* Component, TOperation Operation) override;
    void GetNewXStartStop() override;
    void GetNewYStartStop() override;
    void CalcXValue(int Index) override;
    void CalcYValue(int Index) override;
    void CalculatePoint(int Index) override;
    void CalculateAllPoints() override;
    void DrawSampleMark(TCanvas& Canvas, const TRect& Rect) override;

private:
    enum TKind { XPlus, XMinus, YPlus, YMinus };
    struct TErrors {
        TKxCustomRealVector* Vector = nullptr;
        TKxIntegerVector Pixels; ///< signed, from the point to the end of the bar
    };
    void SetErrors(TKind Kind, TKxCustomRealVector* Vector);
    bool HasErrors() const;
    void ErrorsChanged(int Index, bool WasDeleted);
    double ErrorAt(TKind Kind, int Index) const;
    int PixelLength(TKind Kind, int Index) const;
    void CalculateErrors(int Index);
    TInterval XInterval(int Index) const;
    TInterval YInterval(int Index) const;
    TInterval IntervalOf(double Value, TKind Plus, TKind Minus, int Index, const TKxAxis* Axis) const;
    void DrawBars(TCanvas& Canvas, int Index);

    TErrors FErrors[4];
    TColor FErrorColor = clBlack;
    bool FCountsErrors = true; // in the extents
};

} // namespace kx
