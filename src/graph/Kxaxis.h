#pragma once
// One axis of a graph: a control over values. The visible range and how it follows the data lives in
// Kxaxisrange, the look in Kxaxislook, ticks and labels in Kxticks and Kxaxislabels, the map from values to
// pixels in Kxscale; here they are put together, with the caption and the outfit.

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxaxislabels.h>
#include <kxgraph/graph/Kxaxisline.h>
#include <kxgraph/graph/Kxaxislook.h>
#include <kxgraph/graph/Kxaxisrange.h>
#include <kxgraph/graph/Kxgraphlayout.h>
#include <kxgraph/graph/Kxlabelling.h>
#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/graph/Kxside.h>
#include <kxgraph/graph/Kxticks.h>
#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/controls/controls.h>

#include <memory>
#include <span>
#include <string>
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

    // Range and scaling.
    /// The end that is shown; until the next frame the one that was set.
    double GetStart() const { return FRange.Shown().GetStart(); }
    /// Sets the end of the view that is shown and of the unzoomed one. An automatic end stays there until the
    /// data change.
    void SetStart(double Start) { MarkChangedIf(FRange.SetStart(Start)); }
    double GetStop() const { return FRange.Shown().GetStop(); }
    void SetStop(double Stop) { MarkChangedIf(FRange.SetStop(Stop)); }
    /// What an outfit keeps of the unzoomed view: a fixed end as it was set, any other one as it is shown.
    double GetKeptStart() const { return FRange.GetKeptStart(); }
    double GetKeptStop() const { return FRange.GetKeptStop(); }
    TKxAxisPos GetPosition() const { return FLine.Side.Position(); }
    /// Bottom and top make the axis horizontal, left and right vertical; free floating keeps the orientation.
    void SetPosition(TKxAxisPos Position) { Change(FLine.Side, FLine.Side.MovedTo(Position)); }
    /// The position with its directions.
    TKxSide GetSide() const { return FLine.Side; }
    TKxAxisOrientation GetOrientation() const { return FLine.Side.Orientation(); }
    bool IsHorizontal() const { return FLine.Side.IsHorizontal(); }
    TKxAxScaling GetScaling() const { return FRange.Rules.Scaling; }
    /// Under the scaling that is set, which GetMap() has after the next layout.
    bool HasPlace(double Value) const { return kx::HasPlace(GetScaling(), Value); }
    /// Raises EPropertyError for a logarithmic one of dates or categories.
    void SetScaling(TKxAxScaling Scaling);
    const TKxLabelling& GetLabelling() const { return FRange.Labelling(); }
    TKxLabelKind GetLabelKind() const { return FRange.Labelling().Kind; }
    /// Raises EPropertyError for dates and categories on a logarithmic axis.
    void SetLabelKind(TKxLabelKind Kind);
    /// Rich captions of 1, 2, 3, ..., shown by labels of categories. Those that would touch are turned, or
    /// thinned out where that is not enough; one that would take more than a third of the graph is cut off.
    const TKxCategories& GetCategories() const { return FRange.Labelling().Categories; }
    void SetCategories(const TKxCategories& Categories);
    /// In a line, see JoinCategories.
    AnsiString GetCategoriesText() const { return JoinCategories(GetCategories()); }
    void SetCategoriesText(const AnsiString& Line) { SetCategories(SplitCategories(Line)); }
    /// Dates are those of UTC without it. Asked for many moments in each layout.
    const TKxZoneOffset& GetOnZoneOffset() const { return FRange.Labelling().ZoneOffset; }
    void SetOnZoneOffset(const TKxZoneOffset& Offset);
    /// A value as the axis shows it, with what a pixel tells: a number, a date, a category.
    AnsiString GetValueText(double Value) const;
    bool GetTwisted() const { return FTwisted; }
    void SetTwisted(bool Twisted) { Change(FTwisted, Twisted); }
    TKxAxEnd GetStartEnd() const { return FRange.Rules.StartEnd; }
    /// For an end that becomes fixed, what is shown counts as set.
    void SetStartEnd(TKxAxEnd StartEnd) { MarkChangedIf(FRange.SetStartEnd(StartEnd)); }
    TKxAxEnd GetStopEnd() const { return FRange.Rules.StopEnd; }
    void SetStopEnd(TKxAxEnd StopEnd) { MarkChangedIf(FRange.SetStopEnd(StopEnd)); }
    bool GetAutoTicks() const { return FRange.Rules.AutoTicks; }
    void SetAutoTicks(bool AutoTicks) { Change(FRange.Rules.AutoTicks, AutoTicks); }
    bool IsNotAutoTicks() const { return !FRange.Rules.AutoTicks; }
    /// Steps in units of 10 to the power SpanExponent.
    double GetTickPart() const { return FRange.Rules.TickPart; }
    void SetTickPart(double Part) { Change(FRange.Rules.TickPart, Part); }
    double GetMajorTickPart() const { return FRange.Rules.MajorTickPart; }
    void SetMajorTickPart(double Part) { Change(FRange.Rules.MajorTickPart, Part); }
    double GetLabelPart() const { return FRange.Rules.LabelPart; }
    void SetLabelPart(double Part) { Change(FRange.Rules.LabelPart, Part); }
    int GetMaxExpForScaleExp() const { return FRange.Rules.MaxExpForScaleExp; }
    void SetMaxExpForScale(int Exponent) { Change(FRange.Rules.MaxExpForScaleExp, Exponent); }
    int GetMinExpForScaleExp() const { return FRange.Rules.MinExpForScaleExp; }
    void SetMinExpForScale(int Exponent) { Change(FRange.Rules.MinExpForScaleExp, Exponent); }
    bool GetIsSlaveAxis() const { return FIsSlaveAxis; }
    void SetIsSlave(bool IsSlave);
    TKxAxis* GetMasterAxis() const { return FMasterAxis; }
    void SetMasterAxis(TKxAxis* Master);
    /// The axis of which this one shows range, direction and ticks, without labels, such as at the other side
    /// of the drawing world; it is zoomed with that axis alone. Null for an axis of its own. Series do not
    /// stand on mirrors. Raises EPropertyError for an axis that mirrors this one.
    TKxAxis* GetMirrorOf() const { return FMirrorOf; }
    void SetMirrorOf(TKxAxis* Axis);
    /// The axis itself, or that at the end of a chain of mirrors.
    const TKxAxis& GetOriginal() const { return FMirrorOf ? FMirrorOf->GetOriginal() : *this; }
    /// The axis whose range this one takes in a layout: the mirrored one, or a slave's master; else null.
    TKxAxis* GetFollowed() const { return FMirrorOf ? FMirrorOf : FIsSlaveAxis ? FMasterAxis : nullptr; }

    /// The visible ends, owned. SetRange and SetValuesRange copy the ends of another range.
    const TRange* GetRange() const { return &FRange.Shown(); }
    void SetRange(const TRange* Range);
    TRange* GetValuesRange() { return &FRange.Values(); }
    void SetValuesRange(const TRange* Range);
    /// The extents of the series drawn against this axis; the series own them.
    TRangeList& GetValuesRangeList() { return FRange.Extents(); }
    /// Unites the extents and moves the ends that follow the data: those of the unzoomed view, whether it is
    /// shown or not. The handler of every range in the list; null when one has come or gone. Does not look at
    /// the others.
    void ValuesRangeChanged(TRange* Range) { MarkChangedIf(FRange.Follow(Range)); }
    /// Recomputes from all extents and forgets the zooms.
    void RedoRanges();

    // Zoom stack.
    void ZoomIn(double Start, double Stop, TKxZoomGesture Gesture = NewZoomGesture());
    /// Shows the view before; from the unzoomed one it goes round to the newest.
    void ZoomBack() { MarkChangedIf(!FMirrorOf && FRange.ZoomBack()); }
    bool CanZoomBack() const { return FRange.CanZoomBack(); }
    /// A view made by hand, see TKxAxisRange.
    void ZoomAlong(double Start, double Stop, TKxZoomGesture Gesture);
    void UndoZoom(TKxZoomGesture Gesture) { MarkChangedIf(FRange.UndoZoom(Gesture)); }
    /// Shows the unzoomed view; ZoomBack shows the newest one again.
    void Unzoom() { MarkChangedIf(FRange.Unzoom()); }
    /// That of the view that is shown; 0 for the unzoomed one.
    TKxZoomGesture GetZoomGesture() const { return FRange.GetZoomGesture(); }
    /// Counted from 1, the unzoomed view; 0 as long as nothing was zoomed.
    int GetZoomIndex() const { return FRange.GetZoomIndex(); }

    // Computation.
    /// Makes Range presentable: automatic ends, tick steps, exponents.
    void CalculateEnds();
    /// The same for one that follows another: ends, scaling, labels and automatic caption are its master's,
    /// whatever its own ends are; of a mirror all that ends are made of.
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
    TPoint GetAxisOrigin() const { return FLine.Origin; }
    int GetTickCount() const { return FTicks.Positions.Length(); }
    /// Pixel offsets from the axis start (left; bottom of a vertical axis).
    const TKxIntegerArray& GetTickPositions() const { return FTicks.Positions; }
    /// The same before they are rounded.
    const TKxRealArray& GetTickPlaces() const { return FTicks.Places; }
    const TKxBooleanArray& GetTickIsMajor() const { return FTicks.IsMajor; }
    /// The labels that are shown.
    const std::vector<TKxTickLabel>& GetTickLabels() const { return FTicks.Labels; }
    /// Texts, fonts and places of all their lines, the exponent label last.
    const std::vector<TKxCaptionRec>& GetLabelRecs() const { return FLabels.Recs(); }
    int GetSpanExponent() const { return FRange.Ends().SpanExponent; }
    int GetScaleExponent() const { return FRange.Ends().ScaleExponent; }
    int GetLabelDigits() const { return FRange.Ends().LabelDigits; }
    bool GetUseScaleExponent() const { return FRange.Ends().UseScaleExponent; }
    bool GetEndsCorrected() const { return FRange.Ends().EndsCorrected; }
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
    bool GetShowCaption() const { return FLook.ShowCaption; }
    void SetShowCaption(bool Show);
    bool GetShowScaleLabels() const { return FLook.ShowScaleLabels; }
    void SetShowScaleLabels(bool Show) { Change(FLook.ShowScaleLabels, Show); }
    bool GetAutoSize() const { return FLook.AutoSize; }
    void SetAutosize(bool AutoSize) { Change(FLook.AutoSize, AutoSize); }
    bool GetTransparent() const { return FLook.Transparent; }
    void SetTransparent(bool Transparent) { Change(FLook.Transparent, Transparent); }
    /// Leaves out every second (third, ...) label where labels would touch; the room that the axis takes
    /// counts them all. Off by default.
    bool GetThinLabels() const { return FLook.ThinLabels; }
    void SetThinLabels(bool Thin) { Change(FLook.ThinLabels, Thin); }
    // Lengths in pixels; beyond CMostLength they count as that.
    int GetBorderCaptionGap() const { return FLook.BorderCaptionGap; }
    void SetBorderCaptionGap(int Gap) { Change(FLook.BorderCaptionGap, LimitedLength(Gap)); }
    int GetCaptionScalingsGap() const { return FLook.CaptionScalingsGap; }
    void SetCaptionScalingsGap(int Gap) { Change(FLook.CaptionScalingsGap, LimitedLength(Gap)); }
    int GetScalingsTicksGap() const { return FLook.ScalingsTicksGap; }
    void SetScalingsTicksGap(int Gap) { Change(FLook.ScalingsTicksGap, LimitedLength(Gap)); }
    int GetExponentScalingsGap() const { return FLook.ExponentScalingsGap; }
    void SetExponentScalingsGap(int Gap) { Change(FLook.ExponentScalingsGap, LimitedLength(Gap)); }
    int GetValuesTicksGap() const { return FLook.ValuesTicksGap; }
    void SetValuesTicksGap(int Gap) { Change(FLook.ValuesTicksGap, LimitedLength(Gap)); }
    /// Positive ticks point outwards, to the labels; negative ones into the drawing world.
    int GetMajorTickLength() const { return FLook.MajorTickLength; }
    void SetMajorTickLength(int Length) { Change(FLook.MajorTickLength, LimitedLength(Length)); }
    int GetTickLength() const { return FLook.TickLength; }
    void SetTickLength(int Length) { Change(FLook.TickLength, LimitedLength(Length)); }
    TColor GetAxisColor() const { return FLook.AxisColor; }
    void SetAxisColor(TColor Color) { Change(FLook.AxisColor, Color); }
    TColor GetTickColor() const { return FLook.TickColor; }
    void SetTickColor(TColor Color) { Change(FLook.TickColor, Color); }
    TColor GetMajorTickColor() const { return FLook.MajorTickColor; }
    void SetMajorTickColor(TColor Color) { Change(FLook.MajorTickColor, Color); }
    int GetAxisThicknes() const { return FLook.AxisThicknes; } // the spelling is part of the interface
    void SetAxisThicknes(int Width) { Change(FLook.AxisThicknes, LimitedLength(std::max(0, Width))); }
    int GetTickThicknes() const { return FLook.TickThicknes; }
    void SetTickThicknes(int Width) { Change(FLook.TickThicknes, LimitedLength(std::max(0, Width))); }
    int GetMajorTickThicknes() const { return FLook.MajorTickThicknes; }
    void SetMajorTickThicknes(int Width) {
        Change(FLook.MajorTickThicknes, LimitedLength(std::max(0, Width)));
    }
    TFont& GetCaptionFont() { return FLook.CaptionFont; }
    const TFont& GetCaptionFont() const { return FLook.CaptionFont; }
    void SetCaptionFont(TFont* Font) { FLook.CaptionFont.Assign(*Font); }
    TFont& GetAxisCaptionFont() { return FLook.CaptionFont; }
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
    bool HearsOfAll() const override { return IsBeyond<TKxAxis>(); }
    void Paint() override;
    TRect GetPaintedRect() const override;
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
    void MarkChangedIf(bool Changed) {
        if (Changed) MarkChanged();
    }
    TKxAxisHost* GetAxisHost() const { return GetParent() ? FHost : nullptr; }
    void LayOutAlone();
    void MakeMap();
    void MakeTicks();
    void ArrangeLabels();
    void MirrorTicks();
    void SetLabelling(TKxLabelling Labelling);
    void LoadScaling(TKxAxScaling Scaling) { MarkChangedIf(FRange.SetScaling(Scaling)); }
    void PlaceLabels();
    int CaptionExtentAcross() const;
    void UpdateCaptionLabel();
    void PlaceCaptionLabel();
    void DressCaptionLabel();
    void DrawTicks(bool Major, TColor Color, int Width, int Length);
    void DrawAxisLine();

    TKxAxisHost* FHost =
        nullptr; // the parent, if it is one; looked up once, for every live value asks for it
    TKxAxis* FMasterAxis = nullptr;
    TKxAxis* FMirrorOf = nullptr;
    TKxAxisRange FRange;
    TKxAxisLook FLook;
    TKxAxisLine FLine;
    TKxAxisMap FMap;
    TKxTicks FTicks;
    TKxAxisLabels FLabels;
    AnsiString FUserCaption, FAutoCaption;
    std::unique_ptr<TKxLabel> FCaptionLabel;
    bool FTwisted = false, FIsSlaveAxis = false, FDoUserCaption = false;
    bool FChanged = true, FNeedsTicks = true, FFirstEndTick = true, FLastEndTick = true;
};

} // namespace kx
