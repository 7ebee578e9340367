#pragma once
// The classes of components by name: who has only a name makes a component of it, and tests walk all of them.
// A room has one function that enters its classes; a program calls the topmost one. No room lists another
// room's classes. For the thread of the application object.

#include <kxgraph/platform/objects/component.h>

#include <span>
#include <string_view>

namespace kx {

/// A class that can be made by its name.
struct TComponentClass {
    std::string_view Name;
    TComponent* (*Make)(TComponent* Owner);
    const TPropertyTable& (*Properties)(); ///< that of a base class where the class adds nothing to it
};

/// Enters a class; nothing happens when one of that name is there.
void RegisterClass(const TComponentClass& Class);
/// All that were entered, in that order.
std::span<const TComponentClass> RegisteredClasses();
/// By name, ignoring the case of ASCII letters; null when there is none.
const TComponentClass* FindClass(std::string_view Name);

template <class T>
void RegisterClass(std::string_view Name) {
    RegisterClass({Name, [](TComponent* Owner) -> TComponent* { return new T(Owner); }, &T::Properties});
}

} // namespace kx
