#pragma once
// What the types of properties are called, for those who show or read their values. A type says so beside its
// declaration.

#include <cstddef>
#include <string_view>

namespace kx {

/// Value names of an enumeration, found for a type E by specialisation:
/// `template <> inline constexpr auto CEnumNames<TPenStyle> = std::to_array<std::string_view>({...});`
template <class E>
inline constexpr std::nullptr_t CEnumNames = nullptr;

/// The name of a type that editors look for, by specialisation: of a text that is more than text.
template <class T>
inline constexpr std::string_view CTypeName = {};

} // namespace kx
