#include <kxgraph/platform/objects/propertytext.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace kx {

namespace {

std::string EnumerationText(const TProperty& Property, std::int64_t Ordinal) {
    if (Ordinal < 0 || Ordinal >= static_cast<std::int64_t>(Property.ValueNames.size()))
        return std::to_string(Ordinal);
    return std::string(Property.ValueNames[static_cast<std::size_t>(Ordinal)]);
}

std::string FlagsText(const TProperty& Property, std::int64_t Mask) {
    std::string text;
    for (std::size_t bit = 0; bit < Property.ValueNames.size(); ++bit) {
        if (!((Mask >> bit) & 1)) continue;
        if (!text.empty()) text += ',';
        text += Property.ValueNames[bit];
    }
    return text;
}

/// The shortest of the common forms that reads back as Value, with a point.
std::string RealText(double Value) {
    std::string text;
    for (int precision = 15; precision <= 17; ++precision) {
        text = FloatToStrGeneral(Value, precision, 0);
        std::replace(text.begin(), text.end(), GetDecimalSeparator(), '.');
        int position = 0;
        if (Val(text, position) == Value) break;
    }
    return text;
}

std::string RealsText(const std::vector<double>& Values) {
    std::string text;
    for (const double value : Values) (text += text.empty() ? "" : ";") += RealText(value);
    return text;
}

} // namespace

std::string PropertyToText(const TProperty& Property, const TPropertyValue& Value) {
    switch (Property.Kind) {
    case TPropertyKind::Bool: return std::get<bool>(Value) ? "1" : "0";
    case TPropertyKind::Integer: return std::to_string(std::get<std::int64_t>(Value));
    case TPropertyKind::Real: return RealText(std::get<double>(Value));
    case TPropertyKind::Text: return std::get<std::string>(Value);
    case TPropertyKind::Enumeration: return EnumerationText(Property, std::get<std::int64_t>(Value));
    case TPropertyKind::Flags: return FlagsText(Property, std::get<std::int64_t>(Value));
    case TPropertyKind::Color: return ColorToText(static_cast<TColor>(std::get<std::int64_t>(Value)));
    case TPropertyKind::Reals: return RealsText(std::get<std::vector<double>>(Value));
    case TPropertyKind::Reference: {
        const TComponent* component = std::get<TComponent*>(Value);
        return component ? component->GetName() : std::string();
    }
    case TPropertyKind::Event: return std::get<TEventValue>(Value) ? "assigned" : "";
    case TPropertyKind::SubObject: break;
    }
    return {};
}

// Text to values. Label is what a message calls the property.

