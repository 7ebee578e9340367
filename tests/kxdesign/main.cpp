#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QStandardPaths>
#include <QtGlobal>
#include <gtest/gtest.h>

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", testing::TempDir().c_str()); // recent files are the user's own
    kx::qt::InstallWidgets();
    kx::RegisterClasses();
    return RUN_ALL_TESTS();
}
