#pragma once
// Persistent objects and what a table of their properties holds. A class declares its properties once, in one
// table chained to its base class's (published.h makes the rows); form streaming, inspectors, outfits,
// kxplot's --set and the reference all walk it. Knows no components and no file.

#include <any>
#include <concepts>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kx {

class TComponent;
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

namespace detail {

template <std::equality_comparable E>
bool IsSameHandler(const E& A, const E& B) {
    return A == B;
}
template <class R, class... A>
bool IsSameHandler(const std::function<R(A...)>& F, const std::function<R(A...)>& G) {
    using TPlain = R (*)(A...);
    if (F.target_type() != G.target_type()) return false;
    const TPlain* plain = F.template target<TPlain>();
    return !plain || *plain == *G.template target<TPlain>();
}

} // namespace detail

/// What an Event holds: a copy of the event, or of the function, of the property's own type.
class TEventValue {
public:
    TEventValue() = default;
    template <class E>
    explicit TEventValue(const E& Event)
        : FEvent(Event), FIsAssigned(static_cast<bool>(Event)),
          FIsSame([](const std::any& A, const std::any& B) {
              const E *a = std::any_cast<E>(&A), *b = std::any_cast<E>(&B);
              return a && b && detail::IsSameHandler(*a, *b);
          }) {}
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
    /// As far as it can be told: of two functions (std::function) whether they are of one type and, plain
    /// functions, the same one.
    bool IsSameHandler(const TEventValue& Other) const {
        return *this && Other && FIsSame(FEvent, Other.FEvent);
    }

private:
    [[noreturn]] static void RaiseOtherType();

    std::any FEvent;
    bool FIsAssigned = false;
    bool (*FIsSame)(const std::any&, const std::any&) = nullptr;
};

using TPropertyValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, TComponent*,
                                    TPersistent*, TEventValue, std::vector<double>>;

enum class TPropertyKind {
    Bool,        ///< bool; text "1"/"0", "true"/"false"
    Integer,     ///< std::int64_t; decimal text
    Real,        ///< double; point form
    Text,        ///< std::string as it stands
    Enumeration, ///< std::int64_t ordinal; text is the value's name or its ordinal
    Flags,       ///< std::int64_t bit mask; text is the names joined by commas
    Color,       ///< std::int64_t; text is a name (clRed), $BBGGRR, #RRGGBB or a decimal number
    Reals,       ///< std::vector<double>; text is the numbers joined by semicolons
    Reference,   ///< TComponent*, not owned; text is the component's name
    SubObject,   ///< TPersistent*, owned by the object; its own properties are reached by name.name
    Event ///< TEventValue; connected by programs, never stored. Its text, "assigned" or empty, is shown only
};

using TPropertySetter = std::function<void(TPersistent&, const TPropertyValue&)>;

/// One property. Get, Set and Load are given objects of the class that declares the property.
struct TProperty {
    std::string_view Name;
    TPropertyKind Kind{};
    std::span<const std::string_view> ValueNames; ///< Enumeration and Flags
    std::function<TPropertyValue(const TPersistent&)> Get;
    TPropertySetter Set;                            ///< empty: read only
    TPropertyValue Default;                         ///< monostate: always stored
    std::function<bool(const TPersistent&)> Stored; ///< empty: stored
    std::string_view Help;                          ///< one line, with the unit
    std::string_view TypeName; ///< of a type that has an editor of its own (CTypeName); empty otherwise
    std::int64_t Lowest = std::numeric_limits<std::int64_t>::min(),
                 Highest = std::numeric_limits<std::int64_t>::max(); ///< what the type of an Integer holds
    bool (*Accepts)(const TComponent*) = nullptr; ///< Reference: whether a component is of the class

    // How it is kept in an outfit, see TKept.
    std::string_view Key;   ///< empty: Name
    TPropertySetter Load;   ///< empty: Set
    TPropertyValue Missing; ///< what is loaded without the key; monostate: the value of that moment

    TProperty WithKey(std::string_view OtherKey) && { return Key = OtherKey, std::move(*this); }
    TProperty LoadedBy(TPropertySetter Setter) && { return Load = std::move(Setter), std::move(*this); }
    TProperty IfMissing(TPropertyValue Value) && { return Missing = std::move(Value), std::move(*this); }
    std::string_view GetKey() const { return Key.empty() ? Name : Key; }
};

/// An entry of the list of what outfits keep: a property of the class or of a base by its name, or a row that
/// is not published.
struct TKept {
    TKept(const char* Name) : Name(Name) {}
    TKept(TProperty Row) : Name(Row.Name), Row(std::move(Row)) {}
    std::string_view Name;
    TProperty Row;
};

/// The properties of one class, in order of declaration, chained to those of its base class; and those of
/// them that its outfit adds to that of its base class, in the order of the file.
class TPropertyTable {
public:
    /// Raises EPropertyError when Kept names a property that there is not.
    TPropertyTable(std::string_view ClassName, const TPropertyTable* Base, std::vector<TProperty> Properties,
                   const std::vector<TKept>& Kept = {});
    std::string_view GetClassName() const { return FClassName; }
    const TPropertyTable* GetBase() const { return FBase; }
    std::span<const TProperty> GetOwn() const { return FOwn; }
    std::span<const TProperty> GetKept() const { return FKept; }
    /// By name, ignoring the case of ASCII letters; the derived class goes first; null when there is none.
    const TProperty* Find(std::string_view Name) const;
    /// What outfits keep under Key, ignoring case; the derived class goes first; null when there is none.
    const TProperty* FindKey(std::string_view Key) const;
    /// All properties, the base class's first; one that is declared again shows in its last form only.
    std::vector<const TProperty*> All() const;
    /// A copy of what this class keeps without publishing it, for a derived class that publishes it.
    TProperty Promoted(std::string_view Name) const;

private:
    std::string_view FClassName;
    const TPropertyTable* FBase;
    std::vector<TProperty> FOwn, FKept;
};

/// Whether the property must be written: its predicate holds and its value differs from the default.
bool IsStored(const TPersistent& Object, const TProperty& Property);

} // namespace kx
