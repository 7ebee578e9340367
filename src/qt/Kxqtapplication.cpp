#include <kxgraph/qt/Kxqtapplication.h>

#include <kxgraph/platform/base/exceptions.h>

#include <QString>
#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <string>

namespace kx::qt {

namespace {

/// While it lives, Qt's warnings go nowhere, and what it would abort for is raised.
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

} // namespace

bool HasDisplay() {
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

void MakeApplication(const std::function<void(int&, char**)>& New, bool Offscreen) {
    static char program[] = "kxgraph", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {program, option, platform, nullptr};
    static int count;
    count = Offscreen ? 3 : 1;
    if (!Offscreen) arguments[1] = nullptr;
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    {
        const TQuiet quiet;
        New(count, arguments);
    }
    std::setlocale(LC_NUMERIC, numbers.c_str()); // Qt sets the user's, and numbers would get decimal commas
}

} // namespace kx::qt
