#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QtGlobal>
#include <gtest/gtest.h>

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    kx::qt::InstallWidgets();
    return RUN_ALL_TESTS();
}
