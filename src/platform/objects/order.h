#pragma once
// Things in an order that know their index: a thing comes, goes and moves, and an index is found, in at most
// as many steps as their number has binary digits, a few times over. Links stand in the things themselves, so
// that nothing here allocates or fails.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace kx {

/// One place in an order. It must not move, and must have left before it is destroyed.
class TOrderLink {
public:
    TOrderLink() = default;
    TOrderLink(const TOrderLink&) = delete;
    TOrderLink& operator=(const TOrderLink&) = delete;

    bool IsLinked() const { return FCount > 0; }
    std::size_t Index() const;
    /// The neighbours; null at the ends.
    TOrderLink* Next() const;
    TOrderLink* Previous() const;

private:
    friend class TOrderBase;
    static std::size_t CountOf(const TOrderLink* Link) { return Link ? Link->FCount : 0; }
    std::uint64_t Rank() const;

    // A tree that is balanced by chance: each link ranks above the two below it, by a number that is mixed
    // from its address.
    TOrderLink *FAbove = nullptr, *FBefore = nullptr, *FBehind = nullptr;
    std::size_t FCount = 0; // of the links in the tree that begins here
};

/// The order itself, of bare links.
class TOrderBase {
public:
    TOrderBase() = default;
    TOrderBase(TOrderBase&& Other) noexcept : FTop(std::exchange(Other.FTop, nullptr)) {}
    TOrderBase& operator=(TOrderBase&& Other) noexcept {
        FTop = std::exchange(Other.FTop, nullptr);
        return *this;
    }

    std::size_t GetCount() const { return TOrderLink::CountOf(FTop); }
    bool IsEmpty() const { return !FTop; }
    /// Enters a link in front of Before; at the end for null.
    void Insert(TOrderLink* Before, TOrderLink& Link) noexcept;
    void Remove(TOrderLink& Link) noexcept;
    /// Forgets all links, which may be gone already.
    void Clear() noexcept { FTop = nullptr; }

protected:
    TOrderLink* LinkAt(std::size_t Index) const;
    TOrderLink* TopLink() const { return FTop; }
    TOrderLink* End(TOrderLink* TOrderLink::*Side) const;
    TOrderLink* FirstLink() const { return End(&TOrderLink::FBefore); }
    TOrderLink* LastLink() const { return End(&TOrderLink::FBehind); }
    /// The first link of which Holds is true, as it is of all behind; null for none.
    template <class F>
    TOrderLink* FirstLinkWhere(F Holds) const {
        TOrderLink* found = nullptr;
        for (TOrderLink* link = FTop; link;) {
            const bool holds = Holds(*link);
            if (holds) found = link;
            link = holds ? link->FBefore : link->FBehind;
        }
        return found;
    }

private:
    static TOrderLink*& SideOf(TOrderLink& Above, const TOrderLink& Below);
    void Replace(TOrderLink& Old, TOrderLink* New);
    void Raise(TOrderLink& Link);

    TOrderLink* FTop = nullptr;
};

template <class T>
struct TOrderItem {
    T* const Item;
};
/// A link that knows what stands at its place.
template <class T>
struct TOrdered : TOrderItem<T>, TOrderLink {
    explicit TOrdered(T* Item) : TOrderItem<T>{Item} {}
};

/// Things of type T in order, none of them owned.
template <class T>
class TOrder : public TOrderBase {
public:
    class TIterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using pointer = T* const*;
        using reference = T*;

        explicit TIterator(const TOrderLink* Link = nullptr) : FLink(Link) {}
        T* operator*() const { return static_cast<const TOrdered<T>*>(FLink)->Item; }
        TIterator& operator++() {
            FLink = FLink->Next();
            return *this;
        }
        TIterator operator++(int) {
            const TIterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const TIterator&, const TIterator&) = default;

    private:
        const TOrderLink* FLink;
    };

    /// Unchecked.
    TOrdered<T>& At(std::size_t Index) const { return *static_cast<TOrdered<T>*>(LinkAt(Index)); }
    /// There must be one.
    T* Any() const { return ItemOf(TopLink()); }
    T* First() const { return ItemOf(FirstLink()); }
    T* Last() const { return ItemOf(LastLink()); }
    /// Enters a link in front of the first thing for which Precedes(link's thing, it) is true.
    template <class F>
    void InsertSorted(TOrdered<T>& Link, F Precedes) {
        const bool isLast = IsEmpty() || !Precedes(Link.Item, Last());
        Insert(isLast ? nullptr
                      : FirstLinkWhere([&](TOrderLink& L) { return Precedes(Link.Item, ItemOf(&L)); }),
               Link);
    }
    TIterator begin() const { return TIterator(FirstLink()); }
    TIterator end() const { return TIterator(); }

private:
    static T* ItemOf(TOrderLink* Link) { return static_cast<TOrdered<T>*>(Link)->Item; }
};

} // namespace kx
