#pragma once
// One axis of a graph: the visible range and how it follows the data, ticks and labels, the map from values
// to pixels, the zoom stack, the caption beside it, and the outfit. What is pure lives in Kxscale and
// Kxticks.

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxgraphlayout.h>
#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/graph/Kxside.h>
#include <kxgraph/graph/Kxticks.h>
#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/controls/controls.h>

#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kx {

/// What an axis asks of the graph that it stands on. The axis finds it as its parent.
class TKxAxisHost {
public:
    /// Everything must be calculated anew.
    virtual void Modified() = 0;
    /// Lays out all axes of the graph and calculates their ends and ticks.
    virtual void LayOutAxes() = 0;
    virtual bool NotUpdating() const = 0;
    virtual bool GetZeroOrigin() const = 0;

protected:
    ~TKxAxisHost() = default;
};

/// Takes over rows 1 to 10 of the step tables from the section "GraphScale" of the settings file
/// UserSettings; a row whose key is missing stays. To be called after KxInitDirs. Raises the extraction error
/// for a row of fewer than ten numbers.
void InitFields();

/// An axis. A component of the form whose parent is a graph; the graph finds it, lays it out and never owns
/// it. Owns its ranges, its zoom stack and its caption label. Series enter their extents in ValuesRangeList.
class TKxAxis : public TGraphicControl {
public:
    explicit TKxAxis(TComponent* Owner);
    ~TKxAxis() override;

    // Range and scaling. What was set, or made by the data, is kept apart from what is shown: every layout
    // rounds anew, so that no end creeps away and a fixed one comes back when the other end does.
    /// The end that is shown; until the next frame the one that was set.
    double GetStart() const { return FRange.GetStart(); }
    /// Sets the end of the view that is shown and of the unzoomed one. An automatic end stays there until the
    /// data change.
    void SetStart(double Start) { SetEnd(&TView::Start, GetStart(), Start); }
    double GetStop() const { return FRange.GetStop(); }
    void SetStop(double Stop) { SetEnd(&TView::Stop, GetStop(), Stop); }
    /// What an outfit keeps of the unzoomed view: a fixed end as it was set, any other one as it is shown.
    double GetKeptStart() const { return FStartEnd == AxFixed ? FUnzoomed.Start : ShownUnzoomed().Start; }
    double GetKeptStop() const { return FStopEnd == AxFixed ? FUnzoomed.Stop : ShownUnzoomed().Stop; }
    TKxAxisPos GetPosition() const { return FSide.Position(); }
    /// Bottom and top make the axis horizontal, left and right vertical; free floating keeps the orientation.
    void SetPosition(TKxAxisPos Position) { Change(FSide, FSide.MovedTo(Position)); }
    /// The position with its directions.
    TKxSide GetSide() const { return FSide; }
    TKxAxisOrientation GetOrientation() const { return FSide.Orientation(); }
    bool IsHorizontal() const { return FSide.IsHorizontal(); }
    TKxAxScaling GetScaling() const { return FScaling; }
    /// Under the scaling that is set, which GetMap() has after the next layout.
    bool HasPlace(double Value) const { return kx::HasPlace(FScaling, Value); }
    void SetScaling(TKxAxScaling Scaling);
    bool GetTwisted() const { return FTwisted; }
    void SetTwisted(bool Twisted) { Change(FTwisted, Twisted); }
    TKxAxEnd GetStartEnd() const { return FStartEnd; }
    /// For an end that becomes fixed, what is shown counts as set.
    void SetStartEnd(TKxAxEnd StartEnd) { SetEndKind(FStartEnd, StartEnd, &TView::Start, GetStart()); }
    TKxAxEnd GetStopEnd() const { return FStopEnd; }
    void SetStopEnd(TKxAxEnd StopEnd) { SetEndKind(FStopEnd, StopEnd, &TView::Stop, GetStop()); }
    bool GetAutoTicks() const { return FAutoTicks; }
    void SetAutoTicks(bool AutoTicks) { Change(FAutoTicks, AutoTicks); }
    bool IsNotAutoTicks() const { return !FAutoTicks; }
    /// Steps in units of 10 to the power SpanExponent.
    double GetTickPart() const { return FTickPart; }
    void SetTickPart(double Part) { Change(FTickPart, Part); }
    double GetMajorTickPart() const { return FMajorTickPart; }
    void SetMajorTickPart(double Part) { Change(FMajorTickPart, Part); }
    double GetLabelPart() const { return FLabelPart; }
    void SetLabelPart(double Part) { Change(FLabelPart, Part); }
    int GetMaxExpForScaleExp() const { return FMaxExpForScaleExp; }
    void SetMaxExpForScale(int Exponent) { Change(FMaxExpForScaleExp, Exponent); }
    int GetMinExpForScaleExp() const { return FMinExpForScaleExp; }
    void SetMinExpForScale(int Exponent) { Change(FMinExpForScaleExp, Exponent); }
    bool GetIsSlaveAxis() const { return FIsSlaveAxis; }
    void SetIsSlave(bool IsSlave);
    TKxAxis* GetMasterAxis() const { return FMasterAxis; }
    void SetMasterAxis(TKxAxis* Master);

