#pragma once
// Formulas that users type, as models of a fitted line. Parsed by muParser; a room and a library target of
// its own (kxgraph_formula), so that programs without formulas need no parser.
//
// A formula is what muParser understands: + - * / ^, comparisons, functions such as sin, exp, ln, log10,
// sqrt; the point is the decimal separator and the comma the argument separator whatever the locale; x is the
// variable, pi and e are known. Every other name is a coefficient.

#include <kxgraph/analysis/Kxfittedline.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A formula cannot be understood. The message says what is wrong and at which place.
class EFormulaError : public Exception {
public:
    EFormulaError(const std::string& Message, int Position) : Exception(Message), FPosition(Position) {}
    /// Where in the formula, counted in characters from 1; 0 for the formula as a whole.
    int GetPosition() const { return FPosition; }

private:
    int FPosition;
};

/// A parsed formula. Not for use by several threads at once.
class TKxFormula {
public:
    /// Raises EFormulaError for a syntax error or a function that there is not. Names may stand for
    /// coefficients only if they are plain names: letters, digits and _, no digit first.
    explicit TKxFormula(const std::string& Text);
    ~TKxFormula();
    TKxFormula(const TKxFormula&) = delete;
    TKxFormula& operator=(const TKxFormula&) = delete;

    /// The names that are no functions and neither x, pi nor e, in the order of their first place.
    const std::vector<std::string>& GetNames() const { return FNames; }
    /// Says which names are the coefficients, in the order in which Evaluate is given them. Names that do not
    /// occur are allowed. Raises EFormulaError "... has no value" at the first name of the formula that is
    /// not among them.
    void SetCoefficientNames(const std::vector<std::string>& Names);
    const std::vector<std::string>& GetCoefficientNames() const { return FCoefficientNames; }

    /// Y[i] at X[i]. NaN or infinite where the formula has no value.
    void Evaluate(std::span<const double> X, std::span<const double> Coefficients, std::span<double> Y);
    double Evaluate(double X, std::span<const double> Coefficients);

private:
    struct TParser;
    void FindNames();

    std::string FText;
    std::vector<std::string> FNames, FCoefficientNames;
    std::unique_ptr<TParser> FParser;
};

/// Makes the formula in Expression the model of Line: Line's Order is the number of coefficients, its
/// functions evaluate the formula (in blocks, too). Names gives the coefficients' order; without it they are
/// taken in the order of their first place in the formula. The names are those of the results. Raises
/// EFormulaError; Line is then unchanged. The coefficients have to be set afterwards.
void SetFormula(TKxFittedLine& Line, const std::string& Expression,
                const std::vector<std::string>& Names = {});

} // namespace kx
