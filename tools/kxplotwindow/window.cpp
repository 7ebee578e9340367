// The window part of kxplot: a module that it loads for --show.

#include "kxplot/show/windowpart.h"
#include "kxplotwindow/mainwindow.h"

#include <kxgraph/platform/host/application.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QTimer>

#include <chrono>

namespace {

void Show(const kxplot::TShownPicture& Picture) {
    kxplot::TMainWindow window(Picture);
    window.show();
    QTimer polling;
    if (Picture.Poll) {
        constexpr auto pause = std::chrono::milliseconds(40);
        QObject::connect(&polling, &QTimer::timeout, &window, [&] {
            if (!Picture.Poll()) window.close();
        });
        polling.start(pause);
    }
    constexpr double CMilliseconds = 1000;
    if (Picture.Seconds)
        QTimer::singleShot(int(*Picture.Seconds * CMilliseconds), &window, [&window] { window.close(); });
    kx::TApplication::Instance().Run();
}

} // namespace

extern "C" [[gnu::visibility("default")]] const kxplot::TWindowPart* KxplotWindow2() {
    static const kxplot::TWindowPart part{kx::qt::InstallWidgets, Show};
    return &part;
}
