#include <kxgraph/numeric/Kxconsts.h>

#include "support/testing.h"

namespace kx::test::consts {

TEST(Consts, CopyTheShippedSettingsOnce) {
    const auto saved = std::tuple(ProgPath, UserSettingsPath, UserSettings);
    const TTemporaryDirectory directory;
    ProgPath = directory / "";
    UserSettingsPath = ProgPath + "user/";
    UserSettings = UserSettingsPath + "mine.usr";
    KxInitDirs();
    EXPECT_FALSE(FileExists(UserSettings)) << "nothing to copy yet";
    for (const char* shipped : {"first", "second"}) {
        ReplaceFile(ProgPath + ProgName + ".usr", shipped);
        KxInitDirs();
        EXPECT_EQ(ReadFile(UserSettings), "first") << "existing settings are kept";
    }
    std::tie(ProgPath, UserSettingsPath, UserSettings) = saved;
}

} // namespace kx::test::consts
