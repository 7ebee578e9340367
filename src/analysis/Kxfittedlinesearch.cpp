// How a fit looks for the smallest sum.

#include <kxgraph/analysis/Kxcoefficientlists.h>
#include <kxgraph/analysis/Kxdamped.h>
#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxsimplex.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

TKxRealArray ArrayOf(std::span<const double> Values) {
    TKxRealArray array(int(Values.size()));
    std::copy(Values.begin(), Values.end(), array.begin());
    return array;
}

} // namespace

void TKxFittedLine::FindLimits() {
    FLimits = ReadCoefficientLimits(FFixed, FBounds, FNames, {FCoefficients.begin(), FCoefficients.end()});
    if (FreeCount() == 0) throw EMathError("Fitted Line: all coefficients are fixed");
}

int TKxFittedLine::FreeCount() const {
    return GetOrder() - int(std::ranges::count_if(FLimits, &TKxCoefficientLimits::IsFixed));
}

void TKxFittedLine::DoFit() {
    TKxSimplex::CheckSettings(GetOrder(), FIterations);
    FindLimits();
    CollectPoints();
    if (FDoCovariance) FindDeviations();
    FStopped = FChecking = false;
    FIterationsDone = 0;
    const TKxRealArray start = FCoefficients.Clone();
    if (IsDamped())
        DoDamped();
    else
        DoSimplex();
    if (IsDamped() && FMethod == fmDampedFirst && !FAtMinimum && !FStopped && std::isfinite(FChiSquare))
        DoDampedAgain(start);
    if (!std::isfinite(FChiSquare)) {
        FCoefficients = start;
        throw EMathError("Fitted Line: the function has no finite value at the start");
    }
}

/// Takes what a search has found so far. Returns whether to go on.
bool TKxFittedLine::Follow(const TKxRealArray& Best, double Value) {
    ++FIterationsDone;
    FCoefficients = Best;
    FChiSquare = Value;
    CallHandler(OnIteration);
    return !FStopped;
}

/// All coefficients, given those that are not fixed, which are moved into their bounds.
TKxRealArray TKxFittedLine::Spread(std::span<const double> Free) const {
    TKxRealArray all(GetOrder());
    std::size_t next = 0;
    for (int k = 0; k < all.Length(); ++k) {
        const TKxCoefficientLimits& limits = FLimits[std::size_t(k)];
        all[k] = limits.IsFixed() ? limits.Low : std::clamp(Free[next++], limits.Low, limits.High);
    }
    return all;
}

/// From the present coefficients, which Progress may change.
void TKxFittedLine::RunSimplex(const std::function<bool(const TKxSimplex&)>& Progress) const {
    TKxRealArray trial(GetOrder()); // one array for all evaluations
    const bool limited = !FFixed.empty() || !FBounds.empty();
    TKxSimplex simplex([&](std::span<const double> Coefficients) {
        if (limited) return Goodness(Spread(Coefficients));
        std::copy(Coefficients.begin(), Coefficients.end(), trial.begin());
        return Goodness(trial);
    });
    std::vector<double> start;
    for (int k = 0; k < GetOrder(); ++k) {
        const TKxCoefficientLimits& limits = FLimits[std::size_t(k)];
        if (!limits.IsFixed()) start.push_back(std::clamp(FCoefficients[k], limits.Low, limits.High));
    }
    simplex.Run(start, FIterations, Progress);
}

void TKxFittedLine::DoSimplex() {
    RunSimplex(
        [this](const TKxSimplex& Simplex) { return Follow(Spread(Simplex.Best()), Simplex.BestValue()); });
}

void TKxFittedLine::DoDamped() {
    TKxDamped damped({ModelAt(FTaken.X), DerivativesAt(FTaken.X), FTaken.Y, FTaken.W, FLimits});
    damped.Run({FCoefficients.begin(), FCoefficients.end()}, FIterations, [this](const TKxDamped& Damped) {
        return Follow(ArrayOf(Damped.Best()), Damped.BestValue());
    });
    FCoefficients = ArrayOf(damped.Best());
    FChiSquare = damped.BestValue();
    FAtMinimum = damped.HasConverged();
}

/// Keeps what it has where that is better.
void TKxFittedLine::DoDampedAgain(const TKxRealArray& Start) {
    const TKxRealArray coefficients = FCoefficients;
    const double chiSquare = FChiSquare;
    FCoefficients = Start;
    DoSimplex();
    if (!FStopped) DoDamped();
    if (FChiSquare <= chiSquare) return;
    FCoefficients = coefficients;
    FChiSquare = chiSquare;
    FAtMinimum = false;
}

std::optional<bool> TKxFittedLine::TestConvergence() {
    if (IsDamped()) return FAtMinimum;
    if (!FCheckConvergence) return std::nullopt;
    FChecking = true; // without a guard to reset it: a handler may destroy the series
    bool improved = false;
    RunSimplex([&](const TKxSimplex& Simplex) {
        improved = IsImproved(Simplex.BestValue(), FChiSquare);
        CallHandler(OnIteration);
        return !improved && !FStopped;
    });
    FChecking = false;
    if (FStopped && !improved) return std::nullopt;
    return !improved;
}

} // namespace kx
