#pragma once
// Vectors: the containers of measured numbers, with listeners that hear of changes, and two small working
// arrays of points and integers. Vectors are named components; series refer to them without owning them.

#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/numeric/Kxextremes.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/objects/ownthread.h>

#include <cassert>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace kx {

class TReader;
class TWriter;

/// Index of the element concerned, or -1 for the whole vector; whether it is being removed (or, with -1, the
/// vector cleared or reloaded) rather than set.
using TKxValueIChangedEvent = TEvent<int, bool>;

/// Listeners in order of registration.
///
/// Two events of the same method count as one listener, whatever their objects. So if two series are bound to
/// one X vector, both with their own method of the class, the second one replaces the first as listener: only
/// the second follows live data, the first sees it when it next calculates by itself. A listener that leaves
/// calls RemoveOwn, so that it does not throw out the one that replaced it.
class TKxValueIChangedList {
public:
    TKxValueIChangedList() = default;
    TKxValueIChangedList(const TKxValueIChangedList&) = delete;
    TKxValueIChangedList& operator=(const TKxValueIChangedList&) = delete;

    int GetCount() const { return static_cast<int>(FItems.size()); }
    /// Raises ERangeError for an index outside 0..Count-1.
    const TKxValueIChangedEvent& GetItem(int Index) const {
        return FItems[CheckedIndex(Index, FItems.size())];
    }

    /// Removes the entry of the same method, if there is one, and appends Event.
    void Add(const TKxValueIChangedEvent& Event);
    /// Removes the entry of the same method, whatever its object.
    void Remove(const TKxValueIChangedEvent& Event);
    /// Removes the entry of the same method only if its object is the same too.
    void RemoveOwn(const TKxValueIChangedEvent& Event);
    void Clear();

    /// Calls all listeners in order. A listener may add and remove listeners: those removed before their turn
    /// are not called, those added are called from the next time on. An exception ends the round. No listener
    /// may destroy the list.
    void Call(int Index, bool WasDeleted) {
        // One as a rule: whatever it does to the list is for the next time.
        if (FItems.size() == 1) return FItems.front()(Index, WasDeleted);
        if (!FItems.empty()) CallAll(Index, WasDeleted);
    }

private:
    void CallAll(int Index, bool WasDeleted);
    /// One running Call; calls nest when a listener changes the vector.
    struct TRound {
        std::size_t Next;
        std::size_t End;
        TRound* Outer;
    };
    void Erase(std::size_t Index);

    std::vector<TKxValueIChangedEvent> FItems;
    TRound* FRounds = nullptr;
};

/// Base of the vectors of doubles. Capacity grows in steps of Increment ahead of Count and is what the vector
/// reports; appending is amortised O(1) all the same.
/// Reading at Count or above raises ERangeError "i=%d index out of range"; a negative index is not checked
/// (builds with assertions stop). Writing, inserting or deleting at a negative index does nothing.
class TKxCustomRealVector : public TComponent {
public:
    int GetCount() const { return FCount; }
    int GetCapacity() const { return FCapacity; }
    int GetIncrement() const { return FIncrement; }

    double GetValue(int Index) const {
        if (Index >= FCount) RaiseIndex(Index);
        assert(Index >= 0);
        return FValues[FFirst + Index];
    }
    /// Writing at Count or above extends the vector to Index + 1; the elements between are what the storage
    /// holds: zero when new, older values after Clear or Delete.
    virtual void SetValue(int Index, double Value);

    /// The Count values, not copied. Valid until the vector changes.
    std::span<const double> Values() const { return {Data(), static_cast<std::size_t>(FCount)}; }
    /// As a range: a vector may be given wherever a span of values is taken.
    const double* begin() const { return Values().data(); }
    const double* end() const { return begin() + FCount; }

    TKxValueIChangedList& Listeners() { return FListeners; }

