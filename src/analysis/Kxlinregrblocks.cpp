#include <kxgraph/analysis/Kxlinregrblocks.h>

#include <kxgraph/numeric/Kxwide.h>

#include <algorithm>
#include <limits>

namespace kx::linregr {

namespace {

constexpr double CInf = std::numeric_limits<double>::infinity();
// x, y and weights of a block stay in the first-level cache for all passes over it, and a plain sum over a
// block loses no more than the last bits: each of its parts adds up a quarter of the block.
constexpr std::size_t CBlock = 1024;

constexpr std::size_t CParts = 4;
using TParts = TKxParts<CParts>;

/// One point; without weights W is 1, which the compiler knows.
struct TPoint {
    double X, Y, W;
};

/// Add(point, part) for all points; then the first one of each of Sums is that of its parts.
template <bool Weighted, class F, class... TSums>
KX_INLINED void ForEachPoint(const TKxFitPoints& P, F Add, TSums&... Sums) {
    const auto use = [&](std::size_t i, std::size_t k) {
        Add(TPoint{P.X[i], P.Y[i], Weighted ? P.W[i] : 1}, k);
    };
    ForEachInParts<CParts, 8>(P.Count, use, [&] { (SumOfParts(Sums), ...); });
}

struct TExtentAndSums {
    double Low, High; ///< of x, NaNs left out
    double X, Y, W;   ///< sums of w (x - x0), w (y - y0), w
    double Weightless, LeastWeight;
};

template <bool Weighted>
struct TSumUp {
    template <bool>
    static KX_INLINED void Run(TExtentAndSums& Sums, const TKxFitPoints& P, double X0, double Y0) {
        TParts low, high, sumX{}, sumY{}, sumW{}, weightless{}, leastW{};
        std::fill_n(low, CParts, CInf);
        std::fill_n(high, CParts, -CInf);
        const auto add = [&](const TPoint& At, std::size_t k) {
            low[k] = At.X < low[k] ? At.X : low[k];
            high[k] = At.X > high[k] ? At.X : high[k];
            sumX[k] += At.W * (At.X - X0); // so equal values have a mean without rounding
            sumY[k] += At.W * (At.Y - Y0);
            if constexpr (Weighted) {
                sumW[k] += At.W;
                weightless[k] += At.W == 0 ? 1 : 0;
                leastW[k] = At.W < leastW[k] ? At.W : leastW[k];
            }
        };
        ForEachPoint<Weighted>(P, add, sumX, sumY, sumW, weightless);
        Sums = {LeastPart(low),
                LargestPart(high),
                sumX[0],
                sumY[0],
                Weighted ? sumW[0] : static_cast<double>(P.Count),
                weightless[0],
                LeastPart(leastW)};
    }
};

/// Sums over a block, as they stand in it.
struct TMoments {
    double Px, Py, Qxx, Qxy, Qyy;
};
template <bool Weighted>
struct TAddMoments {
    template <bool>
    static KX_INLINED void Run(TMoments& Sums, const TKxFitPoints& P, double Cx, double Cy) {
        TParts px{}, py{}, qxx{}, qxy{}, qyy{};
        const auto add = [&](const TPoint& At, std::size_t k) {
            const double dx = At.X - Cx, dy = At.Y - Cy;
            const double wdx = At.W * dx, wdy = At.W * dy;
            px[k] += wdx;
            py[k] += wdy;
            qxx[k] += wdx * dx;
            qxy[k] += wdx * dy;
            qyy[k] += wdy * dy;
        };
        ForEachPoint<Weighted>(P, add, px, py, qxx, qxy, qyy);
        Sums = {px[0], py[0], qxx[0], qxy[0], qyy[0]};
    }
};

struct TResidualSums {
    double Rr, Rx;
};
template <bool Weighted>
struct TAddResiduals {
    template <bool>
    static KX_INLINED void Run(TResidualSums& Sums, const TKxFitPoints& P, double Cx, double Cy,
                               double Slope) {
        TParts rr{}, rx{};
        const auto add = [&](const TPoint& At, std::size_t k) {
            const double dx = At.X - Cx;
            const double r = (At.Y - Cy) - dx * Slope;
            const double wr = At.W * r;
            rr[k] += wr * r;
            rx[k] += wr * dx;
        };
        ForEachPoint<Weighted>(P, add, rr, rx);
        Sums = {rr[0], rx[0]};
    }
};

/// The centre of a block of points, and what else shows on the way to it.
struct TPlace {
    TExtentAndSums Sums;
    TCentre Centre;
};

template <bool Weighted>
TPlace PlaceOf(const TKxFitPoints& P) {
    std::size_t first = 0; // not one without weight: its values may be as senseless as they like
    if constexpr (Weighted)
        while (first < P.Count && P.W[first] == 0) ++first;
    if (first == P.Count) first = 0;
    const double x0 = P.X[first], y0 = P.Y[first];
    TExtentAndSums sums;
    RunKernel<TSumUp<Weighted>>(sums, P, x0, y0);
    const double divisor = sums.W > 0 ? sums.W : CInf; // makes 0 of finite sums only
    return {sums, {sums.W, x0 + sums.X / divisor, y0 + sums.Y / divisor}};
}

template <bool Weighted>
TBlock BlockOf(const TKxFitPoints& P, const TPlace& Place) {
    const TCentre& centre = Place.Centre;
    TMoments sums;
    RunKernel<TAddMoments<Weighted>>(sums, P, centre.X, centre.Y);
    const auto [px, py, qxx, qxy, qyy] = sums;
    const double quotient = qxy / qxx;
    const double slope = qxx > 0 && std::isfinite(quotient) ? quotient : 0;
    TResidualSums rest;
    RunKernel<TAddResiduals<Weighted>>(rest, P, centre.X, centre.Y, slope);
    const double count = static_cast<double>(P.Count);
    return {centre,  count,   count - Place.Sums.Weightless, px, py, qxx, qxy, qyy, slope,
            rest.Rr, rest.Rx, Place.Sums.LeastWeight < 0};
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
        TPlace place = PlaceOf<Weighted>(points);
        const double low = place.Sums.Low, high = place.Sums.High;
        if (!(low <= P.Stop && P.Start <= high)) continue;
        if (!(P.Start <= low && high <= P.Stop && place.Centre.IsFinite())) {
            points = TakingPart<Weighted>(points, room);
            if (points.Count == 0) continue;
            place = PlaceOf<Weighted>(points);
        }
        blocks.push_back(BlockOf<Weighted>(points, place));
    }
    return blocks;
}

} // namespace

std::vector<TBlock> BlocksOf(const TKxFitPoints& P) { return P.W ? Blocks<true>(P) : Blocks<false>(P); }

} // namespace kx::linregr
