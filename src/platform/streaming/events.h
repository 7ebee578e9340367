#pragma once
// Handlers by name, for form files: a program registers what its forms call, and a file that names it is
// connected by reading it. For the thread of the application object.

#include <kxgraph/platform/objects/persistent.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Handler is an event, or function, of the type of the properties that it is for:
/// `RegisterEvent("SaveClicked", TNotifyEvent::Of<&TMain::SaveClicked>(&Main))`. It takes the place of an
/// earlier one of that name, which stays connected where it was; an empty one takes the name away.
/// Raises EComponentError where Name is no identifier.
void RegisterEventValue(const std::string& Name, TEventValue Handler);
template <class E>
void RegisterEvent(const std::string& Name, const E& Handler) {
    RegisterEventValue(Name, TEventValue(Handler));
}

/// Asked for a name that nobody has registered, such as that of one of many alike: what it answers, unless
/// that is empty, is registered under the name.
using TEventResolver = TEventValue (*)(std::string_view Name);
void ResolveEvents(TEventResolver Resolver);

/// Ignoring the case of ASCII letters; null when there is none.
const TEventValue* FindEvent(std::string_view Name);
/// The name of the first registered one that is the same handler (TEventValue::IsSameHandler); empty for
/// none.
std::string_view NameOfEvent(const TEventValue& Handler);
std::vector<std::string_view> RegisteredEvents();

} // namespace kx