    /// A greater number after every change of the values, and another one in every vector.
    std::uint64_t GetVersion() const { return FVersion; }
    /// Whether nothing but appends has happened since GetVersion was Version. False for what was another
    /// vector's.
    bool HasOnlyGrownSince(std::uint64_t Version) const {
        return FRewritten <= Version && Version <= FVersion;
    }
    /// The extremes of the values First..Last - 1, which must exist; see Kxextremes.h. Costs about the blocks
    /// that have changed since it was last asked for.
    TKxExtremes::TEnds GetEnds(int First, int Last) const { return Extremes().Of(Values(), First, Last); }
    /// The same without their places; costs less.
    TKxExtremes::TBounds GetBounds(int First, int Last) const {
        return Extremes().Bounds(Values(), First, Last);
    }
    /// Where GetEnds finds it easy to begin: at or before Index, by less than Block, which is
    /// TKxExtremes::CBlock or CLargeBlock.
    int GetBlockStart(int Index, int Block = TKxExtremes::CBlock) const {
        return Extremes().BlockStart(Index, Block);
    }
    /// GetValue(GetBlockStart(Index)), of a vector that has just been found ascending (or descending),
    /// without a look at the values.
    double GetBlockFirst(int Index, bool Ascending) const { return Extremes().BlockFirst(Index, Ascending); }
    /// Whether the values never fall (rise), and all of them are numbers.
    bool IsAscending() const { return Extremes().IsAscending(Values()); }
    bool IsDescending() const { return Extremes().IsDescending(Values()); }
    /// Whether about the values First..Last - 1 are numbers: true is certain.
    bool AreNumbers(int First, int Last) const { return Extremes().AreNumbers(Values(), First, Last); }

protected:
    explicit TKxCustomRealVector(TComponent* Owner);
    /// Makes room for, and extends the vector to, Wanted elements. Grows already when Wanted equals Capacity.
    void CheckCount(int Wanted) {
        AssertOwnThread();
        // Kept: grows on equal; the capacity that a program sees counts on it.
        if (Wanted >= FCapacity || std::int64_t{FFirst} + Wanted >= FValues.Length()) Grow(Wanted);
        FCount = Wanted > FCount ? Wanted : FCount;
    }
    void Resize(int Capacity);
    /// Moves the elements behind Index one place down, or those before it one up, whichever are fewer, so
    /// that values can leave at either end for nothing; Count stays.
    void CloseGap(int Index);
    /// CloseGap, the listeners with (Index, true), and one element less.
    void DeleteTelling(int Index);
    /// The first Count elements leave at once; tells nobody.
    void DropFront(int Count);
    /// To be called when the value Index, or all from First on, are other ones than before.
    void ValueTouched(int Index) noexcept {
        NextVersion(Index);
        if (FExtremes) FExtremes->Change(Index);
    }
    void ValuesTouched(int First) noexcept {
        NextVersion(First);
        if (FExtremes) FExtremes->Cut(First);
    }
    /// The first Count are gone.
    void FrontTouched(int Count) noexcept {
        NextVersion(0);
        if (FExtremes) FExtremes->DropFront(Count);
    }
    /// Of the element 0.
    double* Data() const { return FValues.Data() + FFirst; }
    [[noreturn]] static void RaiseIndex(int Index);

    int FCount = 0;
    int FCapacity = 0;
    int FIncrement = 50;
    TKxRealArray FValues; // longer than FFirst + FCount
    int FFirst = 0;       // where element 0 is

private:
    TKxExtremes& Extremes() const;
    void NextVersion(int First) noexcept {
        ++FVersion;
        if (First < FOld) FRewritten = FVersion;
        FOld = FCount;
    }
    void Grow(int Wanted);
    void MakeRoom();
    void CloseFront();

    TKxValueIChangedList FListeners;
    mutable std::unique_ptr<TKxExtremes> FExtremes; // made when first asked for
    std::uint64_t FVersion, FRewritten;
    int FOld = 0; // so many values were there at the last change
};

/// A vector that a program fills. It does not call its listeners by itself.
class TKxRealVector : public TKxCustomRealVector {
public:
    explicit TKxRealVector(TComponent* Owner) : TKxCustomRealVector(Owner) {}

