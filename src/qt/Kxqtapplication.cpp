#include <kxgraph/qt/Kxqtapplication.h>

#include <kxgraph/platform/base/exceptions.h>

#include <QString>
#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <string>

namespace kx::qt {

namespace {

/// While it lives, Qt's warnings go nowhere, and what it would abort for is raised. A warning about the
/// display tells more than what follows from it.
class TQuiet {
public:
    TQuiet() : FBefore(qInstallMessageHandler(Drop)) { FTrouble.clear(); }
    ~TQuiet() { qInstallMessageHandler(FBefore); }
    TQuiet(const TQuiet&) = delete;
    TQuiet& operator=(const TQuiet&) = delete;

private:
    static void Drop(QtMsgType Type, const QMessageLogContext&, const QString& Message) {
        const std::string text = Message.simplified().toStdString();
        if (Type == QtWarningMsg && FTrouble.empty() && text.find("display") != std::string::npos)
            FTrouble = text;
        if (Type == QtFatalMsg) throw Exception(FTrouble.empty() ? text : FTrouble);
        if (Type == QtCriticalMsg) std::fprintf(stderr, "%s\n", qPrintable(Message));
    }
    static inline std::string FTrouble;
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
