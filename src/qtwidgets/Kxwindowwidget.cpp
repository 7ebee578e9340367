#include <kxgraph/qtwidgets/Kxwindowwidget.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/qtwidgets/Kxpopupwidget.h>
#include <kxgraph/qtwidgets/Kxqtaccessible.h>

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPointer>
#include <QWindow>

namespace kx::qt {

namespace {

TRect RectOf(const QPoint& Pos, const QSize& Size) {
    return TRect::Bounds(Pos.x(), Pos.y(), Size.width(), Size.height());
}

TWindowState StateOf(const QWidget& Widget) {
    return Widget.isMinimized() ? wsMinimized : Widget.isMaximized() ? wsMaximized : wsNormal;
}

} // namespace

TWindowWidget::TWindowWidget(THostClient& Client) {
    InstallAccessibility();
    setWindowFlag(Qt::Window);
    SetClient(&Client);
}

void TWindowWidget::PlaceBy(const TRect& Bounds) {
    if (FState != wsNormal) return;
    FReported = Bounds;
    {
        const TScopedValue placing(FPlacing, true);
        move(Bounds.Left, Bounds.Top);
        resize(Bounds.Width(), Bounds.Height());
    }
    if (isVisible()) Report(); // what the desktop made of it
}

void TWindowWidget::CaptionBy(const std::string& Caption) { setWindowTitle(QString::fromStdString(Caption)); }

void TWindowWidget::StateBy(TWindowState State) {
    if (State == StateOf(*this)) return;
    FState = State;
    const Qt::WindowStates others = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    setWindowState(State == wsNormal      ? others
                   : State == wsMaximized ? others | Qt::WindowMaximized
                                          : others | Qt::WindowMinimized);
}

void TWindowWidget::Released() {
    EndModalBy();
    Leave();
}

void TWindowWidget::RunModalBy() {
    const QPointer<QWidget> before = QApplication::activeWindow();
    setWindowModality(Qt::ApplicationModal);
    winId(); // makes the window, which then stands over the one that was in use
    if (before && before != this && before->windowHandle())
        windowHandle()->setTransientParent(before->windowHandle());
    show();
    activateWindow();
    const QPointer<QWidget> self = this;
    QEventLoop loop;
    FLoop = &loop;
    loop.exec(QEventLoop::DialogExec);
    if (self) FLoop = nullptr; // its form may have gone meanwhile
}

void TWindowWidget::EndModalBy() {
    if (FLoop) FLoop->quit();
}

/// Tells the client of the state and the place that the desktop has given the window.
void TWindowWidget::Report() {
    if (FPlacing || !GetClient()) return;
    if (const TWindowState state = StateOf(*this); state != FState) {
        FState = state;
        const TRect normal = RectOf(normalGeometry().topLeft(), normalGeometry().size());
        GetClient()->HostStateChanged(state, normal.IsEmpty() ? FReported : normal);
    }
    const TRect place = RectOf(pos(), size());
    if (FState == wsMinimized || place == FReported || !GetClient()) return;
    FReported = place;
    GetClient()->HostResized(place);
}

void TWindowWidget::resizeEvent(QResizeEvent* Event) {
    TClientWidget::resizeEvent(Event);
    Report();
}

void TWindowWidget::moveEvent(QMoveEvent* Event) {
    TClientWidget::moveEvent(Event);
    Report();
}

void TWindowWidget::changeEvent(QEvent* Event) {
    TClientWidget::changeEvent(Event);
    if (Event->type() == QEvent::WindowStateChange) Report();
}

void TWindowWidget::closeEvent(QCloseEvent* Event) {
    Event->accept();
    if (GetClient()) GetClient()->HostClosed();
}

std::unique_ptr<THostWindow> TWindowWidget::PopupBy(THostClient& Client, const TRect& Beside) {
    return TPopupWidget::Open(Client, *this, Beside);
}

} // namespace kx::qt
