#pragma once
// Time zones in form files: axes ask a handler for their offset, whose name tells which zone it is.

#include <string>

namespace kx::qt {

/// Makes the offsets of Zone known, so that form files that are written name them. Does nothing for a zone
/// that the system does not know.
void RegisterZone(const std::string& Zone);
/// From now on form files that are read may name the zones that the system knows.
void ResolveZones();

} // namespace kx::qt
