// Formulas: any text is understood or refused; what is understood says the same in blocks and one by one.

#include "fuzz/fuzz.h"

#include <kxgraph/formula/Kxformula.h>

namespace kx::fuzz::formulastarget {

void DemandEvaluation(TKxFormula& Formula, TData& Data) {
    const auto& names = Formula.GetNames();
    for (const auto& name : names)
        KX_DEMAND(name != "x" && name != "pi" && name != "e" && !name.empty(), +name);
    Formula.SetCoefficientNames(names);
    std::vector<double> coefficients(names.size()), x(5), block(5);
    for (double& value : coefficients) value = Data.Real();
    for (double& value : x) value = Data.Real();
    Formula.Evaluate(x, coefficients, block);
    for (std::size_t i = 0; i < x.size(); ++i)
        KX_DEMAND(fuzz::Same(block[i], Formula.Evaluate(x[i], coefficients)), +std::to_string(x[i]));
}

KX_FUZZ(formulas) {
    const std::string text = Data.Text(60);
    try {
        TKxFormula formula(text);
        DemandEvaluation(formula, Data);
    } catch (const EFormulaError& error) {
        KX_DEMAND(error.GetPosition() >= 0 && error.GetPosition() <= int(text.size()) + 1, +text);
        KX_DEMAND(error.what()[0] != 0);
    }
}

} // namespace kx::fuzz::formulastarget