    /// Appends; returns the new Count.
    int Add(double Value);
    /// Appends all, as Add does one by one; the storage grows once.
    void AddValues(std::span<const double> Values);
    /// Inserts before Index; nothing happens at Count or above.
    void Insert(int Index, double Value);
    /// Nothing happens at Count or above. Capacity never shrinks by it.
    virtual void Delete(int Index);
    /// Count becomes 0; the storage stays.
    virtual void Clear();

    /// Ignored unless it exceeds Count.
    void SetCapacity(int Capacity);
    /// The step of growth. Ignored unless it exceeds 50.
    void SetIncrement(int Increment);
    /// Whether the values are stored with the form.
    bool GetPersistentValues() const { return FPersistentValues; }
    void SetPersistentValues(bool Persistent) { FPersistentValues = Persistent; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxRealVector>(); }
    /// "Values", with PersistentValues.
    void DefineProperties(TFiler& Filer) override;
    /// Values were appended, and there are no listeners.
    virtual void Appended() {}

private:
    void LoadVariables(TReader& Reader);
    void StoreVariables(TWriter& Writer) const;

    bool FPersistentValues = false;
};

/// A vector that tells its listeners of every change while it happens. Add, Insert and SetValue tell (index,
/// false) after the change. An exception of a listener reaches the caller; the change is complete
/// nevertheless.
class TKxLiveVector : public TKxRealVector {
public:
    using TKxRealVector::TKxRealVector;

    void SetValue(int Index, double Value) override;
    /// The elements behind Index have moved when the listeners hear of (Index, true), Count is still the old
    /// one. Unlike the plain vector's, a Delete at Count tells the listeners and drops the last element, if
    /// there is one.
    void Delete(int Index) override;
    /// The listeners hear of (-1, true) while the values are still there.
    void Clear() override;

    /// So many values are kept, the last ones; 0 keeps all. As a value comes in beyond them the first one
    /// leaves, at O(1): the listeners hear of the one that came, then of (0, true); where more than one
    /// leaves, of (-1, true) once. Vectors of one series are given the same bound.
    int GetMaxCount() const { return FMaxCount; }
    void SetMaxCount(int MaxCount);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLiveVector>(); }
    void Appended() override { Trim(); }

private:
    void Trim();

    int FMaxCount = 0;
};

/// Working array, no component: grows in steps of Increment, with amortised O(1) for an append.
/// Reading at Count or above raises ERangeError "Error during floating point number extraction"; a negative
/// index is not checked when reading (builds with assertions stop) and ignored when writing.
template <class T>
class TKxWorkVector {
public:
    /// An increment below 1 counts as 50. Capacity is one increment.
    explicit TKxWorkVector(int Increment = 50);

    int GetCount() const { return FCount; }
    int GetCapacity() const { return FCapacity; }
    int GetIncrement() const { return FIncrement; }

    /// Shrinks or extends; elements gained are what the storage holds, as in a real vector. A negative count
    /// is 0.
    void SetCount(int Count);
    T GetValue(int Index) const;
    /// Writing at Count or above extends the vector to Index + 1.
    void SetValue(int Index, T Value);
    /// Appends; returns the new Count.
    int Add(T Value);
    void Clear() { FCount = 0; }

    /// The Count values, not copied. Valid until the vector grows.
    std::span<const T> Values() const { return {FValues.Data(), static_cast<std::size_t>(FCount)}; }

protected:
    /// Adds increments until Capacity exceeds Wanted.
    void Reserve(int Wanted);

    int FCount = 0;
    int FCapacity = 0;
    int FIncrement;
    TDynArray<T> FValues;
};

extern template class TKxWorkVector<TPoint>;
extern template class TKxWorkVector<std::int32_t>;

class TKxIntegerVector : public TKxWorkVector<std::int32_t> {
public:
    using TKxWorkVector::TKxWorkVector;
};

class TKxPointVector : public TKxWorkVector<TPoint> {
public:
    using TKxWorkVector::TKxWorkVector;
    /// Address of element Index, unchecked; the elements up to Capacity follow it. Valid until the vector
    /// grows.
    TPoint* GetPointer(int Index) { return FValues.Data() + Index; }
};

} // namespace kx
