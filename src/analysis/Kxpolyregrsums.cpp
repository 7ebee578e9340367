#include <kxgraph/analysis/Kxpolyregrsums.h>

#include <kxgraph/numeric/Kxlanes.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

constexpr std::size_t CBlock = 128; // points; what is held of them stays in the first cache

/// The points of a block that take part and have a weight, one behind the other, and zeros behind the last. A
/// point without weight must not even be multiplied by it: its powers may overflow.
struct TGathered {
    std::size_t Count = 0;
    std::size_t CountWithWeightless = 0;
    double X[CBlock + CLanes];
    double Y[CBlock + CLanes];
    double W[CBlock + CLanes];

    void Gather(const TKxFitPoints& Points, std::size_t First) {
        const std::size_t stop = std::min(First + CBlock, Points.Count);
        std::size_t n = 0;
        std::size_t all = 0;
        for (std::size_t i = First; i < stop; ++i) {
            X[n] = Points.X[i];
            Y[n] = Points.Y[i];
            W[n] = Points.WeightAt(i);
            const bool takesPart = TakesPart(X[n], Y[n], W[n], Points.Start, Points.Stop);
            const bool counts = takesPart && W[n] != 0;
            all += takesPart;
            n += counts;
        }
        std::fill_n(X + n, CLanes, 0.0);
        std::fill_n(Y + n, CLanes, 0.0);
        std::fill_n(W + n, CLanes, 0.0);
        Count = n;
        CountWithWeightless = all;
    }
};

template <class F>
void ForEachBlock(const TKxFitPoints& Points, F&& Use) {
    TGathered block;
    for (std::size_t i = 0; i < Points.Count; i += CBlock) {
        block.Gather(Points, i);
        Use(block);
    }
}

TKxDoubled SumOfLanes(TKxDoubledLanes Sums) {
    double high[CLanes], low[CLanes];
    std::memcpy(high, &Sums.Hi, sizeof high);
    std::memcpy(low, &Sums.Lo, sizeof low);
    TKxDoubled sum;
    for (std::size_t i = 0; i < CLanes; ++i) sum += FastTwoSum(high[i], low[i]);
    return sum;
}

/// A factor of many products: a pair whose higher double is split already.
struct TFactor {
    TKxLanes Hi, Lo;
    TKxDoubledLanes Halves;
    TFactor() = default;
    explicit TFactor(TKxDoubledLanes Value) : Hi(Value.Hi), Lo(Value.Lo), Halves(SplitHalves(Value.Hi)) {}
};

/// A product whose lower double may overlap the higher one by a few bits: each factor adds about one unit.
inline TKxDoubledLanes LooseProduct(TKxDoubledLanes A, TKxDoubledLanes HalvesA, const TFactor& B) {
    const TKxDoubledLanes high = TwoProduct(A.Hi, HalvesA, B.Hi, B.Halves);
    return {high.Hi, high.Lo + (A.Hi * B.Lo + A.Lo * B.Hi)};
}

inline void AddLoosely(TKxDoubledLanes& Sum, TKxDoubledLanes Term) {
    const TKxDoubledLanes high = TwoSum(Sum.Hi, Term.Hi);
    Sum = {high.Hi, Sum.Lo + (high.Lo + Term.Lo)};
}

