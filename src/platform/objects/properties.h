#pragma once
// Persistent objects and their published properties. A class declares its properties once, in one table
// chained to its base class's; form streaming, inspectors, kxplot's --set and the reference all walk it.

#include <any>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace kx {

class TComponent;
class TPersistent;
class TPropertyTable;

/// An object whose state can be assigned and published.
class TPersistent {
public:
    TPersistent() = default;
    TPersistent(const TPersistent&) = delete;
    TPersistent& operator=(const TPersistent&) = delete;
    virtual ~TPersistent() = default;

    /// Takes over the state of Source. Raises EConvertError "Cannot assign a <class> to a <class>" when
    /// Source is of a class that this one does not understand.
    virtual void Assign(const TPersistent& Source);
    /// The table of this object's class.
    virtual const TPropertyTable& PublishedProperties() const;
    std::string ClassName() const;
};

/// What an Event holds: a copy of the event, or of the function, of the property's own type.
class TEventValue {
public:
    TEventValue() = default;
    template <class E>
    explicit TEventValue(const E& Event) : FEvent(Event), FIsAssigned(static_cast<bool>(Event)) {}
    /// Whether there is a handler.
    explicit operator bool() const { return FIsAssigned; }
    /// Raises EPropertyError when the event is of another type than E.
    template <class E>
    const E& As() const {
        if (const E* event = std::any_cast<E>(&FEvent)) return *event;
        RaiseOtherType();
    }
    /// Handlers cannot be compared; only none equals none.
    friend bool operator==(const TEventValue& A, const TEventValue& B) { return !A && !B; }

private:
    [[noreturn]] static void RaiseOtherType();

    std::any FEvent;
    bool FIsAssigned = false;
};

using TPropertyValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, TComponent*,
                                    TPersistent*, TEventValue>;

enum class TPropertyKind {
    Bool,        ///< bool; text "1"/"0", "true"/"false"
    Integer,     ///< std::int64_t; decimal text
    Real,        ///< double; point form
    Text,        ///< std::string as it stands
    Enumeration, ///< std::int64_t ordinal; text is the value's name or its ordinal
    Flags,       ///< std::int64_t bit mask; text is the names joined by commas
    Color,       ///< std::int64_t; text is a name (clRed), $BBGGRR, #RRGGBB or a decimal number
    Reference,   ///< TComponent*, not owned; text is the component's name
    SubObject,   ///< TPersistent*, owned by the object; its own properties are reached by name.name
    Event ///< TEventValue; connected by programs, never stored. Its text, "assigned" or empty, is shown only
};

/// One published property. Get and Set are given objects of the class that declares the property.
struct TProperty {
    std::string_view Name;
    TPropertyKind Kind{};
    std::span<const std::string_view> ValueNames; ///< Enumeration and Flags
    std::function<TPropertyValue(const TPersistent&)> Get;
    std::function<void(TPersistent&, const TPropertyValue&)> Set; ///< empty: read only
    TPropertyValue Default;                                       ///< monostate: always stored
    std::function<bool(const TPersistent&)> Stored;               ///< empty: stored
    std::string_view Help;                                        ///< one line, with the unit
    std::string_view TypeName; ///< of a type that has an editor of its own (CTypeName); empty otherwise
};

/// The properties of one class, in order of declaration, chained to those of its base class.
class TPropertyTable {
public:
    TPropertyTable(std::string_view ClassName, const TPropertyTable* Base, std::vector<TProperty> Properties);
    std::string_view GetClassName() const { return FClassName; }
    const TPropertyTable* GetBase() const { return FBase; }
    std::span<const TProperty> GetOwn() const { return FOwn; }
    /// By name, ignoring the case of ASCII letters; the derived class goes first; null when there is none.
    const TProperty* Find(std::string_view Name) const;
    /// All properties, the base class's first; one that is declared again shows in its last form only.
    std::vector<const TProperty*> All() const;

private:
    std::string_view FClassName;
    const TPropertyTable* FBase;
    std::vector<TProperty> FOwn;
};

/// Whether the property must be written: its predicate holds and its value differs from the default.
bool IsStored(const TPersistent& Object, const TProperty& Property);

/// Finds a component for the text of a Reference; null when there is none of that name.
using TComponentFinder = std::function<TComponent*(std::string_view Name)>;

