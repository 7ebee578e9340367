#pragma once
// Values of properties to text and back, and properties that are reached by a path of names.

#include <kxgraph/platform/objects/persistent.h>

#include <functional>
#include <string>
#include <string_view>

namespace kx {

/// Finds a component for the text of a Reference; null when there is none of that name.
using TComponentFinder = std::function<TComponent*(std::string_view Name)>;

/// The value as text, in the form told at TPropertyKind. A SubObject has none (empty).
std::string PropertyToText(const TProperty& Property, const TPropertyValue& Value);
/// Text as a value. Raises EPropertyError that says what was expected.
TPropertyValue PropertyFromText(const TProperty& Property, std::string_view Text,
                                const TComponentFinder& Find);
/// Sets the property at Path ("Color", "MajorGridX.Visible") of Object from Text; what outfits keep is also
/// reached by its key ("Line.Color" of a series). Raises EPropertyError that names the path and the class,
/// or says what was expected; the object is then unchanged.
void SetPropertyText(TPersistent& Object, std::string_view Path, std::string_view Text,
                     const TComponentFinder& Find = {});
/// The text of the property at Path; raises EPropertyError for an unknown one.
std::string GetPropertyText(const TPersistent& Object, std::string_view Path);

} // namespace kx
