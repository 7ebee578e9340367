#pragma once
// The curve of a formula fit.

#include "kxplot/methods/watch.h"

#include <optional>
#include <string>

namespace kxplot {

/// Runs when it is told to and not before: a graph calculates while it is still being set up, and each of
/// these calculations would take the time of a fit and move the coefficients on.
class TFormulaLine : public kx::TKxFittedLine {
public:
    using TKxFittedLine::TKxFittedLine;

    /// Calculates Times times, each time from the coefficients before, and sees to it that the last time has
    /// been enough; fewer times after an interruption or an error. Without Times it goes on until nothing is
    /// gained, with at most 100 repeats. Title stands in messages.
    void Run(std::optional<int> Times, TFitWatch& Watch, const std::string& Title);

protected:
    void CalculateFunction() override;
    std::optional<bool> TestConvergence() override;

private:
    enum class TState { Waits, Runs, GivenUp };
    TState FState = TState::Waits;
    std::optional<int> FTimes;
    int FRun = 0;
    double FBefore = 0; ///< the sum of the run before
};

} // namespace kxplot
