#pragma once
// Properties that are lists of texts in one text, so that designers edit them as lists.

#include <kxgraph/platform/objects/published.h>

#include <string_view>

namespace kx {

// What their types are called (TProperty::TypeName).
inline constexpr std::string_view CLinesType = "TLines";           ///< a text each line
inline constexpr std::string_view CCellsType = "TCells";           ///< lines of texts with tabs between them
inline constexpr std::string_view CCategoriesType = "TCategories"; ///< as JoinCategories has them

/// A published text that is a list of this type; empty by default.
template <auto Getter, auto Setter>
TProperty PublishedTexts(std::string_view Type, std::string_view Name, std::string_view Help) {
    TProperty p = Published<Getter, Setter>(Name, "", Help);
    p.TypeName = Type;
    return p;
}

} // namespace kx
