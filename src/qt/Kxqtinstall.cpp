#include <kxgraph/qt/Kxqtinstall.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqthost.h>

#include <QGuiApplication>

#include <clocale>
#include <cstdio>
#include <memory>
#include <string>

namespace kx::qt {

namespace {

bool HasDisplay() {
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

/// While it lives, Qt's warnings go nowhere: without a session there are some about its missing directories,
/// which a batch program's standard error should not show. What Qt would abort for is raised.
class TQuiet {
public:
    TQuiet() : FBefore(qInstallMessageHandler(Drop)) {}
    ~TQuiet() { qInstallMessageHandler(FBefore); }
    TQuiet(const TQuiet&) = delete;
    TQuiet& operator=(const TQuiet&) = delete;

private:
    static void Drop(QtMsgType Type, const QMessageLogContext&, const QString& Message) {
        if (Type == QtFatalMsg) throw Exception(Message.simplified().toStdString());
        if (Type == QtCriticalMsg) std::fprintf(stderr, "%s\n", qPrintable(Message));
    }
    QtMessageHandler FBefore;
};

/// The application is never destroyed: Qt does not survive being taken down after main has returned.
void MakeApplication(bool Offscreen) {
    static char program[] = "kxgraph", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {program, option, platform, nullptr};
    [[maybe_unused]] static QGuiApplication* application;
    static int count;
    count = Offscreen ? 3 : 1;
    if (!Offscreen) arguments[1] = nullptr;
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    if (Offscreen) {
        const TQuiet quiet;
        application = new QGuiApplication(count, arguments);
    } else {
        application = new QGuiApplication(count, arguments);
    }
    std::setlocale(LC_NUMERIC, numbers.c_str()); // Qt sets the user's, and numbers would get decimal commas
}

} // namespace

void Install(bool Offscreen) {
    if (!QCoreApplication::instance()) MakeApplication(Offscreen || !HasDisplay());
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw Exception("The Qt application of the program has no fonts: it must be a QGuiApplication");
    TApplication::Instance().SetHost(std::make_unique<TQtHost>());
}

} // namespace kx::qt
