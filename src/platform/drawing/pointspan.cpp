#include <kxgraph/platform/drawing/pointspan.h>

#include <kxgraph/platform/drawing/shifting.h>

#include <algorithm>

namespace kx {

std::span<const TPoint> TPointSpan::Whole(std::vector<TPoint>& Storage) const {
    if (!FIsExact) return Given<TPoint>();
    Storage.resize(Size());
    std::ranges::transform(Given<TRealPoint>(), Storage.begin(), RoundToPixel);
    return Storage;
}

std::span<const TRealPoint> TPointSpan::Exact(std::vector<TRealPoint>& Storage) const {
    if (FIsExact) return Given<TRealPoint>();
    const auto whole = Given<TPoint>();
    Storage.assign(whole.begin(), whole.end());
    return Storage;
}

TPointSpan TPointMover::Moved(TPointSpan Points, TPoint By) {
    if (By == TPoint{}) return Points;
    if (Points.IsExact()) return Moved(Points, TRealPoint(By));
    const auto whole = Points.Whole(FWhole);
    FWhole.resize(whole.size());
    std::ranges::transform(whole, FWhole.begin(), [By](TPoint P) { return Shifted(P, By); });
    return FWhole;
}

TPointSpan TPointMover::Moved(TPointSpan Points, TRealPoint By) {
    const auto exact = Points.Exact(FExact);
    FExact.resize(exact.size());
    std::ranges::transform(exact, FExact.begin(), [By](TRealPoint P) { return Shifted(P, By); });
    return FExact;
}

} // namespace kx
