#include <kxgraph/analysis/Kxpolyregrsums.h>

#include <kxgraph/analysis/Kxpolyregrblock.h>

#include <algorithm>
#include <cmath>

namespace kx {

using namespace polyregr;

namespace {

/// The points of a block that take part and have a weight, one behind the other. A point without weight must
/// not even be multiplied by it: its powers may overflow.
class TGathered {
public:
    TGathered() { std::ranges::fill(FOnes, 1.0); }
    /// AreWhole is what is known already: that all take part.
    void Gather(const TKxFitPoints& Points, std::size_t First, bool AreWhole = false);

    const double* X = nullptr;
    const double* Y = nullptr;
    const double* W = nullptr;
    std::size_t Count = 0;
    std::size_t CountWithWeightless = 0;
    TScanned Scanned;

private:
    void Copy(const TKxFitPoints& Points);

    double FX[CBlock], FY[CBlock], FW[CBlock], FOnes[CBlock];
};

void TGathered::Gather(const TKxFitPoints& Points, std::size_t First, bool AreWhole) {
    const TKxFitPoints part = Points.Part(First, CBlock);
    if (part.Count == CBlock) {
        X = part.X;
        Y = part.Y;
        W = part.W ? part.W : FOnes;
        Count = CountWithWeightless = CBlock;
        if (AreWhole) return;
        RunKernel<TScan>(Scanned, X, Y, W, CBlock);
        if (Scanned.AreFinite && Scanned.LeastWeight > 0 && Points.Start <= Scanned.LowX &&
            Scanned.HighX <= Points.Stop)
            return; // as a rule
    }
    Copy(part);
    RunKernel<TScan>(Scanned, X, Y, W, Count);
}

void TGathered::Copy(const TKxFitPoints& Points) {
    Count = CountWithWeightless = 0;
    for (std::size_t i = 0; i < Points.Count; ++i) {
        const double x = FX[Count] = Points.X[i], y = FY[Count] = Points.Y[i];
        const double w = FW[Count] = Points.WeightAt(i);
        const bool takesPart = TakesPart(x, y, w, Points.Start, Points.Stop);
        CountWithWeightless += takesPart;
        Count += takesPart & (w != 0);
    }
    X = FX;
    Y = FY;
    W = FW;
}

template <class F>
void ForEachBlock(const TKxFitPoints& Points, bool AreWhole, F&& Use) {
    TGathered block;
    for (std::size_t i = 0; i < Points.Count; i += CBlock) {
        block.Gather(Points, i, AreWhole);
        Use(block);
    }
}

/// The same in inner coordinates.
template <class F>
void ForEachBlock(const TKxFitPoints& Points, const TKxFitFrame& Frame, F&& Use) {
    TBlock block;
    const double scaleX = std::ldexp(1.0, -Frame.ExponentX);
    const TScaling scaling{scaleX, Frame.Origin * scaleX, std::ldexp(1.0, -Frame.ExponentY),
                           std::ldexp(1.0, -Frame.ExponentW)};
    ForEachBlock(Points, Frame.Whole, [&](const TGathered& Gathered) {
        block.Count = Gathered.Count;
        RunKernel<TSetBlock>(block, Gathered.X, Gathered.Y, Gathered.W, scaling);
        Use(block);
    });
}

void Include(TKxFitExtent& Extent, const TScanned& Part) {
    if (Extent.WithWeight == 0) {
        Extent.LowX = Part.LowX;
        Extent.HighX = Part.HighX;
        Extent.LowY = Part.LowY;
        Extent.HighY = Part.HighY;
    }
    Extent.LowX = std::min(Extent.LowX, Part.LowX);
    Extent.HighX = std::max(Extent.HighX, Part.HighX);
    Extent.LowY = std::min(Extent.LowY, Part.LowY);
    Extent.HighY = std::max(Extent.HighY, Part.HighY);
    Extent.LargestWeight = std::max(Extent.LargestWeight, Part.LargestWeight);
    Extent.WeightSum += Part.WeightSum;
}

std::vector<TKxDoubled> ValuesOf(const std::vector<TColumnSum>& Sums) {
    std::vector<TKxDoubled> values;
    values.reserve(Sums.size());
    for (const TColumnSum& sum : Sums) values.push_back(sum.Value());
    return values;
}

} // namespace

TKxFitExtent ExtentOf(const TKxFitPoints& Points) {
    TKxFitExtent extent;
    ForEachBlock(Points, false, [&](const TGathered& Block) {
        extent.Count += Block.CountWithWeightless;
        if (Block.Count == 0) return;
        Include(extent, Block.Scanned);
        extent.WithWeight += Block.Count;
    });
    extent.Whole = extent.WithWeight == Points.Count;
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
    TColumnSum squares;
    std::vector<TColumnSum> powers(static_cast<std::size_t>(HighestPower) + 1);
    std::vector<TColumnSum> products(static_cast<std::size_t>(Order) + 1);
    ForEachBlock(Points, Frame, [&](TBlock& Block) {
        if (!Coefficients.empty()) {
            RunKernel<TSetToPolynomial>(Block, Coefficients);
            RunKernel<TSubtractFromY>(Block);
        }
        RunKernel<TAddSquares>(Block, squares);
        for (std::size_t k = 0; k < products.size(); ++k)
            RunKernel<TAddPowerAndProduct>(Block, powers[k], products[k]);
        for (std::size_t k = products.size(); k < powers.size(); ++k) RunKernel<TAddPower>(Block, powers[k]);
    });
    return {ValuesOf(powers), ValuesOf(products), squares.Value()};
}

TKxFitSquares SumsOfSquares(const TKxFitPoints& Points, const TKxFitFrame& Frame,
                            std::span<const TKxDoubled> Coefficients, TKxDoubled Average) {
    TColumnSum residuals, deviations;
    ForEachBlock(Points, Frame, [&](TBlock& Block) {
        RunKernel<TSetToPolynomial>(Block, Coefficients);
        RunKernel<TAddSquaredDifferences>(Block, residuals);
        RunKernel<TSetToPolynomial>(Block, std::span<const TKxDoubled>(&Average, 1));
        RunKernel<TAddSquaredDifferences>(Block, deviations);
    });
    return {residuals.Value(), deviations.Value()};
}

} // namespace kx