namespace {

[[noreturn]] void RaiseExpected(std::string_view Label, std::string_view Text, const std::string& Expected) {
    throw EPropertyError(std::string(Label) + ": '" + Abridged(Text) + "' is not " + Expected);
}

std::string Joined(std::span<const std::string_view> Names) {
    std::string joined;
    for (const std::string_view name : Names) (joined += joined.empty() ? "" : ", ") += name;
    return joined;
}

/// The index of a name, ignoring case; nothing for any other text.
std::optional<std::int64_t> IndexOfName(const TProperty& Property, std::string_view Name) {
    const auto& names = Property.ValueNames;
    const auto found =
        std::find_if(names.begin(), names.end(), [&](std::string_view N) { return SameText(N, Name); });
    if (found == names.end()) return std::nullopt;
    return found - names.begin();
}

bool ParsedBool(std::string_view Label, std::string_view Text) {
    if (Text == "1" || SameText(Text, "true")) return true;
    if (Text == "0" || SameText(Text, "false")) return false;
    RaiseExpected(Label, Text, "one of 1, 0, true, false");
}

std::int64_t ParsedInteger(std::string_view Label, std::string_view Text) {
    int position = 0;
    const std::int64_t value = ValInt(Text, position);
    if (position != 0) RaiseExpected(Label, Text, "a whole number from -2147483648 to 2147483647");
    return value;
}

double ParsedReal(std::string_view Label, std::string_view Text) {
    int position = 0;
    const double value = Val(Text, position);
    if (position != 0) RaiseExpected(Label, Text, "a number");
    if (std::isinf(value)) RaiseExpected(Label, Text, "a number of up to 1.7E308");
    return value;
}

std::vector<double> ParsedReals(std::string_view Label, std::string_view Text) {
    std::vector<double> values;
    for (std::string_view rest = Text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        values.push_back(ParsedReal(Label, Trimmed(rest.substr(0, end))));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return values;
}

std::int64_t ParsedEnumeration(const TProperty& Property, std::string_view Label, std::string_view Text) {
    if (Property.ValueNames.empty()) return ParsedInteger(Label, Text);
    if (const auto index = IndexOfName(Property, Text)) return *index;
    int position = 0;
    const std::int64_t ordinal = ValInt(Text, position);
    if (position != 0 || ordinal < 0 || ordinal >= static_cast<std::int64_t>(Property.ValueNames.size()))
        RaiseExpected(Label, Text, "one of " + Joined(Property.ValueNames));
    return ordinal;
}

std::int64_t ParsedFlags(const TProperty& Property, std::string_view Label, std::string_view Text) {
    std::int64_t mask = 0;
    for (std::string_view rest = Text; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        const std::string_view name = Trimmed(rest.substr(0, comma));
        const auto bit = IndexOfName(Property, name);
        if (!bit) RaiseExpected(Label, name, "among " + Joined(Property.ValueNames));
        mask |= std::int64_t{1} << *bit;
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return mask;
}

std::int64_t ParsedColor(std::string_view Label, std::string_view Text) {
    if (const auto color = ColorFromText(Text)) return *color;
    RaiseExpected(Label, Text, "a colour (a name such as clRed, $BBGGRR, #RRGGBB or a number)");
}

TComponent* ParsedReference(std::string_view Label, std::string_view Text, const TComponentFinder& Find) {
    if (Text.empty()) return nullptr;
    TComponent* component = Find ? Find(Text) : nullptr;
    if (!component) RaiseExpected(Label, Text, "the name of a component");
    return component;
}

TPropertyValue Parsed(const TProperty& Property, std::string_view Label, std::string_view Text,
                      const TComponentFinder& Find) {
    const std::string_view trimmed = Trimmed(Text);
    switch (Property.Kind) {
    case TPropertyKind::Bool: return ParsedBool(Label, trimmed);
    case TPropertyKind::Integer: return ParsedInteger(Label, trimmed);
    case TPropertyKind::Real: return ParsedReal(Label, trimmed);
    case TPropertyKind::Text: return std::string(Text);
    case TPropertyKind::Enumeration: return ParsedEnumeration(Property, Label, trimmed);
    case TPropertyKind::Flags: return ParsedFlags(Property, Label, trimmed);
    case TPropertyKind::Color: return ParsedColor(Label, trimmed);
    case TPropertyKind::Reals: return ParsedReals(Label, trimmed);
    case TPropertyKind::Reference: return ParsedReference(Label, trimmed, Find);
    case TPropertyKind::Event:
        throw EPropertyError(std::string(Label) + " is an event: programs connect it, no text does");
    case TPropertyKind::SubObject: break;
    }
    throw EPropertyError(std::string(Label) + " is an object: its own properties are set one by one");
}

/// The object at the end of a path, and its property there.
struct TPlace {
    TPersistent* Object;
    const TProperty* Property;
};

std::string Quoted(std::string_view Text) { return "'" + Abridged(Text) + "'"; }

std::vector<std::string_view> NamesOf(const TPropertyTable& Table) {
    std::vector<std::string_view> names;
    for (const TProperty* property : Table.All()) names.push_back(property->Name);
    return names;
}

/// A row, and how long the part of the path is that names it.
struct TStep {
    const TProperty* Property;
    std::size_t Length;
};

/// The row that Path begins with: by its name or, as files have it, by its key, which may hold points.
TStep StepAlong(std::string_view Path, const TPropertyTable& Table) {
    const std::size_t end = std::min(Path.find('.'), Path.size());
    if (const TProperty* property = Table.Find(Path.substr(0, end))) return {property, end};
    for (const std::size_t length : {end, Path.size()})
        if (const TProperty* property = Table.FindKey(Path.substr(0, length))) return {property, length};
    return {nullptr, end};
}

/// Walks from Object to the last name of Path.
TPlace PlaceAt(TPersistent& Object, std::string_view Path) {
    TPersistent* object = &Object;
    for (std::size_t begin = 0;;) {
        const auto [property, length] = StepAlong(Path.substr(begin), object->PublishedProperties());
        const std::string_view name = Path.substr(begin, length);
        const std::string within = begin > 0 ? " (" + Abridged(Path) + ")" : "";
        if (!property)
            throw EPropertyError(object->ClassName() + " has no property " + Quoted(name) + within +
                                 DidYouMean(name, NamesOf(object->PublishedProperties())));
        if (begin + length == Path.size()) return {object, property};
        TPersistent* inner = nullptr;
        if (property->Kind == TPropertyKind::SubObject)
            inner = std::get<TPersistent*>(property->Get(*object));
        if (!inner)
            throw EPropertyError(Quoted(name) + " of " + object->ClassName() + " has no properties" + within);
        object = inner;
        begin += length + 1;
    }
}

} // namespace

TPropertyValue PropertyFromText(const TProperty& Property, std::string_view Text,
                                const TComponentFinder& Find) {
    return Parsed(Property, Property.Name, Text, Find);
}

void SetPropertyText(TPersistent& Object, std::string_view Path, std::string_view Text,
                     const TComponentFinder& Find) {
    const auto [object, property] = PlaceAt(Object, Path);
    if (!property->Set) throw EPropertyError(Quoted(Path) + " of " + Object.ClassName() + " is read only");
    property->Set(*object, Parsed(*property, Path, Text, Find));
}

std::string GetPropertyText(const TPersistent& Object, std::string_view Path) {
    // Tables reach mutable objects; nothing is written here.
    const auto [object, property] = PlaceAt(const_cast<TPersistent&>(Object), Path);
    return PropertyToText(*property, property->Get(*object));
}

} // namespace kx
