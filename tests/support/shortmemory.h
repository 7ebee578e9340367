#pragma once
// Memory that runs out where a test wants it to.

#include <functional>

namespace kx::test {

/// Calls Action with the first allocation in it failing, then, each time after Prepare, with the second one,
/// and so on until none fails any more. Returns how often one did. Action may raise std::bad_alloc only.
int WithEveryAllocationFailing(const std::function<void()>& Prepare, const std::function<void()>& Action);

} // namespace kx::test
