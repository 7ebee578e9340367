#include <kxgraph/qt/Kxqtinstall.h>

#include <gtest/gtest.h>

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    kx::qt::Install(true);
    return RUN_ALL_TESTS();
}
