#include "kxplot/formulaline.h"

namespace kxplot {

void TFormulaLine::Run(int Times, TFitWatch& Watch, const std::string& Title) {
    if (Watch.WasInterrupted()) {
        FState = TState::GivenUp;
        return Calculate();
    }
    FState = TState::Runs;
    for (int k = 1; k <= Times && !Watch.WasInterrupted() && (k == 1 || GetError().empty()); ++k)
        Watch.Calculate(*this, Times == 1
                                   ? Title
                                   : Title + ": run " + std::to_string(k) + " of " + std::to_string(Times));
}

void TFormulaLine::CalculateFunction() {
    if (FState == TState::Runs) TKxFittedLine::CalculateFunction();
    if (FState == TState::GivenUp) throw kx::EMathError("the fits were interrupted before this one");
}

} // namespace kxplot
