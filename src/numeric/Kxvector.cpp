#include <kxgraph/numeric/Kxvector.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/streaming/filer.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdint>

namespace kx {

namespace {

/// Runs an action at the end of a block, also when a listener raises.
template <class F>
class TFinally {
public:
    explicit TFinally(F Action) : FAction(std::move(Action)) {}
    TFinally(const TFinally&) = delete;
    TFinally& operator=(const TFinally&) = delete;
    ~TFinally() { FAction(); }

private:
    F FAction;
};

/// Kept: the words do not fit points and integers, but programs compare them.
[[noreturn]] void RaiseExtraction() { throw ERangeError("Error during floating point number extraction"); }

int Saturated(std::int64_t Value) { return static_cast<int>(std::min<std::int64_t>(Value, INT_MAX)); }

} // namespace

void TKxValueIChangedList::Add(const TKxValueIChangedEvent& Event) {
    // May be one of ours. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const TKxValueIChangedEvent added = Event;
    FItems.reserve(FItems.size() + 1); // so that nothing is removed for nothing
    Remove(added);
    FItems.push_back(added);
}

void TKxValueIChangedList::Remove(const TKxValueIChangedEvent& Event) {
    const auto found =
        std::find_if(FItems.begin(), FItems.end(), [&](const auto& e) { return e.SameMethod(Event); });
    if (found != FItems.end()) Erase(static_cast<std::size_t>(found - FItems.begin()));
}

void TKxValueIChangedList::RemoveOwn(const TKxValueIChangedEvent& Event) {
    const auto found = std::find(FItems.begin(), FItems.end(), Event);
    if (found != FItems.end()) Erase(static_cast<std::size_t>(found - FItems.begin()));
}

void TKxValueIChangedList::Clear() {
    FItems.clear();
    for (TRound* round = FRounds; round; round = round->Outer) round->Next = round->End = 0;
}

void TKxValueIChangedList::Erase(std::size_t Index) {
    FItems.erase(FItems.begin() + static_cast<std::ptrdiff_t>(Index));
    for (TRound* round = FRounds; round; round = round->Outer) {
        if (Index < round->Next) --round->Next;
        if (Index < round->End) --round->End;
    }
}

void TKxValueIChangedList::CallAll(int Index, bool WasDeleted) {
    TRound round{0, FItems.size(), FRounds};
    const TScopedValue<TRound*> running(FRounds, &round);
    while (round.Next < round.End)
        FItems[round.Next++](Index, WasDeleted); // the event may leave while called
}

TKxCustomRealVector::TKxCustomRealVector(TComponent* Owner) : TComponent(Owner) {
    static std::atomic<std::uint64_t> vectors = 0;
    constexpr int CChanges = 40; // bits; the rest tells vectors apart
    FVersion = FRewritten = ++vectors << CChanges;
    Resize(FIncrement);
}

TKxExtremes& TKxCustomRealVector::Extremes() const {
    if (!FExtremes) FExtremes = std::make_unique<TKxExtremes>();
    return *FExtremes;
}

void TKxCustomRealVector::RaiseIndex(int Index) {
    throw ERangeError("i=" + std::to_string(Index) + " index out of range");
}

void TKxCustomRealVector::Resize(int Capacity) {
    if (FFirst > FCount / 2) CloseFront();
    FValues.SetLength(Saturated(std::int64_t{FFirst} + Capacity));
    FCapacity = Capacity;
}

void TKxCustomRealVector::CloseFront() {
    std::copy(Data(), Data() + FCount, FValues.begin());
    FFirst = 0;
}

// Where as many values come as leave, so many have left before all are moved that it costs two moves each.
void TKxCustomRealVector::MakeRoom() {
    const std::int64_t wanted = std::int64_t{FFirst} + FCapacity + FCount / 2;
    if (FFirst > FCount / 2 || wanted > INT_MAX)
        CloseFront();
    else
        FValues.SetLength(static_cast<int>(wanted));
}

void TKxCustomRealVector::Grow(int Wanted) {
    if (Wanted >= FCapacity) Resize(Saturated(std::int64_t{Wanted} + FIncrement));
    if (FFirst > 0 && std::int64_t{FFirst} + Wanted >= FValues.Length()) MakeRoom();
}

void TKxCustomRealVector::SetValue(int Index, double Value) {
    if (Index < 0) return;
    if (Index == INT_MAX) RaiseIndex(Index);
    CheckCount(Index + 1);
    FValues[FFirst + Index] = Value;
    ValueTouched(Index);
}

void TKxCustomRealVector::CloseGap(int Index) {
    AssertOwnThread();
    if (Index >= FCount / 2) {
        if (Index + 1 < FCount) std::copy(Data() + Index + 1, Data() + FCount, Data() + Index);
    } else {
        std::copy_backward(Data(), Data() + Index, Data() + Index + 1);
        ++FFirst;
        Data()[FCount - 1] = Data()[FCount - 2]; // which listeners still see
        if (Index == 0) return FrontTouched(1);
    }
    ValuesTouched(Index);
}

void TKxCustomRealVector::DeleteTelling(int Index) {
    CloseGap(Index);
    const TFinally shorten([this] {
        FCount = std::max(FCount - 1, 0);
        ValuesTouched(FCount);
    });
    Listeners().Call(Index, true);
}

void TKxCustomRealVector::DropFront(int Count) {
    AssertOwnThread();
    FFirst += Count;
    FCount -= Count;
    FrontTouched(Count);
}

int TKxRealVector::Add(double Value) {
    SetValue(FCount, Value);
    return FCount;
}

void TKxRealVector::AddValues(std::span<const double> Values) {
    if (Values.size() > static_cast<std::size_t>(INT_MAX - FCount)) RaiseIndex(INT_MAX);
    if (Listeners().GetCount() > 0) {
        for (const double value : Values) Add(value);
        return;
    }
    const int first = FCount;
    CheckCount(FCount + static_cast<int>(Values.size()));
    std::copy(Values.begin(), Values.end(), Data() + first);
    ValuesTouched(first);
    Appended();
}

void TKxRealVector::Insert(int Index, double Value) {
    if (Index < 0 || Index >= FCount) return;
    CheckCount(FCount + 1);
    std::copy_backward(Data() + Index, Data() + FCount - 1, Data() + FCount);
    ValuesTouched(Index);
    SetValue(Index, Value);
}

void TKxRealVector::Delete(int Index) {
    if (Index < 0 || Index >= FCount) return;
    CloseGap(Index);
    --FCount;
}

void TKxRealVector::Clear() {
    AssertOwnThread();
    FCount = FFirst = 0;
    ValuesTouched(0);
}

void TKxRealVector::SetCapacity(int Capacity) {
    if (Capacity > FCount) Resize(Capacity);
}

void TKxRealVector::SetIncrement(int Increment) {
    if (Increment > 50) FIncrement = Increment;
}

const TPropertyTable& TKxRealVector::Properties() {
    using V = TKxRealVector;
    static const TPropertyTable table(
        "TKxRealVector", &TComponent::Properties(),
        {Published<&V::GetPersistentValues, &V::SetPersistentValues>(
             "PersistentValues", std::monostate{}, "Whether the values are stored with the form"),
         Published<&V::GetCapacity, &V::SetCapacity>("Capacity", std::monostate{},
                                                     "Number of values that there is room for"),
         Published<&V::GetIncrement, &V::SetIncrement>(
             "Increment", std::monostate{}, "Number of values by which the capacity grows, 50 or more")
             .LoadedBy([](TPersistent& O, const TPropertyValue& Value) { // what programs only raise
                 static_cast<V&>(O).FIncrement =
                     int(std::max<std::int64_t>(std::get<std::int64_t>(Value), 50));
             })});
    return table;
}

void TKxRealVector::DefineProperties(TFiler& Filer) {
    TKxCustomRealVector::DefineProperties(Filer);
    Filer.DefineVersioned(
        "Values", GetVersion(), [this](TReader& Reader) { LoadVariables(Reader); },
        [this](TWriter& Writer) { StoreVariables(Writer); }, [this] { return FPersistentValues; });
}

void TKxRealVector::StoreVariables(TWriter& Writer) const {
    Writer.WriteListBegin();
    for (const double value : Values()) Writer.WriteFloat(value);
    Writer.WriteListEnd();
}

void TKxRealVector::LoadVariables(TReader& Reader) {
    Reader.ReadListBegin();
    if (FCount > 0) Clear(); // a vector that stands is given other values
    while (!Reader.EndOfList()) SetValue(FCount, Reader.ReadFloat());
    Reader.ReadListEnd();
}

void TKxLiveVector::SetValue(int Index, double Value) {
    if (Index < 0) return;
    TKxRealVector::SetValue(Index, Value);
    Listeners().Call(Index, false);
    Trim();
}

void TKxLiveVector::SetMaxCount(int MaxCount) {
    FMaxCount = std::max(MaxCount, 0);
    Trim();
}

void TKxLiveVector::Trim() {
    const int surplus = FMaxCount > 0 ? FCount - FMaxCount : 0;
    if (surplus == 1) return TKxLiveVector::Delete(0);
    if (surplus <= 0) return;
    DropFront(surplus);
    Listeners().Call(-1, true);
}

void TKxLiveVector::Delete(int Index) {
    // Kept: Count itself passes; series that mirror the vector hear of such a Delete and drop their last
    // point.
    if (Index >= 0 && Index <= FCount) DeleteTelling(Index);
}

void TKxLiveVector::Clear() {
    const TFinally clear([this] { TKxRealVector::Clear(); });
    Listeners().Call(-1, true);
}

const TPropertyTable& TKxLiveVector::Properties() {
    using V = TKxLiveVector;
    static const TPropertyTable table(
        "TKxLiveVector", &TKxRealVector::Properties(),
        {Published<&V::GetMaxCount, &V::SetMaxCount>(
            "MaxCount", 0, "Number of values that are kept, the last ones; 0: all")});
    return table;
}

template <class T>
TKxWorkVector<T>::TKxWorkVector(int Increment) : FIncrement(Increment < 1 ? 50 : Increment) {
    FValues.SetLength(FIncrement);
    FCapacity = FIncrement;
}

template <class T>
void TKxWorkVector<T>::Reserve(int Wanted) {
    if (Wanted < FCapacity) return;
    const std::int64_t steps = (std::int64_t{Wanted} - FCapacity) / FIncrement + 1;
    const int capacity = Saturated(FCapacity + steps * FIncrement);
    FValues.SetLength(capacity);
    FCapacity = capacity;
}

template <class T>
void TKxWorkVector<T>::SetCount(int Count) {
    Reserve(Count);
    FCount = std::max(Count, 0);
}

template <class T>
T TKxWorkVector<T>::GetValue(int Index) const {
    if (Index >= FCount) RaiseExtraction();
    return FValues[Index];
}

template <class T>
void TKxWorkVector<T>::SetValue(int Index, T Value) {
    if (Index < 0) return;
    if (Index == INT_MAX) RaiseExtraction();
    if (Index >= FCount) SetCount(Index + 1);
    FValues[Index] = Value;
}

template <class T>
int TKxWorkVector<T>::Add(T Value) {
    SetCount(FCount + 1);
    FValues[FCount - 1] = Value;
    return FCount;
}

template class TKxWorkVector<TPoint>;
template class TKxWorkVector<std::int32_t>;

} // namespace kx
