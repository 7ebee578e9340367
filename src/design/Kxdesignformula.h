#pragma once
// Formulas for designers, which the library itself cannot read: the formula library enters a reader.

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace kx {

/// A formula over values that have names.
class TKxDesignFormula {
public:
    virtual ~TKxDesignFormula() = default;
    /// What stands in it beside x, functions and constants, in the order of Evaluate.
    virtual const std::vector<std::string>& GetNames() const = 0;
    /// NaN or infinite where it has no value.
    virtual double Evaluate(double X, std::span<const double> Values) = 0;
};

/// Raises for a text that is no formula, and says where and why.
using TKxDesignFormulaReader = std::unique_ptr<TKxDesignFormula> (*)(const std::string& Text);
void SetDesignFormulaReader(TKxDesignFormulaReader Reader);
/// Whether a program is linked with a library that reads formulas.
bool CanReadDesignFormulas();
/// Raises EPropertyError where nobody has entered a reader.
std::unique_ptr<TKxDesignFormula> ReadDesignFormula(const std::string& Text);

} // namespace kx
