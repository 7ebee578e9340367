#include <kxgraph/qtwidgets/Kxclientwidget.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qtwidgets/Kxqtaccessiblechanges.h>
#include <kxgraph/qtwidgets/Kxqtmenu.h>
#include <kxgraph/qtwidgets/Kxqttext.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethod>
#include <QPaintEvent>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

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

/// At the end of the program there may be no Qt to take it away, nor to show it.
void TClientWidget::Leave() {
    SetClient(nullptr);
    if (!QCoreApplication::instance()) return;
    hide();
    if (IsBusy())
        deleteLater();
    else
        delete this;
}

void TClientWidget::SetAntialias(bool Antialias) {
    FBacking.Antialias = Antialias;
    InvalidateBy({0, 0, width(), height()});
}

bool TClientWidget::IsSeen() const { return FClient && isVisible() && !window()->isMinimized(); }

void TClientWidget::InvalidateBy(const TRect& Rect) {
    FBacking.Add(QRect(Rect.Left, Rect.Top, Rect.Width(), Rect.Height()));
    AskFrame();
    AskTelling();
}

/// What is said to screen readers shows, too: whatever changes it asks for a paint, or moves the caret. They
/// are told a little later, of all that has come together.
void TClientWidget::AskTelling() {
    constexpr int CPause = 20; // milliseconds
    if (HasReaders() && !FTellTimer.isActive()) FTellTimer.start(CPause, this);
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
    QRegion dirty = FBacking.TakeDirty();
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
    if (Event->timerId() == FTellTimer.timerId()) {
        FTellTimer.stop();
        return Guarded([this] { TellAccessibleChanges(*this); });
    }
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
    if (Event->type() == QEvent::ShortcutOverride && IsEditingKey(*static_cast<QKeyEvent*>(Event)) &&
        FClient && FClient->HostTextInput().Takes) {
        Event->accept();
        return true;
    }
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

void TClientWidget::inputMethodEvent(QInputMethodEvent* Event) {
    FComposes = !Event->preeditString().isEmpty();
    bool taken = false;
    Tell([&](THostClient& C) { taken = C.HostCompose(CompositionOf(*Event, C.HostTextInput())); });
    Event->setAccepted(taken);
}

QVariant TClientWidget::inputMethodQuery(Qt::InputMethodQuery Query) const {
    const QVariant answer = FClient ? AnswerOf(FClient->HostTextInput(), Query) : QVariant();
    return answer.isValid() ? answer : QWidget::inputMethodQuery(Query);
}

void TClientWidget::TextInputBy() {
    Tell([this](THostClient& C) { setAttribute(Qt::WA_InputMethodEnabled, C.HostTextInput().Takes); });
    updateMicroFocus();
    AskTelling();
}

void TClientWidget::EndCompositionBy() {
    if (std::exchange(FComposes, false)) QGuiApplication::inputMethod()->commit();
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
void TClientWindow::TextInputChanged() {
    if (FWidget) FWidget->TextInputBy();
}
void TClientWindow::EndComposition() {
    if (FWidget) FWidget->EndCompositionBy();
}
std::unique_ptr<THostWindow> TClientWindow::OpenPopup(THostClient& Client, const TRect& Beside) {
    return FWidget ? FWidget->PopupBy(Client, Beside) : nullptr;
}
void TClientWindow::RunModal() {
    if (FWidget) FWidget->RunModalBy();
}
void TClientWindow::EndModal() {
    if (FWidget) FWidget->EndModalBy();
}
bool TClientWindow::KeepsTab() const { return !FWidget || FWidget->KeepsTab(); }

} // namespace kx::qt
