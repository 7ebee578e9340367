#include "qt/Kxqtinstall.h"

#include <gtest/gtest.h>

/// fontconfig keeps what it has read; leak checking is for our own code.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    kx::qt::Install(true);
    return RUN_ALL_TESTS();
}
