#pragma once
// Components belong to one thread: the one that made, changed or asked for the first of them.

#include <cassert>

namespace kx {

/// Whether the caller runs on the thread of the components; the first that asks is that thread.
bool IsOwnThread();

/// Stops a build with assertions that touches components from another thread.
inline void AssertOwnThread() { assert(IsOwnThread() && "components belong to the application's thread"); }

} // namespace kx
