#pragma once
// A block of points of a polynomial fit in inner coordinates, and the loops over its points, for
// Kxpolyregrsums alone.

#include <kxgraph/numeric/Kxdoubled.h>
#include <kxgraph/numeric/Kxwide.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace kx::polyregr {

constexpr std::size_t CBlock = 256; // points; what is held of them stays in the first cache

/// Numbers as pairs, with the halves of the higher doubles where products need them.
struct TColumn {
    double Hi[CBlock], Lo[CBlock], Head[CBlock], Tail[CBlock];

    template <bool Fused>
    KX_INLINED void Set(std::size_t I, TKxDoubled Value) {
        Hi[I] = Value.Hi;
        Lo[I] = Value.Lo;
        if constexpr (!Fused) {
            const TKxDoubled halves = SplitHalves(Value.Hi);
            Head[I] = halves.Hi;
            Tail[I] = halves.Lo;
        }
    }
};

constexpr std::size_t CSums = 16;

/// A sum in parts. The higher doubles are added without error, the lower ones loosely.
struct TColumnSum {
    TKxParts<CSums> Hi = {}, Lo = {};

    KX_INLINED void Add(std::size_t Part, TKxDoubled Term) {
        const TKxDoubled high = TwoSum(Hi[Part], Term.Hi);
        Hi[Part] = high.Hi;
        Lo[Part] += high.Lo + Term.Lo;
    }
    TKxDoubled Value() const {
        TKxDoubled sum;
        for (std::size_t i = 0; i < CSums; ++i) sum += FastTwoSum(Hi[i], Lo[i]);
        return sum;
    }
};

/// What the points of a block span; weights in magnitude, but in their sum.
struct TScanned {
    double LowX, HighX, LowY, HighY;
    double LeastWeight, LargestWeight, WeightSum;
    bool AreFinite;
};

struct TScan {
    /// Not much is said of points that are not finite.
    template <bool>
    static KX_INLINED void Run(TScanned& Result, const double* __restrict X, const double* __restrict Y,
                               const double* __restrict W, std::size_t Count) {
        constexpr std::size_t CParts = 8;
        TKxParts<CParts> lowX, highX, lowY, highY, leastW, largestW, sumW{}, rest{};
        for (std::size_t k = 0; k < CParts; ++k) {
            lowX[k] = highX[k] = X[0];
            lowY[k] = highY[k] = Y[0];
            leastW[k] = largestW[k] = std::abs(W[0]);
        }
        ForEachInParts<CParts, 4>(Count, [&](std::size_t i, std::size_t k) {
            const double x = X[i], y = Y[i], w = W[i], size = std::abs(w);
            lowX[k] = x < lowX[k] ? x : lowX[k];
            highX[k] = x > highX[k] ? x : highX[k];
            lowY[k] = y < lowY[k] ? y : lowY[k];
            highY[k] = y > highY[k] ? y : highY[k];
            leastW[k] = size < leastW[k] ? size : leastW[k];
            largestW[k] = size > largestW[k] ? size : largestW[k];
            sumW[k] += w;
            rest[k] += (x - x) + (y - y) + (w - w);
        });
        Result = {LeastPart(lowX),   LargestPart(highX),    LeastPart(lowY),  LargestPart(highY),
                  LeastPart(leastW), LargestPart(largestW), SumOfParts(sumW), SumOfParts(rest) == 0};
    }
};

/// What brings points to inner coordinates: t = X x - Origin.
struct TScaling {
    double X, Origin, Y, W;
};

/// Points t, y with their weights, and a number P for each.
struct TBlock {
    std::size_t Count = 0;
    TColumn T, Y;
    double W[CBlock];
    double PHi[CBlock], PLo[CBlock];

    KX_INLINED TKxDoubled P(std::size_t I) const { return {PHi[I], PLo[I]}; }
    KX_INLINED void SetP(std::size_t I, TKxDoubled Value) {
        PHi[I] = Value.Hi;
        PLo[I] = Value.Lo;
    }
};

/// A product whose lower double may overlap the higher one by a few bits: each factor adds about one unit.
template <bool Fused>
KX_INLINED TKxDoubled LooseProduct(TKxDoubled A, const TColumn& B, std::size_t I) {
    const TKxDoubled high =
        Fused ? FusedProduct(A.Hi, B.Hi[I])
              : TwoProduct(A.Hi, SplitHalves(A.Hi), B.Hi[I], TKxDoubled(B.Head[I], B.Tail[I]));
    return {high.Hi, high.Lo + (A.Hi * B.Lo[I] + A.Lo * B.Hi[I])};
}

