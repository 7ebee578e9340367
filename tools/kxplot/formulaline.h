#pragma once
// The curve of a formula fit.

#include "kxplot/watch.h"

namespace kxplot {

/// Runs when it is told to and not before: a graph calculates while it is still being set up, and each of
/// these calculations would take the time of a fit and move the coefficients on.
class TFormulaLine : public kx::TKxFittedLine {
public:
    using TKxFittedLine::TKxFittedLine;

    /// Calculates Times times, each time from the coefficients before; fewer times after an interruption or
    /// an error. Title stands in messages.
    void Run(int Times, TFitWatch& Watch, const std::string& Title);

protected:
    void CalculateFunction() override;

private:
    enum class TState { Waits, Runs, GivenUp };
    TState FState = TState::Waits;
};

} // namespace kxplot
