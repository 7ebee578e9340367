#include <kxgraph/analysis/Kxlinregr.h>

#include <kxgraph/analysis/Kxlinregrblocks.h>
#include <kxgraph/platform/base/exceptions.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

using namespace linregr;

/// A sum with twice the digits: Neumaier, ZAMM 54 (1974) 39, with the exact error of each addition (Knuth).
class TSum {
public:
    void Add(double Value) {
        const double sum = FHigh + Value;
        const double part = sum - FHigh;
        FLow += (FHigh - (sum - part)) + (Value - part);
        FHigh = sum;
    }
    double Value() const { return FHigh + FLow; }

private:
    double FHigh = 0, FLow = 0;
};

template <class F>
double SumOver(const std::vector<TBlock>& Blocks, F TermOf) {
    TSum sum;
    for (const TBlock& block : Blocks) sum.Add(TermOf(block));
    return sum.Value();
}

/// A value and what its rounding left.
struct TExact {
    double High, Low = 0;
    static TExact Sum(double A, double B) { // exact with B the smaller one
        const double high = A + B;
        return {high, (A - high) + B};
    }
    double From(double Value) const { return (Value - High) - Low; } ///< Value minus this
};

/// The point that a line goes through, and its slope.
struct TLine {
    TExact X, Y, Slope{0, 0};
};

TExact Mean(const std::vector<TBlock>& Blocks, double W, double TCentre::*Place, double TBlock::*Rest) {
    TExact mean{Blocks.front().Centre.*Place};
    for (int round = 0; round < 2; ++round) { // the second one is about the mean, where the sum is small
        const double sum = SumOver(Blocks, [&](const TBlock& B) {
            return B.Centre.W * (B.Centre.*Place - mean.High) + B.*Rest; //
        });
        mean = TExact::Sum(mean.High, sum / W);
    }
    return mean;
}

struct TMoments {
    double Xx, Xy, Yy;
};

/// Sums of squares and products of distances from the point of the line.
TMoments MomentsAbout(const TLine& Line, const std::vector<TBlock>& Blocks) {
    TSum xx, xy, yy;
    for (const TBlock& b : Blocks) {
        const double w = b.Centre.W, x = Line.X.From(b.Centre.X), y = Line.Y.From(b.Centre.Y);
        xx.Add(b.Qxx);
        xx.Add(x * (2 * b.Px + w * x));
        xy.Add(b.Qxy);
        xy.Add(x * b.Py + y * (b.Px + w * x));
        yy.Add(b.Qyy);
        yy.Add(y * (2 * b.Py + w * y));
    }
    return {xx.Value(), xy.Value(), yy.Value()};
}

/// The residuals of a block from a line are r + Turn dx + Shift.
struct TResiduals {
    double Turn, Shift;
    double Rest; ///< sum of r
    TResiduals(const TBlock& B, const TLine& Line)
        : Turn((B.Slope - Line.Slope.High) - Line.Slope.Low), Rest(B.Py - B.Slope * B.Px) {
        const double x = Line.X.From(B.Centre.X), y = Line.Y.From(B.Centre.Y);
        Shift = std::fma(-Line.Slope.High, x, y) - Line.Slope.Low * x;
    }
};

/// The sum of squared residuals.
double ChiSquareOf(const TLine& Line, const std::vector<TBlock>& Blocks) {
    return SumOver(Blocks, [&](const TBlock& B) {
        const TResiduals r(B, Line);
        return B.Rr + r.Turn * (2 * B.Rx + r.Turn * B.Qxx) +
               r.Shift * (2 * (r.Rest + r.Turn * B.Px) + r.Shift * B.Centre.W);
    });
}

/// The least-squares slope through the point of the line. Residuals from a first slope are small and so is
/// their rounding: a correction by them gives digits beyond those of a double.
TExact SlopeThrough(TLine Line, const TMoments& About, const std::vector<TBlock>& Blocks) {
    Line.Slope = {About.Xy / About.Xx};
    const double moment = SumOver(Blocks, [&](const TBlock& B) {
        const TResiduals r(B, Line);
        const double x = Line.X.From(B.Centre.X);
        return (B.Rx + r.Turn * (B.Qxx + x * B.Px)) + (x * r.Rest + r.Shift * (B.Px + x * B.Centre.W));
    });
    return TExact::Sum(Line.Slope.High, moment / About.Xx);
}

/// A step of a computation that is given up at the first value that is not finite.
bool Store(double& Field, double Value) {
    if (!std::isfinite(Value)) return false;
    Field = Value;
    return true;
}

double FiniteOrMark(double Value) { return std::isfinite(Value) ? Value : CMaxReal; }

/// One fit: its blocks, and what all fits begin and end with.
struct TFit {
    std::vector<TBlock> Blocks;
    TKxLinearRegessionResults& Results;
    TKxLinRegRules Rules;
    double W = 0;       ///< sum of weights; the count without weights
    double Counted = 0; ///< what degrees of freedom are counted from
    TLine Means{};
    TMoments About{};
    bool Negative = false; ///< whether there is a weight below 0

