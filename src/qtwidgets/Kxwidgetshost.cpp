#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qt/Kxqtapplication.h>
#include <kxgraph/qtwidgets/Kxqtclipboard.h>
#include <kxgraph/qtwidgets/Kxwindowwidget.h>

#include <QApplication>
#include <QClipboard>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace kx::qt {

namespace {

class TQtTimer : public THostTimer {
public:
    TQtTimer(int Interval, TEvent<> Tick) : FTimer(new QTimer) {
        QObject::connect(FTimer, &QTimer::timeout, FTimer, [tick = std::move(Tick)] {
            const TEvent<> called = tick; // which may destroy the timer
            Guarded([&] { called(); });
        });
        FTimer->start(std::max(Interval, 1));
    }
    ~TQtTimer() override {
        if (!QCoreApplication::instance()) return;
        FTimer->stop();
        FTimer->deleteLater(); // its tick may be what destroys it
    }
    TQtTimer(const TQtTimer&) = delete;
    TQtTimer& operator=(const TQtTimer&) = delete;

private:
    QTimer* FTimer;
};

} // namespace

/// Lives on the application's thread and is woken from others.
class TQtWidgetsHost::TWoken : public QObject {
protected:
    void customEvent(QEvent*) override { RunPosted(); }
};

TQtWidgetsHost::TQtWidgetsHost() : FWoken(std::make_unique<TWoken>()) {}

TQtWidgetsHost::~TQtWidgetsHost() = default;

std::unique_ptr<THostWindow> TQtWidgetsHost::OpenWindow(THostClient& Client) {
    return std::make_unique<TClientWindow>(*new TWindowWidget(Client));
}

std::unique_ptr<THostTimer> TQtWidgetsHost::StartTimer(int Interval, TEvent<> Tick) {
    return std::make_unique<TQtTimer>(Interval, std::move(Tick));
}

TSize TQtWidgetsHost::ScreenSize() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? TSize{screen->geometry().width(), screen->geometry().height()} : TSize{};
}

void TQtWidgetsHost::SetCursor(TCursor Cursor) {
    if (FCursor != crDefault) QGuiApplication::restoreOverrideCursor();
    FCursor = Cursor;
    if (Cursor != crDefault) QGuiApplication::setOverrideCursor(ShapeOf(Cursor));
}

int TQtWidgetsHost::CaretBlinkTime() const { return QApplication::cursorFlashTime() / 2; }

void TQtWidgetsHost::CopyToClipboard(const TMetafile& Picture) {
    QGuiApplication::clipboard()->setMimeData(MimeOf(Picture).release());
}

void TQtWidgetsHost::CopyText(const std::string& Text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(Text));
}

std::string TQtWidgetsHost::PasteText() const { return QGuiApplication::clipboard()->text().toStdString(); }

void TQtWidgetsHost::CopyMarkup(const std::string& Text, const std::string& MimeType,
                                const std::string& Markup) {
    auto data = std::make_unique<QMimeData>();
    data->setText(QString::fromStdString(Text));
    data->setData(QString::fromStdString(MimeType), QByteArray::fromStdString(Markup));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

std::string TQtWidgetsHost::PasteMarkup(const std::string& MimeType) const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? data->data(QString::fromStdString(MimeType)).toStdString() : std::string();
}

void TQtWidgetsHost::ProcessMessages() { QCoreApplication::processEvents(); }

void TQtWidgetsHost::Run() { QCoreApplication::exec(); }

void TQtWidgetsHost::Quit() { QCoreApplication::quit(); }

void TQtWidgetsHost::Wake() { QCoreApplication::postEvent(FWoken.get(), new QEvent(QEvent::User)); }

void InstallWidgets() {
    if (!QCoreApplication::instance()) {
        if (!HasDisplay())
            throw Exception("There is no display for a window: none of DISPLAY, WAYLAND_DISPLAY and "
                            "QT_QPA_PLATFORM is set");
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): lives as long as the process
        MakeApplication([](int& Count, char** Arguments) { new QApplication(Count, Arguments); });
    }
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw Exception("The Qt application of the program has no widgets: it must be a QApplication");
    TApplication::Instance().SetHost(std::make_unique<TQtWidgetsHost>());
}

} // namespace kx::qt
