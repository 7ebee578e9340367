#include <kxgraph/persist/Kxoutfit.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace kx {

namespace {

/// The place of a value.
struct TEntry {
    std::string_view Section;
    const std::string& Key;
};

template <class F>
void ForKeptRows(const TPropertyTable& Table, std::string_view Prefix, F Do) {
    if (const TPropertyTable* base = Table.GetBase()) ForKeptRows(*base, Prefix, Do);
    for (const TProperty& row : Table.GetKept()) Do(row, std::string(Prefix).append(row.GetKey()));
}

TPersistent& SubObject(const TProperty& Row, const TPersistent& Object) {
    return *std::get<TPersistent*>(Row.Get(Object));
}

void Save(const TProperty& Row, const TPropertyValue& Value, TEntry At, TKxIniList& Ini) {
    const auto& [section, key] = At;
    switch (Row.Kind) {
    case TPropertyKind::Bool: return Ini.WriteBool(section, key, std::get<bool>(Value));
    case TPropertyKind::Integer:
    case TPropertyKind::Enumeration:
    case TPropertyKind::Flags:
    case TPropertyKind::Color:
        return Ini.WriteInteger(section, key, static_cast<std::int32_t>(std::get<std::int64_t>(Value)));
    case TPropertyKind::Real: return Ini.WriteReal(section, key, std::get<double>(Value));
    case TPropertyKind::Text: return Ini.WriteString(section, key, std::get<std::string>(Value));
    case TPropertyKind::Reals: {
        const auto& values = std::get<std::vector<double>>(Value);
        return Ini.WriteRealArray(section, key, values.data(), static_cast<int>(values.size()) - 1);
    }
    case TPropertyKind::Reference: return Ini.WriteComponentRef(section, key, std::get<TComponent*>(Value));
    case TPropertyKind::SubObject:
    case TPropertyKind::Event: break; // has no value in a line
    }
}

std::int64_t LoadedInteger(const TProperty& Row, std::int64_t Current, std::int64_t Missing, TEntry At,
                           const TKxIniList& Ini) {
    const std::int64_t value = Ini.ReadInteger(At.Section, At.Key, static_cast<std::int32_t>(Missing));
    const auto names = static_cast<std::int64_t>(Row.ValueNames.size());
    const bool isNamed =
        Row.Kind != TPropertyKind::Enumeration || names == 0 || (value >= 0 && value < names);
    return isNamed && Row.Lowest <= value && value <= Row.Highest ? value : Current;
}

std::vector<double> LoadedReals(std::vector<double> Values, TEntry At, const TKxIniList& Ini) {
    const std::string saved = Ini.ReadString(At.Section, At.Key, "");
    const int high = static_cast<int>(Values.size()) - 1;
    if (std::count(saved.begin(), saved.end(), ';') == high)
        Ini.ReadRealArray(At.Section, At.Key, Values.data(), high);
    return Values;
}

/// What to set: the value that is kept, or else Missing or Current.
TPropertyValue Loaded(const TProperty& Row, const TPropertyValue& Current, TEntry At, const TKxIniList& Ini) {
    const TPropertyValue& missing = Row.Missing.index() == 0 ? Current : Row.Missing;
    const auto& [section, key] = At;
    switch (Row.Kind) {
    case TPropertyKind::Bool: return Ini.ReadBool(section, key, std::get<bool>(missing));
    case TPropertyKind::Integer:
    case TPropertyKind::Enumeration:
    case TPropertyKind::Flags:
    case TPropertyKind::Color:
        return LoadedInteger(Row, std::get<std::int64_t>(Current), std::get<std::int64_t>(missing), At, Ini);
    case TPropertyKind::Real: return Ini.ReadReal(section, key, std::get<double>(missing));
    case TPropertyKind::Text: return Ini.ReadString(section, key, std::get<std::string>(missing));
    case TPropertyKind::Reals: return LoadedReals(std::get<std::vector<double>>(Current), At, Ini);
    case TPropertyKind::Reference: {
        TComponent* found = Ini.FindComponentRef(section, key);
        return found && Row.Accepts(found) ? found : Current;
    }
    case TPropertyKind::SubObject:
    case TPropertyKind::Event: break;
    }
    return Current;
}

void Load(const TProperty& Row, TPersistent& Object, TEntry At, const TKxIniList& Ini) {
    const TPropertySetter& set = Row.Load ? Row.Load : Row.Set;
    if (!set) return;
    const TPropertyValue current = Row.Get(Object);
    const TPropertyValue value = Loaded(Row, current, At, Ini);
    if (Row.Kind != TPropertyKind::Reference || value != current) set(Object, value);
}

} // namespace

void SaveRows(const TPersistent& Object, std::string_view Section, TKxIniList& Ini, std::string_view Prefix) {
    ForKeptRows(Object.PublishedProperties(), Prefix, [&](const TProperty& Row, const std::string& Key) {
        if (Row.Kind == TPropertyKind::SubObject)
            SaveRows(SubObject(Row, Object), Section, Ini, Key + ".");
        else
            Save(Row, Row.Get(Object), {Section, Key}, Ini);
    });
}

void LoadRows(TPersistent& Object, std::string_view Section, const TKxIniList& Ini, std::string_view Prefix) {
    ForKeptRows(Object.PublishedProperties(), Prefix, [&](const TProperty& Row, const std::string& Key) {
        if (Row.Kind == TPropertyKind::SubObject)
            LoadRows(SubObject(Row, Object), Section, Ini, Key + ".");
        else
            Load(Row, Object, {Section, Key}, Ini);
    });
}

} // namespace kx