/// The points of a block in inner coordinates, and a value P for each of them. Loops run over the points
/// inside, so that the long chains of operations of neighbours overlap.
class TFitBlock {
public:
    void Set(const TGathered& Points, const TKxFitFrame& Frame);
    void SetPToWeights() {
        for (std::size_t i = 0; i < FCount; ++i) FP[i] = {FW[i]};
    }
    void AddSquaresOfY(TKxDoubled& Sum) const;
    /// Adds what the power k, now in P, contributes to Sums, and goes on to the next power.
    void AddPower(TKxFitSums& Sums, std::size_t k) {
        if (k < Sums.Products.size())
            AddPower<true>(Sums.Powers[k], &Sums.Products[k]);
        else
            AddPower<false>(Sums.Powers[k], nullptr);
    }
    void SubtractFromY(std::span<const TKxDoubled> Coefficients) {
        SetPToPolynomial(Coefficients);
        for (std::size_t i = 0; i < FCount; ++i) FY[i] = TFactor(Difference(FY[i], FP[i]));
    }
    TKxDoubled SumOfSquaredResiduals(std::span<const TKxDoubled> Coefficients) {
        SetPToPolynomial(Coefficients);
        return SumOfSquaredDifferences();
    }
    TKxDoubled SumOfSquaredDeviations(TKxDoubled Average) {
        std::fill_n(FP, FCount, AllLanes(Average));
        return SumOfSquaredDifferences();
    }

private:
    template <bool WithY>
    void AddPower(TKxDoubled& Powers, TKxDoubled* Products);
    static TKxDoubledLanes Difference(const TFactor& A, TKxDoubledLanes B) {
        const TKxDoubledLanes high = TwoSum(A.Hi, -B.Hi);
        return FastTwoSum<TKxLanes>(high.Hi, high.Lo + (A.Lo - B.Lo));
    }
    TKxDoubled SumOfSquaredDifferences() const;
    void SetPToPolynomial(std::span<const TKxDoubled> Coefficients);

    static constexpr std::size_t CGroups = CBlock / CLanes;
    std::size_t FCount = 0; // of groups of lanes
    TFactor FT[CGroups];
    TFactor FY[CGroups];
    TKxLanes FW[CGroups];
    TKxDoubledLanes FP[CGroups];
};

void TFitBlock::Set(const TGathered& Points, const TKxFitFrame& Frame) {
    const double scaleX = std::ldexp(1.0, -Frame.ExponentX);
    const double scaleY = std::ldexp(1.0, -Frame.ExponentY);
    const double scaleW = std::ldexp(1.0, -Frame.ExponentW);
    const TKxLanes origin = AllLanes(-Frame.Origin * scaleX);
    FCount = (Points.Count + CLanes - 1) / CLanes;
    for (std::size_t i = 0; i < FCount; ++i) {
        FT[i] = TFactor(TwoSum<TKxLanes>(LoadLanes(Points.X + i * CLanes) * scaleX, origin));
        FY[i] = TFactor(TKxDoubledLanes(LoadLanes(Points.Y + i * CLanes) * scaleY));
        FW[i] = LoadLanes(Points.W + i * CLanes) * scaleW;
    }
}

template <bool WithY>
void TFitBlock::AddPower(TKxDoubled& Powers, TKxDoubled* Products) {
    TKxDoubledLanes powers, products;
    for (std::size_t i = 0; i < FCount; ++i) {
        const TKxDoubledLanes p = FP[i];
        const TKxDoubledLanes halves = SplitHalves(p.Hi);
        AddLoosely(powers, p);
        if constexpr (WithY) AddLoosely(products, LooseProduct(p, halves, FY[i]));
        FP[i] = LooseProduct(p, halves, FT[i]);
    }
    Powers += SumOfLanes(powers);
    if constexpr (WithY) *Products += SumOfLanes(products);
}

void TFitBlock::AddSquaresOfY(TKxDoubled& Sum) const {
    TKxDoubledLanes sum;
    for (std::size_t i = 0; i < FCount; ++i) {
        const TKxDoubledLanes product = LooseProduct({FW[i]}, SplitHalves(FW[i]), FY[i]);
        AddLoosely(sum, LooseProduct(product, SplitHalves(product.Hi), FY[i]));
    }
    Sum += SumOfLanes(sum);
}

/// In plain doubles but for the differences: a sum of squares does not cancel.
TKxDoubled TFitBlock::SumOfSquaredDifferences() const {
    TKxLanes sum{};
    for (std::size_t i = 0; i < FCount; ++i) {
        const TKxLanes difference = Difference(FY[i], FP[i]).Hi;
        sum += FW[i] * (difference * difference);
    }
    return SumOfLanes({sum});
}

