#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/platform/text/files.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace kx {
namespace {

TEST(Consts, CopyTheShippedSettingsOnce) {
    const auto saved = std::tuple(ProgPath, UserSettingsPath, UserSettings);
    ProgPath = TemporaryNameFor(::testing::TempDir() + "kxconsts") + "/";
    UserSettingsPath = ProgPath + "user/";
    UserSettings = UserSettingsPath + "mine.usr";
    std::filesystem::create_directories(ProgPath);
    KxInitDirs();
    EXPECT_FALSE(FileExists(UserSettings)) << "nothing to copy yet";
    for (const char* shipped : {"first", "second"}) {
        ReplaceFile(ProgPath + ProgName + ".usr", shipped);
        KxInitDirs();
        EXPECT_EQ(ReadFile(UserSettings), "first") << "existing settings are kept";
    }
    std::filesystem::remove_all(ProgPath);
    std::tie(ProgPath, UserSettingsPath, UserSettings) = saved;
}

} // namespace
} // namespace kx
