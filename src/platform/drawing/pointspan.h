#pragma once
// Points on their way to a device: whole pixels, or exact places.

#include <kxgraph/platform/drawing/geometry.h>

#include <concepts>
#include <cstddef>
#include <span>
#include <vector>

namespace kx {

/// Refers to points of either kind; made of whatever holds such points. Who takes it asks for the kind that
/// it works with: what is of that kind already costs nothing.
class TPointSpan {
public:
    TPointSpan() = default;
    template <class R>
    requires std::convertible_to<const R&, std::span<const TPoint>> TPointSpan(const R& Points)
        : FWhole(Points) {}
    template <class R>
    requires std::convertible_to<const R&, std::span<const TRealPoint>> TPointSpan(const R& Points)
        : FExact(Points), FIsExact(true) {}

    bool IsExact() const { return FIsExact; }
    std::size_t Size() const { return FIsExact ? FExact.size() : FWhole.size(); }
    bool IsEmpty() const { return Size() == 0; }

    /// Whole pixels, exact places rounded. Storage is for those that have to be made.
    std::span<const TPoint> Whole(std::vector<TPoint>& Storage) const;
    std::span<const TRealPoint> Exact(std::vector<TRealPoint>& Storage) const;

private:
    std::span<const TPoint> FWhole;
    std::span<const TRealPoint> FExact;
    bool FIsExact = false;
};

/// Moves points of their kind, with the storage for it.
class TPointMover {
public:
    /// Valid until the next call.
    TPointSpan Moved(TPointSpan Points, TPoint By);
    /// Exact places whatever Points are.
    TPointSpan Moved(TPointSpan Points, TRealPoint By);

private:
    std::vector<TPoint> FWhole;
    std::vector<TRealPoint> FExact;
};

} // namespace kx
