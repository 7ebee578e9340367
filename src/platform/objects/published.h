#pragma once
// The rows of property tables, made from a getter and a setter. Two classes of unnamed namespaces must not
// bear one name: some compilers take rows of members that are spelled alike for the same.

#include <kxgraph/platform/objects/persistent.h>
#include <kxgraph/platform/objects/typenames.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace kx {

class TComponent;

namespace detail {

/// Of a getter, of a setter (also a function that is given the object and the value), or of a field.
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
template <class C, class A>
struct TMember<void (*)(C&, A)> {
    using Class = C;
    using Value = A;
};
template <class C, class E>
struct TMember<E C::*> {
    using Class = C;
    using Value = E;
};

template <auto Member>
using TClassOf = typename TMember<decltype(Member)>::Class;
template <auto Member>
using TValueOf = std::remove_cvref_t<typename TMember<decltype(Member)>::Value>;

template <class V>
constexpr TPropertyKind KindOf() {
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
    else if constexpr (std::is_same_v<V, std::vector<double>>)
        return TPropertyKind::Reals;
    else
        return TPropertyKind::Text;
}

template <class T>
TPropertyValue ToValue(const T& Value) {
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::vector<double>>)
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
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::vector<double>>) {
        return std::get<T>(Value);
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

/// Hands Value to a setter, or stores it in a field.
template <auto Target, class C, class V>
void Write(C& Object, V&& Value) {
    if constexpr (std::is_member_object_pointer_v<decltype(Target)>)
        Object.*Target = std::forward<V>(Value);
    else
        std::invoke(Target, Object, std::forward<V>(Value));
}

template <auto Target>
TPropertySetter SetterTo(std::string_view Name = {}) {
    return [Name](TPersistent& O, const TPropertyValue& Value) {
        Write<Target>(static_cast<TClassOf<Target>&>(O), FromValue<TValueOf<Target>>(Name, Value));
    };
}

template <class D, class V>
TPropertyValue DefaultOf(D Default) {
    if constexpr (std::is_same_v<D, std::monostate>)
        return Default;
    else if constexpr (std::is_null_pointer_v<D>)
        return static_cast<TComponent*>(nullptr);
    else if constexpr (std::is_same_v<V, std::string>)
        return std::string(Default);
    else
        return ToValue<V>(static_cast<V>(Default));
}

/// What follows from the type of the value.
template <class V>
void Describe(TProperty& Property) {
    Property.Kind = KindOf<V>();
    Property.TypeName = CTypeName<V>;
    if constexpr (std::is_enum_v<V>) {
        if constexpr (!std::is_null_pointer_v<std::remove_cvref_t<decltype(CEnumNames<V>)>>)
            Property.ValueNames = CEnumNames<V>;
    } else if constexpr (std::is_integral_v<V> &&
                         std::numeric_limits<V>::digits < std::numeric_limits<std::int64_t>::digits) {
        Property.Lowest = std::numeric_limits<V>::lowest();
        Property.Highest = std::numeric_limits<V>::max();
    } else if constexpr (std::is_pointer_v<V>) {
        Property.Accepts = [](const TComponent* Component) {
            return dynamic_cast<const std::remove_pointer_t<V>*>(Component) != nullptr;
        };
    }
}

} // namespace detail

/// A property that is only shown, or only saved: read by Getter, a pointer to a member function of the class
/// or of a base, or to a field. The kind follows from its type.
template <auto Getter>
TProperty ReadOnly(std::string_view Name, std::string_view Help = {}) {
    using V = detail::TValueOf<Getter>;
    TProperty p;
    p.Name = Name;
    detail::Describe<V>(p);
    p.Get = [](const TPersistent& O) {
        return detail::ToValue<V>(std::invoke(Getter, static_cast<const detail::TClassOf<Getter>&>(O)));
    };
    p.Help = Help;
    return p;
}

/// A property that is written by Setter, too (or into a field). Default is compared with the value to decide
/// what is stored; std::monostate{} has it stored always.
template <auto Getter, auto Setter, class D>
TProperty Published(std::string_view Name, D Default, std::string_view Help,
                    std::function<bool(const TPersistent&)> Stored = {}) {
    TProperty p = ReadOnly<Getter>(Name, Help);
    p.Set = detail::SetterTo<Setter>(Name);
    p.Default = detail::DefaultOf<D, detail::TValueOf<Getter>>(Default);
    p.Stored = std::move(Stored);
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

/// A row of outfits alone, see TKept.
template <auto Getter, auto Setter>
TProperty Kept(std::string_view Name) {
    return Published<Getter, Setter>(Name, std::monostate{}, {});
}

/// Loads a value past the setter: straight into a field, or by Target.
template <auto Target>
TPropertySetter Into() {
    return detail::SetterTo<Target>();
}

/// A function that is called back, read by Getter and written by Setter; or a public member that is an event,
/// of the class or of a base: PublishedEvent<&TControl::OnClick>(...).
template <auto Getter, auto Setter = Getter>
TProperty PublishedEvent(std::string_view Name, std::string_view Help) {
    using C = detail::TClassOf<Getter>;
    TProperty p;
    p.Name = Name;
    p.Kind = TPropertyKind::Event;
    p.Get = [](const TPersistent& O) { return TEventValue(std::invoke(Getter, static_cast<const C&>(O))); };
    p.Set = [](TPersistent& O, const TPropertyValue& Value) {
        detail::Write<Setter>(static_cast<C&>(O),
                              std::get<TEventValue>(Value).template As<detail::TValueOf<Getter>>());
    };
    p.Help = Help;
    return p;
}

/// An owned sub-object; Getter returns a pointer or a reference to it and may be const or not. Setting it
/// from a value assigns to it.
template <auto Getter>
TProperty PublishedObject(std::string_view Name, std::string_view Help) {
    using C = detail::TClassOf<Getter>;
    TProperty p;
    p.Name = Name;
    p.Kind = TPropertyKind::SubObject;
    p.Get = [](const TPersistent& O) -> TPropertyValue {
        // The object is reached through the table of a mutable owner; constness is the walker's to keep.
        decltype(auto) object = std::invoke(Getter, const_cast<C&>(static_cast<const C&>(O)));
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
