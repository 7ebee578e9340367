#pragma once
// Names of handlers that this program has not registered: at design time a form keeps them beside its events,
// which stay empty, and is written with them. For the thread of the application object.

#include <kxgraph/platform/objects/component.h>

#include <string>
#include <string_view>

namespace kx {

/// Path: the event as form files call it, "OnClick". An empty Name takes away what is kept. It goes with the
/// component, too. Raises EComponentError where Name is no identifier.
void KeepEventName(TComponent& Component, std::string_view Path, const std::string& Name);
/// What the handler of the event is called: the name that it is registered by, or else the one that is kept;
/// empty when there is neither.
std::string_view EventNameOf(const TComponent& Component, std::string_view Path, const TEventValue& Handler);

} // namespace kx