void TFitBlock::SetPToPolynomial(std::span<const TKxDoubled> Coefficients) {
    std::fill_n(FP, FCount, AllLanes(Coefficients.back()));
    for (std::size_t k = Coefficients.size() - 1; k-- > 0;) {
        const TKxDoubledLanes coefficient = AllLanes(Coefficients[k]);
        for (std::size_t i = 0; i < FCount; ++i) {
            const TKxDoubledLanes product = LooseProduct(FP[i], SplitHalves(FP[i].Hi), FT[i]);
            const TKxDoubledLanes high = TwoSum(product.Hi, coefficient.Hi);
            FP[i] = FastTwoSum<TKxLanes>(high.Hi, high.Lo + (product.Lo + coefficient.Lo));
        }
    }
}

void Include(TKxFitExtent& Extent, double X, double Y, double W) {
    if (Extent.WithWeight++ == 0) {
        Extent.LowX = Extent.HighX = X;
        Extent.LowY = Extent.HighY = Y;
    }
    Extent.LowX = std::min(Extent.LowX, X);
    Extent.HighX = std::max(Extent.HighX, X);
    Extent.LowY = std::min(Extent.LowY, Y);
    Extent.HighY = std::max(Extent.HighY, Y);
    Extent.LargestWeight = std::max(Extent.LargestWeight, std::abs(W));
    Extent.WeightSum += W;
}

} // namespace

TKxFitExtent ExtentOf(const TKxFitPoints& Points) {
    TKxFitExtent extent;
    ForEachBlock(Points, [&](const TGathered& Block) {
        TKxFitExtent part = extent; // a local one stays in registers
        for (std::size_t i = 0; i < Block.Count; ++i) Include(part, Block.X[i], Block.Y[i], Block.W[i]);
        part.Count += Block.CountWithWeightless;
        extent = part;
    });
    return extent;
}

bool HasDistinctX(const TKxFitPoints& Points, std::size_t Wanted) {
    std::vector<double> known;
    TGathered block;
    for (std::size_t first = 0; first < Points.Count && known.size() < Wanted; first += CBlock) {
        block.Gather(Points, first);
        for (std::size_t i = 0; i < block.Count && known.size() < Wanted; ++i)
            if (std::find(known.rbegin(), known.rend(), block.X[i]) == known.rend())
                known.push_back(block.X[i]);
    }
    return known.size() >= Wanted;
}

TKxFitSums SumsOfPowers(const TKxFitPoints& Points, const TKxFitFrame& Frame, int Order, int HighestPower,
                        std::span<const TKxDoubled> Coefficients) {
    TKxFitSums sums;
    sums.Powers.resize(static_cast<std::size_t>(HighestPower) + 1);
    sums.Products.resize(static_cast<std::size_t>(Order) + 1);
    TFitBlock block;
    ForEachBlock(Points, [&](const TGathered& Gathered) {
        block.Set(Gathered, Frame);
        if (!Coefficients.empty()) block.SubtractFromY(Coefficients);
        block.SetPToWeights();
        block.AddSquaresOfY(sums.Squares);
        for (std::size_t k = 0; k < sums.Powers.size(); ++k) block.AddPower(sums, k);
    });
    return sums;
}

TKxFitSquares SumsOfSquares(const TKxFitPoints& Points, const TKxFitFrame& Frame,
                            std::span<const TKxDoubled> Coefficients, TKxDoubled Average) {
    TKxFitSquares sums;
    TFitBlock block;
    ForEachBlock(Points, [&](const TGathered& Gathered) {
        block.Set(Gathered, Frame);
        sums.Residuals += block.SumOfSquaredResiduals(Coefficients);
        sums.Deviations += block.SumOfSquaredDeviations(Average);
    });
    return sums;
}

} // namespace kx
