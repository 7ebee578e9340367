#include <kxgraph/platform/data/dataset.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <atomic>
#include <utility>

namespace kx {

TDataSet::TDataSet(TComponent* Owner) : TComponent(Owner) {
    static std::atomic<std::uint64_t> sets = 0;
    constexpr int CChanges = 40; // bits; the rest tells data sets apart
    FVersion = ++sets << CChanges;
}

// All forget it before the first one hears of that and acts.
TDataSet::~TDataSet() {
    FState = dsInactive;
    FDisabled = 0;
    Guarded([this] { FListeners.ForEach([](TDataListener& Listener) { Listener.ForgetData(); }); });
    Guarded([this] { Tell(TDataEvent::ActiveChange); });
}

// Where a handler closes the data set the field is gone, and the others have heard more than this.
void TDataSet::Tell(TDataEvent Event, TField* Field) {
    const bool isUrgent = Event >= TDataEvent::ActiveChange;
    if (Event == TDataEvent::RecordsChange || Event == TDataEvent::ActiveChange) ++FVersion;
    if (FDisabled > 0) {
        FWasUnheard |= Field || Event == TDataEvent::RecordsChange || Event == TDataEvent::ActiveChange;
        if (!isUrgent) return;
    }
    const TComponentRef<TDataSet> self(this);
    const bool isIn = GetActive();
    FListeners.ForEach([&](TDataListener& Listener) {
        if (!Field || (self && GetActive() == isIn)) Listener.DataEvent(Event, Field);
    });
}

void TDataSet::EnableControls() {
    if (FDisabled == 0 || --FDisabled > 0) return;
    if (!GetActive()) return;
    // What was heard of an edit is of no use until it is posted: who looks at all records would post it.
    const bool isUnheard = !IsEditing() && std::exchange(FWasUnheard, false);
    Tell(isUnheard ? TDataEvent::RecordsChange : TDataEvent::RecordChange);
}

std::vector<TComponent*> TDataSet::GetControls() {
    std::vector<TComponent*> controls;
    FListeners.ForEach([&](TDataListener& Listener) { Listener.CollectControls(controls); });
    return controls;
}

void TDataSet::SetActive(bool Active) {
    if (IsIn(csLoading))
        FOpenWhenLoaded = Active;
    else if (Active && !GetActive())
        DoOpen();
    else if (!Active && GetActive())
        DoClose();
}

void TDataSet::Loaded() {
    TComponent::Loaded();
    if (std::exchange(FOpenWhenLoaded, false)) SetActive(true);
}

void TDataSet::DoOpen() {
    try {
        OpenRecords();
    } catch (...) {
        FFields.clear();
        CloseRecords();
        throw;
    }
    FState = dsBrowse;
    Place(0);
    FBof = true;
    Tell(TDataEvent::ActiveChange);
}

void TDataSet::DoClose() {
    const TComponentRef<TDataSet> self(this);
    if (IsEditing()) Cancel();
    if (!self || !GetActive()) return;
    FState = dsInactive;
    FBof = FEof = true;
    const auto fields = std::exchange(FFields, {}); // till everybody has let them go
    CloseRecords();
    Tell(TDataEvent::ActiveChange);
}

void TDataSet::Refresh() {
    RequireActive();
    if (!EndEditing()) return;
    const int recNo = GetRecNo();
    RefreshRecords();
    const int index = IndexOf(recNo);
    Place(index < GetRecordCount() ? index : 0);
    Tell(TDataEvent::RecordsChange);
}

void TDataSet::RequireActive() const {
    if (!GetActive()) throw EDataSetError("The data set is closed");
}

void TDataSet::RequireEditing() const {
    RequireActive();
    if (!IsEditing()) throw EDataSetError("The data set is not being edited");
}

TField& TDataSet::AddField(const std::string& Name, TFieldType Type) {
    FFields.emplace_back(new TField(*this, GetFieldCount(), Name, Type));
    return *FFields.back();
}

TField* TDataSet::FindField(std::string_view Name) const {
    const auto found = std::ranges::find_if(
        FFields, [&](const auto& Field) { return SameText(Field->GetFieldName(), Name); });
    return found == FFields.end() ? nullptr : found->get();
}

TField& TDataSet::FieldByName(std::string_view Name) const {
    if (TField* field = FindField(Name)) return *field;
    throw EDataSetError("There is no field " + Abridged(Name));
}

TFieldValue TDataSet::GetFieldValue(int Index) const {
    if (IsEditing())
        if (const auto changed = FChanges.find(Index); changed != FChanges.end()) return changed->second;
    return HasRecord() ? GetRecordValue(FPosition, Index) : TFieldValue();
}

void TDataSet::SetFieldValue(int Index, TFieldValue Value) {
    RequireEditing();
    TField& field = GetField(Index);
    if (field.GetReadOnly()) throw EDataSetError("The field " + field.GetFieldName() + " cannot be changed");
    FChanges[Index] = std::move(Value);
    FModified = true;
    ++FVersion;
    Tell(TDataEvent::RecordChange, &field);
}

void TDataSet::Place(int Position) {
    const int count = GetRecordCount();
    FBof = Position < 0 || count == 0;
    FEof = Position >= count;
    FPosition = std::clamp(Position, 0, std::max(count - 1, 0));
}

/// Returns whether the data set is there, and being browsed.
bool TDataSet::EndEditing() {
    if (!IsEditing()) return GetActive();
    const TComponentRef<TDataSet> self(this);
    FModified ? Post() : Cancel();
    return self && FState == dsBrowse;
}

void TDataSet::MoveTo(int Position, bool IsFirst) {
    RequireActive();
    if (!EndEditing()) return;
    Place(Position);
    FBof |= IsFirst;
    Tell(TDataEvent::RecordChange);
}

void TDataSet::MoveBy(int Delta) {
    RequireActive();
    if (EndEditing()) MoveTo(FPosition + Delta);
}

void TDataSet::Last() {
    RequireActive();
    if (!EndEditing()) return;
    Place(GetRecordCount() - 1);
    FEof = true;
    Tell(TDataEvent::RecordChange);
}

int TDataSet::GetRecNo() const {
    if (FState == dsInsert) return -1;
    return HasRecord() ? RecNoAt(FPosition) : 0;
}

void TDataSet::SetRecNo(int RecNo) {
    RequireActive();
    if (!EndEditing()) return;
    const int position = IndexOf(RecNo);
    if (position >= GetRecordCount()) throw EDataSetError("There is no record " + std::to_string(RecNo));
    MoveTo(position);
}

int TDataSet::IndexOf(int RecNo) const {
    const int count = GetRecordCount();
    if (FPosition < count && RecNoAt(FPosition) == RecNo) return FPosition;
    if (IsSequenced()) {
        const std::int64_t index = count > 0 ? std::int64_t{RecNo} - RecNoAt(0) : count;
        return index >= 0 && index < count ? int(index) : count;
    }
    for (int i = 0; i < count; ++i)
        if (RecNoAt(i) == RecNo) return i;
    return count;
}

const TPropertyTable& TDataSet::Properties() {
    using C = TDataSet;
    static const TPropertyTable table(
        "TDataSet", &TComponent::Properties(),
        {Published<&C::GetActive, &C::SetActive>("Active", false, "Whether the data set is open"),
         PublishedEvent<&C::BeforePost>("BeforePost", "A record is about to be stored"),
         PublishedEvent<&C::AfterPost>("AfterPost", "A record was stored"),
         PublishedEvent<&C::BeforeDelete>("BeforeDelete", "The record is about to be deleted"),
         PublishedEvent<&C::AfterDelete>("AfterDelete", "A record was deleted")});
    return table;
}

} // namespace kx
