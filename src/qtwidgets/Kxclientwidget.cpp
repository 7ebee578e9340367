#include <kxgraph/qtwidgets/Kxclientwidget.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qtwidgets/Kxqtmenu.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPointer>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace kx::qt {

namespace {

/// Draws a frame when what was posted before it has been handled.
QEvent::Type FrameEvent() {
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

int MillisecondsPerFrame(const QWidget& Widget) {
    constexpr double CUsualRate = 60;
    const double rate = Widget.screen() ? Widget.screen()->refreshRate() : CUsualRate;
    return int(1000 / (rate >= 1 ? rate : CUsualRate));
}

QString PlainHint(const std::string& Hint) {
    const QString text = QString::fromStdString(Hint);
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

/// While a call into the client lasts; the client may let the widget go meanwhile, and Qt's own event for
/// that is one, too.
class TClientWidget::TCall {
public:
    explicit TCall(TClientWidget& Widget) : FWidget(&Widget) { ++Widget.FCalls; }
    ~TCall() {
        if (FWidget) --FWidget->FCalls;
    }
    TCall(const TCall&) = delete;
    TCall& operator=(const TCall&) = delete;

private:
    QPointer<TClientWidget> FWidget;
};

template <class F>
void TClientWidget::Tell(F Action) {
    const TCall call(*this);
    if (FClient) Guarded([&] { Action(*FClient); });
}

TClientWidget::TClientWidget(QWidget* Parent) : QWidget(Parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu); // the form pops up its own
    setAttribute(Qt::WA_OpaquePaintEvent);
}

TClientWidget::~TClientWidget() = default;

void TClientWidget::SetClient(THostClient* Client) {
    FClient = Client;
    FBacking.Add(rect());
    update();
}

void TClientWidget::SetAntialias(bool Antialias) {
    FBacking.Antialias = Antialias;
    InvalidateBy({0, 0, width(), height()});
}

bool TClientWidget::IsSeen() const { return FClient && isVisible() && !window()->isMinimized(); }

void TClientWidget::InvalidateBy(const TRect& Rect) {
    FBacking.Add(QRect(Rect.Left, Rect.Top, Rect.Width(), Rect.Height()));
    AskFrame();
}

/// What cannot be seen is painted when the window system asks for it.
void TClientWidget::AskFrame() {
    if (FFrameAsked || !FBacking.IsDirty() || !IsSeen()) return;
    FFrameAsked = true;
    const auto since = FSinceFrame.isValid() ? FSinceFrame.elapsed() : 1000;
    const auto wait = MillisecondsPerFrame(*this) - since;
    if (wait > 0)
        FFrameTimer.start(int(wait), Qt::PreciseTimer, this);
    else
        QCoreApplication::postEvent(this, new QEvent(FrameEvent()));
}

/// Paints what is dirty into the picture; returns where.
QRegion TClientWidget::DrawFrame() {
    const TCall call(*this);
    FFrameAsked = false;
    FFrameTimer.stop();
    FSinceFrame.start();
    FBacking.Fit(size(), devicePixelRatioF());
    Tell([](THostClient& C) { C.HostSettle(); });
    if (!IsSeen()) return {};
    const QRegion dirty = FBacking.TakeDirty();
    FBacking.Paint(dirty, [this] { return FClient; });
    return dirty;
}

void TClientWidget::paintEvent(QPaintEvent* Event) {
    const TCall call(*this);
    const bool isNew = FBacking.Fit(size(), devicePixelRatioF());
    const bool draws = FBacking.IsDirty() && IsSeen() && (isNew || !FFrameAsked); // else the frame will
    const QRegion changed = draws ? DrawFrame() : QRegion();
    QPainter painter(this);
    if (!IsSeen()) return painter.fillRect(rect(), palette().window());
    FBacking.Show(painter);
    const QRegion rest = changed - Event->region();
    if (!rest.isEmpty()) update(rest);
}

void TClientWidget::timerEvent(QTimerEvent* Event) {
    if (Event->timerId() != FFrameTimer.timerId()) return QWidget::timerEvent(Event);
    update(DrawFrame());
}

bool TClientWidget::event(QEvent* Event) {
    const TCall call(*this);
    if (Event->type() == FrameEvent()) {
        if (FFrameAsked) update(DrawFrame());
        return true;
    }
    if (Event->type() == QEvent::ToolTip) return ShowHint(*static_cast<QHelpEvent*>(Event));
    // Before Qt moves the focus to the next widget.
    if (Event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(Event);
        if (IsTab(key) && SendKey(key, true)) return true;
    }
    return QWidget::event(Event);
}

bool TClientWidget::ShowHint(const QHelpEvent& Event) {
    THostHint hint;
    Tell([&](THostClient& C) { hint = C.HostHint({Event.x(), Event.y()}); });
    if (hint.Text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(Event.globalPos(), PlainHint(hint.Text), this,
                           QRect(hint.Area.Left, hint.Area.Top, hint.Area.Width(), hint.Area.Height()));
    return true;
}

void TClientWidget::SendMouse(QMouseEvent& Event, TMouseKind Kind, TShiftState More) {
    const auto button = Kind == TMouseKind::Move ? mbLeft : ButtonOf(Event.button());
    FPressed = Event.buttons() != Qt::NoButton;
    if (!button) return Event.ignore();
    const TShiftState shift = ShiftOf(Event.modifiers(), Event.buttons()) | More;
    Tell([&](THostClient& C) { C.HostMouse(Kind, *button, shift, PixelOf(Event.position())); });
}

void TClientWidget::mousePressEvent(QMouseEvent* Event) { SendMouse(*Event, TMouseKind::Down); }
void TClientWidget::mouseReleaseEvent(QMouseEvent* Event) { SendMouse(*Event, TMouseKind::Up); }
void TClientWidget::mouseMoveEvent(QMouseEvent* Event) { SendMouse(*Event, TMouseKind::Move); }
void TClientWidget::mouseDoubleClickEvent(QMouseEvent* Event) {
    SendMouse(*Event, TMouseKind::Down, ssDouble);
}

void TClientWidget::wheelEvent(QWheelEvent* Event) {
    bool taken = false;
    if (const auto turn = FWheel.Read(*Event))
        Tell([&](THostClient& C) {
            taken =
                C.HostWheel(*turn, ShiftOf(Event->modifiers(), Event->buttons()), PixelOf(Event->position()));
        });
    Event->setAccepted(taken);
}

void TClientWidget::leaveEvent(QEvent*) {
    Tell([](THostClient& C) { C.HostMouseLeft(); });
}

bool TClientWidget::SendKey(const QKeyEvent& Event, bool Down) {
    const QByteArray text = TypedText(Event);
    const TKeyStroke stroke{.Key = KeyCodeOf(Event.key()),
                            .Text = std::string_view(text.constData(), std::size_t(text.size())),
                            .Shift = ShiftOf(Event.modifiers()) |
                                     (Event.key() == Qt::Key_Backtab ? TShiftState(ssShift) : 0),
                            .Repeats = Event.isAutoRepeat()};
    bool taken = false;
    Tell([&](THostClient& C) { taken = C.HostKey(stroke, Down); });
    return taken;
}

void TClientWidget::keyPressEvent(QKeyEvent* Event) {
    Event->setAccepted(!IsTab(*Event) && SendKey(*Event, true)); // a Tab was asked about before
}

void TClientWidget::keyReleaseEvent(QKeyEvent* Event) { Event->setAccepted(SendKey(*Event, false)); }

void TClientWidget::focusInEvent(QFocusEvent* Event) {
    const bool forward = Event->reason() == Qt::TabFocusReason;
    Tell([](THostClient& C) { C.HostActivated(true); });
    if (forward || Event->reason() == Qt::BacktabFocusReason)
        Tell([&](THostClient& C) { C.HostEntered(forward); });
}

void TClientWidget::focusOutEvent(QFocusEvent* Event) {
    if (Event->reason() == Qt::PopupFocusReason) return; // a menu of its own
    Tell([](THostClient& C) { C.HostActivated(false); });
}

/// While a button is down Qt captures the mouse by itself.
void TClientWidget::CaptureBy(bool Captured) {
    if (Captured && isVisible() && !FPressed) grabMouse();
    if (!Captured && QWidget::mouseGrabber() == this) releaseMouse();
}

void TClientWidget::CursorBy(TCursor Cursor) {
    if (Cursor == crDefault)
        unsetCursor();
    else if (!testAttribute(Qt::WA_SetCursor) || cursor().shape() != ShapeOf(Cursor))
        setCursor(ShapeOf(Cursor));
}

TClientWindow::~TClientWindow() {
    if (FWidget) FWidget->Released();
}

void TClientWindow::SetBounds(const TRect& Bounds) {
    if (FWidget) FWidget->PlaceBy(Bounds);
}
void TClientWindow::SetVisible(bool Visible) {
    if (FWidget) FWidget->ShowBy(Visible);
}
void TClientWindow::SetCaption(const std::string& Caption) {
    if (FWidget) FWidget->CaptionBy(Caption);
}
void TClientWindow::SetState(TWindowState State) {
    if (FWidget) FWidget->StateBy(State);
}
void TClientWindow::Invalidate(const TRect& Rect) {
    if (FWidget) FWidget->InvalidateBy(Rect);
}
void TClientWindow::SetCapture(bool Captured) {
    if (FWidget) FWidget->CaptureBy(Captured);
}
void TClientWindow::SetCursor(TCursor Cursor) {
    if (FWidget) FWidget->CursorBy(Cursor);
}
void TClientWindow::ShowMenu(THostMenu Menu, TPoint Pos) {
    if (FWidget) PopUp(Menu, *FWidget, QPoint(Pos.X, Pos.Y));
}
bool TClientWindow::KeepsTab() const { return !FWidget || FWidget->KeepsTab(); }

} // namespace kx::qt
