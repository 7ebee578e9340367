#pragma once
// A flat table of the lines that share a name, found by a hash of the name. What the name is, and when two
// are the same, is its user's business.

#include <kxgraph/platform/objects/order.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

/// FNV-1a over the upper case of ASCII letters, from Seed on.
std::uint32_t HashOfName(std::string_view Name, std::uint32_t Seed = 0x811C9DC5);

/// Lines of one name stand together, in an order. Only Reserve allocates.
template <class T>
class TKxIniTable {
public:
    /// Makes room for one more line.
    void Reserve() {
        if ((FLines + 1) * 4 > FSlots.size() * 3) Grow();
    }
    /// The lines that hash so and of which IsSame is true; null for none.
    template <class F>
    const TOrder<T>* Find(std::uint32_t Hash, F IsSame) const {
        if (FLines == 0) return nullptr;
        const TSlot& slot = FSlots[PlaceOf(Hash, IsSame)];
        return slot.Lines.IsEmpty() ? nullptr : &slot.Lines;
    }
    /// There must be room.
    template <class F, class P>
    void Enter(std::uint32_t Hash, TOrdered<T>& Link, F IsSame, P Precedes) {
        TSlot& slot = FSlots[PlaceOf(Hash, IsSame)];
        slot.Hash = Hash;
        slot.Lines.InsertSorted(Link, Precedes);
        ++FLines;
    }
    template <class F>
    void Leave(std::uint32_t Hash, TOrdered<T>& Link, F IsSame) {
        const std::size_t place = PlaceOf(Hash, IsSame);
        FSlots[place].Lines.Remove(Link);
        --FLines;
        if (FSlots[place].Lines.IsEmpty()) Close(place);
    }
    void Clear() {
        FSlots.clear();
        FLines = 0;
    }
    void Swap(TKxIniTable& Other) {
        FSlots.swap(Other.FSlots);
        std::swap(FLines, Other.FLines);
    }

private:
    struct TSlot {
        TOrder<T> Lines;
        std::uint32_t Hash = 0;
    };

    std::size_t Next(std::size_t Place) const { return (Place + 1) & (FSlots.size() - 1); }
    std::size_t HomeOf(std::uint32_t Hash) const { return Hash & (FSlots.size() - 1); }
    /// Where such lines stand, or would.
    template <class F>
    std::size_t PlaceOf(std::uint32_t Hash, F IsSame) const {
        std::size_t place = HomeOf(Hash);
        while (!FSlots[place].Lines.IsEmpty() &&
               !(FSlots[place].Hash == Hash && IsSame(*FSlots[place].Lines.Any())))
            place = Next(place);
        return place;
    }
    /// Moves up what stands behind an empty place for want of it.
    void Close(std::size_t Place) {
        for (std::size_t next = Next(Place); !FSlots[next].Lines.IsEmpty(); next = Next(next)) {
            const std::size_t mask = FSlots.size() - 1, home = HomeOf(FSlots[next].Hash);
            if (((next - home) & mask) < ((next - Place) & mask)) continue;
            FSlots[Place] = std::move(FSlots[next]);
            Place = next;
        }
    }
    void Grow() {
        std::vector<TSlot> before(FSlots.empty() ? 16 : 2 * FSlots.size());
        before.swap(FSlots);
        for (TSlot& slot : before)
            if (!slot.Lines.IsEmpty())
                FSlots[PlaceOf(slot.Hash, [](const T&) { return false; })] = std::move(slot);
    }

    std::vector<TSlot> FSlots; // a power of two, never all taken
    std::size_t FLines = 0;
};

} // namespace kx
