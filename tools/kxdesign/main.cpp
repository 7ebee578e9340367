// kxdesign: scientific graphs put together by hand.

#include "kxdesign/mainwindow.h"
#include "kxdesign/options.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/qt/Kxqtzoneevents.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QApplication>

#include <exception>

using namespace kxdesign;

int main(int Count, char** Arguments) {
    int status = 0;
    const auto options = ParseOptions(Count, Arguments, status);
    if (!options) return status;
    try {
        QApplication application(Count, Arguments);
        QApplication::setApplicationName("kxdesign");
        QApplication::setDesktopFileName("kxdesign");
        kx::qt::InstallWidgets();
        kx::qt::ResolveZones();
        kx::RegisterClasses();
        TMainWindow window(kx::DesignStateDirectory());
        window.Start(*options);
        window.show();
        window.OfferRecovery();
        return QApplication::exec();
    } catch (const std::exception& error) {
        TellError(error.what());
        return CFailure;
    }
}
