#pragma once
// Which rows of a component an inspector shows: those that its class publishes and, beside them, rows that
// only designers have: what a form file holds as data of its own (the values of a vector), told as a
// property.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/objects/persistent.h>

#include <string_view>
#include <vector>

namespace kx {

/// Types of the library's own design rows, for editors (TProperty::TypeName).
inline constexpr std::string_view CValuesType = "TKxValues", CCoefficientsType = "TKxCoefficients";

/// Adds a row to all components that Is says yes to. Rows are given objects of that class. Nothing happens
/// where such a component has a row of that name already.
void RegisterDesignRow(bool (*Is)(const TComponent&), TProperty Row);
template <class T>
void RegisterDesignRow(TProperty Row) {
    RegisterDesignRow([](const TComponent& C) { return dynamic_cast<const T*>(&C) != nullptr; },
                      std::move(Row));
}

/// The published rows, the base class's first, then those for designers. Valid as long as the program runs.
std::vector<const TProperty*> DesignRowsOf(const TPersistent& Object);

/// Which heading a row stands under: "Data", "Axis", "Style", "Text", "Layout", "Behaviour", "Events", ... It
/// follows from the row's kind and the words of its name, and from no list of classes.
std::string_view CategoryOf(const TProperty& Row);
/// Puts a property elsewhere, for all classes that have one of that name; an empty Category takes that back.
void SetCategory(std::string_view Property, std::string_view Category);
/// All headings in the order in which they are shown, those of SetCategory last.
std::vector<std::string_view> DesignCategories();

} // namespace kx
