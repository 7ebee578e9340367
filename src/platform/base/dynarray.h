#pragma once
// A resizable array that is shared by reference: assigning shares the elements, writing an element is seen by
// all who share it, resizing makes the array its holder's own.

#include <cassert>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <type_traits>
#include <utility>

namespace kx {

/// The storage of a TDynArray, of any type of element: the head of a piece of memory, the elements behind it.
/// Memory is got and given back out of line: a compiler that sees the end of one holder inlined into the end
/// of the next takes the memory for freed between them, since it cannot know that the count kept it.
struct TArrayBlock {
    int References;
    int Length;
    std::size_t Allocated; // elements that there is room for

    void* Elements() { return reinterpret_cast<unsigned char*>(this) + COffset; }
    /// Makes Block its holder's own and Length elements long; new elements are zero bytes. Length > 0.
    static void Resize(TArrayBlock*& Block, std::size_t Length, std::size_t ElementSize);
    static void Free(TArrayBlock* Block) noexcept;

private:
    static const std::size_t COffset;
    static TArrayBlock* Reallocate(TArrayBlock* Block, std::size_t Elements, std::size_t ElementSize);
    static void MakeOwn(TArrayBlock*& Block, std::size_t Wanted, std::size_t ElementSize);
};
inline constexpr std::size_t TArrayBlock::COffset = (sizeof(TArrayBlock) + alignof(std::max_align_t) - 1) /
                                                    alignof(std::max_align_t) * alignof(std::max_align_t);

/// Zero-based array of a trivially copyable T with shared elements. New elements are zero. Growing by small
/// steps costs amortised O(1) a step: what is allocated may exceed Length().
/// Not for use by several threads at once.
template <class T>
class TDynArray {
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as bytes");

public:
    TDynArray() = default;
    explicit TDynArray(int Length) { SetLength(Length); }
    TDynArray(std::initializer_list<T> Values) {
        SetLength(static_cast<int>(Values.size()));
        int i = 0;
        for (const T& v : Values) (*this)[i++] = v;
    }
    TDynArray(const TDynArray& Other) noexcept : FBlock(Other.FBlock) { Retain(); }
    TDynArray(TDynArray&& Other) noexcept : FBlock(std::exchange(Other.FBlock, nullptr)) {}
    TDynArray& operator=(TDynArray Other) noexcept {
        std::swap(FBlock, Other.FBlock);
        return *this;
    }
    ~TDynArray() { Release(); }

    int Length() const { return FBlock ? FBlock->Length : 0; }
    /// The highest index; -1 for an empty array.
    int High() const { return Length() - 1; }
    bool IsEmpty() const { return Length() == 0; }

    /// Elements are reached unchecked but in builds with assertions.
    T& operator[](int Index) const {
        assert(Index >= 0 && Index < Length());
        return static_cast<T*>(FBlock->Elements())[Index];
    }
    T* Data() const { return FBlock ? static_cast<T*>(FBlock->Elements()) : nullptr; }
    T* begin() const { return Data(); }
    T* end() const { return Data() + Length(); }

    /// Makes the array Length elements long and its holder's own; kept elements keep their values.
    /// A negative length counts as 0; std::bad_alloc is raised when there is no memory.
    void SetLength(int Length) {
        if (Length <= 0)
            Release();
        else
            TArrayBlock::Resize(FBlock, std::size_t(Length), sizeof(T));
    }

    /// A copy that shares nothing.
    TDynArray Clone() const {
        TDynArray copy(Length());
        if (!IsEmpty())
            std::memcpy(static_cast<void*>(copy.Data()), Data(), sizeof(T) * std::size_t(Length()));
        return copy;
    }
    bool SharesWith(const TDynArray& Other) const { return FBlock && FBlock == Other.FBlock; }

private:
    void Retain() const {
        if (FBlock) ++FBlock->References;
    }
    void Release() {
        if (FBlock && --FBlock->References == 0) TArrayBlock::Free(FBlock);
        FBlock = nullptr;
    }

    TArrayBlock* FBlock = nullptr;
};

} // namespace kx
