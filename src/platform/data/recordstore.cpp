#include <kxgraph/platform/data/recordstore.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace kx {

TRecordStore::TColumn::TColumn(TFieldType Type) {
    if (Type == ftInteger)
        Values = std::vector<std::int64_t>();
    else if (Type != ftText)
        Values = std::vector<double>();
}

void TRecordStore::SetColumns(std::vector<TColumn> Columns) {
    const std::size_t count = Columns.empty() ? 0 : Columns.front().Filled.size();
    std::vector<int> ids(count), rows(count);
    std::iota(ids.begin(), ids.end(), 1);
    std::iota(rows.begin(), rows.end(), 0);
    FFree.clear();
    FColumns = std::move(Columns);
    FIds = std::move(ids);
    FRows = std::move(rows);
    FGapAt = FGap = 0;
    FLastId = int(count);
}

void TRecordStore::Clear() {
    for (TColumn& column : FColumns) {
        std::visit([](auto& Values) { Values.clear(); }, column.Values);
        column.Filled.clear();
    }
    FIds.clear();
    FFree.clear();
    FRows.clear();
    FGapAt = FGap = FLastId = 0;
}

/// Where memory fails nothing has happened but that some columns are longer than they need be.
std::size_t TRecordStore::TakeSlot() {
    if (FFree.empty()) {
        const std::size_t slot = FIds.size();
        for (TColumn& column : FColumns) {
            std::visit([&](auto& Values) { Values.resize(slot + 1); }, column.Values);
            column.Filled.resize(slot + 1);
        }
        FFree.reserve(FFree.capacity() <= slot ? 2 * slot + 1 : 0); // so that deleting cannot fail
        FIds.push_back(++FLastId);
        return slot;
    }
    const auto slot = std::size_t(FFree.back());
    FFree.pop_back();
    for (TColumn& column : FColumns) column.Filled[slot] = false;
    FIds[slot] = ++FLastId;
    return slot;
}

void TRecordStore::MoveGap(int Row) {
    const auto at = FRows.begin();
    if (FGap > 0 && Row < FGapAt)
        std::move_backward(at + Row, at + FGapAt, at + FGapAt + FGap);
    else if (FGap > 0)
        std::move(at + FGapAt + FGap, at + Row + FGap, at + FGapAt);
    FGapAt = Row;
}

void TRecordStore::WidenGap() {
    const int count = GetCount(), wanted = std::max(count / 2, 16);
    FRows.resize(FRows.size() + std::size_t(wanted));
    FGapAt = count;
    FGap = wanted;
}

void TRecordStore::Insert(int Row) {
    if (FGap == 0) WidenGap();
    MoveGap(Row);
    FRows[std::size_t(FGapAt)] = int(TakeSlot());
    ++FGapAt;
    --FGap;
}

void TRecordStore::Delete(int Row) {
    FFree.push_back(int(SlotOf(Row)));
    MoveGap(Row);
    ++FGap;
}

TFieldValue TRecordStore::GetValue(int Row, int Column) const {
    const TColumn& column = FColumns[std::size_t(Column)];
    const std::size_t slot = SlotOf(Row);
    if (!column.Filled[slot]) return {};
    return std::visit([&](const auto& Values) { return TFieldValue(Values[slot]); }, column.Values);
}

void TRecordStore::SetValue(int Row, int Column, TFieldValue Value) {
    TColumn& column = FColumns[std::size_t(Column)];
    const std::size_t slot = SlotOf(Row);
    column.Filled[slot] = Value.index() != 0;
    std::visit(
        [&]<class T>(std::vector<T>& Values) {
            auto* value = std::get_if<T>(&Value);
            Values[slot] = value ? std::move(*value) : T();
        },
        column.Values);
}

} // namespace kx
