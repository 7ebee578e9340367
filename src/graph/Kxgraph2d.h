#pragma once
// The graph control: coordinates axes and series, owns the drawing world that the series are drawn on, the
// frame and grid lines and the title.

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/graph/Kxinteraction.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/series/Kxdraw.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kx {

class TKx2DGraph;
class TKxGraphMouse;

/// The series of a drawing world in painting order; measured series only.
class TKxSeriesList : public TList<TKxGraphSeries> {};

/// The surface that the series are drawn on, AxisLength + 1 pixels wide and high; its pixels are the axes'
/// positions. Owned by its graph. With AutoZoom, dragging a rectangle with the left button zooms the graph.
/// Its events carry its own pixels, which FindPoint of series takes; then the graph's events are called with
/// those of the graph.
class TKxDrawingWorld : public TGraphicControl {
public:
    /// Raises Exception "Component must be owned by TKx2DGraph" for any other owner.
    explicit TKxDrawingWorld(TComponent* Owner);

    TKx2DGraph& GetGraph() const { return *FGraph; }
    TKxSeriesList& GetSeriesList() { return FSeriesList; }
    /// Sorts the series into the order of the components of their owner.
    void ReorderSeriesList();
    TColor GetDataColor() const { return FDataColor; }
    void SetDataColor(TColor Color);
    bool GetAutoZoom() const { return FAutoZoom; }
    /// Switching it off ends a drag.
    void SetAutoZoom(bool AutoZoom);
    /// Whether a zoom rectangle is being dragged.
    bool IsZooming() const { return FDragging; }
    // Markers: lines across the X axis at the start and the stop of a calculated series that is drawn here,
    // which the mouse drags. The calculation follows at once; meanwhile AutoZoom pauses. An end that was
    // moved is fixed; a double click on its marker makes it automatic again, Escape takes a drag back. With
    // the focus on the graph Page Up takes the start and Page Down the stop; then arrows move it by a pixel
    // (Shift: ten), Delete makes it automatic, Return keeps it where it is, Escape takes it back.
    /// Raises EPropertyError for a series that calculates nothing. Null hides them.
    void ShowStartStopMarkers(TKxGraphSeries* Series);
    void HideStartStopMarkers() { ShowStartStopMarkers(nullptr); }
    /// The series that has markers; null for none, and when it has gone.
    TKxGraphSeries* GetMarkedSeries() const;
    /// Whether (X, Y), in pixels of the drawing world, is so near to a marker that a press takes it.
    bool NearStart(int X, int Y) const;
    bool NearStop(int X, int Y) const;

    /// Pixels between the drawing world's corner and the axes' position 0.
    int GetXOrigin() const { return FXOrigin; }
    int GetYOrigin() const { return FYOrigin; }
    /// Asks for a frame of the whole graph: symbols and bars reach over the border.
    void Invalidate() override;
    /// The same for a part, in pixels of the drawing world, which may reach over the border.
    void InvalidatePart(const TRect& Part);

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxDrawingWorld>(); }
    void Paint() override;
    /// Paints the marker of the start, or of the stop, of the series that has them.
    virtual void PaintMarker(TCanvas& Canvas, bool Stop);
    TRect GetPaintedRect() const override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseLeave() override;
    void Click() override;
    void DblClick() override;

private:
    friend class TKxGraphMouse;
    TRect DragRect() const;
    void InvalidateDragRect();

    TKx2DGraph* FGraph;
    TKxSeriesList FSeriesList;
    TColor FDataColor = clBtnFace;
    bool FAutoZoom = false, FDragging = false;
    TPoint FAnchor, FCurrent;
    int FXOrigin = 0, FYOrigin = 0;
};

/// A two-dimensional graph. Its axes are components of the form whose parent is the graph, its series
/// components of the form whose X axis stands on it; it owns neither. Initially 600 x 400 pixels.
class TKx2DGraph : public TCustomPanel, public TKxAxisHost, public TKxStyleOwner {
public:
    explicit TKx2DGraph(TComponent* Owner);
    ~TKx2DGraph() override;
    /// The graphs among Owner's components, in their order. Does not walk the components.
    static std::vector<TKx2DGraph*> OwnedBy(const TComponent& Owner);

