#pragma once
// The base of controls: a component with a place on a parent, that paints itself and takes the mouse.

#include <kxgraph/platform/controls/dragging.h>
#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/objects/typenames.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kx {

class TWinControl;
class TPopupMenu;

enum TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient };
template <>
inline constexpr auto CEnumNames<TAlign> = std::to_array<std::string_view>({"alNone", "alTop", "alBottom",
                                                                            "alLeft", "alRight", "alClient"});
enum TAlignment { taLeftJustify, taRightJustify, taCenter };
template <>
inline constexpr auto
    CEnumNames<TAlignment> = std::to_array<std::string_view>({"taLeftJustify", "taRightJustify", "taCenter"});

class TControl;
using TNotifyEvent = TEvent<TControl*>;
using TMouseEvent = TEvent<TControl*, TMouseButton, TShiftState, int, int>;
using TMouseMoveEvent = TEvent<TControl*, TShiftState, int, int>;
/// The last parameter: whether the control took it; what it leaves goes to its parent.
using TMouseWheelEvent = TEvent<TControl*, const TWheelTurn&, TShiftState, int, int, bool&>;
using TKeyEvent = TEvent<TControl*, const TKeyStroke&, bool&>;

/// A component with bounds (pixels of the parent's client area), a parent that shows it and does not own it,
/// a text, a font and a colour. A parent that is destroyed leaves its children without parent.
class TControl : public TComponent {
public:
    explicit TControl(TComponent* Owner);
    ~TControl() override;

    TWinControl* GetParent() const { return FParent; }
    /// Moves the control to the top of Parent's children; null takes it away. Raises Exception ("A control
    /// cannot be its own parent") when Parent is this control or lies in it.
    virtual void SetParent(TWinControl* Parent);
    TComponent* GetParentComponent() const override;
    bool HasParentComponent() const override { return true; }
    void SetParentComponent(TComponent* Parent) override;

    int GetLeft() const { return FBounds.Left; }
    int GetTop() const { return FBounds.Top; }
    int GetWidth() const { return FBounds.Width(); }
    int GetHeight() const { return FBounds.Height(); }
    void SetLeft(int Left) { SetBounds(Left, GetTop(), GetWidth(), GetHeight()); }
    void SetTop(int Top) { SetBounds(GetLeft(), Top, GetWidth(), GetHeight()); }
    void SetWidth(int Width) { SetBounds(GetLeft(), GetTop(), Width, GetHeight()); }
    void SetHeight(int Height) { SetBounds(GetLeft(), GetTop(), GetWidth(), Height); }
    TRect GetBoundsRect() const { return FBounds; }
    TRect GetClientRect() const { return {0, 0, GetWidth(), GetHeight()}; }
    /// The one setter of the bounds. Negative sizes count as 0; places saturate at +-CMaxPixel. Invalidates
    /// the old and the new place when anything changes.
    virtual void SetBounds(int Left, int Top, int Width, int Height);
    TAlign GetAlign() const { return FAlign; }
    void SetAlign(TAlign Align);

