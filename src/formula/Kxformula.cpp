#include <kxgraph/formula/Kxformula.h>

#include <kxgraph/design/Kxdesignformula.h>
#include <kxgraph/formula/Kxformulablocks.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include <muParser.h>

namespace kx {

namespace {

const char* const CVariable = "x";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || IsDigit(c);
}
bool IsName(const std::string& Text) {
    return !Text.empty() && !IsDigit(Text[0]) && std::all_of(Text.begin(), Text.end(), IsNameCharacter);
}

/// Place is a byte from 1; 0 for none.
[[noreturn]] void RaiseAt(const std::string& Text, const std::string& What, int Place) {
    std::string message = "'" + Escaped(Text) + "': " + What;
    if (Place <= 0 || std::size_t(Place) > Text.size()) throw EFormulaError(message, 0);
    const int character = CharacterCount(Text.substr(0, std::size_t(Place) - 1)) + 1;
    throw EFormulaError(message + " at character " + std::to_string(character), character);
}

std::string Trimmed(const std::string& Text) {
    const auto first = Text.find_first_not_of(' ');
    return first == Text.npos ? "" : Text.substr(first, Text.find_last_not_of(' ') - first + 1);
}

/// What a parser's error says in our words; its own text speaks of internals.
std::string ReasonOf(const mu::ParserError& Error) {
    const std::string token = "'" + Trimmed(Error.GetToken()) + "'";
    switch (Error.GetCode()) {
    case mu::ecUNEXPECTED_EOF: return "the formula ends too early";
    case mu::ecEMPTY_EXPRESSION: return "the formula is empty";
    case mu::ecMISSING_PARENS: return "a parenthesis is missing";
    case mu::ecUNASSIGNABLE_TOKEN: return token + " cannot be understood";
    case mu::ecTOO_MANY_PARAMS: return token + " has too many arguments";
    case mu::ecTOO_FEW_PARAMS: return token + " has too few arguments";
    case mu::ecUNEXPECTED_OPERATOR:
    case mu::ecUNEXPECTED_ARG_SEP:
    case mu::ecUNEXPECTED_ARG:
    case mu::ecUNEXPECTED_VAL:
    case mu::ecUNEXPECTED_VAR:
    case mu::ecUNEXPECTED_PARENS:
    case mu::ecUNEXPECTED_FUN: return token + " is not expected here";
    default: return Error.GetMsg();
    }
}

[[noreturn]] void Raise(const std::string& Text, const mu::ParserError& Error) {
    const int position = Error.GetPos() >= 0 ? int(Error.GetPos()) + 1 : 0;
    const bool isCall = Error.GetCode() == mu::ecUNEXPECTED_PARENS && position > 1 && Error.GetToken() == "(";
    int start = position; // of the name in front of the parenthesis
    while (isCall && start > 1 && IsNameCharacter(Text[std::size_t(start) - 2])) --start;
    if (start < position)
        RaiseAt(Text,
                "there is no function '" +
                    Text.substr(std::size_t(start) - 1, std::size_t(position - start)) + "'",
                start);
    RaiseAt(Text, ReasonOf(Error), position);
}

/// An assignment would change coefficients behind the fit's back; several values are no model.
void CheckShape(const std::string& Text) {
    for (std::size_t i = 0; i < Text.size(); ++i) {
        // The parser would take it for the end in one place, go on in another, and never finish.
        if (Text[i] == '\0') RaiseAt(Text, "a character of code 0 is not expected here", int(i) + 1);
        if (Text[i] != '=') continue;
        const bool comparison = (i > 0 && std::string("<>!=").find(Text[i - 1]) != std::string::npos) ||
                                (i + 1 < Text.size() && Text[i + 1] == '=');
        if (!comparison) RaiseAt(Text, "'=' is not expected here", int(i) + 1);
    }
}

/// Where Name stands in Text as a whole name, from 1; 0 if it does not.
int PlaceOf(const std::string& Name, const std::string& Text) {
    const auto isPart = [&](std::size_t i) { return i < Text.size() && IsNameCharacter(Text[i]); };
    for (std::size_t at = Text.find(Name); at != Text.npos; at = Text.find(Name, at + 1))
        if ((at == 0 || !isPart(at - 1)) && !isPart(at + Name.size())) return int(at) + 1;
    return 0;
}

} // namespace

/// The parser and what its variables point at: x first, then the coefficients.
struct TKxFormula::TParser {
    mu::Parser Parser;
    std::vector<double> Values;
    TKxFormulaBlocks Blocks;

    void Bind(const std::vector<std::string>& Names) {
        Parser.ClearVar();
        Values.assign(Names.size() + 1, 0);
        Parser.DefineVar(CVariable, Values.data());
        for (std::size_t i = 0; i < Names.size(); ++i) Parser.DefineVar(Names[i], &Values[i + 1]);
    }
};

