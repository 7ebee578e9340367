#pragma once
// The array, record and event types that all units pass around, the tolerance for equal doubles, and where
// the program keeps its per-user settings.

#include <kxgraph/platform/base/dynarray.h>
#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/drawing/geometry.h>

#include <cstdint>
#include <string>

namespace kx {

class TComponent;

/// A position in user coordinates.
struct TKxRealPos {
    double X = 0;
    double Y = 0;
    friend bool operator==(const TKxRealPos&, const TKxRealPos&) = default;
};

using TKxRealArray = TDynArray<double>;
using TKxIntegerArray = TDynArray<std::int32_t>;
using TKxPointArray = TDynArray<TPoint>;
using TKxBooleanArray = TDynArray<bool>;
using TKxRealPosArray = TDynArray<TKxRealPos>;

/// Is given the component that failed, and the error.
using TKxErrorEvent = TEvent<TComponent*, const Exception&>;
/// Is given the component that the event happened to.
using TKxAnyEvent = TEvent<TComponent*>;

/// Two doubles that differ by no more count as equal: 2 to the power -52. The spelling is part of the
/// interface.
inline constexpr double CMaxAcurancy = 2.220446049250313e-16;
/// Stands for "too large", "no value" and, with both signs, for the ends of an empty range.
inline constexpr double CMaxReal = 1.7e308;

/// Paths, filled from the executable's full name before main runs (initialisers of other units' globals must
/// not rely on them). The program may change them; none follows another one's change.
extern std::string ProgPath;         ///< directory of the executable with trailing delimiter
extern std::string IniFileName;      ///< the executable's full name with the extension ".INI"
extern std::string ProgName;         ///< the executable's name without directory and extension
extern std::string UserSettingsPath; ///< directory of the settings file; ProgPath at first
extern std::string UserSettings;     ///< the settings file; UserSettingsPath + ProgName + ".usr" at first
extern std::string LocalAppDataDir;  ///< empty, for the program to fill
extern std::string UserDataPath;     ///< empty, for the program to fill

/// To be called after a change of UserSettingsPath and UserSettings: unless UserSettings exists, creates
/// UserSettingsPath (one level) and copies the settings file that lies beside the executable, if there is
/// one. Failures are silent.
void KxInitDirs();

} // namespace kx
