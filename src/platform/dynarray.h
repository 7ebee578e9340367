#pragma once
// A resizable array that is shared by reference: assigning shares the elements, writing an element is seen by
// all who share it, resizing makes the array its holder's own.

#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <new>
#include <type_traits>
#include <utility>

namespace kx {

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
        return Elements(FBlock)[Index];
    }
    T* Data() const { return FBlock ? Elements(FBlock) : nullptr; }
    T* begin() const { return Data(); }
    T* end() const { return Data() + Length(); }

    /// Makes the array Length elements long and its holder's own; kept elements keep their values.
    /// A negative length counts as 0; std::bad_alloc is raised when there is no memory.
    void SetLength(int Length);

    /// A copy that shares nothing.
    TDynArray Clone() const {
        TDynArray copy(Length());
        if (!IsEmpty())
            std::memcpy(static_cast<void*>(copy.Data()), Data(), sizeof(T) * std::size_t(Length()));
        return copy;
    }
    bool SharesWith(const TDynArray& Other) const { return FBlock && FBlock == Other.FBlock; }

private:
    struct TBlock {
        int References;
        int Length;
        std::size_t Allocated;
    };
    static constexpr std::size_t COffset = (sizeof(TBlock) + alignof(std::max_align_t) - 1) /
                                           alignof(std::max_align_t) * alignof(std::max_align_t);

    static T* Elements(TBlock* Block) {
        return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(Block) + COffset);
    }
    static TBlock* Reallocate(TBlock* Block, std::size_t Elements) {
        auto* block = static_cast<TBlock*>(std::realloc(Block, COffset + Elements * sizeof(T)));
        if (!block) throw std::bad_alloc();
        block->Allocated = Elements;
        return block;
    }
    void Retain() const {
        if (FBlock) ++FBlock->References;
    }
    void Release() {
        if (FBlock && --FBlock->References == 0) std::free(FBlock);
        FBlock = nullptr;
    }
    void MakeOwn(std::size_t Wanted);

    TBlock* FBlock = nullptr;
};

template <class T>
void TDynArray<T>::MakeOwn(std::size_t Wanted) {
    if (!FBlock) {
        FBlock = Reallocate(nullptr, Wanted);
        FBlock->References = 1;
        FBlock->Length = 0;
    } else if (FBlock->References > 1) {
        TBlock* own = Reallocate(nullptr, Wanted);
        own->References = 1;
        own->Length = FBlock->Length < int(Wanted) ? FBlock->Length : int(Wanted);
        std::memcpy(static_cast<void*>(Elements(own)), Elements(FBlock),
                    sizeof(T) * std::size_t(own->Length));
        --FBlock->References;
        FBlock = own;
    } else if (FBlock->Allocated < Wanted) {
        const std::size_t grown = FBlock->Allocated + FBlock->Allocated / 2;
        FBlock = Reallocate(FBlock, grown > Wanted ? grown : Wanted);
    }
}

template <class T>
void TDynArray<T>::SetLength(int Length) {
    if (Length <= 0) {
        Release();
        return;
    }
    MakeOwn(std::size_t(Length));
    if (Length > FBlock->Length)
        std::memset(static_cast<void*>(Elements(FBlock) + FBlock->Length), 0,
                    sizeof(T) * std::size_t(Length - FBlock->Length));
    FBlock->Length = Length;
}

} // namespace kx
