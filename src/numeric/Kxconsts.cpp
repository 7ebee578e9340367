#include <kxgraph/numeric/Kxconsts.h>

#include <kxgraph/platform/text/files.h>

namespace kx {

// The order is that of initialisation: each takes from those above it.
std::string ProgPath = ExtractFilePath(ExecutableName());
std::string IniFileName = ChangeFileExt(ExecutableName(), ".INI");
std::string ProgName = ChangeFileExt(ExtractFileName(ExecutableName()), "");
std::string UserSettingsPath = ProgPath;
std::string UserSettings = UserSettingsPath + ProgName + ".usr";
std::string LocalAppDataDir;
std::string UserDataPath;

void KxInitDirs() {
    if (FileExists(UserSettings)) return;
    if (!DirectoryExists(UserSettingsPath)) CreateDir(UserSettingsPath);
    const std::string shipped = ProgPath + ProgName + ".usr";
    if (FileExists(shipped)) CopyFile(shipped, UserSettings, true);
}

} // namespace kx
