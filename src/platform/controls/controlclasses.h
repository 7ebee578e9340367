#pragma once
// Enters the classes of the platform in the list of classes.

namespace kx {

void RegisterControlClasses();

} // namespace kx