KX_INLINED TKxDoubled Difference(const TColumn& A, std::size_t I, TKxDoubled B) {
    const TKxDoubled high = TwoSum(A.Hi[I], -B.Hi);
    return FastTwoSum(high.Hi, high.Lo + (A.Lo[I] - B.Lo));
}

struct TSetBlock {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block, const double* X, const double* Y, const double* W,
                               const TScaling& Scaling) {
        const auto [scaleX, origin, scaleY, scaleW] = Scaling;
        for (std::size_t i = 0; i < Block.Count; ++i) {
            Block.T.Set<Fused>(i, TwoSum(X[i] * scaleX, -origin));
            Block.Y.Set<Fused>(i, Y[i] * scaleY);
            Block.W[i] = W[i] * scaleW;
        }
    }
};

/// P becomes the value of the polynomial.
struct TSetToPolynomial {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block, std::span<const TKxDoubled> Coefficients) {
        const TKxDoubled highest = Coefficients.back();
        for (std::size_t i = 0; i < Block.Count; ++i) Block.SetP(i, highest);
        for (std::size_t k = Coefficients.size() - 1; k-- > 0;) {
            const TKxDoubled coefficient = Coefficients[k];
            for (std::size_t i = 0; i < Block.Count; ++i) {
                const TKxDoubled product = LooseProduct<Fused>(Block.P(i), Block.T, i);
                const TKxDoubled high = TwoSum(product.Hi, coefficient.Hi);
                Block.SetP(i, FastTwoSum(high.Hi, high.Lo + (product.Lo + coefficient.Lo)));
            }
        }
    }
};

struct TSubtractFromY {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block) {
        for (std::size_t i = 0; i < Block.Count; ++i)
            Block.Y.Set<Fused>(i, Difference(Block.Y, i, Block.P(i)));
    }
};

// The kernels below work on copies of the sums: compilers know nothing else to be apart from the block.

/// Adds the squares of y. P becomes the weights.
struct TAddSquares {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block, TColumnSum& Sums) {
        TColumnSum sums = Sums;
        ForEachInParts<CSums, 1>(Block.Count, [&](std::size_t i, std::size_t k) {
            const TKxDoubled weight = Block.W[i];
            const TKxDoubled product = LooseProduct<Fused>(weight, Block.Y, i);
            sums.Add(k, LooseProduct<Fused>(product, Block.Y, i));
            Block.SetP(i, weight);
        });
        Sums = sums;
    }
};

/// Adds P, and P times y; P becomes the next power, P times t.
struct TAddPowerAndProduct {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block, TColumnSum& Powers, TColumnSum& Products) {
        TColumnSum powers = Powers, products = Products;
        ForEachInParts<CSums, 1>(Block.Count, [&](std::size_t i, std::size_t k) {
            const TKxDoubled p = Block.P(i);
            powers.Add(k, p);
            products.Add(k, LooseProduct<Fused>(p, Block.Y, i));
            Block.SetP(i, LooseProduct<Fused>(p, Block.T, i));
        });
        Powers = powers;
        Products = products;
    }
};

/// The same without y.
struct TAddPower {
    template <bool Fused>
    static KX_INLINED void Run(TBlock& Block, TColumnSum& Powers) {
        TColumnSum powers = Powers;
        ForEachInParts<CSums, 1>(Block.Count, [&](std::size_t i, std::size_t k) {
            const TKxDoubled p = Block.P(i);
            powers.Add(k, p);
            Block.SetP(i, LooseProduct<Fused>(p, Block.T, i));
        });
        Powers = powers;
    }
};

/// Adds the squares of what y and P differ by. In plain doubles but for the differences: a sum of squares
/// does not cancel.
struct TAddSquaredDifferences {
    template <bool>
    static KX_INLINED void Run(TBlock& Block, TColumnSum& Sums) {
        TColumnSum sums = Sums;
        ForEachInParts<CSums, 1>(Block.Count, [&](std::size_t i, std::size_t k) {
            const double difference = Difference(Block.Y, i, Block.P(i)).Hi;
            sums.Add(k, Block.W[i] * (difference * difference));
        });
        Sums = sums;
    }
};

} // namespace kx::polyregr
