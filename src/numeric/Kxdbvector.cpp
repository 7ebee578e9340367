#include <kxgraph/numeric/Kxdbvector.h>

#include <kxgraph/platform/objects/ownthread.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <exception>
#include <limits>

namespace kx {

TKxDBVector::TKxDBVector(TComponent* Owner) : TKxCustomRealVector(Owner) {
    using V = TKxDBVector;
    FLink.Control = this;
    FLink.OnActiveChange = FLink.OnRecordsChange = TEvent<>::Of<&V::ReadAll>(this);
    FLink.OnUpdateData = TEvent<>::Of<&V::UpdateVector>(this);
    FLink.OnDataChange = TEvent<>::Of<&V::RecordChanged>(this);
    FLink.OnDelete = TEvent<>::Of<&V::RecordDeleting>(this);
}

void TKxDBVector::SetDataSource(TDataSource* Source) {
    if (FLink.GetDataSourceFixed() && IsIn(csLoading)) return;
    FReadVersion = 0;
    FLink.SetDataSource(Source);
    if (Source) ReadAll(); // where the link had it before
}

void TKxDBVector::SetDataField(const std::string& Name) {
    FLink.SetFieldName(Name);
    UpdateVector();
}

void TKxDBVector::SetEmptyAsNaN(bool AsNaN) {
    if (FEmptyAsNaN == AsNaN) return;
    FEmptyAsNaN = AsNaN;
    UpdateVector();
}

void TKxDBVector::UpdateVector() {
    FReadVersion = 0;
    ReadAll();
}

/// Those that bear other values than the records have now.
std::vector<TKxDBVector*> TKxDBVector::VectorsToRead(TDataSet& Set) {
    std::vector<TKxDBVector*> vectors;
    for (TComponent* control : Set.GetControls()) {
        auto* vector = dynamic_cast<TKxDBVector*>(control);
        if (vector && vector->FLink.GetField() && vector->FReadVersion != Set.GetVersion())
            vectors.push_back(vector);
    }
    return vectors;
}

// The first step may post a record: which vectors there are is asked behind it. From then on no handler runs
// until all are read.
void TKxDBVector::ReadAll() {
    TDataSet* const all = FLink.GetDataSet();
    if (!FLink.GetField() || all->ControlsDisabled() || FReadVersion == all->GetVersion()) return;
    const TComponentRef<TDataSet> set(all);
    std::vector<TComponentRef<TKxDBVector>> read;
    std::exception_ptr failure;
    const auto guarded = [&](auto Action) {
        try {
            Action();
        } catch (...) {
            if (!failure) failure = std::current_exception();
        }
    };
    all->DisableControls();
    guarded([&] {
        const int recNo = all->GetRecNo();
        all->First();
        if (!set || !all->GetActive()) return;
        const auto vectors = VectorsToRead(*all);
        read.assign(vectors.begin(), vectors.end());
        guarded([&] { ReadRecords(*all, vectors); });
        const bool wasBehind = recNo > all->GetRecNo();
        wasBehind ? all->SetRecNo(recNo) : all->First();
    });
    for (const auto& vector : read)
        if (vector) guarded([&] { vector->Listeners().Call(-1, true); });
    if (set) guarded([&] { all->EnableControls(); });
    if (failure) std::rethrow_exception(failure);
}

/// The cursor stands on the first record. Leaves it there.
void TKxDBVector::ReadRecords(TDataSet& Set, const std::vector<TKxDBVector*>& Vectors) {
    struct TReading {
        TKxDBVector* Vector;
        const TField* Field;
    };
    std::vector<TReading> readings;
    for (TKxDBVector* vector : Vectors) {
        AssertOwnThread();
        vector->FCount = vector->FFirst = 0;
        readings.push_back({vector, vector->FLink.GetField()});
    }
    std::exception_ptr failure;
    const auto isAtItsEnd = [&](const TReading& Reading) {
        try {
            return !Reading.Vector->TakeRecord(*Reading.Field);
        } catch (...) {
            if (!failure) failure = std::current_exception();
            return true;
        }
    };
    for (; !Set.GetEof() && !readings.empty(); Set.Next()) std::erase_if(readings, isAtItsEnd);
    Set.First();
    for (TKxDBVector* vector : Vectors) {
        vector->ValuesTouched(0);
        vector->FReadVersion = Set.GetVersion();
    }
    if (failure) std::rethrow_exception(failure);
}

double TKxDBVector::FieldValue(const TField& Field) const {
    const bool isNothing = FEmptyAsNaN && Field.IsBlank();
    return isNothing ? std::numeric_limits<double>::quiet_NaN() : Field.GetAsFloat();
}

/// Returns whether the vector goes on.
bool TKxDBVector::TakeRecord(const TField& Field) {
    if (!FEmptyAsNaN && Field.IsBlank()) return false;
    const double value = FieldValue(Field);
    CheckCount(FCount + 1);
    Data()[FCount - 1] = value;
    return true;
}

void TKxDBVector::RecordChanged() {
    const TDataSet* set = FLink.GetDataSet();
    if (!FLink.GetField() || !set->GetModified()) return;
    SetRecord(set->GetRecNo());
}

void TKxDBVector::SetRecord(int RecNo) {
    const TField* field = FLink.GetField();
    if (!field) return;
    const int index = RecNo < 0 ? FLink.GetDataSet()->GetRecordCount() : FindIdx(RecNo), known = FCount;
    const double value = FieldValue(*field);
    CheckCount(index + 1);
    // Kept: otherwise those between are what the storage holds, as in any vector that is written to far
    // behind its end.
    if (FEmptyAsNaN && known < index)
        std::fill(Data() + known, Data() + index, std::numeric_limits<double>::quiet_NaN());
    Data()[index] = value;
    ValuesTouched(std::min(index, known));
    Listeners().Call(index, false);
}

int TKxDBVector::FindIdx(int RecNo) const {
    const TDataSet* set = FLink.GetDataSet();
    return set && set->GetActive() ? set->IndexOf(RecNo) : 0;
}

void TKxDBVector::RecordDeleting() {
    if (!FLink.GetField()) return;
    const int index = FindIdx(FLink.GetDataSet()->GetRecNo());
    // Kept: as in a live vector, Count itself passes; the record behind the last value takes that along.
    // Where empty fields are values, all records have one.
    if (FEmptyAsNaN ? index < FCount : index <= FCount) DeleteTelling(index);
}

const TPropertyTable& TKxDBVector::Properties() {
    using V = TKxDBVector;
    static const TPropertyTable table(
        "TKxDBVector", &TComponent::Properties(),
        {Published<&V::GetDataSource, &V::SetDataSource>("DataSource", nullptr, "Source of the data set"),
         Published<&V::GetDataField, &V::SetDataField>("DataField", "", "Name of the field"),
         Published<&V::GetEmptyAsNaN, &V::SetEmptyAsNaN>(
             "EmptyAsNaN", false, "Whether an empty field is a value that is no number, not the end")});
    return table;
}

} // namespace kx
