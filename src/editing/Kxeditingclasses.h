#pragma once
// Enters the classes of this room in the list of classes.

namespace kx {

void RegisterEditingClasses();

} // namespace kx
