#pragma once
// Records in memory, a column of one kind of values for each field.

#include <kxgraph/platform/data/field.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kx {

/// Records in order, each with an id of its own that stays. Inserting and deleting cost the distance to where
/// that was done last, so that a walk through all records that deletes or inserts as it goes is one pass.
class TRecordStore {
public:
    /// The values of one field, those of one kind, and which of them are there.
    struct TColumn {
        explicit TColumn(TFieldType Type = ftText);
        std::variant<std::vector<std::string>, std::vector<std::int64_t>, std::vector<double>> Values;
        std::vector<bool> Filled;
    };

    /// Drops all records. The columns, all of one length, bring others.
    void SetColumns(std::vector<TColumn> Columns);
    void Clear();
    int GetCount() const { return int(FRows.size()) - FGap; }
    /// A new record in front of Row, which may be Count, without values.
    void Insert(int Row);
    void Delete(int Row);

    TFieldValue GetValue(int Row, int Column) const;
    /// Value is of the kind of the column, or nothing.
    void SetValue(int Row, int Column, TFieldValue Value);
    /// From 1, in the order of insertion.
    int GetId(int Row) const { return FIds[SlotOf(Row)]; }

private:
    std::size_t SlotOf(int Row) const {
        return std::size_t(FRows[std::size_t(Row < FGapAt ? Row : Row + FGap)]);
    }
    std::size_t TakeSlot();
    void MoveGap(int Row);
    void WidenGap();

    std::vector<TColumn> FColumns;
    std::vector<int> FIds;  // by slot
    std::vector<int> FFree; // slots of records that were deleted
    std::vector<int> FRows; // slots in order, with a gap of FGap at FGapAt
    int FGapAt = 0, FGap = 0, FLastId = 0;
};

} // namespace kx
