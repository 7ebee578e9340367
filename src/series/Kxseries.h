#pragma once
// The base of all series: what binds an X and a Y vector to a pair of axes and keeps extents and screen
// points up to date with them.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/series/Kxchannel.h>
#include <kxgraph/series/Kxdraw.h>
#include <kxgraph/series/Kxkeptline.h>
#include <kxgraph/series/Kxorderwatch.h>
#include <kxgraph/series/Kxseriescaption.h>

#include <functional>
#include <memory>
#include <span>
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
    TKxAxis* GetXAxis() const final { return FX.GetAxis(); }
    /// Enters the series in the drawing world of the graph that the axis stands on. Children that stood on
    /// the axis before move along.
    void SetXAxis(TKxAxis* Axis) { SetAxis(&TKxSeries::FX, Axis); }
    TKxAxis* GetYAxis() const final { return FY.GetAxis(); }
    void SetYAxis(TKxAxis* Axis) { SetAxis(&TKxSeries::FY, Axis); }
    TKxCustomRealVector* GetXData() const { return FX.GetVector(); }
    virtual void SetXData(TKxCustomRealVector* Vector) { SetData(FX, Vector); }
    TKxCustomRealVector* GetYData() const { return FY.GetVector(); }
    virtual void SetYData(TKxCustomRealVector* Vector) { SetData(FY, Vector); }
    virtual TKxCustomRealVector* GetWeight() const { return FWeight.GetVector(); }
    virtual void SetWeight(TKxCustomRealVector* Vector);
    TKxDrawingWorld* GetDrawingWorld() const { return FDrawingWorld; }
    /// The graph of the drawing world; null without one.
    TKx2DGraph* GetGraph() const { return FDrawingWorld ? &FDrawingWorld->GetGraph() : nullptr; }

    // Appearance, captions.
    TKxLineStyle& GetLineStyle() { return FLineStyle; }
    TKxAreaStyle& GetAreaStyle() { return FAreaStyle; }
    bool GetVisible() const override { return FVisible; }
    /// What is computed from the series has a visibility of its own.
    void SetVisible(bool Visible) override;
    bool GetIncludeInLegend() const override { return FIncludeInLegend; }
    void SetIncludeInLegend(bool Include);
    const AnsiString& GetCaption() const override { return FCaption.Shown; }
    /// Also stored as the automatic caption when DoUserCaption is on, else as the user's.
    void SetCaption(const AnsiString& Caption);
    bool GetDoUserCaption() const { return FCaption.DoUser; }
    void SetDoUserCaption(bool DoUser);
    const AnsiString& GetUserCaption() const { return FCaption.User; }
    void SetUserCaption(const AnsiString& Caption);
    const AnsiString& GetAutoCaption() const { return FCaption.Auto; }
    void SetAutoCaption(const AnsiString& Caption);

    // Extents and screen points.
    /// Drawable points: the smaller count of the two vectors.
    int GetPointsCount() const override { return FPointsCount; }
    /// The screen points of all of them. A series that has no need of them makes them when it is asked;
    /// PointsFrom does without.
    const TKxPointVector& GetPoints() const;
    /// The screen points of First, First + 1, ..., which must exist, as many as Points has room for.
    void PointsFrom(int First, std::span<TPoint> Points) const;
    /// The same before they are rounded; of a class that places its points itself those that it has.
    void PlacesFrom(int First, std::span<TRealPoint> Places) const;
    TRange& GetXRange() { return FX.GetRange(); }
    TRange& GetYRange() { return FY.GetRange(); }
    /// Indices of the points that hold the extents; -1 when unknown.
    int GetXMinIndex() const { return FX.GetMinIndex(); }
    int GetXMaxIndex() const { return FX.GetMaxIndex(); }
    int GetYMinIndex() const { return FY.GetMinIndex(); }
    int GetYMaxIndex() const { return FY.GetMaxIndex(); }
    /// Drawing world pixels to values and back.
    int RealToIntX(double X) const { return GetXAxis()->RealToIntPosition(X) + OriginX(); }
    int RealToIntY(double Y) const { return GetYAxis()->RealToIntPosition(Y) + OriginY(); }
    double IntToRealX(int P) const { return GetXAxis()->IntToRealPosition(P - OriginX()); }
    double IntToRealY(int P) const { return GetYAxis()->IntToRealPosition(P - OriginY()); }
    /// Index of the last point no further than Tolerance pixels from (X, Y) in x and in y; -1 for none.
    virtual int FindPoint(int X, int Y, int Tolerance) const;
    /// Looks at the points beside At alone where x values ascend or descend.
    TKxDrawnPoint PointNear(TPoint At, int Reach) const override;
    TKxDrawnPoint PointAt(int Index) const override;

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
    void KeepShown() override;

    // Children: series computed from this one; owned by the form.
    const std::vector<TKxSeries*>& GetChildren() const { return FChildren; }
    int GetChildCount() const { return int(FChildren.size()); }
    void AddChild(TKxSeries* Child);
    void RemoveChild(TKxSeries* Child);
    std::vector<TKxGraphSeries*> GetChildSeries() const override {
        return {FChildren.begin(), FChildren.end()};
    }
    /// A child that fails does not keep the others from their calculation; the error goes to the application.
    /// Raises std::bad_alloc once all had their turn: they are calculated again in the next frame.
    void RecalculateChilds();

    void DrawBeneath(TCanvas& Canvas) override;
    void Draw(TCanvas& Canvas) override;
    /// Area and line.
    virtual void DrawLine(TCanvas& Canvas);
    /// A swatch of the area, the line across the middle, and DrawSampleMark on it.
    void DrawSample(TCanvas& Canvas, const TRect& Rect) override;
    bool IsCalculated() const override { return false; }

    /// What the class keeps (see Kxoutfit.h), and each child in a section of its own.
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
    virtual int XIdxNeeded() const { return IdxNeeded(FX); }
    virtual int YIdxNeeded() const { return IdxNeeded(FY); }
    /// With an Index of -1 also where the weights come or go as a whole.
    virtual void FOnWeightChanged(int Index, bool WasDeleted);
    void FOnXIChanged(int Index, bool WasDeleted) { ValueChanged(FX, Index, WasDeleted); }
    void FOnYIChanged(int Index, bool WasDeleted) { ValueChanged(FY, Index, WasDeleted); }
    /// Of one of the two something has changed, which the series has not looked at yet.
    virtual void DataChanged(const TKxCustomRealVector*) {}
    /// Full scan of the extents.
    virtual void GetNewXStartStop() { ScanExtent(FX, XIdxNeeded()); }
    virtual void GetNewYStartStop() { ScanExtent(FY, YIdxNeeded()); }
    /// One value that is new or has changed.
    virtual void CalcXValue(int Index) { TakeValue(FX, Index); }
    virtual void CalcYValue(int Index) { TakeValue(FY, Index); }
    virtual void CalculatePoint(int Index);
    /// CalculatePoint of all points in tight loops; overridden together with it.
    virtual void CalculateAllPoints();
    /// Whether a point stands where its two values do, and they alone are what it takes of the extents. Such
    /// a series keeps no screen points unless its line cannot do without. A class that overrides
    /// CalculatePoint or GetIntervals says no.
    virtual bool GoesByValues() const { return true; }

    // What the fronts above do for either direction.
    /// Those of the values that are drawn.
    virtual int IdxNeeded(const TKxChannel& Channel) const;
    /// What the values First, First + 1, ... of Channel take of its extent: themselves. Raises ERangeError
    /// behind the last value.
    virtual void GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const;
    /// What is in the extent whatever the values are.
    virtual TKxInterval GetLeastExtent(const TKxChannel&) const { return TKxInterval::Empty(); }
    /// Finds the extent of the first Count values anew.
    void ScanExtent(TKxChannel& Channel, int Count);
    /// Takes one value into the extent; a scan where an extreme may have moved inward. Nothing happens
    /// behind the last value.
    void TakeValue(TKxChannel& Channel, int Index);
    /// Whether Value takes part in the extent of Channel.
    bool TakesPart(double Value, const TKxChannel& Channel) const {
        return kx::HasPlace(ScalingOfGaps(Channel), Value);
    }
    /// What has no place under this scaling takes no part.
    TKxAxScaling ScalingOfGaps(const TKxChannel& Channel) const {
        return BreaksAtGaps() ? Channel.GetScaling() : AxNormal;
    }

    /// Whether a point that has no place (not finite, or not positive on a logarithmic axis) interrupts the
    /// line and takes no part in the extents.
    virtual bool BreaksAtGaps() const { return false; }
    /// Whether the series listens to its X and Y vectors. One that fills them itself does not.
    virtual bool FollowsVectors() const { return true; }
    /// Symbols and the like, painted after the line.
    virtual void DrawMarks(TCanvas&) {}
    /// One of them in the middle of a sample.
    virtual void DrawSampleMark(TCanvas&, const TRect&) {}
    /// How far from a point, in pixels, anything is drawn that belongs to it or to the line to the next one.
    virtual int DrawnReach() const { return FLineStyle.GetWidth() + CAir; }
    /// What precedes the drawing: places the points where no frame has settled them, and calls no handler.
    /// Returns whether there is something to draw on.
    bool PrepareDrawing();
    /// Whether both axes are zoomed; what reaches over the drawing world's border is cut off then.
    bool IsZoomed() const;
    using TDrawPoint = std::function<void(int Index, TPoint At)>;
    /// Draw for every point that has a place, under the clip in force when both axes are zoomed; what reaches
    /// no further than Reach pixels from points out of sight may be left out. Otherwise the clip is lifted,
    /// so that what stands on the border is whole, and points beyond it are left out.
    void ForPlacedPoints(TCanvas& Canvas, int Reach, const TDrawPoint& Draw) const;
    /// The same for a smooth canvas.
    using TDrawPlace = std::function<void(int Index, TRealPoint At)>;
    void ForPlaces(TCanvas& Canvas, int Reach, const TDrawPlace& Draw) const;
    /// The axes of the last graph among the components of Owner, and its drawing world.
    void TakeAxes(const TComponent* Owner);
    /// Whether the extents will be found anew anyway.
    bool AwaitsRescan() const { return FChildModified; }
    const TKxLineStyle& LineStyle() const { return FLineStyle; }
    const TKxAreaStyle& AreaStyle() const { return FAreaStyle; }

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
    void Refer(TKxBoundVector& Field, TKxCustomRealVector* Vector, bool Listens = true) {
        if (Vector) Vector->FreeNotification(this);
        Field.Bind(Vector, Listens);
    }
    /// The world to paint in as long as there is no X axis.
    void ReferToWorld(TKxDrawingWorld& World) { Refer(FDrawingWorld, &World); }

    TKxChannel FX{TKxValueIChangedEvent::Of<&TKxSeries::FOnXIChanged>(this), &TPoint::X};
    TKxChannel FY{TKxValueIChangedEvent::Of<&TKxSeries::FOnYIChanged>(this), &TPoint::Y};
    mutable TKxPointVector FPoints; // of a series that goes by values those that FPlacing tells of
    int FPointsCount = 0;

