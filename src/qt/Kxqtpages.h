#pragma once
// Large pages of memory for large arrays.

namespace kx::qt {

/// From now on the system is asked for large pages for large arrays (SetLargeMemory), where it gives them to
/// those who ask. Linux only; elsewhere nothing happens.
void UseLargePages() noexcept;

} // namespace kx::qt
