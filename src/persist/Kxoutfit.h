#pragma once
// Tables of what a class keeps in an INI store. A class has one static table of entries in file order; saving
// and loading walk the same one:
//
//     const TKxOutfit<TKxAxis>& AxisOutfit() {
//         static const TKxOutfit<TKxAxis> table{
//             OutfitFont<&TKxAxis::GetFont>("Font"),
//             Outfit<&TKxAxis::GetTwisted, &TKxAxis::SetTwisted>("Twisted"),
//         };
//         return table;
//     }

#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/objects/properties.h>

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace kx {

/// How one key of C is written and read. For a key that none of the makers below serves, a class gives the
/// two functions itself.
template <class C>
struct TKxOutfitEntry {
    std::string_view Key;
    std::function<void(const C&, std::string_view Section, std::string_view Key, TKxIniList&)> Save;
    std::function<void(C&, std::string_view Section, std::string_view Key, const TKxIniList&)> Load;
};

template <class C>
using TKxOutfit = std::vector<TKxOutfitEntry<C>>;

/// Writes all entries of Table into Section, in order, with Prefix before each key. Object may be of a class
/// derived from C.
template <class C>
void SaveOutfitTable(const std::type_identity_t<C>& Object, const TKxOutfit<C>& Table,
                     std::string_view Section, TKxIniList& Ini, std::string_view Prefix = {}) {
    for (const auto& entry : Table) entry.Save(Object, Section, std::string(Prefix).append(entry.Key), Ini);
}

/// Reads all entries of Table, in order. Setters are called for keys that are missing, too, with the value
/// that the object has at that moment (or the entry's default).
template <class C>
void LoadOutfitTable(std::type_identity_t<C>& Object, const TKxOutfit<C>& Table, std::string_view Section,
                     const TKxIniList& Ini, std::string_view Prefix = {}) {
    for (const auto& entry : Table) entry.Load(Object, Section, std::string(Prefix).append(entry.Key), Ini);
}

namespace detail {

/// Getters of sub-objects need not be const; saving changes nothing through them.
template <auto Getter, class C>
decltype(auto) OutfitGet(const C& Object) {
    return std::invoke(Getter, const_cast<C&>(Object));
}

template <auto Getter, class C>
auto& OutfitObject(const C& Object) {
    decltype(auto) object = OutfitGet<Getter>(Object);
    if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(object)>>)
        return *object;
    else
        return object;
}

template <class V>
void WriteOutfitValue(TKxIniList& Ini, std::string_view Section, std::string_view Key, const V& Value) {
    if constexpr (std::is_same_v<V, bool>)
        Ini.WriteBool(Section, Key, Value);
    else if constexpr (std::is_enum_v<V> || std::is_integral_v<V>)
        Ini.WriteInteger(Section, Key, static_cast<std::int32_t>(Value));
    else if constexpr (std::is_floating_point_v<V>)
        Ini.WriteReal(Section, Key, Value);
    else
        Ini.WriteString(Section, Key, Value);
}

/// Whether Ordinal is a value of V; any is, for an enumeration without names.
template <class V>
bool IsOrdinalOf(std::int32_t Ordinal) {
    if constexpr (std::is_null_pointer_v<std::remove_cvref_t<decltype(CEnumNames<V>)>>)
        return true;
    else
        return Ordinal >= 0 && static_cast<std::size_t>(Ordinal) < CEnumNames<V>.size();
}

template <class V>
V ReadOutfitValue(const TKxIniList& Ini, std::string_view Section, std::string_view Key, const V& Default,
                  [[maybe_unused]] const V& Current) {
    if constexpr (std::is_same_v<V, bool>) {
        return Ini.ReadBool(Section, Key, Default);
    } else if constexpr (std::is_enum_v<V>) {
        const std::int32_t ordinal = Ini.ReadInteger(Section, Key, static_cast<std::int32_t>(Default));
        return IsOrdinalOf<V>(ordinal) ? static_cast<V>(ordinal) : Current;
    } else if constexpr (std::is_integral_v<V>) {
        const std::int32_t value = Ini.ReadInteger(Section, Key, static_cast<std::int32_t>(Default));
        return std::in_range<V>(value) ? static_cast<V>(value) : Current;
    } else if constexpr (std::is_floating_point_v<V>) {
        return static_cast<V>(Ini.ReadReal(Section, Key, Default));
    } else {
        return V(Ini.ReadString(Section, Key, Default));
    }
}

/// An entry whose class is known when it enters a table: a getter may be inherited.
template <class F>
struct TOutfitMaker {
    F Make;
    template <class C>
    operator TKxOutfitEntry<C>() const {
        return Make(std::type_identity<C>());
    }
};

template <class F>
TOutfitMaker(F) -> TOutfitMaker<F>;

} // namespace detail