    // Properties.
    bool GetAutoZoom() const { return FWorld->GetAutoZoom(); }
    void SetAutoZoom(bool AutoZoom) { FWorld->SetAutoZoom(AutoZoom); }
    /// Follows the graph's Font until it is changed itself.
    TFont& GetTitleFont() { return FTitleFont; }
    const TFont& GetTitleFont() const { return FTitleFont; }
    void SetTitleFont(TFont* Font) { FTitleFont.Assign(*Font); }
    TFont& GetGraphTitleFont() { return FTitleFont; }
    TFont& GetGraphFont() { return GetFont(); }
    TKxAxis* GetPrimaryXAxis() const { return FPrimaryXAxis; }
    /// Moves the axis to the bottom. Null only forgets the one before.
    void SetPrimaryXAxis(TKxAxis* Axis);
    TKxAxis* GetPrimaryYAxis() const { return FPrimaryYAxis; }
    /// Moves the axis to the left.
    void SetPrimaryYAxis(TKxAxis* Axis);
    TColor GetDataColor() const { return FWorld->GetDataColor(); }
    void SetDataColor(TColor Color);
    TKxLineStyle& GetFrameLine() { return FFrameLine; }
    TKxLineStyle& GetMajorGridX() { return FMajorGridX; }
    TKxLineStyle& GetMajorGridY() { return FMajorGridY; }
    TKxLineStyle& GetMinorGridX() { return FMinorGridX; }
    TKxLineStyle& GetMinorGridY() { return FMinorGridY; }
    bool GetZeroOrigin() const override { return FZeroOrigin; }
    void SetZeroOrigin(bool ZeroOrigin);
    /// Whether what lies behind the graph shows through: neither it nor its drawing world paints a ground.
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool Transparent);
    bool GetShowTitle() const { return FShowTitle; }
    void SetShowTitle(bool Show);
    TKxCaption GetCaption() const { return GetText(); }
    void SetCaption(const TKxCaption& Caption) { SetText(Caption); }
    /// Pixels kept free at each side whatever stands there. Default 0.
    int GetMargin() const { return FMargin; }
    void SetMargin(int Pixels);

    // Updating. A frame that is painted meanwhile repeats the one before, whatever has changed.
    void BeginUpdate();
    /// Asks for a frame when the last bracket closes and anything has to be settled or painted anew.
    /// Unbalanced calls are ignored.
    void EndUpdate();
    bool NotUpdating() const override { return FUpdateCount == 0; }
    /// Everything must be calculated anew before the next frame.
    void Modified() override;
    /// While it holds, axes keep the room that their labels have needed since it began: what is dragged must
    /// not twitch as labels come and go at the ends. The pan of the interaction does so.
    void HoldRoom(bool Hold);
    bool GetNeedsCalculate() const { return FNeedsCalculate; }
    /// Axes, then series: ends, ticks, places, screen points. Raises Exception "... has no parent: call
    /// SetParent(...)" for a primary axis that stands nowhere: it would be left out without a word.
    void Calculate();
    void LayOutAxes() override;

    /// Zooms every axis of this graph to the rectangle (drawing world pixels).
    void ZoomTo(const TRect& Rect);
    /// Takes the last zoom back on the axes that it had zoomed: a gesture of the user, ZoomTo, or ZoomIn of
    /// one axis. From the unzoomed view to the newest one.
    void ZoomBack();
    /// Shows the unzoomed view; ZoomBack shows the newest one again.
    void Unzoom();

    // What the user may do. All off by default; the keys need the focus, so what has keys makes the graph a
    // TabStop when it is switched on.
    /// The wheel zooms about the pointer: with Shift the horizontal axes, with Ctrl the vertical ones, over
    /// an axis that axis alone. A gesture is one entry of the zoom stacks (ZoomBack).
    bool GetWheelZoom() const { return FInteraction.WheelZoom; }
    void SetWheelZoom(bool On) { Allow(&TKxInteraction::WheelZoom, On); }
    /// The middle button, or Space and the left one, drag the view; Shift and Ctrl as with the wheel. Escape
    /// takes it back. Has keys.
    bool GetPanning() const { return FInteraction.Panning; }
    void SetPanning(bool On) { Allow(&TKxInteraction::Panning, On); }
    /// Backspace: ZoomBack; Home: Unzoom; + and -: zoom about the middle; arrows: a tenth of the view.
    bool GetZoomKeys() const { return FInteraction.ZoomKeys; }
    void SetZoomKeys(bool On) { Allow(&TKxInteraction::ZoomKeys, On); }
    /// A double click in the drawing world: Unzoom.
    bool GetUnzoomOnDblClick() const { return FInteraction.UnzoomOnDblClick; }
    void SetUnzoomOnDblClick(bool On) { Allow(&TKxInteraction::UnzoomOnDblClick, On); }
    /// The visible point next to the mouse, some pixels at most, tells its series, index and values as the
    /// axes show them. Return reads a point without the mouse; then left and right go to its neighbours in
    /// the view, up and down to another series, and Escape ends it. Has keys.
    bool GetReadout() const { return FInteraction.Readout; }
    void SetReadout(bool On) { Allow(&TKxInteraction::Readout, On); }
    /// Lines across the drawing world through the mouse, or through the point that keys have read out.
    bool GetCrossHair() const { return FInteraction.CrossHair; }
    void SetCrossHair(bool On) { Allow(&TKxInteraction::CrossHair, On); }
    /// A click on an entry of a legend of this graph hides the series, or shows it again; so do the digits 1
    /// to 9 with the first ones. Has keys.
    bool GetLegendPicking() const { return FInteraction.LegendPicking; }
    void SetLegendPicking(bool On) { Allow(&TKxInteraction::LegendPicking, On); }
    const TKxInteraction& GetInteraction() const { return FInteraction; }

    TKxDrawingWorld& GetDrawingWorld() const { return *FWorld; }
    TKxSeriesList& GetSeriesList() { return FWorld->GetSeriesList(); }
    /// The axes among the owner's components whose parent is this graph, in component order.
    std::vector<TKxAxis*> GetAxes() const;
    const TKxLabel& GetTitleLabel() const { return *FTitleLabel; }

    /// Companions are told of every change of the items until they are taken away or destroyed. They are
    /// given room beside the axes, together up to half of the drawing world, and kept with the outfit; both
    /// in the order of the components. The first one of a side stands next to the axes.
    void RegisterCompanion(TComponent* Component, TKxGraphCompanion* Companion);
    void UnregisterCompanion(TComponent* Component);
    void ItemsModified();

    /// A white ground is wanted in place of the system's button face: set while painting for metafile,
    /// clipboard and printer.
    bool GetWhiteBackground() const { return FWhiteBackground; }
    /// The ground that the series are drawn on.
    TColor GetDataGround() const;
    /// What hides the picture under unfilled symbols.
    TColor GetSymbolGround() const;

    /// Draws a settled frame into the graph's metafile, twice: in whole pixels and as on a smooth device.
    void PaintToMetafile();
    void CopyToClipboard();
    const TMetafile& GetMetafile() const { return FMetafile; }
    /// A settled frame on any device, with a white ground in place of the button face. Raises as Calculate.
    void PaintTo(TCanvasDevice& Device);

    /// The graph's outfit in Section, its axes' in Section.<name>, its series' in Section.Series(i), its
    /// companions' in Section.Legend, Section.Legend(2), ... A companion for which nothing was saved stays as
    /// it is; what was saved for more than there are is left alone.
    void SaveOutfit(const AnsiString& Section, TKxIniList& Ini);
    void LoadOutfit(const AnsiString& Section, TKxIniList& Ini);

    void SetBounds(int Left, int Top, int Width, int Height) override;
    bool NeedsSettling() const override;
    void Settle() override;
    void StopSettling() override;
    void AddSettledState(std::vector<double>& State) const override;
    /// Title, axes with their ranges, series, results and labels.
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKx2DGraph>(); }
    friend class TKxDrawingWorld;
    void Paint() override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    bool KeyUp(const TKeyStroke& Stroke) override;
    void Exit() override;
    bool PaintsChildren() const override { return NotUpdating(); }
    bool IsOpaque() const override { return PaintsGround(); }
    bool PaintsGround() const { return !FTransparent && !(FWhiteBackground && GetColor() == clBtnFace); }
    void CMFontChanged() override;
    void CMTextChanged() override;
    void CMColorChanged() override;
    void ControlsChanged(TControl* Child) override;
    void Notification(TComponent* Component, TOperation Operation) override;

