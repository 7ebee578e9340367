#pragma once
// A data set that holds its records itself: for small programs, and the base of those that read them from
// somewhere.

#include <kxgraph/platform/data/dataset.h>
#include <kxgraph/platform/data/recordstore.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Records in memory. Derived classes say where they come from.
class TCustomMemoryDataSet : public TDataSet {
public:
    int GetRecordCount() const override { return FStore.GetCount(); }

protected:
    using TDataSet::TDataSet;

    TFieldValue GetRecordValue(int Position, int Field) const override {
        return FStore.GetValue(Position, Field);
    }
    void UpdateRecord(int Position, const TChangedValues& Values) override;
    int InsertRecord(int Position, const TChangedValues& Values) override;
    void DeleteRecord(int Position) override { FStore.Delete(Position); }

    TRecordStore FStore;
};

/// Fields that the program defines, and records that it fills, which stay when the data set is closed.
///
///     kx::TMemoryDataSet readings(&form);
///     readings.DefineField("t", kx::ftDateTime);
///     readings.DefineField("u", kx::ftNumber);
///     readings.Open();
///     readings.AppendRecord({1.5e9, 230.1});
class TMemoryDataSet : public TCustomMemoryDataSet {
public:
    explicit TMemoryDataSet(TComponent* Owner) : TCustomMemoryDataSet(Owner) {}

    /// Drops all records. Raises EDataSetError while the data set is open, and for a name that is empty or
    /// taken.
    void DefineField(std::string_view Name, TFieldType Type);
    /// Append, the values in the order of the fields, and Post. A value that a field does not take is raised,
    /// and no record stays.
    void AppendRecord(const std::vector<TFieldValue>& Values);
    /// Deletes all records at once.
    void Clear();

    bool IsSequenced() const override { return FSequenced; }
    /// Whether RecNo counts the records. Otherwise it is a number that each record keeps.
    bool GetSequenced() const { return FSequenced; }
    void SetSequenced(bool Sequenced) { FSequenced = Sequenced; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TMemoryDataSet>(); }
    void OpenRecords() override;
    void CloseRecords() override {}
    int RecNoAt(int Position) const override { return FSequenced ? Position + 1 : FStore.GetId(Position); }

private:
    std::vector<std::string> FNames;
    std::vector<TFieldType> FTypes;
    bool FSequenced = true;
};

/// Enters the classes of this room in the list of classes.
void RegisterDataClasses();

} // namespace kx
