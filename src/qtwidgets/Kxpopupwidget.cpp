#include <kxgraph/qtwidgets/Kxpopupwidget.h>

#include <kxgraph/qtwidgets/Kxqtaccessible.h>

#include <QCloseEvent>
#include <QScreen>

#include <utility>

namespace kx::qt {

TPopupWidget::TPopupWidget(THostClient& Client, QWidget& Owner, const TRect& Beside) : TClientWidget(&Owner) {
    InstallAccessibility();
    setWindowFlags(Qt::Popup);
    const QPoint origin = Owner.mapToGlobal(QPoint());
    FBeside = Beside.MovedBy({origin.x(), origin.y()});
    SetClient(&Client);
}

std::unique_ptr<THostWindow> TPopupWidget::Open(THostClient& Client, QWidget& Owner, const TRect& Beside) {
    auto* widget = new TPopupWidget(Client, Owner, Beside); // Owner's, until the window takes it away
    auto window = std::make_unique<TClientWindow>(*widget);
    widget->FWindow = window.get();
    return window;
}

TPopupWidget::~TPopupWidget() {
    if (FWindow) FWindow->LoseWidget();
}

void TPopupWidget::Released() {
    FWindow = nullptr;
    Leave();
}

void TPopupWidget::PlaceBy(const TRect& Bounds) {
    const QRect room = screen()->availableGeometry();
    const TRect beside = FBeside.MovedBy({-room.left(), -room.top()});
    const TRect place = PopupPlace(beside, Bounds.Size(), {room.width(), room.height()});
    setGeometry(QRect(place.Left, place.Top, place.Width(), place.Height()).translated(room.topLeft()));
}

/// A press on what the popup stands beside only closes it; others also do what they do there.
void TPopupWidget::mousePressEvent(QMouseEvent* Event) {
    if (rect().contains(Event->position().toPoint())) return TClientWidget::mousePressEvent(Event);
    const TPoint at = PixelOf(Event->globalPosition());
    setAttribute(Qt::WA_NoMouseReplay, FBeside.Contains(at));
    close();
}

/// The desktop does not activate popups.
void TPopupWidget::showEvent(QShowEvent* Event) {
    TClientWidget::showEvent(Event);
    setFocus(Qt::PopupFocusReason);
    Tell([](THostClient& C) { C.HostActivated(true); });
}

void TPopupWidget::hideEvent(QHideEvent* Event) {
    TClientWidget::hideEvent(Event);
    Tell([](THostClient& C) { C.HostActivated(false); });
}

void TPopupWidget::closeEvent(QCloseEvent* Event) {
    Event->accept();
    Tell([](THostClient& C) { C.HostClosed(); });
}

std::unique_ptr<THostWindow> TPopupWidget::PopupBy(THostClient& Client, const TRect& Beside) {
    return TPopupWidget::Open(Client, *this, Beside);
}

} // namespace kx::qt
