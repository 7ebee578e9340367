#include <kxgraph/platform/objects/order.h>

namespace kx {

// The finalizer of MurmurHash3: neighbouring addresses are to rank as if drawn by lot.
std::uint64_t TOrderLink::Rank() const {
    std::uint64_t key = reinterpret_cast<std::uintptr_t>(this);
    key = (key ^ (key >> 33)) * 0xFF51AFD7ED558CCD;
    key = (key ^ (key >> 33)) * 0xC4CEB9FE1A85EC53;
    return key ^ (key >> 33);
}

std::size_t TOrderLink::Index() const {
    std::size_t index = CountOf(FBefore);
    for (const TOrderLink* link = this; link->FAbove; link = link->FAbove)
        if (link == link->FAbove->FBehind) index += CountOf(link->FAbove->FBefore) + 1;
    return index;
}

TOrderLink* TOrderLink::Next() const {
    if (FBehind) {
        TOrderLink* next = FBehind;
        while (next->FBefore) next = next->FBefore;
        return next;
    }
    const TOrderLink* link = this;
    while (link->FAbove && link == link->FAbove->FBehind) link = link->FAbove;
    return link->FAbove;
}

TOrderLink* TOrderLink::Previous() const {
    if (FBefore) {
        TOrderLink* previous = FBefore;
        while (previous->FBehind) previous = previous->FBehind;
        return previous;
    }
    const TOrderLink* link = this;
    while (link->FAbove && link == link->FAbove->FBefore) link = link->FAbove;
    return link->FAbove;
}

TOrderLink* TOrderBase::LinkAt(std::size_t Index) const {
    TOrderLink* link = FTop;
    while (true) {
        const std::size_t before = TOrderLink::CountOf(link->FBefore);
        if (Index == before) return link;
        if (Index < before) {
            link = link->FBefore;
        } else {
            Index -= before + 1;
            link = link->FBehind;
        }
    }
}

TOrderLink* TOrderBase::End(TOrderLink* TOrderLink::*Side) const {
    TOrderLink* link = FTop;
    while (link && link->*Side) link = link->*Side;
    return link;
}

TOrderLink*& TOrderBase::SideOf(TOrderLink& Above, const TOrderLink& Below) {
    return Above.FBefore == &Below ? Above.FBefore : Above.FBehind;
}

/// Puts New, or nothing, where Old hangs.
void TOrderBase::Replace(TOrderLink& Old, TOrderLink* New) {
    (Old.FAbove ? SideOf(*Old.FAbove, Old) : FTop) = New;
    if (New) New->FAbove = Old.FAbove;
}

/// Exchanges a link and the one above it.
void TOrderBase::Raise(TOrderLink& Link) {
    TOrderLink& above = *Link.FAbove;
    const bool isBefore = above.FBefore == &Link;
    TOrderLink*& inner = isBefore ? Link.FBehind : Link.FBefore;
    Replace(above, &Link);
    (isBefore ? above.FBefore : above.FBehind) = inner;
    if (inner) inner->FAbove = &above;
    inner = &above;
    above.FAbove = &Link;
    Link.FCount = above.FCount;
    above.FCount = 1 + TOrderLink::CountOf(above.FBefore) + TOrderLink::CountOf(above.FBehind);
}

void TOrderBase::Insert(TOrderLink* Before, TOrderLink& Link) noexcept {
    TOrderLink* above = Before ? Before->FBefore ? Before->Previous() : Before : LastLink();
    Link.FBefore = Link.FBehind = nullptr;
    Link.FAbove = above;
    Link.FCount = 1;
    (!above ? FTop : above == Before ? above->FBefore : above->FBehind) = &Link;
    for (; above; above = above->FAbove) ++above->FCount;
    while (Link.FAbove && Link.FAbove->Rank() < Link.Rank()) Raise(Link);
}

void TOrderBase::Remove(TOrderLink& Link) noexcept {
    while (Link.FBefore && Link.FBehind)
        Raise(Link.FBefore->Rank() > Link.FBehind->Rank() ? *Link.FBefore : *Link.FBehind);
    Replace(Link, Link.FBefore ? Link.FBefore : Link.FBehind);
    for (TOrderLink* above = Link.FAbove; above; above = above->FAbove) --above->FCount;
    Link.FAbove = Link.FBefore = Link.FBehind = nullptr;
    Link.FCount = 0;
}

} // namespace kx