    /// The visible ends, owned. SetRange and SetValuesRange copy the ends of another range.
    const TRange* GetRange() const { return &FRange; }
    void SetRange(const TRange* Range);
    TRange* GetValuesRange() { return &FValuesRange; }
    void SetValuesRange(const TRange* Range);
    /// The extents of the series drawn against this axis; the series own them.
    TRangeList& GetValuesRangeList() { return FValuesRangeList; }
    /// Unites the extents and moves the ends that follow the data: those of the unzoomed view, whether it is
    /// shown or not. The handler of every range in the list.
    void ValuesRangeChanged(TRange* Range);
    /// Recomputes from all extents and forgets the zooms.
    void RedoRanges();

    // Zoom stack. A view that was zoomed to is rounded once and then stays, whatever the data do.
    void ZoomIn(double Start, double Stop);
    /// Shows the view before; from the unzoomed one it goes round to the newest.
    void ZoomBack();
    bool CanZoomBack() const { return !FZooms.empty(); }
    /// Counted from 1, the unzoomed view; 0 as long as nothing was zoomed.
    int GetZoomIndex() const { return FZoomIndex; }

    // Computation.
    /// Makes Range presentable: automatic ends, tick steps, exponents.
    void CalculateEnds();
    /// The same for a slave: ends, scaling and automatic caption are its master's, whatever its own ends are.
    void CalculateEndsOfMaster();
    /// Ticks and labels for the current range and AxisLength; places labels and caption.
    void CalculateTicks();
    // The steps of it that a layout takes. GetLayoutAxis tells the room that the axis needs after either of
    // the first two.
    void MeasureTicks();
    /// After SetPlace alone: the same at the new length.
    void FitTicks();
    /// Fits, and places labels and caption.
    void FinishTicks();
    /// Offset in pixels along the axis: x of a horizontal axis, y (downwards) of a vertical one, in the
    /// drawing world. -1 for a non-positive value on a logarithmic axis, CNoPixel for a NaN. Raises
    /// EConvertError "Axis scaling not supportet" for an unknown scaling.
    int RealToIntPosition(double X) const;
    double IntToRealPosition(int P) const;
    /// RealToIntPosition of many values; First[i * Stride] receives the i-th. For the redraw of long series.
    void RealToIntPositions(std::span<const double> Values, int* First, std::ptrdiff_t Stride) const;
    /// Value units (decades when logarithmic) per pixel.
    double GetScale() const { return FMap.Scale; }
    const TKxAxisMap& GetMap() const { return FMap; }

    int GetAxisLength() const { return FMap.AxisLength; }
    /// What the layout pass sets: where the axis line begins inside the control, and its length in pixels.
    /// The caption keeps CaptionFrom pixels off the line at least.
    void SetPlace(TPoint Origin, int AxisLength, int CaptionFrom = 0);
    TPoint GetAxisOrigin() const { return FAxisOrigin; }
    int GetTickCount() const { return FTicks.Positions.Length(); }
    /// Pixel offsets from the axis start (left; bottom of a vertical axis).
    const TKxIntegerArray& GetTickPositions() const { return FTicks.Positions; }
    const TKxBooleanArray& GetTickIsMajor() const { return FTicks.IsMajor; }
    /// Texts, fonts and places of all labels, the exponent label last.
    const std::vector<TKxCaptionRec>& GetLabelRecs() const { return FLabelRecs; }
    int GetSpanExponent() const { return FEnds.SpanExponent; }
    int GetScaleExponent() const { return FEnds.ScaleExponent; }
    int GetLabelDigits() const { return FEnds.LabelDigits; }
    bool GetUseScaleExponent() const { return FEnds.UseScaleExponent; }
    bool GetEndsCorrected() const { return FEnds.EndsCorrected; }
    bool GetChanged() const { return FChanged; }
    void SetChanged(bool Changed) { FChanged = Changed; }
    /// Shows what was laid out last, whatever has moved the ends since, until something changes again.
    void KeepShown();
    /// The ticks that are drawn, as a range of indices: without the first or the last one where another axis
    /// adjoins that end. Empty (First > Last) when there are none.
    struct TTickRun {
        int First = 0;
        int Last = -1;
    };
    TTickRun GetTickRun() const;
    /// Set at the start of the layout pass; cleared there where another axis's line stands at that end and
    /// the ticks point to the inside, so that they would lie on that line.
    void SetEndTicks(bool FirstEnd, bool LastEnd);
    /// What the graph's layout has to know of this axis; the labels must be calculated.
    TKxLayoutAxis GetLayoutAxis() const;

