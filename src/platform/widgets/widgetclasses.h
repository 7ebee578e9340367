#pragma once
// The classes of this room by name.

namespace kx {

void RegisterWidgetClasses();

} // namespace kx
