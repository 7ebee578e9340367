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
        : TPointSpan(std::span<const TPoint>(Points)) {}
    template <class R>
    requires std::convertible_to<const R&, std::span<const TRealPoint>> TPointSpan(const R& Points)
        : TPointSpan(std::span<const TRealPoint>(Points)) {}
    TPointSpan(std::span<const TPoint> Points) : FPoints(Points.data()), FSize(Points.size()) {}
    TPointSpan(std::span<const TRealPoint> Points)
        : FPoints(Points.data()), FSize(Points.size()), FIsExact(true) {}

    bool IsExact() const { return FIsExact; }
    std::size_t Size() const { return FSize; }
    bool IsEmpty() const { return Size() == 0; }

    /// Whole pixels, exact places rounded. Storage is for those that have to be made.
    std::span<const TPoint> Whole(std::vector<TPoint>& Storage) const;
    std::span<const TRealPoint> Exact(std::vector<TRealPoint>& Storage) const;

private:
    template <class P>
    std::span<const P> Given() const {
        return {static_cast<const P*>(FPoints), Size()};
    }

    // Two words, which are handed over in registers: through memory it takes as long as drawing a short line.
    const void* FPoints = nullptr;
    std::size_t FSize : sizeof(std::size_t) * 8 - 1 = 0;
    bool FIsExact : 1 = false;
};
static_assert(sizeof(TPointSpan) == 2 * sizeof(void*));

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
