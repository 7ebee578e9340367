#include <kxgraph/platform/data/memorydataset.h>

#include <kxgraph/platform/data/datasource.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kx {

void TCustomMemoryDataSet::UpdateRecord(int Position, const TChangedValues& Values) {
    for (const auto& [field, value] : Values) FStore.SetValue(Position, field, value);
}

int TCustomMemoryDataSet::InsertRecord(int Position, const TChangedValues& Values) {
    FStore.Insert(Position);
    TCustomMemoryDataSet::UpdateRecord(Position, Values);
    return Position;
}

void TMemoryDataSet::DefineField(std::string_view Name, TFieldType Type) {
    if (GetActive()) throw EDataSetError("The data set is open");
    const bool isTaken =
        std::ranges::any_of(FNames, [&](const std::string& Other) { return SameText(Other, Name); });
    if (Name.empty() || isTaken)
        throw EDataSetError("'" + Abridged(Name) + "' cannot be the name of a field, or is one already");
    FNames.emplace_back(Name);
    FTypes.push_back(Type);
    FStore.SetColumns(std::vector<TRecordStore::TColumn>(FTypes.begin(), FTypes.end()));
}

void TMemoryDataSet::AppendRecord(const std::vector<TFieldValue>& Values) {
    const TComponentRef<TMemoryDataSet> self(this);
    Append();
    try {
        for (std::size_t i = 0; self && i < Values.size(); ++i) GetField(int(i)).SetValue(Values[i]);
    } catch (...) {
        if (self) Cancel();
        throw;
    }
    if (self) Post();
}

void TMemoryDataSet::Clear() {
    const TComponentRef<TMemoryDataSet> self(this);
    Cancel();
    if (!self) return;
    FStore.Clear();
    if (GetActive()) Refresh();
}

void TMemoryDataSet::OpenRecords() {
    for (std::size_t i = 0; i < FNames.size(); ++i) AddField(FNames[i], FTypes[i]);
}

const TPropertyTable& TMemoryDataSet::Properties() {
    using C = TMemoryDataSet;
    static const TPropertyTable table("TMemoryDataSet", &TDataSet::Properties(),
                                      {Published<&C::GetSequenced, &C::SetSequenced>(
                                          "Sequenced", true, "Whether record numbers count the records")});
    return table;
}

void RegisterDataClasses() {
    RegisterClass<TDataSource>("TDataSource", CGeneralPage);
    RegisterClass<TMemoryDataSet>("TMemoryDataSet", CGeneralPage);
}

} // namespace kx