    bool GetVisible() const { return FVisible; }
    void SetVisible(bool Visible);
    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool Enabled);
    TColor GetColor() const { return FColor; }
    /// Ends ParentColor.
    void SetColor(TColor Color);
    bool GetParentColor() const { return FParentColor; }
    void SetParentColor(bool ParentColor);
    /// Changing it ends ParentFont.
    TFont& GetFont() { return FFont; }
    const TFont& GetFont() const { return FFont; }
    void SetFont(const TFont& Font) { FFont.Assign(Font); }
    bool GetParentFont() const { return FParentFont; }
    void SetParentFont(bool ParentFont);
    const std::string& GetText() const { return FText; }
    void SetText(const std::string& Text);
    TCursor GetCursor() const { return FCursor; }
    void SetCursor(TCursor Cursor) { FCursor = Cursor; }
    const std::string& GetHint() const { return FHint; }
    void SetHint(const std::string& Hint) { FHint = Hint; }
    bool GetShowHint() const { return FShowHint; }
    /// Ends ParentShowHint.
    void SetShowHint(bool ShowHint);
    bool GetParentShowHint() const { return FParentShowHint; }
    void SetParentShowHint(bool ParentShowHint);
    /// What the release of the right button over the control, or over a child without one of its own, pops
    /// up in the place of its ContextMenu; not owned.
    TPopupMenu* GetPopupMenu() const { return FPopupMenu; }
    void SetPopupMenu(TPopupMenu* Menu);
    TDragMode GetDragMode() const { return FDragMode; }
    void SetDragMode(TDragMode Mode) { FDragMode = Mode; }
    /// The cursor while the control is dragged over one that accepts it; over others it is crNoDrop.
    TCursor GetDragCursor() const { return FDragCursor; }
    void SetDragCursor(TCursor Cursor) { FDragCursor = Cursor; }

    /// Asks for a paint by the next frame. Costs nothing where that was asked for already.
    virtual void Invalidate();
    /// Asks for a paint of a rectangle in this control's pixels.
    void InvalidateRect(const TRect& Rect);
    /// Whether all of the control is to be painted by the next frame, so that Invalidate has nothing to ask.
    bool AwaitsPaint() const { return FRequested == FRequests; }
    /// Brings the control to the top of its kind among its siblings, or to the bottom.
    void BringToFront();
    void SendToBack();
    /// Pos of this control in pixels of the topmost parent.
    TPoint ClientToRoot(TPoint Pos) const;
    TPoint RootToClient(TPoint Pos) const;
    /// Shows a menu at a point of this control's pixels in the window that shows the control, if any does.
    void ShowMenu(THostMenu Menu, TPoint Pos);
    /// Whether the mouse goes to this control until the button is up.
    void SetMouseCapture(bool Capture);
    bool GetMouseCapture() const;
    /// Starts a drag from this control: the mouse is the drag's until the left button is released. A control
    /// that was pressed before gets its release now, at the place of the press, and no click. Does nothing in
    /// a window where something is dragged already, and without parent.
    void BeginDrag();
    /// Whether this control is being dragged.
    bool IsDragging() const;

    TNotifyEvent OnClick, OnDblClick;
    TMouseEvent OnMouseDown, OnMouseUp;
    TMouseMoveEvent OnMouseMove;
    TMouseWheelEvent OnMouseWheel;
    /// The mouse comes over the control itself, not over a child of it, and goes from it.
    TNotifyEvent OnMouseEnter, OnMouseLeave;
    /// Of the dragged control: the start, and the end with the control that took the drop (null: none did, or
    /// it has gone since). One that leaves its window meanwhile ends the drag without OnEndDrag.
    TStartDragEvent OnStartDrag;
    TEndDragEvent OnEndDrag;
    /// Of the control under the mouse, with the dragged one: whether it accepts it (false without a handler,
    /// true at the handler's start; the answer to dsDragLeave does not matter), and the drop that it
    /// accepted.
    TDragOverEvent OnDragOver;
    TDragDropEvent OnDragDrop;

    /// What the control still has to compute before a frame may be painted. Settle is called while
    /// NeedsSettling answers true, children included, a bounded number of rounds for the whole tree.
    virtual bool NeedsSettling() const { return false; }
    virtual void Settle() {}
    /// Adds what settling decides of the control; the bounds here. When the same numbers come back, settling
    /// goes round in a circle and StopSettling is called: the control takes things as they are and asks no
    /// more.
    virtual void AddSettledState(std::vector<double>& State) const;
    virtual void StopSettling() {}
    /// What the control tells those who do not see it: here its text and hint, and what its visible children
    /// tell.
    virtual TAccessiblePart Accessible() const;

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    friend class TWinControl;
    friend void PaintTree(TWinControl&, TCanvasDevice&, const TRect&);

    /// Called after the change that the name tells. Overrides call the inherited one.
    virtual void CMFontChanged();
    virtual void CMTextChanged();
    virtual void CMColorChanged();
    virtual void CMVisibleChanged();
    virtual void CMEnabledChanged();
    virtual void CMShowHintChanged();
    void Notification(TComponent* Component, TOperation Operation) override;
    /// The mouse, in this control's pixels. The inherited ones call the events.
    virtual void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
    virtual void MouseMove(TShiftState Shift, int X, int Y);
    virtual void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y);
    virtual void Click();
    virtual void DblClick();
    virtual void MouseEnter();
    virtual void MouseLeave();
    /// Whether the control took the turn; its parent is asked next where it did not.
    virtual bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y);
    /// The menu that the control has by itself; empty: its parent is asked.
    virtual THostMenu ContextMenu() { return {}; }
    /// What a paint may touch, in this control's pixels: more than its client area where it lifts its clip.
    virtual TRect GetPaintedRect() const { return GetClientRect(); }
    /// Whether a paint covers every pixel of the control, whatever was there before.
    virtual bool IsOpaque() const { return false; }
    /// Paints on Canvas, whose origin is this control's top left and whose clip is its visible part.
    virtual void PaintOn(TCanvas& Canvas);
    /// Ends a round of requests for paints. A control that has asked for all of itself in the present round
    /// asks no more in it, for its window is going to paint all that shows of it, or nothing does. So a round
    /// ends wherever that may cease to be true: a window takes what it was asked for, or loses it, or comes
    /// or goes; a control changes its place, its parent or its visibility. One round serves all windows: one
    /// that ends too early costs a request, one that goes on too long a frame.
    static void EndRequests() { ++FRequests; }
    /// The bounds that SetBounds makes of these numbers.
    static TRect LimitedBounds(int Left, int Top, int Width, int Height);

private:
    [[gnu::noinline]] void RequestPaint(); // apart, for most requests are no first ones
    void FontChanged();
    void TakeParentFont();
    void TakeParentColor();
    void TakeParentShowHint();
    void StoreShowHint(bool ShowHint);
    TWinControl* Topmost();
    const TWinControl* Topmost() const;
    void PrepareDrag(TPoint Pos);
    bool PopUpMenuAt(TPoint Pos);

    static inline std::uint64_t FRequests = 1; // the number of the round
    std::uint64_t FRequested = 0;              // that of the last request for all of the control
    TWinControl* FParent = nullptr;
    TOrdered<TControl> FPlace{this}; // among the parent's controls
    TRect FBounds;
    TAlign FAlign = alNone;
    bool FVisible = true;
    bool FEnabled = true;
    TColor FColor = clBtnFace;
    bool FParentColor = true;
    TFont FFont;
    bool FParentFont = true;
    bool FTakingParentFont = false;
    std::string FText;
    TCursor FCursor = crDefault;
    std::string FHint;
    bool FShowHint = false;
    bool FParentShowHint = true;
    TDragMode FDragMode = dmManual;
    TCursor FDragCursor = crDrag;
    TPopupMenu* FPopupMenu = nullptr;
};

} // namespace kx
