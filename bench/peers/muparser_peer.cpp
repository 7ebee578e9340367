// muParser by itself, in its mode for many values.

#include "workloads.h"

#include <muParser.h>

int main(int Count, char** Arguments) {
    const peers::TRows rows(Count, Arguments);
    peers::TValues x = peers::FormulaX(), y(x.size());
    std::vector<peers::TValues> coefficients; // the mode wants an array for each variable
    for (const double c : peers::CFormulaCoefficients) coefficients.emplace_back(x.size(), c);
    mu::Parser parser;
    parser.DefineVar("x", x.data());
    const char* const names[] = {"a", "b", "c", "d"};
    for (std::size_t i = 0; i < coefficients.size(); ++i) parser.DefineVar(names[i], coefficients[i].data());
    parser.SetExpr(peers::CFormulaText);
    rows.Time(peers::CFormula, [&] { parser.Eval(y.data(), int(y.size())); });
}
