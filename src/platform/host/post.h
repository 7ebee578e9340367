#pragma once
// The one way from other threads into the thread of the components.

#include <functional>

namespace kx {

class THost;

/// Has Action run on the thread of the application object, once that handles messages: in the order of the
/// calls, all that have come by then together. May be called from any thread; what Action refers to must
/// still be there when it runs, or be held by TComponentRef. What it raises goes to the application's
/// OnException. Actions that are left when the program ends are dropped.
void Post(std::function<void()> Action);

/// Runs what has been posted up to now; for hosts, on the application's thread.
void RunPosted();
/// Whether anything waits.
bool HasPosted();
/// Whom to wake from now on; for the application. Null: nobody.
void SetPostHost(THost* Host);

} // namespace kx
