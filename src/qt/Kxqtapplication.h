#pragma once
// Making Qt's application, of whatever kind, without a trace in the program around it.

#include <functional>

namespace kx::qt {

/// Whether the environment names a display, or a platform for Qt to take instead.
bool HasDisplay();

/// Has New make the application from a command line: the program's name and, when Offscreen, the choice of
/// that platform. The locale of numbers stays as it was. What Qt would abort for is raised as Exception; its
/// warnings go nowhere: without a session there are some about missing directories. The application is never
/// destroyed: Qt does not survive being taken down after main has returned.
void MakeApplication(const std::function<void(int& Count, char** Arguments)>& New, bool Offscreen = false);

} // namespace kx::qt
