#pragma once
// Time zones in form files: axes ask a handler for their offset, whose name tells which zone it is.

#include <optional>
#include <string>

namespace kxplot {

/// Makes the offsets of Zone known, so that what is written names them.
void RegisterZone(const std::optional<std::string>& Zone);
/// From now on files may name the zones that are known here.
void ResolveZones();

} // namespace kxplot
