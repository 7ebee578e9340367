// The window part of kxplot: a module that it loads for --show.

#include "kxplot/show/windowpart.h"
#include "kxplotwindow/mainwindow.h"

#include <kxgraph/platform/host/application.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QTimer>

namespace {

void Show(const kxplot::TShownPicture& Picture) {
    kxplot::TMainWindow window(Picture);
    window.show();
    constexpr double CMilliseconds = 1000;
    if (Picture.Seconds)
        QTimer::singleShot(int(*Picture.Seconds * CMilliseconds), &window, [&window] { window.close(); });
    kx::TApplication::Instance().Run();
}

} // namespace

extern "C" [[gnu::visibility("default")]] const kxplot::TWindowPart* KxplotWindow1() {
    static const kxplot::TWindowPart part{kx::qt::InstallWidgets, Show};
    return &part;
}
