#pragma once
// A widget that shows what a client of the platform paints, and tells it of all that the user does.

#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qtwidgets/Kxbacking.h>
#include <kxgraph/qtwidgets/Kxqtinput.h>

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace kx::qt {

class TClientWindow;

/// Base of the two kinds of windows: one of its own, and a part of another. Frames follow one another no
/// faster than the screen shows them; whatever asks for paints in between is one frame.
class TClientWidget : public QWidget {
public:
    explicit TClientWidget(QWidget* Parent = nullptr);
    ~TClientWidget() override;

    THostClient* GetClient() const { return FClient; }
    /// Whether lines and edges are smoothed. Default true.
    void SetAntialias(bool Antialias);
    bool GetAntialias() const { return FBacking.Antialias; }

    QVariant inputMethodQuery(Qt::InputMethodQuery Query) const override;

    // What TClientWindow is asked by its form.
    virtual void PlaceBy(const TRect& Bounds) = 0;
    virtual void ShowBy(bool Visible) = 0;
    virtual void CaptionBy(const std::string&) {}
    virtual void StateBy(TWindowState) {}
    virtual bool KeepsTab() const = 0;
    /// The form has let its window go.
    virtual void Released() = 0;
    void InvalidateBy(const TRect& Rect);
    void CaptureBy(bool Captured);
    void CursorBy(TCursor Cursor);
    void TextInputBy();
    void EndCompositionBy();
    virtual std::unique_ptr<THostWindow> PopupBy(THostClient& Client, const TRect& Beside) = 0;
    virtual void RunModalBy() {}
    virtual void EndModalBy() {}

protected:
    /// Null: nobody from now on.
    void SetClient(THostClient* Client);
    /// Takes the widget of a client that has let it go away: now, or after the event that is being handled.
    void Leave();
    /// Whether an event of this widget is being handled, during which it must not be deleted.
    bool IsBusy() const { return FCalls > 0; }
    /// Whether what is painted can be seen.
    virtual bool IsSeen() const;

    /// Calls Action with the client while there is one; what it raises goes to the application.
    template <class F>
    void Tell(F Action);

    bool event(QEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;
    void timerEvent(QTimerEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void leaveEvent(QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void keyReleaseEvent(QKeyEvent* Event) override;
    void focusInEvent(QFocusEvent* Event) override;
    void focusOutEvent(QFocusEvent* Event) override;
    void inputMethodEvent(QInputMethodEvent* Event) override;

private:
    /// While a call into the client lasts; the client may let the widget go meanwhile.
    class TCall {
    public:
        explicit TCall(TClientWidget& Widget) : FWidget(&Widget) { ++Widget.FCalls; }
        ~TCall() { // Qt's own event that deletes the widget is a call, too
            if (FWidget) --FWidget->FCalls;
        }
        TCall(const TCall&) = delete;
        TCall& operator=(const TCall&) = delete;

    private:
        QPointer<TClientWidget> FWidget;
    };
    void AskFrame();
    void AskTelling();
    QRegion DrawFrame();
    void SendMouse(QMouseEvent& Event, TMouseKind Kind, TShiftState More = 0);
    bool SendKey(const QKeyEvent& Event, bool Down);
    bool ShowHint(const QHelpEvent& Event);

    THostClient* FClient = nullptr;
    TBacking FBacking;
    TWheelReader FWheel;
    QBasicTimer FFrameTimer, FTellTimer;
    QElapsedTimer FSinceFrame;
    bool FFrameAsked = false, FPressed = false; // FPressed: any button is down
    bool FComposes = false;
    int FCalls = 0;
};

template <class F>
void TClientWidget::Tell(F Action) {
    const TCall call(*this);
    if (FClient) Guarded([&] { Action(*FClient); });
}

/// The window of a client as its form holds it. The widget may go first.
class TClientWindow : public THostWindow {
public:
    explicit TClientWindow(TClientWidget& Widget) : FWidget(&Widget) {}
    ~TClientWindow() override;
    TClientWindow(const TClientWindow&) = delete;
    TClientWindow& operator=(const TClientWindow&) = delete;
    void LoseWidget() { FWidget = nullptr; }

    void SetBounds(const TRect& Bounds) override;
    void SetVisible(bool Visible) override;
    void SetCaption(const std::string& Caption) override;
    void SetState(TWindowState State) override;
    void Invalidate(const TRect& Rect) override;
    void SetCapture(bool Captured) override;
    void SetCursor(TCursor Cursor) override;
    void ShowMenu(THostMenu Menu, TPoint Pos) override;
    void TextInputChanged() override;
    void EndComposition() override;
    std::unique_ptr<THostWindow> OpenPopup(THostClient& Client, const TRect& Beside) override;
    void RunModal() override;
    void EndModal() override;
    bool KeepsTab() const override;

private:
    TClientWidget* FWidget;
};

} // namespace kx::qt
