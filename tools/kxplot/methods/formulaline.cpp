#include "kxplot/methods/formulaline.h"

namespace kxplot {

namespace {

constexpr int CMostRepeats = 100;

} // namespace

void TFormulaLine::Run(std::optional<int> Times, TFitWatch& Watch, const std::string& Title) {
    if (Watch.WasInterrupted()) {
        FState = TState::GivenUp;
        return Calculate();
    }
    FState = TState::Runs;
    FTimes = Times;
    const int most = Times.value_or(CMostRepeats + 1);
    for (FRun = 1; FRun <= most; ++FRun) {
        FBefore = GetChiSquare();
        for (int i = 0; i < GetOrder(); ++i)
            SetCoefficient(i, GetCoefficient(i)); // a form begins with the last run
        const std::string run = ": run " + std::to_string(FRun);
        Watch.Calculate(*this, most == 1 ? Title
                               : Times   ? Title + run + " of " + std::to_string(most)
                                         : Title + run);
        if (Watch.WasInterrupted() || !GetError().empty() || (!Times && GetConverged() == true)) return;
    }
}

// A run of several is a test of the one before.
std::optional<bool> TFormulaLine::TestConvergence() {
    if (IsDamped()) return TKxFittedLine::TestConvergence();
    if (FTimes) return FRun == *FTimes ? TKxFittedLine::TestConvergence() : std::nullopt;
    return FRun == 1 ? std::nullopt : std::optional(!IsImproved(GetChiSquare(), FBefore));
}

void TFormulaLine::CalculateFunction() {
    if (FState == TState::Runs) TKxFittedLine::CalculateFunction();
    if (FState == TState::GivenUp) throw kx::EMathError("the fits were interrupted before this one");
}

} // namespace kxplot