    // Appearance. All lengths in pixels.
    bool GetShowCaption() const { return FShowCaption; }
    void SetShowCaption(bool Show);
    bool GetShowScaleLabels() const { return FShowScaleLabels; }
    void SetShowScaleLabels(bool Show) { Change(FShowScaleLabels, Show); }
    bool GetAutoSize() const { return FAutoSize; }
    void SetAutosize(bool AutoSize) { Change(FAutoSize, AutoSize); }
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool Transparent) { Change(FTransparent, Transparent); }
    /// Leaves out every second (third, ...) label where labels would touch; the room that the axis takes
    /// counts them all. Off by default.
    bool GetThinLabels() const { return FThinLabels; }
    void SetThinLabels(bool Thin) { Change(FThinLabels, Thin); }
    // Lengths in pixels; beyond CMostLength they count as that.
    int GetBorderCaptionGap() const { return FBorderCaptionGap; }
    void SetBorderCaptionGap(int Gap) { Change(FBorderCaptionGap, LimitedLength(Gap)); }
    int GetCaptionScalingsGap() const { return FCaptionScalingsGap; }
    void SetCaptionScalingsGap(int Gap) { Change(FCaptionScalingsGap, LimitedLength(Gap)); }
    int GetScalingsTicksGap() const { return FScalingsTicksGap; }
    void SetScalingsTicksGap(int Gap) { Change(FScalingsTicksGap, LimitedLength(Gap)); }
    int GetExponentScalingsGap() const { return FExponentScalingsGap; }
    void SetExponentScalingsGap(int Gap) { Change(FExponentScalingsGap, LimitedLength(Gap)); }
    int GetValuesTicksGap() const { return FValuesTicksGap; }
    void SetValuesTicksGap(int Gap) { Change(FValuesTicksGap, LimitedLength(Gap)); }
    /// Positive ticks point outwards, to the labels; negative ones into the drawing world.
    int GetMajorTickLength() const { return FMajorTickLength; }
    void SetMajorTickLength(int Length) { Change(FMajorTickLength, LimitedLength(Length)); }
    int GetTickLength() const { return FTickLength; }
    void SetTickLength(int Length) { Change(FTickLength, LimitedLength(Length)); }
    TColor GetAxisColor() const { return FAxisColor; }
    void SetAxisColor(TColor Color) { Change(FAxisColor, Color); }
    TColor GetTickColor() const { return FTickColor; }
    void SetTickColor(TColor Color) { Change(FTickColor, Color); }
    TColor GetMajorTickColor() const { return FMajorTickColor; }
    void SetMajorTickColor(TColor Color) { Change(FMajorTickColor, Color); }
    int GetAxisThicknes() const { return FAxisThicknes; } // the spelling is part of the interface
    void SetAxisThicknes(int Width) { Change(FAxisThicknes, LimitedLength(std::max(0, Width))); }
    int GetTickThicknes() const { return FTickThicknes; }
    void SetTickThicknes(int Width) { Change(FTickThicknes, LimitedLength(std::max(0, Width))); }
    int GetMajorTickThicknes() const { return FMajorTickThicknes; }
    void SetMajorTickThicknes(int Width) { Change(FMajorTickThicknes, LimitedLength(std::max(0, Width))); }
    TFont& GetCaptionFont() { return FCaptionFont; }
    const TFont& GetCaptionFont() const { return FCaptionFont; }
    void SetCaptionFont(TFont* Font) { FCaptionFont.Assign(*Font); }
    TFont& GetAxisCaptionFont() { return FCaptionFont; }
    TFont& GetAxisFont() { return GetFont(); }

    // Caption. The text shown is the user's or an automatic one.
    TKxCaption GetCaption() const { return GetText(); }
    void SetCaption(const AnsiString& Caption) { SetText(Caption); }
    const AnsiString& GetUserCaption() const { return FUserCaption; }
    void SetUserCaption(const AnsiString& Caption);
    const AnsiString& GetAutoCaption() const { return FAutoCaption; }
    void SetAutoCaption(const AnsiString& Caption);
    bool GetDoUserCaption() const { return FDoUserCaption; }
    /// Switching it on shows the user's caption; switching it off keeps the text until the next
    /// SetAutoCaption.
    void SetDoUserCaption(bool DoUser);
    /// The label that shows the caption: owned by the axis, a child of the axis's parent.
    const TKxLabel& GetCaptionLabel() const { return *FCaptionLabel; }

    void SaveOutfit(const AnsiString& Section, TKxIniList& Ini) const;
    void LoadOutfit(const AnsiString& Section, TKxIniList& Ini);

    void SetParent(TWinControl* Parent) override;
    void SetBounds(int Left, int Top, int Width, int Height) override;
    /// Asks for a new frame of the whole graph: an axis moves what stands beside it.
    void Invalidate() override;
    bool NeedsSettling() const override;
    void Settle() override;

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    void Paint() override;
    void CMFontChanged() override;
    void CMTextChanged() override;
    void CMVisibleChanged() override;
    void Notification(TComponent* Component, TOperation Operation) override;