/// A bool, a number of at most 32 bits, an enumeration (as its ordinal; one that has no name in CEnumNames
/// leaves the current value), a colour, a real or a text. Default, if given, is read for a missing key
/// instead of the current value.
template <auto Getter, auto Setter, class... D>
auto Outfit(std::string_view Key, D... Default) {
    static_assert(sizeof...(D) <= 1, "one default at most");
    return detail::TOutfitMaker{[=]<class C>(std::type_identity<C>) {
        using V = std::remove_cvref_t<decltype(detail::OutfitGet<Getter>(std::declval<const C&>()))>;
        return TKxOutfitEntry<C>{Key,
                                 [](const C& O, std::string_view S, std::string_view K, TKxIniList& Ini) {
                                     detail::WriteOutfitValue<V>(Ini, S, K, detail::OutfitGet<Getter>(O));
                                 },
                                 [=](C& O, std::string_view S, std::string_view K, const TKxIniList& Ini) {
                                     const V current = detail::OutfitGet<Getter>(O);
                                     V missing = current;
                                     ((missing = static_cast<V>(Default)), ...);
                                     std::invoke(Setter, O,
                                                 detail::ReadOutfitValue<V>(Ini, S, K, missing, current));
                                 }};
    }};
}

namespace detail {

/// An owned object that Write and Read, members of TKxIniList, serve.
template <auto Getter, auto Write, auto Read>
auto OutfitPart(std::string_view Key) {
    return TOutfitMaker{[=]<class C>(std::type_identity<C>) {
        return TKxOutfitEntry<C>{Key,
                                 [](const C& O, std::string_view S, std::string_view K, TKxIniList& Ini) {
                                     (Ini.*Write)(S, K, OutfitObject<Getter>(O));
                                 },
                                 [](C& O, std::string_view S, std::string_view K, const TKxIniList& Ini) {
                                     (Ini.*Read)(S, K, OutfitObject<Getter>(O));
                                 }};
    }};
}

} // namespace detail

/// A font, a line style, an area style. Getter returns a reference or a pointer to it and need not be const.
template <auto Getter>
auto OutfitFont(std::string_view Key) {
    return detail::OutfitPart<Getter, &TKxIniList::WriteFont, &TKxIniList::ReadFont>(Key);
}
template <auto Getter>
auto OutfitLine(std::string_view Key) {
    return detail::OutfitPart<Getter, &TKxIniList::WriteLine, &TKxIniList::ReadLine>(Key);
}
template <auto Getter>
auto OutfitArea(std::string_view Key) {
    return detail::OutfitPart<Getter, &TKxIniList::WriteArea, &TKxIniList::ReadArea>(Key);
}

/// A component that is not owned. The setter is called only when the reference changes.
template <auto Getter, auto Setter>
auto OutfitRef(std::string_view Key) {
    return detail::TOutfitMaker{[=]<class C>(std::type_identity<C>) {
        return TKxOutfitEntry<C>{Key,
                                 [](const C& O, std::string_view S, std::string_view K, TKxIniList& Ini) {
                                     Ini.WriteComponentRef(S, K, detail::OutfitGet<Getter>(O));
                                 },
                                 [](C& O, std::string_view S, std::string_view K, const TKxIniList& Ini) {
                                     const auto current = detail::OutfitGet<Getter>(O);
                                     auto reference = current;
                                     Ini.ReadComponentRef(S, K, reference);
                                     if (reference != current) std::invoke(Setter, O, reference);
                                 }};
    }};
}

} // namespace kx