/// The value as text, in the form told at TPropertyKind. A SubObject has none (empty).
std::string PropertyToText(const TProperty& Property, const TPropertyValue& Value);
/// Text as a value. Raises EPropertyError that says what was expected.
TPropertyValue PropertyFromText(const TProperty& Property, std::string_view Text,
                                const TComponentFinder& Find);
/// Sets the property at Path ("Color", "MajorGridX.Visible") of Object from Text. Raises EPropertyError that
/// names the path and the class, or says what was expected; the object is then unchanged.
void SetPropertyText(TPersistent& Object, std::string_view Path, std::string_view Text,
                     const TComponentFinder& Find = {});
/// The text of the property at Path; raises EPropertyError for an unknown one.
std::string GetPropertyText(const TPersistent& Object, std::string_view Path);

/// Value names of an enumeration, found for a type E by specialisation:
/// `template <> inline constexpr auto CEnumNames<TPenStyle> = std::to_array<std::string_view>({...});`
template <class E>
inline constexpr std::nullptr_t CEnumNames = nullptr;

/// The name of a type that editors look for, by specialisation: of a text that is more than text.
template <class T>
inline constexpr std::string_view CTypeName = {};

namespace detail {

template <class M>
struct TMember;
template <class C, class R>
struct TMember<R (C::*)() const> {
    using Class = C;
    using Value = R;
};
template <class C, class R>
struct TMember<R (C::*)()> {
    using Class = C;
    using Value = R;
};
template <class C, class A>
struct TMember<void (C::*)(A)> {
    using Class = C;
    using Value = A;
};
template <class C, class E>
struct TMember<E C::*> {
    using Class = C;
    using Value = E;
};

template <class T>
constexpr TPropertyKind KindOf() {
    using V = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<V, bool>)
        return TPropertyKind::Bool;
    else if constexpr (std::is_enum_v<V>)
        return TPropertyKind::Enumeration;
    else if constexpr (std::is_integral_v<V>)
        return TPropertyKind::Integer;
    else if constexpr (std::is_floating_point_v<V>)
        return TPropertyKind::Real;
    else if constexpr (std::is_pointer_v<V>)
        return TPropertyKind::Reference;
    else
        return TPropertyKind::Text;
}

template <class T>
TPropertyValue ToValue(const T& Value) {
    if constexpr (std::is_same_v<T, bool>)
        return Value;
    else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>)
        return static_cast<std::int64_t>(Value);
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<double>(Value);
    else if constexpr (std::is_pointer_v<T>)
        return static_cast<TComponent*>(Value);
    else
        return std::string(Value);
}

/// Raises EPropertyError: "<Name> must be a <class>".
[[noreturn]] void RaiseWrongClass(std::string_view Name, std::string_view ClassName);

/// What a message calls the class T: a component class by its own name, an interface only in general.
template <class T>
std::string_view NameOfClass() {
    if constexpr (requires { T::Properties(); })
        return T::Properties().GetClassName();
    else
        return "component of another class";
}

template <class T>
T FromValue(std::string_view Name, const TPropertyValue& Value) {
    if constexpr (std::is_same_v<T, bool>) {
        return std::get<bool>(Value);
    } else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>) {
        return static_cast<T>(std::get<std::int64_t>(Value));
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(std::get<double>(Value));
    } else if constexpr (std::is_pointer_v<T>) {
        TComponent* component = std::get<TComponent*>(Value);
        if (!component) return nullptr;
        if (auto* wanted = dynamic_cast<T>(component)) return wanted;
        RaiseWrongClass(Name, NameOfClass<std::remove_cv_t<std::remove_pointer_t<T>>>());
    } else {
        return T(std::get<std::string>(Value));
    }
}

} // namespace detail

