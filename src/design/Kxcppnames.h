#pragma once
// What the classes and properties of the library are called in C++, and values as C++ has them. Pure.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/objects/persistent.h>

#include <string>
#include <string_view>

namespace kx {

/// "kxgraph/graph/Kxaxis.h"; empty for a class that is not of the library.
std::string_view CppHeaderOf(std::string_view ClassName);
/// The member that sets a property of a class: SetColor, or the given name where that differs. Tables are
/// asked from Table, of the object's class, to its bases.
std::string CppSetterOf(const TPropertyTable& Table, std::string_view Property);
/// Whether the property is a public field of that name.
bool IsCppField(std::string_view Property);
/// Whether it is one of the four that SetBounds takes.
bool IsCppBound(std::string_view Property);
/// A value of any kind but references, events and objects.
std::string CppValue(const TProperty& Row, const TPropertyValue& Value);
/// A number that reads back bit for bit, but for the bits of what is no number.
std::string CppReal(double Value);
/// A string literal, the bytes of which are those of Text.
std::string CppText(std::string_view Text);
/// A name that C++ takes for a variable.
std::string CppVariable(const std::string& Name);

} // namespace kx