TKxFormula::TKxFormula(const std::string& Text) : FText(Text), FParser(std::make_unique<TParser>()) {
    CheckShape(FText);
    auto& parser = FParser->Parser;
    parser.SetDecSep('.'); // whatever the locale
    parser.SetThousandsSep(0);
    parser.SetArgSep(',');
    parser.ClearConst();
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineConst("e", std::numbers::e);
    try {
        parser.SetExpr(FText);
        FindNames();
    } catch (const mu::ParserError& error) {
        Raise(FText, error);
    }
    SetCoefficientNames(FNames);
}

TKxFormula::~TKxFormula() = default;

void TKxFormula::FindNames() {
    for (const auto& [name, place] : FParser->Parser.GetUsedVar())
        if (name != CVariable) FNames.push_back(name);
    std::sort(FNames.begin(), FNames.end(), [this](const std::string& A, const std::string& B) {
        return PlaceOf(A, FText) < PlaceOf(B, FText);
    });
}

void TKxFormula::SetCoefficientNames(const std::vector<std::string>& Names) {
    for (const auto& name : FNames)
        if (std::find(Names.begin(), Names.end(), name) == Names.end())
            RaiseAt(FText, "'" + name + "' has no value", PlaceOf(name, FText));
    for (const auto& name : Names)
        if (!IsName(name) || name == CVariable || name == "pi" || name == "e")
            RaiseAt(FText, "'" + name + "' cannot name a coefficient", 0);
    try {
        FParser->Bind(Names);
        FParser->Parser.SetExpr(FText);
        int results = 0;
        FParser->Parser.Eval(results); // makes the code: everything that is wrong shows now
        if (results != 1) RaiseAt(FText, "the formula gives several values", 0);
        FParser->Blocks = {FParser->Parser.GetByteCode(), FParser->Values.data()};
    } catch (const mu::ParserError& error) {
        Raise(FText, error);
    }
    FCoefficientNames = Names;
}

// muParser's own evaluation of many points parses anew each time.
void TKxFormula::Evaluate(std::span<const double> X, std::span<const double> Coefficients,
                          std::span<double> Y) {
    auto& values = FParser->Values;
    std::copy_n(Coefficients.begin(), std::min(Coefficients.size(), values.size() - 1), values.begin() + 1);
    if (X.size() > 1 && FParser->Blocks.IsComplete()) return FParser->Blocks.Evaluate(X, Y);
    for (std::size_t i = 0; i < X.size(); ++i) {
        values[0] = X[i];
        Y[i] = FParser->Parser.Eval();
    }
}

double TKxFormula::Evaluate(double X, std::span<const double> Coefficients) {
    double y = 0;
    Evaluate({&X, 1}, Coefficients, {&y, 1});
    return y;
}

void SetFormula(TKxFittedLine& Line, const std::string& Expression, const std::vector<std::string>& Names) {
    const auto formula = std::make_shared<TKxFormula>(Expression);
    if (!Names.empty()) formula->SetCoefficientNames(Names);
    const auto spanOf = [](const TKxRealArray& Array) {
        return std::span<const double>(Array.begin(), Array.end());
    };
    Line.SetExpression(Expression);
    Line.SetOrder(int(formula->GetCoefficientNames().size()));
    Line.SetCoefficientNames(formula->GetCoefficientNames());
    Line.SetFittingFunction([=](double X, const TKxRealArray& Coefficients) {
        return formula->Evaluate(X, spanOf(Coefficients));
    });
    Line.SetFittingBlockFunction([=](std::span<const double> X, const TKxRealArray& Coefficients,
                                     std::span<double> Y) { formula->Evaluate(X, spanOf(Coefficients), Y); });
}

namespace {

/// An expression may be a program's own words for what it fits: it then stays what it is.
void BindFormula(TKxFittedLine& Line) {
    const std::vector<std::string> names = Line.GetCoefficientNames();
    try {
        TKxFormula formula(Line.GetExpression());
        if (!names.empty()) formula.SetCoefficientNames(names);
        const int count = int(formula.GetCoefficientNames().size());
        if (Line.GetOrder() == 0 || Line.GetOrder() == count) SetFormula(Line, Line.GetExpression(), names);
    } catch (const EFormulaError&) {
        return;
    }
}

/// A formula for those who know no formula library.
class TReadFormula : public TKxDesignFormula {
public:
    explicit TReadFormula(const std::string& Text) : FFormula(Text) {}
    const std::vector<std::string>& GetNames() const override { return FFormula.GetNames(); }
    double Evaluate(double X, std::span<const double> Values) override {
        return FFormula.Evaluate(X, Values);
    }

private:
    TKxFormula FFormula;
};

std::unique_ptr<TKxDesignFormula> ReadFormula(const std::string& Text) {
    return std::make_unique<TReadFormula>(Text);
}

} // namespace

} // namespace kx

/// Makes the library known to fitted lines and to designers. What links the library asks for this name, or an
/// archive would leave it out of programs that name no formula themselves.
extern "C" int kxgraph_formula_binds;
int kxgraph_formula_binds =
    (kx::TKxFittedLine::SetFormulaBinder(kx::BindFormula), kx::SetDesignFormulaReader(kx::ReadFormula), 1);
