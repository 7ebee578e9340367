#pragma once
// The classes of components by name: who has only a name makes a component of it, designers show them on
// their pages, form files name them, and tests walk all of them. A room has one function that enters its
// classes; a program calls the topmost one. No room lists another room's classes. For the thread of the
// application object.

#include <kxgraph/platform/objects/component.h>

#include <span>
#include <string_view>
#include <vector>

namespace kx {

/// A class that can be made by its name.
struct TComponentClass {
    std::string_view Name;
    TComponent* (*Make)(TComponent* Owner);
    const TPropertyTable& (*Properties)(); ///< that of a base class where the class adds nothing to it
    bool (*Is)(const TComponent&);         ///< whether a component is of the class, or of one derived from it
    std::string_view Page;                 ///< of a designer's palette; empty: on none
};

/// The pages of the library; programs may have others.
inline constexpr std::string_view CGeneralPage = "Kx-General", CGraphPage = "Kx-Graph2D";

/// Enters a class; nothing happens when one of that name is there.
void RegisterClass(const TComponentClass& Class);
/// All that were entered, in that order.
std::span<const TComponentClass> RegisteredClasses();
/// By name, ignoring the case of ASCII letters; null when there is none.
const TComponentClass* FindClass(std::string_view Name);
/// The pages in the order in which classes have brought them.
std::vector<std::string_view> PalettePages();

template <class T>
void RegisterClass(std::string_view Name, std::string_view Page = {}) {
    RegisterClass({Name, [](TComponent* Owner) -> TComponent* { return new T(Owner); }, &T::Properties,
                   [](const TComponent& Component) { return dynamic_cast<const T*>(&Component) != nullptr; },
                   Page});
}

} // namespace kx