private:
    struct TCompanion {
        TComponent* Component;
        TKxGraphCompanion* Companion;
    };
    struct TGivenRoom {
        TKxGraphCompanion* Companion;
        TKxCompanionRoom Room;
    };
    struct THeldRoom {
        std::vector<TKxAxis*> Axes; // compared only
        std::vector<TKxLayoutAxis> Demands;
    };
    std::vector<TKxGraphCompanion*> CompanionsInOrder() const;
    class TUpdateScope;
    void Allow(bool TKxInteraction::*What, bool On);
    std::vector<TKxAxis*> ZoomedAxes() const;
    void KeepPicture();
    void PaintKeptPicture();
    void CalculateSeries();
    std::vector<TGivenRoom> ReserveRoom(TKxLayoutInput& Input) const;
    void PlaceCompanions(const std::vector<TGivenRoom>& Rooms, const TKxLayoutInput& Input,
                         const TRect& Inside) const;
    void SaveCompanions(const AnsiString& Section, TKxIniList& Ini) const;
    void LoadCompanions(const AnsiString& Section, TKxIniList& Ini) const;
    void DemandPrimaryAxesStand() const;
    void PaintGround();
    void PaintGrid(const TKxAxis& Axis, const TKxLineStyle& Major, const TKxLineStyle& Minor);
    void PaintGridLines(const TKxAxis& Axis, const TKxLineStyle& Style, bool Major);
    void UpdateTitle();
    void PrepareAxes(const std::vector<TKxAxis*>& Axes);
    TKxLayoutInput EmptyLayout() const;
    bool TakeDemands(const std::vector<TKxAxis*>& Axes, std::vector<TKxLayoutAxis>& Demands) const;
    void LayOutVisible(const std::vector<TKxAxis*>& Axes);
    void ApplyLayout(const TKxLayout& Layout, const std::vector<TKxAxis*>& Axes);
    std::optional<TKxAxisMap> CrossedBy(const TKxAxis& Axis) const;
    void UpdateEndTicks(const std::vector<TKxAxis*>& Axes);
    void TitleFontChanged();

    TKxInteraction FInteraction;
    std::unique_ptr<TKxDrawingWorld> FWorld;
    std::unique_ptr<TKxGraphMouse> FMouse;
    std::optional<THeldRoom> FHeldRoom;
    std::unique_ptr<TKxLabel> FTitleLabel;
    TFont FTitleFont;
    TKxLineStyle FFrameLine, FMajorGridX, FMajorGridY, FMinorGridX, FMinorGridY;
    TMetafile FMetafile;
    TRecording FKeptPicture; // of the last frame, for the frames while updating
    std::vector<TCompanion> FCompanions;
    TKxAxis* FPrimaryXAxis = nullptr;
    TKxAxis* FPrimaryYAxis = nullptr;
    int FUpdateCount = 0, FMargin = 0;
    bool FLayingOut = false, FPainted = false, FPaintedXor = false, FPaintedSmooth = false, FKeeping = false,
         FRepeated = false;
    bool FNeedsCalculate = true, FZeroOrigin = false, FTransparent = false, FShowTitle = false,
         FWhiteBackground = false, FTitleFontOwn = false, FTakingTitleFont = false;
};

} // namespace kx