private:
    template <class T>
    void Change(T& Field, T Value) {
        if (Field == Value) return;
        Field = Value;
        MarkChanged();
    }
    void MarkChanged();
    /// The ends of a view as they were set or zoomed to, or as the data made them.
    struct TView {
        double Start = 0, Stop = 100;
        bool IsRound = false; ///< they were shown so: what is not fixed is not rounded again
    };
    void SetEnd(double TView::*End, double Shown, double Value);
    void SetEndKind(TKxAxEnd& Kind, TKxAxEnd Value, double TView::*End, double Shown);
    bool IsZoomed() const { return FZoomIndex > 1; }
    TView& ZoomedView() { return FZooms[static_cast<std::size_t>(FZoomIndex - 2)]; }
    void ShowView(const TView& View);
    TView ShownUnzoomed() const;
    bool FollowValues(TView& View) const;
    void ForgetZooms();
    void TakeEnds(const TKxScaleInput& Input);
    TKxAxisHost* GetAxisHost() const { return GetParent() ? FHost : nullptr; }
    TKxScaleInput InputOf(const TView& View) const;
    void LayOutAlone();
    void UpdateCaptionLabel();
    void PlaceCaptionLabel();
    void DressCaptionLabel();
    void MeasureLabels();
    void MeasureReach();
    void AddLabelRec(const std::string& Text);
    void PlaceLabels();
    void ThinOutLabels();
    void PlaceExponentLabel();
    int LabelExtentAcross() const;
    int CaptionExtentAcross() const;
    void DrawTicks(bool Major, TColor Color, int Width, int Length);
    void DrawAxisLine();
    TPoint PointAt(int Offset, int Outwards) const;
    TPoint PlaceOutwards(int Along, int Outwards, TSize Size) const;

    TKxAxisHost* FHost =
        nullptr; // the parent, if it is one; looked up once, for every live value asks for it
    TRange FRange, FValuesRange;
    TRangeList FValuesRangeList;
    TView FUnzoomed;
    std::vector<TView> FZooms;
    int FZoomIndex = 0;
    TKxSide FSide;
    TKxAxScaling FScaling = AxNormal;
    TKxAxEnd FStartEnd = AxAutoRange, FStopEnd = AxAutoRange;
    double FTickPart = 0.05, FMajorTickPart = 0.1, FLabelPart = 0.5;
    int FMaxExpForScaleExp = 3, FMinExpForScaleExp = -2;
    TKxAxis* FMasterAxis = nullptr;
    TKxScaleEnds FEnds;
    TKxAxisMap FMap;
    TKxTicks FTicks;
    std::vector<TKxCaptionRec> FLabelRecs;
    std::vector<std::pair<std::string, int>> FLabelWidths; // of the labels measured last, in order
    int FMaxLabelWidth = 0, FMaxLabelHeight = 0, FStartReach = 0, FStopReach = 0, FCaptionFrom = 0;
    TPoint FAxisOrigin;
    int FBorderCaptionGap = 0, FCaptionScalingsGap = 0, FScalingsTicksGap = 1, FExponentScalingsGap = 10,
        FValuesTicksGap = 0;
    int FMajorTickLength = 10, FTickLength = 6;
    TColor FAxisColor = clBlack, FTickColor = clBlack, FMajorTickColor = clBlack;
    int FAxisThicknes = 0, FTickThicknes = 0, FMajorTickThicknes = 0;
    TFont FCaptionFont;
    AnsiString FUserCaption, FAutoCaption;
    std::unique_ptr<TKxLabel> FCaptionLabel;
    bool FTwisted = false, FAutoTicks = true, FIsSlaveAxis = false, FChanged = true, FNeedsTicks = true;
    bool FFirstEndTick = true, FLastEndTick = true;
    bool FShowCaption = false, FShowScaleLabels = true, FAutoSize = true, FTransparent = true,
         FThinLabels = false, FDoUserCaption = false;
};

} // namespace kx
