#include <kxgraph/analysis/Kxlinregrblocks.h>

#include <kxgraph/numeric/Kxlanes.h>

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>
#include <utility>

namespace kx::linregr {

namespace {

constexpr double CInf = std::numeric_limits<double>::infinity();
// x, y and weights of a block stay in the first-level cache for all passes over it, and a plain sum over a
// block loses no more than the last bits: each of its four parts adds up a quarter of the block.
constexpr std::size_t CBlock = 1024;

/// The weight of a point where there are no weights.
struct TOne {
    template <class V>
    friend V operator*(TOne, V Value) {
        return Value;
    }
};

template <class V, class TWeight>
struct TValues {
    V X, Y;
    TWeight W;
};

template <class V>
V ValueAt(const double* P) {
    if constexpr (std::is_same_v<V, double>)
        return *P;
    else
        return LoadLanes(P);
}

template <bool Weighted, class V>
auto ValuesAt(const TKxFitPoints& P, std::size_t Index) {
    const V x = ValueAt<V>(P.X + Index), y = ValueAt<V>(P.Y + Index);
    if constexpr (Weighted)
        return TValues<V, V>{x, y, ValueAt<V>(P.W + Index)};
    else
        return TValues<V, TOne>{x, y, {}};
}

/// N sums at once over all points; AddTo adds the terms of one point, or of a pair of them, to an array.
template <bool Weighted, std::size_t N, class F>
std::array<double, N> Sums(const TKxFitPoints& P, F AddTo) {
    std::array<TKxLanes, N> even{}, odd{}; // two chains of additions, for one would wait for itself
    std::size_t i = 0;
    for (; i + 4 <= P.Count; i += 4) {
        AddTo(even, ValuesAt<Weighted, TKxLanes>(P, i));
        AddTo(odd, ValuesAt<Weighted, TKxLanes>(P, i + 2));
    }
    std::array<double, N> sums;
    for (std::size_t k = 0; k < N; ++k) sums[k] = SumOfLanes(even[k] + odd[k]);
    for (; i < P.Count; ++i) AddTo(sums, ValuesAt<Weighted, double>(P, i));
    return sums;
}

/// Lowest and highest x, NaNs left out.
std::pair<double, double> ExtentX(const TKxFitPoints& P) {
    TKxLanes low = AllLanes(CInf), high = AllLanes(-CInf);
    for (std::size_t i = 0; i < P.Count; ++i) {
        // The last one of an odd count is paired with itself.
        const TKxLanes x = i + 1 < P.Count ? LoadLanes(P.X + i++) : AllLanes(P.X[i]);
        low = Lower(x, low);
        high = Higher(x, high);
    }
    return {std::min(low[0], low[1]), std::max(high[0], high[1])};
}

template <bool Weighted>
TCentre CentreOf(const TKxFitPoints& P) {
    std::size_t first = 0; // not one without weight: its values may be as senseless as they like
    if constexpr (Weighted)
        while (first < P.Count && P.W[first] == 0) ++first;
    if (first == P.Count) first = 0;
    const double x0 = P.X[first], y0 = P.Y[first];
    const auto [sumX, sumY, sumW] = Sums<Weighted, 3>(P, [=](auto& Sum, const auto& At) {
        Sum[0] = Sum[0] + At.W * (At.X - x0); // so equal values have a mean without rounding
        Sum[1] = Sum[1] + At.W * (At.Y - y0);
        if constexpr (Weighted) Sum[2] = Sum[2] + At.W;
    });
    const double w = Weighted ? sumW : static_cast<double>(P.Count);
    const double divisor = w > 0 ? w : CInf; // makes 0 of finite sums only
    return {w, x0 + sumX / divisor, y0 + sumY / divisor};
}

template <bool Weighted>
TBlock BlockOf(const TKxFitPoints& P, const TCentre& Centre) {
    const double cx = Centre.X, cy = Centre.Y;
    const auto [px, py, qxx, qxy, qyy] = Sums<Weighted, 5>(P, [=](auto& Sum, const auto& At) {
        const auto dx = At.X - cx, dy = At.Y - cy;
        const auto wdx = At.W * dx, wdy = At.W * dy;
        Sum[0] = Sum[0] + wdx;
        Sum[1] = Sum[1] + wdy;
        Sum[2] = Sum[2] + wdx * dx;
        Sum[3] = Sum[3] + wdx * dy;
        Sum[4] = Sum[4] + wdy * dy;
    });
    const double quotient = qxy / qxx;
    const double slope = qxx > 0 && std::isfinite(quotient) ? quotient : 0;
    const auto [rr, rx] = Sums<Weighted, 2>(P, [=](auto& Sum, const auto& At) {
        const auto dx = At.X - cx;
        const auto r = (At.Y - cy) - dx * slope;
        const auto wr = At.W * r;
        Sum[0] = Sum[0] + wr * r;
        Sum[1] = Sum[1] + wr * dx;
    });
    const double count = static_cast<double>(P.Count);
    const double without = Weighted ? static_cast<double>(std::count(P.W, P.W + P.Count, 0.0)) : 0;
    const bool negative = Weighted && std::count_if(P.W, P.W + P.Count, [](double W) { return W < 0; }) > 0;
    return {Centre, count, count - without, px, py, qxx, qxy, qyy, slope, rr, rx, negative};
}

/// Room for those points of a block that take part, where not all do.
struct TRoom {
    double X[CBlock], Y[CBlock], W[CBlock];
};

template <bool Weighted>
TKxFitPoints TakingPart(const TKxFitPoints& P, TRoom& Room) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < P.Count; ++i) {
        const double x = P.X[i], y = P.Y[i], w = Weighted ? P.W[i] : 1;
        Room.X[count] = x;
        Room.Y[count] = y;
        Room.W[count] = w;
        count += TakesPart(x, y, w, P.Start, P.Stop);
    }
    return {Room.X, Room.Y, Room.W, count};
}

template <bool Weighted>
std::vector<TBlock> Blocks(const TKxFitPoints& P) {
    std::vector<TBlock> blocks;
    TRoom room;
    for (std::size_t i = 0; i < P.Count; i += CBlock) {
        TKxFitPoints points = P.Part(i, CBlock);
        const auto [low, high] = ExtentX(points);
        if (!(low <= P.Stop && P.Start <= high)) continue;
        TCentre centre = CentreOf<Weighted>(points);
        if (!(P.Start <= low && high <= P.Stop && centre.IsFinite())) {
            points = TakingPart<Weighted>(points, room);
            if (points.Count == 0) continue;
            centre = CentreOf<Weighted>(points);
        }
        blocks.push_back(BlockOf<Weighted>(points, centre));
    }
    return blocks;
}

} // namespace

std::vector<TBlock> BlocksOf(const TKxFitPoints& P) { return P.W ? Blocks<true>(P) : Blocks<false>(P); }

} // namespace kx::linregr
