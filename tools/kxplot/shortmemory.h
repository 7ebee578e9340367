#pragma once
// What becomes of a run when memory runs out.

namespace kxplot {

/// Says so in one line and ends the run with status 1, at once and without asking for memory.
[[noreturn]] void EndOutOfMemory();

/// Whether an allocation that fails ends the run. It does from the start: libraries of fonts and pictures do
/// not look at what they get and would crash, or draw something else.
bool DoFailedAllocationsEnd();
/// From here on an allocation that fails raises std::bad_alloc: where temporary files would stay behind.
void LetAllocationsFail();

} // namespace kxplot
