#pragma once
// Enters all classes of components that the library has in the list of classes (platform/objects/classes.h).

namespace kx {

/// May be called again.
void RegisterClasses();

} // namespace kx
