#pragma once
// Time zones of the system, for axes of dates.

#include <functional>
#include <string>

namespace kx::qt {

/// Seconds to add to UTC at a moment (in seconds since 1970, UTC) in a zone such as "Europe/Berlin" or
/// "UTC+02:00"; empty when the system knows no such zone.
std::function<double(double Moment)> ZoneOffset(const std::string& Name);

} // namespace kx::qt
