#pragma once
// Puts the library on Qt.

namespace kx::qt {

/// Makes a QGuiApplication if the program has none, on the offscreen platform when Offscreen or when there is
/// no display, and installs a TQtHost in the application. The locale of numbers stays as it was. Raises
/// Exception("The Qt application of the program has no fonts: it must be a QGuiApplication") when the program
/// has made one of another kind.
void Install(bool Offscreen = false);

} // namespace kx::qt
