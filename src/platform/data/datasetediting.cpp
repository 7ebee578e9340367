// What happens to a record between Edit, Insert or Append and Post or Cancel, and its deletion.

#include <kxgraph/platform/data/dataset.h>

#include <utility>

namespace kx {

void TDataSet::Edit() {
    RequireActive();
    if (IsEditing()) return;
    if (!HasRecord()) return Append();
    CheckCanModify();
    FState = dsEdit;
    Tell(TDataEvent::StateChange);
}

void TDataSet::BeginInsert(bool AtEnd) {
    RequireActive();
    const TComponentRef<TDataSet> self(this);
    CheckCanModify();
    if (!EndEditing()) return;
    FState = dsInsert;
    FInsertAt = AtEnd ? GetRecordCount() : FPosition;
    FBof = FEof = false;
    Tell(TDataEvent::StateChange);
    if (self) Tell(TDataEvent::RecordChange);
}

/// IsUnheard: who is bound does not know all that has changed.
void TDataSet::EndEdit(bool IsUnheard) {
    const TComponentRef<TDataSet> self(this);
    ++FVersion;
    FChanges.clear();
    FModified = FHasOtherValues = false;
    FState = dsBrowse;
    Place(FPosition);
    if (FDisabled == 0) IsUnheard |= std::exchange(FWasUnheard, false);
    Tell(TDataEvent::StateChange);
    if (self) Tell(IsUnheard ? TDataEvent::RecordsChange : TDataEvent::RecordChange);
}

void TDataSet::Post() {
    RequireEditing();
    const TComponentRef<TDataSet> self(this);
    Tell(TDataEvent::UpdateData);
    if (!self || !IsEditing()) return;
    BeforePost(this);
    if (!self || !IsEditing()) return;
    FHasOtherValues = false;
    bool othersMoved = false;
    if (FState == dsInsert) {
        FPosition = InsertRecord(FInsertAt, FChanges);
        othersMoved = FPosition < GetRecordCount() - 1;
    } else {
        UpdateRecord(FPosition, FChanges);
    }
    const bool isUnheard = othersMoved || FHasOtherValues || FChanges.empty();
    EndEdit(isUnheard);
    if (self) AfterPost(this);
}

// The old values are told while the record counts as edited, as the new ones were.
void TDataSet::Cancel() {
    if (!IsEditing()) return;
    const TComponentRef<TDataSet> self(this);
    const bool wasFilled = FState == dsInsert && FModified;
    const auto changes = std::exchange(FChanges, {});
    if (FState == dsEdit) {
        for (const auto& [index, value] : changes) {
            Tell(TDataEvent::RecordChange, &GetField(index));
            if (!self || FState != dsEdit) return;
        }
    }
    EndEdit(wasFilled);
}

// Who is bound follows at once; where the storage then refuses, it is told to look again.
void TDataSet::Delete() {
    RequireActive();
    if (FState == dsInsert) return Cancel();
    if (!HasRecord()) throw EDataSetError("There is no record to delete");
    CheckCanModify();
    const TComponentRef<TDataSet> self(this);
    BeforeDelete(this);
    if (!self || !GetActive() || !HasRecord()) return;
    Tell(TDataEvent::Delete);
    if (!self || !GetActive() || !HasRecord()) return;
    try {
        DeleteRecord(FPosition);
    } catch (...) {
        EndEdit(true);
        throw;
    }
    EndEdit(false);
    if (self) AfterDelete(this);
}

} // namespace kx
