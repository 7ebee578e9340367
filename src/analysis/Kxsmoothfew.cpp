#include <kxgraph/analysis/Kxsmoothfew.h>

#include <cmath>

namespace kx {

namespace {

struct TFarthest {
    /// Whether no two points that are Apart points apart are near.
    template <bool>
    static KX_INLINED void Run(bool& Result, const TSmoothPoints& P, std::size_t Apart) {
        TKxParts<8> least;
        std::fill_n(least, 8, P.M);
        const double *x = P.X, *far = P.X + Apart;
        ForEachInParts<8, 4>(P.Count - Apart, [&](std::size_t i, std::size_t k) {
            const double distance = far[i] - x[i];
            least[k] = distance < least[k] ? distance : least[k];
        });
        Result = !(LeastPart(least) < P.M);
    }
};

struct TAverageFew {
    static constexpr std::size_t CBlock = 512;

    template <bool>
    static KX_INLINED void Run(double* Result, const TSmoothPoints& P, std::size_t Neighbours) {
        double weights[CBlock], values[CBlock];
        for (std::size_t first = 0; first < P.Count; first += CBlock) {
            const std::size_t count = std::min(CBlock, P.Count - first);
            std::fill_n(weights, count, 0.0);
            std::fill_n(values, count, 0.0);
            for (std::size_t apart = 1; apart <= Neighbours; ++apart) {
                // Points that have neighbours so far below, and so far above.
                const std::size_t from = std::min(count, apart > first ? apart - first : 0);
                const std::size_t to = std::min(count, P.Count - std::min(P.Count, first + apart));
                AddNeighbours(weights, values, P, first, from, count, -std::ptrdiff_t(apart));
                AddNeighbours(weights, values, P, first, 0, to, std::ptrdiff_t(apart));
            }
            for (std::size_t i = 0; i < count; ++i)
                Result[first + i] = P.Mean(first + i, weights[i], values[i]);
        }
    }

private:
    static KX_INLINED void AddNeighbours(double* __restrict Weights, double* __restrict Values,
                                         const TSmoothPoints& P, std::size_t First, std::size_t From,
                                         std::size_t To, std::ptrdiff_t Apart) {
        if (From >= To) return;
        const std::size_t own = First + From, other = std::size_t(std::ptrdiff_t(own) + Apart);
        const double *x = P.X + own, *otherX = P.X + other, *otherY = P.Y + other;
        const double m = P.M, xScale = P.XScale, yScale = P.YScale;
        for (std::size_t i = 0; i < To - From; ++i) {
            const double rest = m - std::abs(otherX[i] - x[i]);
            const double weight = (rest > 0 ? rest : 0) * xScale;
            Weights[From + i] += weight;
            Values[From + i] += weight * (otherY[i] * yScale);
        }
    }
};

} // namespace

bool SmoothFew(const TSmoothPoints& Points, double* Result) {
    for (const std::size_t neighbours : {0, 1, 2, 4, 8, 12}) {
        bool areAll = Points.Count <= neighbours + 1;
        if (!areAll) RunKernel<TFarthest>(areAll, Points, neighbours + 1);
        if (!areAll) continue;
        RunKernel<TAverageFew>(Result, Points, neighbours);
        return true;
    }
    return false;
}

} // namespace kx
