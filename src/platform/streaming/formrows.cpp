#include <kxgraph/platform/streaming/formrows.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <unordered_map>

namespace kx {

namespace {

const TProperty* FindKept(const TPropertyTable& Table, std::string_view Name) {
    for (const TPropertyTable* table = &Table; table; table = table->GetBase())
        for (const TProperty& row : table->GetKept())
            if (row.Set && SameText(row.Name, Name)) return &row;
    return nullptr;
}

} // namespace

TFormRows::TFormRows(const TPropertyTable& Table) { Add(Table, Table); }

const TFormRows& TFormRows::Of(const TPropertyTable& Table) {
    thread_local std::unordered_map<const TPropertyTable*, TFormRows> made;
    return made.try_emplace(&Table, Table).first->second;
}

void TFormRows::Add(const TPropertyTable& Table, const TPropertyTable& Whole) {
    if (Table.GetBase()) Add(*Table.GetBase(), Whole);
    for (const TProperty& row : Table.GetKept())
        if ((row.Set || row.Kind == TPropertyKind::SubObject) && !Whole.Find(row.Name) && !Find(row.Name))
            FRows.push_back(row), FPublished.push_back(false);
    for (const TProperty& row : Table.GetOwn()) AddPublished(row, Whole);
}

void TFormRows::AddPublished(const TProperty& Row, const TPropertyTable& Whole) {
    const auto before =
        std::ranges::find_if(FRows, [&](const TProperty& R) { return SameText(R.Name, Row.Name); });
    const bool isNew = before == FRows.end();
    if (isNew) FPublished.push_back(true);
    TProperty& row = isNew ? FRows.emplace_back(Row) : * before = Row;
    if (const TProperty* kept = FindKept(Whole, Row.Name)) {
        row.Get = kept->Get;
        if (!row.Load) row.Load = kept->Load;
    }
}

const TProperty* TFormRows::Find(std::string_view Name) const {
    const auto found =
        std::ranges::find_if(FRows, [&](const TProperty& R) { return SameText(R.Name, Name); });
    return found == FRows.end() ? nullptr : &*found;
}

std::vector<std::string_view> TFormRows::Names() const {
    std::vector<std::string_view> names;
    for (const TProperty& row : FRows)
        if (row.Set) names.push_back(row.Name);
    return names;
}

} // namespace kx
