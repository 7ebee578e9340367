#pragma once
// What screen readers are told of a window.

namespace kx::qt {

/// From now on Qt's accessibility has all that controls tell (TControl::Accessible) beneath their widgets.
/// Calls after the first one do nothing.
void InstallAccessibility();

} // namespace kx::qt