private:
    static constexpr int CPointsAtOnce = 512; // points that are placed at once
    static constexpr int CAir = 4;            // pixels around what is kept, and what is drawn
    /// The same direction of this series and of its children.
    using TDirection = TKxChannel TKxSeries::*;
    struct TScaling {
        bool LogX = false, LogY = false;
        friend bool operator==(const TScaling&, const TScaling&) = default;
    };
    TScaling Scaling() const { return {FX.IsLogarithmic(), FY.IsLogarithmic()}; }
    const TKxChannel& PartnerOf(const TKxChannel& Channel) const { return &Channel == &FX ? FY : FX; }
    void CalcValue(const TKxChannel& Channel, int Index);
    TKxChannel::TTaken TakeInterval(TKxChannel& Channel, int Index);
    void GetNewStartStop(const TKxChannel& Channel);
    void ValueChanged(TKxChannel& Channel, int Index, bool WasDeleted);
    void TakeNew(TKxChannel& Channel, int Old, bool Placed, bool ByValues);
    void CallWeightChanged(int Index, bool WasDeleted) { FOnWeightChanged(Index, WasDeleted); }
    void SetAxis(TDirection Direction, TKxAxis* Axis);
    void SetData(TKxChannel& Channel, TKxCustomRealVector* Vector);
    void VectorReplaced();
    void EnterRange(TKxChannel& Channel);
    void EnterRanges();
    void EnterDrawingWorld(TKxDrawingWorld* World);
    void ForgetData(TKxChannel& Channel);
    bool ExtentsAreStale() const;
    void ForChildren(const std::function<void(TKxSeries*)>& Action);
    void ForItems(void (TKxCalculatedItem::*Action)());
    void PlacePoints();
    bool DrawsLine() const { return FLineStyle.GetVisible() || FAreaStyle.GetVisible(); }
    TKxPlacing PresentPlacing() const;
    void PlaceAll() const;
    void PlaceBlock(int First, std::span<TPoint> Points) const;
    void ForgetPoints() const;
    bool FollowChange(const TKxChannel& Channel);
    bool KeepsPoints() const { return !GoesByValues() || FPlacing.Count >= 0; }
    bool IsBound() const;
    bool KeepsLine();
    bool KeepsFineLine(int ColumnsPerPixel);
    bool MayKeepLine() const;
    void UpdateChildren(bool PassOn);
    void ShowCaption(const AnsiString& Caption);
    void LoadCaption(const AnsiString& Caption) { ShowCaption(FCaption.LoadShown(Caption)); }
    void OrderChanged();
    template <class P>
    void MarkGaps(int First, std::span<P> Points) const;
    TKxStretch WorldStretch(int Reach) const;
    TKxStretch PaintedStretch(const TCanvas& Canvas, TKxStretch Stretch) const;
    template <class T, class F>
    std::span<const T> PaintedOf(const TCanvas& Canvas, std::span<const T> Line, F PixelOf) const;
    void InvalidateNew(int Count, int Index);
    TKxSection SectionNear(TPoint At, int Reach) const;
    std::vector<std::span<const TPoint>> DrawableRuns(const TCanvas& Canvas);
    std::vector<std::span<const TPoint>> KeptRuns(const TCanvas& Canvas);
    std::vector<std::span<const TRealPoint>> ExactRuns(const TCanvas& Canvas,
                                                       std::vector<TRealPoint>& Points);
    template <class P>
    void DrawRuns(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const;
    template <class P>
    void DrawArea(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const;
    template <class P>
    void DrawPolylines(TCanvas& Canvas, const std::vector<std::span<const P>>& Runs) const;
    template <class P, class F>
    void ForAllPlaced(TCanvas& Canvas, int Reach, F Draw) const;

    TKxBoundVector FWeight{TKxValueIChangedEvent::Of<&TKxSeries::CallWeightChanged>(this)};
    TKxDrawingWorld* FDrawingWorld = nullptr;
    TKxLineStyle FLineStyle;
    TKxAreaStyle FAreaStyle;
    TKxIniList FResults;
    std::vector<TKxSeries*> FChildren;
    std::vector<TPoint> FScratch;
    mutable TKxPlacing FPlacing; // of FPoints
    TKxKeptLine FKept;
    std::unique_ptr<TKxKeptLine> FFineKept;     // as the smooth device that asked last has columns
    std::unique_ptr<TKxOrderWatch> FOrderWatch; // in the form designer
    TKxSeriesCaption FCaption;
    int FScannedCount = -1;    // points of the last full scan
    TScaling FScannedScaling;  // of the axes then
    TScaling FChildrenScaling; // of the axes at the children's last calculation
    bool FPointsDirty = true, FChildModified = false, FRangesModified = false;
    bool FIncludeInLegend = true, FVisible = true;
};

} // namespace kx
