#pragma once
// Times of the day in the cells of tables.

#include <kxgraph/table/Kxtablescanner.h>

#include <optional>

namespace kx {

/// Seconds since midnight UTC of the day that is meant, perhaps before or beyond it by the zone: 13:05,
/// 13:05:07.25, 1:05 PM, with Z, UTC or +01:00 behind it. 24:00 is the end of the day, a leap second the
/// beginning of the next one. Nothing for anything else.
std::optional<double> TakeClock(TKxCellScanner& Cell);
/// The same without colons: 1305 or 130507.
std::optional<double> TakeCompactClock(TKxCellScanner& Cell);

} // namespace kx
