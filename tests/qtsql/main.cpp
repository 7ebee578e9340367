#include <gtest/gtest.h>

#include <QCoreApplication>

#include <cstdlib>

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    setenv("TZ", "Europe/Berlin", 1); // whose clocks must show nowhere
    const QCoreApplication application(Count, Arguments);
    return RUN_ALL_TESTS();
}
