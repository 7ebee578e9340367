#pragma once
// How a run ends.

namespace kxplot {

constexpr int CFailure = 1, CUsage = 2, CInterrupted = 130; ///< exit statuses; the last as shells have it

} // namespace kxplot