    void TakeMeans(double LeastCount) {
        double count = 0, withWeight = 0;
        for (const TBlock& block : Blocks) {
            count += block.Count;
            withWeight += block.WithWeight;
            Negative |= block.Negative;
        }
        if (count < LeastCount || withWeight == 0) RaiseNotEnoughData();
        Results.Points = static_cast<int>(count);
        W = SumOver(Blocks, [](const TBlock& B) { return B.Centre.W; });
        Counted = Rules.Weights == wmCounts ? W : withWeight;
        Results.Counted = Counted;
        Results.SumOfWeights = W;
        Means.X = Mean(Blocks, W, &TCentre::X, &TBlock::Px);
        Means.Y = Mean(Blocks, W, &TCentre::Y, &TBlock::Py);
        Results.AverageX = FiniteOrMark(Means.X.High);
        Results.AverageY = FiniteOrMark(Means.Y.High);
        About = MomentsAbout(Means, Blocks);
    }
    /// A sum of weighted squares, which rounding can bring below 0.
    double Squares(double Sum) const { return Sum < 0 && !Negative ? 0 : Sum; }
    /// They stay 0 where they have no value.
    bool StoreVariances() {
        const double divisor = (Counted - 1) * (W / Counted);
        return !(divisor > 0) || (Store(Results.VarianceX, Squares(About.Xx) / divisor) &&
                                  Store(Results.VarianceY, Squares(About.Yy) / divisor));
    }
    bool StoreChiSquare(const TLine& Line) {
        return Store(Results.ChiSquare, Squares(ChiSquareOf(Line, Blocks)));
    }
    bool StoreLine() {
        if (!(W > 0 && About.Xx > 0)) return false;
        TLine line = Means;
        line.Slope = SlopeThrough(line, About, Blocks);
        const auto& [x, y, slope] = line;
        const double offset =
            std::fma(-slope.High, x.High, y.High) + (y.Low - slope.High * x.Low - slope.Low * x.High);
        if (!(Store(Results.Slope, slope.High) && Store(Results.Offset, offset) && StoreChiSquare(line) &&
              StoreVariances()))
            return false;
        Results.R = Results.Determination = 1;
        if (!(About.Yy > 0)) return Rules.LevelLines;
        // Rounding alone could bring R beyond 1.
        const double r = std::sqrt(About.Xx) * slope.High / std::sqrt(About.Yy);
        return Store(Results.R, std::isfinite(r) ? std::clamp(r, -1.0, 1.0) : r) && StoreDetermination();
    }
    bool StoreDetermination() {
        Results.HasDetermination =
            About.Yy > 0 && Store(Results.Determination, 1 - Results.ChiSquare / About.Yy);
        return Results.HasDetermination;
    }
    bool StoreErrors() {
        const double x = Means.X.High, freedom = Results.Freedom = Counted - 2;
        return freedom > 0 &&
               Store(Results.DeltaSlope, std::sqrt(Results.ChiSquare / (freedom * About.Xx))) &&
               Store(Results.DeltaOffset,
                     std::sqrt((x * x / About.Xx + 1 / W) * Results.ChiSquare / freedom));
    }
    bool StoreSlopeThroughOffset(TLine Line, const TMoments& AboutOffset) {
        if (!(W > 0 && AboutOffset.Xx > 0)) return false;
        Line.Slope = SlopeThrough(Line, AboutOffset, Blocks);
        return Store(Results.Slope, Line.Slope.High) && StoreChiSquare(Line);
    }
};

void FitFree(TFit&& Fit) {
    auto& results = Fit.Results;
    Fit.TakeMeans(2);
    if (!Fit.StoreLine()) {
        results.Slope = results.Offset = CMaxReal;
        results.R = results.Determination = 1;
        results.ChiSquare = 0;
    }
    if (!Fit.StoreErrors()) results.DeltaSlope = results.DeltaOffset = results.ChiSquare = 0;
}

void FitThroughOffset(TFit&& Fit) {
    auto& results = Fit.Results;
    Fit.TakeMeans(1);
    const TLine offset{{0}, {results.Offset}};
    const TMoments about = MomentsAbout(offset, Fit.Blocks);
    const bool hasLine = Fit.StoreSlopeThroughOffset(offset, about);
    if (!hasLine) {
        results.Slope = CMaxReal;
        results.ChiSquare = 0;
    }
    Fit.StoreVariances();
    if (!(hasLine && Fit.StoreDetermination())) results.Determination = 1;
    const double freedom = results.Freedom = Fit.Counted - 1;
    if (!(freedom > 0 && Store(results.DeltaSlope, std::sqrt(results.ChiSquare / (freedom * about.Xx)))))
        results.DeltaSlope = 0;
}

void ClearForFree(TKxLinearRegessionResults& Results) {
    Results = {};
    Results.DeltaSlope = Results.DeltaOffset = CMaxReal;
}
void ClearForOffset(TKxLinearRegessionResults& Results) {
    const double offset = Results.Offset;
    Results = {};
    Results.Offset = offset;
    Results.DeltaSlope = CMaxReal;
}

} // namespace

void LinReg(const TKxFitPoints& Points, TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules) {
    ClearForFree(Results);
    FitFree({BlocksOf(Points), Results, Rules});
}

void OfsReg(const TKxFitPoints& Points, TKxLinearRegessionResults& Results, const TKxLinRegRules& Rules) {
    ClearForOffset(Results);
    FitThroughOffset({BlocksOf(Points), Results, Rules});
}

// About the mean, where slope and height do not depend on one another.
TKxCurveValue ValueAt(const TKxLinearRegessionResults& Results, double X, bool FixedOffset) {
    const TKxLinearRegessionResults& r = Results;
    const bool known = r.Slope != CMaxReal && r.Offset != CMaxReal && r.Freedom > 0 && r.SumOfWeights > 0;
    if (!known) return {r.Offset + r.Slope * X, 0, 0, 0};
    const double square = r.ChiSquare / r.Freedom;
    const double height = FixedOffset ? 0 : std::sqrt(square / r.SumOfWeights);
    const double error = std::hypot(r.DeltaSlope * (FixedOffset ? X : X - r.AverageX), height);
    return {r.Offset + r.Slope * X, error, std::sqrt(square * (r.Counted / r.SumOfWeights)), r.Freedom};
}

} // namespace kx
