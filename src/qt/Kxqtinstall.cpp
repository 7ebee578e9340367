#include <kxgraph/qt/Kxqtinstall.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtapplication.h>
#include <kxgraph/qt/Kxqthost.h>

#include <QGuiApplication>

#include <memory>

namespace kx::qt {

void Install(bool Offscreen) {
    if (!QCoreApplication::instance())
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): lives as long as the process
        MakeApplication([](int& Count, char** Arguments) { new QGuiApplication(Count, Arguments); },
                        Offscreen || !HasDisplay());
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw Exception("The Qt application of the program has no fonts: it must be a QGuiApplication");
    TApplication::Instance().SetHost(std::make_unique<TQtHost>());
}

} // namespace kx::qt
