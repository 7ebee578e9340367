#pragma once
// The seam to the windowing world: windows, mouse and keys, timers, text metrics, clipboard. The application
// starts on the headless host; another one replaces it.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/drawing/screentext.h>
#include <kxgraph/platform/host/accessible.h>
#include <kxgraph/platform/host/hostmenu.h>
#include <kxgraph/platform/host/input.h>
#include <kxgraph/platform/objects/typenames.h>

#include <memory>
#include <string>

namespace kx {

class TMetafile;

enum TCursor {
    crDefault,
    crArrow,
    crCross,
    crHourGlass,
    crSizeWE,
    crSizeNS,
    crHandPoint,
    crDrag,
    crNoDrop,
    crIBeam
};
template <>
inline constexpr auto CEnumNames<TCursor> =
    std::to_array<std::string_view>({"crDefault", "crArrow", "crCross", "crHourGlass", "crSizeWE", "crSizeNS",
                                     "crHandPoint", "crDrag", "crNoDrop", "crIBeam"});
enum TWindowState { wsNormal, wsMinimized, wsMaximized };
template <>
inline constexpr auto CEnumNames<TWindowState> = std::to_array<std::string_view>({"wsNormal", "wsMinimized",
                                                                                  "wsMaximized"});

/// A hint for a place of a window, and the area for which it holds.
struct THostHint {
    std::string Text; ///< empty: there is none
    TRect Area;
};

/// What a window calls up: its control paints, and is told of mouse, keys and size. Points are in pixels of
/// the client area. Wheel and keys answer whether anybody took them; others are the window's surroundings'.
class THostClient {
public:
    /// Brings everything up to date for a frame. What this makes invalid belongs to that frame: the host asks
    /// for it before it takes what is to be painted.
    virtual void HostSettle() = 0;
    virtual void HostPaint(TCanvasDevice& Device, const TRect& Dirty) = 0;
    virtual void HostMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) = 0;
    virtual bool HostWheel(const TWheelTurn& Turn, TShiftState Shift, TPoint Pos) = 0;
    /// The mouse has left the window.
    virtual void HostMouseLeft() = 0;
    virtual bool HostKey(const TKeyStroke& Stroke, bool Down) = 0;
    /// The window takes the keys, or takes them no more.
    virtual void HostActivated(bool Active) = 0;
    virtual void HostResized(const TRect& Bounds) = 0;
    virtual void HostClosed() = 0;
    /// The user has minimised or maximised the window, or given it back its size: Normal, which it has or
    /// would return to. Comes before the HostResized that this brings.
    virtual void HostStateChanged(TWindowState, const TRect& /*Normal*/) {}
    /// Keys come to the window from what stands before or behind it in the order of Tab.
    virtual void HostEntered(bool /*Forward*/) {}
    /// An input method composes or has composed text. Answers whether anybody took it.
    virtual bool HostCompose(const TComposition&) { return false; }
    /// Whether text is taken, and where; in pixels of the client area.
    virtual THostTextInput HostTextInput() { return {}; }
    virtual THostHint HostHint(TPoint) { return {}; }
    virtual TAccessiblePart HostAccessible() { return {}; }
    /// The window has lost what it was asked to paint. To be called where that happens without a HostPaint,
    /// unless all of the window will be painted: who has asked does not ask again.
    virtual void HostDropped() {}

protected:
    ~THostClient() = default;
};

/// A window of the host; closing is destroying it.
class THostWindow {
public:
    virtual ~THostWindow() = default;
    virtual void SetBounds(const TRect& Bounds) = 0;
    virtual void SetVisible(bool Visible) = 0;
    virtual void SetCaption(const std::string& Caption) = 0;
    virtual void SetState(TWindowState State) = 0;
    /// Asks for a paint of Rect by the next frame. Until that is painted, nobody asks for it again.
    virtual void Invalidate(const TRect& Rect) = 0;
    virtual void SetCapture(bool Captured) = 0;
    virtual void SetCursor(TCursor Cursor) = 0;
    /// Shows a menu at a point of the client area and returns; its items are picked later, or never.
    virtual void ShowMenu(THostMenu, TPoint) {} // NOLINT(performance-unnecessary-value-param): hosts keep it
    /// What HostTextInput answers has changed.
    virtual void TextInputChanged() {}
    /// Has what is being composed committed now, to the control that has composed it.
    virtual void EndComposition() {}
    /// A window without borders beside a rectangle of this one's client area, below it where the screen has
    /// room, else above. It takes keys and mouse while it is shown. Escape is its client's; a press elsewhere
    /// closes it (HostClosed). Null where a host has none.
    virtual std::unique_ptr<THostWindow> OpenPopup(THostClient&, const TRect& /*Beside*/) { return nullptr; }
    /// Shows the window, keeps input from all others and handles what comes, until EndModal or until it has
    /// gone.
    virtual void RunModal() {}
    virtual void EndModal() {}
    /// Whether Tab goes round in this window. In one that is a part of another it leaves at the end.
    virtual bool KeepsTab() const { return true; }
};

/// Where a popup of that size goes beside a rectangle of the screen: below, above where only that has room,
/// and as far to the left as the screen demands.
TRect PopupPlace(const TRect& Beside, TSize Size, TSize Screen);

/// A running timer; destroying it stops it.
class THostTimer {
public:
    virtual ~THostTimer() = default;
};

class THost : public TScreenText {
public:
    virtual ~THost() = default;
    virtual std::unique_ptr<THostWindow> OpenWindow(THostClient& Client) = 0;
    /// Calls Tick every Interval milliseconds (at least 1) until the timer is destroyed.
    virtual std::unique_ptr<THostTimer> StartTimer(int Interval, TEvent<> Tick) = 0;
    virtual TSize ScreenSize() const = 0;
    virtual int PixelsPerInch() const = 0;
    /// Advance width and cell height on the screen, the angle left out of account.
    virtual void SetCursor(TCursor Cursor) = 0;
    /// Milliseconds for which a caret is shown, and as long hidden; 0: always shown.
    virtual int CaretBlinkTime() const { return 500; }
    virtual void CopyToClipboard(const TMetafile& Picture) = 0;
    /// Text for the clipboard, and the text that is there; both UTF-8.
    virtual void CopyText(const std::string&) {}
    virtual std::string PasteText() const { return {}; }
    /// A text, and the same with a markup that some programs know, under its MIME type; and that markup,
    /// empty where the clipboard has none or the host does not keep it.
    virtual void CopyMarkup(const std::string& Text, const std::string& /*MimeType*/,
                            const std::string& /*Markup*/) {
        CopyText(Text);
    }
    virtual std::string PasteMarkup(const std::string& /*MimeType*/) const { return {}; }
    /// Handles what is waiting: input, timers, frames. Returns without waiting.
    virtual void ProcessMessages() = 0;
    /// Handles what comes until Quit.
    virtual void Run() = 0;
    virtual void Quit() = 0;
    /// Has RunPosted called soon, on the thread of the application. The one operation that any thread calls.
    virtual void Wake() {}
};

} // namespace kx
