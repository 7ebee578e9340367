#include <kxgraph/platform/objects/persistent.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
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

TPropertyTable::TPropertyTable(std::string_view ClassName, const TPropertyTable* Base,
                               std::vector<TProperty> Properties, const std::vector<TKept>& Kept)
    : FClassName(ClassName), FBase(Base), FOwn(std::move(Properties)) {
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

std::vector<const TProperty*> TPropertyTable::All() const {
    std::vector<const TProperty*> all;
    if (FBase) all = FBase->All();
    for (const TProperty& own : FOwn) {
        const auto before = std::find_if(all.begin(), all.end(), [&](const TProperty* Property) {
            return SameText(Property->Name, own.Name);
        });
        if (before == all.end())
            all.push_back(&own);
        else
            *before = &own;
    }
    return all;
}

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
