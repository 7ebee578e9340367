#include <kxgraph/platform/objects/persistent.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace kx {

void TPersistent::Assign(const TPersistent& Source) {
    throw EConvertError("Cannot assign a " + Source.ClassName() + " to a " + ClassName());
}

const TPropertyTable& TPersistent::PublishedProperties() const {
    static const TPropertyTable table("TPersistent", nullptr, {});
    return table;
}

std::string TPersistent::ClassName() const { return std::string(PublishedProperties().GetClassName()); }

namespace {

using TRows = std::vector<const TProperty*>;

/// What All answers, made once a table when somebody asks, as few tables are ever asked.
class TAllRows {
public:
    static TAllRows& Instance() {
        static TAllRows all;
        return all;
    }
    /// Of a table that is made where another one may have been.
    void Forget(const TPropertyTable& Table) {
        const std::lock_guard lock(FMutex);
        FMade.erase(&Table);
    }
    TRows Of(const TPropertyTable& Table) {
        const std::lock_guard lock(FMutex);
        return Made(Table);
    }

private:
    const TRows& Made(const TPropertyTable& Table) {
        if (const auto known = FMade.find(&Table); known != FMade.end()) return known->second;
        TRows rows = Table.GetBase() ? Made(*Table.GetBase()) : TRows();
        const std::size_t inherited = rows.size();
        for (const TProperty& own : Table.GetOwn()) {
            const auto end = rows.begin() + std::ptrdiff_t(inherited);
            const auto before = std::find_if(
                rows.begin(), end, [&](const TProperty* Row) { return SameText(Row->Name, own.Name); });
            before == end ? rows.push_back(&own) : void(*before = &own);
        }
        return FMade[&Table] = std::move(rows);
    }

    std::mutex FMutex;
    std::unordered_map<const TPropertyTable*, TRows> FMade;
};

} // namespace

TPropertyTable::TPropertyTable(std::string_view ClassName, const TPropertyTable* Base,
                               std::vector<TProperty> Properties, const std::vector<TKept>& Kept)
    : FClassName(ClassName), FBase(Base), FOwn(std::move(Properties)) {
    TAllRows::Instance().Forget(*this);
    FKept.reserve(Kept.size());
    for (const TKept& kept : Kept) {
        const TProperty* row = kept.Row.Get ? &kept.Row : Find(kept.Name);
        if (!row)
            throw EPropertyError(std::string(ClassName) + " keeps no property " + std::string(kept.Name));
        FKept.push_back(*row);
    }
}

const TProperty* TPropertyTable::Find(std::string_view Name) const {
    for (const TPropertyTable* table = this; table; table = table->FBase)
        for (const TProperty& property : table->FOwn)
            if (SameText(property.Name, Name)) return &property;
    return nullptr;
}

const TProperty* TPropertyTable::FindKey(std::string_view Key) const {
    for (const TPropertyTable* table = this; table; table = table->FBase)
        for (const TProperty& row : table->FKept)
            if (row.Set && SameText(row.GetKey(), Key)) return &row;
    return nullptr;
}

std::vector<const TProperty*> TPropertyTable::All() const { return TAllRows::Instance().Of(*this); }

TProperty TPropertyTable::Promoted(std::string_view Name) const {
    for (const TProperty& row : FKept)
        if (row.Name == Name) return row;
    throw EPropertyError(std::string(FClassName) + " keeps no property " + std::string(Name));
}

bool IsStored(const TPersistent& Object, const TProperty& Property) {
    if (!Property.Set || Property.Kind == TPropertyKind::Event) return false; // nothing could read it back
    if (Property.Stored && !Property.Stored(Object)) return false;
    return std::holds_alternative<std::monostate>(Property.Default) ||
           Property.Get(Object) != Property.Default;
}

void TEventValue::RaiseOtherType() { throw EPropertyError("The event is of another type than the property"); }

} // namespace kx