/// A property read by Getter and written by Setter (pointers to members of the class or of a base). The kind
/// follows from the getter's type. Default is compared with the value to decide what is stored;
/// std::monostate{} has it stored always.
template <auto Getter, auto Setter, class D>
TProperty Published(std::string_view Name, D Default, std::string_view Help,
                    std::function<bool(const TPersistent&)> Stored = {}) {
    using G = detail::TMember<decltype(Getter)>;
    using S = detail::TMember<decltype(Setter)>;
    using V = std::remove_cvref_t<typename G::Value>;
    TProperty p;
    p.Name = Name;
    p.Kind = detail::KindOf<V>();
    p.TypeName = CTypeName<V>;
    if constexpr (std::is_enum_v<V> && !std::is_null_pointer_v<std::remove_cvref_t<decltype(CEnumNames<V>)>>)
        p.ValueNames = CEnumNames<V>;
    p.Get = [](const TPersistent& O) {
        return detail::ToValue<V>((static_cast<const typename G::Class&>(O).*Getter)());
    };
    p.Set = [Name](TPersistent& O, const TPropertyValue& Value) {
        (static_cast<typename S::Class&>(O).*
         Setter)(detail::FromValue<std::remove_cvref_t<typename S::Value>>(Name, Value));
    };
    if constexpr (!std::is_same_v<D, std::monostate>) {
        if constexpr (std::is_null_pointer_v<D>)
            p.Default = static_cast<TComponent*>(nullptr);
        else if constexpr (std::is_same_v<V, std::string>)
            p.Default = std::string(Default);
        else
            p.Default = detail::ToValue<V>(static_cast<V>(Default));
    }
    p.Stored = std::move(Stored);
    p.Help = Help;
    return p;
}

/// The same for a colour.
template <auto Getter, auto Setter, class D>
TProperty PublishedColor(std::string_view Name, D Default, std::string_view Help,
                         std::function<bool(const TPersistent&)> Stored = {}) {
    TProperty p = Published<Getter, Setter>(Name, Default, Help, std::move(Stored));
    p.Kind = TPropertyKind::Color;
    return p;
}

/// A function that is called back, read by Getter and written by Setter.
template <auto Getter, auto Setter>
TProperty PublishedEvent(std::string_view Name, std::string_view Help) {
    using G = detail::TMember<decltype(Getter)>;
    using V = std::remove_cvref_t<typename G::Value>;
    TProperty p;
    p.Name = Name;
    p.Kind = TPropertyKind::Event;
    p.Get = [](const TPersistent& O) {
        return TEventValue((static_cast<const typename G::Class&>(O).*Getter)());
    };
    p.Set = [](TPersistent& O, const TPropertyValue& Value) {
        (static_cast<typename G::Class&>(O).*Setter)(std::get<TEventValue>(Value).template As<V>());
    };
    p.Help = Help;
    return p;
}

/// An event that is a public member, of the class or of a base: PublishedEvent<&TControl::OnClick>(...).
template <auto Member>
TProperty PublishedEvent(std::string_view Name, std::string_view Help) {
    using M = detail::TMember<decltype(Member)>;
    TProperty p;
    p.Name = Name;
    p.Kind = TPropertyKind::Event;
    p.Get = [](const TPersistent& O) {
        return TEventValue(static_cast<const typename M::Class&>(O).*Member);
    };
    p.Set = [](TPersistent& O, const TPropertyValue& Value) {
        static_cast<typename M::Class&>(O).*Member =
            std::get<TEventValue>(Value).template As<typename M::Value>();
    };
    p.Help = Help;
    return p;
}

/// An owned sub-object; Getter returns a pointer or a reference to it and may be const or not. Setting it
/// from a value assigns to it.
template <auto Getter>
TProperty PublishedObject(std::string_view Name, std::string_view Help) {
    using G = detail::TMember<decltype(Getter)>;
    TProperty p;
    p.Name = Name;
    p.Kind = TPropertyKind::SubObject;
    p.Get = [](const TPersistent& O) -> TPropertyValue {
        // The object is reached through the table of a mutable owner; constness is the walker's to keep.
        auto& owner = const_cast<typename G::Class&>(static_cast<const typename G::Class&>(O));
        decltype(auto) object = (owner.*Getter)();
        using R = std::remove_reference_t<decltype(object)>;
        if constexpr (std::is_pointer_v<R>)
            return static_cast<TPersistent*>(
                const_cast<std::remove_const_t<std::remove_pointer_t<R>>*>(object));
        else
            return static_cast<TPersistent*>(&const_cast<std::remove_const_t<R>&>(object));
    };
    p.Set = [get = p.Get](TPersistent& O, const TPropertyValue& Value) {
        if (auto* source = std::get<TPersistent*>(Value)) std::get<TPersistent*>(get(O))->Assign(*source);
    };
    p.Help = Help;
    return p;
}

} // namespace kx
