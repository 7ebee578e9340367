#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/formula/Kxformulablocks.h>

#include "support/cputime.h"
#include "support/graphfixture.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/design/Kxdesignrows.h>
#include <kxgraph/design/Kxvaluesgrid.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <clocale>
#include <locale>
#include <numbers>

#include <muParser.h>

namespace kx::test::formula {

TEST(Formula, GivesTheValuesOfItsTextForAnyNumberOfPoints) {
    const struct {
        const char* Text;
        double (*Function)(double x, double a, double b);
    } cases[] = {
        {"a*exp(-b*x)", [](double x, double a, double b) { return a * std::exp(-b * x); }},
        {"a*x^2 + b/(1+x)", [](double x, double a, double b) { return a * x * x + b / (1 + x); }},
        {"a*sin(2*pi*x)+b*e",
         [](double x, double a, double b) {
             return a * std::sin(2 * std::numbers::pi * x) + b * std::numbers::e;
         }},
        {"x>1 ? a : b*1.5e-1", [](double x, double a, double b) { return x > 1 ? a : b * 0.15; }},
        {"a+b", [](double, double a, double b) { return a + b; }},
    };
    std::vector<double> x, y;
    for (int i = 0; i < 2500; ++i) x.push_back(i / 1000.0); // more than two blocks
    y.resize(x.size());
    for (const auto& [text, function] : cases) {
        TKxFormula formula(text);
        EXPECT_EQ(formula.GetNames(), (std::vector<std::string>{"a", "b"})) << text;
        const double coefficients[] = {1.7, -0.3};
        formula.Evaluate(x, coefficients, y);
        for (std::size_t i = 0; i < x.size(); ++i)
            ASSERT_NEAR(y[i], function(x[i], 1.7, -0.3), 1e-14) << text << " at " << x[i];
        EXPECT_NEAR(formula.Evaluate(0.4, coefficients), function(0.4, 1.7, -0.3), 1e-14);
    }
}

/// A formula of all that users can type, as deep as it comes.
class TRandomText {
public:
    std::string Next(int Depth) {
        const auto part = [&] { return Next(Depth - 1); };
        switch (FRandom() % (Depth > 0 ? 6 : 1)) {
        case 0: return OneOf({"x", "x", "a", "b", "2", "0", "1.5e-1", "-1", "x^2", "x^3", "x^4", "2*x+1"});
        case 1: return "(" + part() + OneOf({"?", ">1?"}) + part() + ":" + part() + ")";
        case 2: return OneOf({"min(", "max(", "sum(", "avg("}) + part() + "," + part() + "," + part() + ")";
        case 3: return "atan2(" + part() + "," + part() + ")";
        case 4: return OneOf(CFunctions) + "(" + part() + ")";
        default: return "(" + part() + ")" + OneOf(COperators) + OneOf({"", "-", "+"}) + "(" + part() + ")";
        }
    }
    using TTexts = std::vector<std::string>;
    const TTexts COperators = {"+", "-", "*", "/", "^", "<", ">", "<=", ">=", "==", "!=", "&&", "||"};
    const TTexts CFunctions = {"sin",   "cos",  "tan",   "asin",  "acos",  "atan", "sinh",
                               "cosh",  "tanh", "asinh", "acosh", "atanh", "log",  "log2",
                               "log10", "ln",   "exp",   "sqrt",  "sign",  "rint", "abs"};

private:
    std::string OneOf(const TTexts& Texts) { return Texts[FRandom() % Texts.size()]; }
    std::mt19937 FRandom{1};
};

TEST(Formula, GivesInBlocksBitForBitWhatItGivesPointByPoint) {
    TRandomText random;
    EXPECT_EQ(mu::Parser().GetFunDef().size(), random.CFunctions.size() + 5) << "functions are missing here";
    std::vector<double> xs = {0, -0.0, 1, -1, 1e300, -1e-310, INFINITY, -INFINITY, NAN};
    for (int i = 0; i < 700; ++i) xs.push_back(std::sinh(i * 0.05 - 17)); // more than two blocks
    std::vector<double> block(xs.size());
    double x = 0, a = 1.7, b = -0.3;
    mu::Parser parser;
    parser.DefineVar("x", &x);
    parser.DefineVar("a", &a);
    parser.DefineVar("b", &b);
    for (int run = 0; run < 3000; ++run) {
        const std::string text = random.Next(run % 6);
        parser.SetExpr(text);
        parser.Eval();
        TKxFormulaBlocks blocks(parser.GetByteCode(), &x);
        ASSERT_TRUE(blocks.IsComplete()) << text;
        blocks.Evaluate(xs, block);
        std::size_t differing = 0;
        for (std::size_t i = 0; i < xs.size(); ++i) {
            x = xs[i];
            const double point = parser.Eval();
            differing += std::isnan(point)
                             ? !std::isnan(block[i])
                             : std::bit_cast<std::uint64_t>(point) != std::bit_cast<std::uint64_t>(block[i]);
        }
        ASSERT_EQ(differing, 0) << text;
    }
}

TEST(Formula, TakesCoefficientsInTheOrderThatIsGiven) {
    TKxFormula formula("rate*x + base_1");
    EXPECT_EQ(formula.GetNames(), (std::vector<std::string>{"rate", "base_1"})) << "in order of their place";
    formula.SetCoefficientNames({"base_1", "unused", "rate"});
    const double coefficients[] = {10, 99, 3};
    EXPECT_EQ(formula.Evaluate(2, coefficients), 16);
    TKxFormula roots("sqrt(x)");
    EXPECT_TRUE(std::isnan(roots.Evaluate(-1, {})));
}

TEST(Formula, IsParsedOnceHoweverFewPointsAreEvaluated) {
    std::string text = "a*exp(-b*x)";
    while (text.size() < 400) text += "+b*sin(a*x)/(1+x)";
    TKxFormula formula(text);
    const double coefficients[] = {1.7, 0.3};
    std::vector<double> x(2000, 0.5), y(x.size());
    const double together = CpuSeconds([&] { formula.Evaluate(x, coefficients, y); });
    const double oneByOne = CpuSeconds([&] {
        for (const double at : x) EXPECT_EQ(formula.Evaluate(at, coefficients), y[0]);
    });
    EXPECT_LT(oneByOne, 20 * together);
}

TEST(Formula, SaysWhatIsWrongAndWhere) {
    for (const auto& [text, position, what] : Cases<std::string, int, std::string>("formulas", "faults")) {
        try {
            TKxFormula formula(text);
            ADD_FAILURE() << text << " was taken";
        } catch (const EFormulaError& error) {
            EXPECT_TRUE(Holds(error.Message(), what)) << text << ": " << error.Message();
            EXPECT_TRUE(position == 0 || error.GetPosition() == position) << text << ": " << error.Message();
        }
    }
    TKxFormula formula("exp(-b*x)+bb");
    try {
        formula.SetCoefficientNames({"b"});
        FAIL();
    } catch (const EFormulaError& error) {
        EXPECT_EQ(error.GetPosition(), 11);
        EXPECT_TRUE(Holds(error.Message(), "'bb' has no value at character 11"));
    }
    EXPECT_THROW(formula.SetCoefficientNames({"b", "bb", "pi"}), EFormulaError);
}

TEST(Formula, BecomesTheModelOfAFittedLine) {
    TGraphForm f;
    auto* series = f.AddSeries();
    for (double x = 0; x < 6; x += 0.2) f.Fill({{x, 3 * std::exp(-0.5 * x) + 0.7}});
    auto& fit = *f.Make<TKxFittedLine>("Fit1");
    SetFormula(fit, "A0*exp(-k*x)+c", {"k", "A0", "c"});
    ASSERT_EQ(fit.GetOrder(), 3);
    for (int i = 0; i < 3; ++i) fit.SetCoefficient(i, 1);
    fit.SetParentSeries(series);
    EXPECT_NEAR(fit.GetResults().ReadReal("Fit1", "k", 0), 0.5, 1e-5);
    EXPECT_NEAR(fit.GetResults().ReadReal("Fit1", "Coeff(2)", 0), 3, 1e-5);
    EXPECT_EQ(fit.GetFormula(), "A0*exp(-k*x)+c");
    EXPECT_THROW(SetFormula(fit, "A0*"), EFormulaError);
    EXPECT_EQ(fit.GetExpression(), "A0*exp(-k*x)+c") << "an error leaves the line as it was";
}

TEST(Formula, FitsWhatIsKnownToBeHardByDampedLeastSquares) {
    const auto cases =
        Cases<std::string, TReals, TReals, TReals, TReals, TReals>("hardfits", "least squares");
    for (const auto& [text, first, second, expected, xs, ys] : cases)
        for (const TReals& start : {first, second}) {
            TKxLiveVector x(nullptr), y(nullptr);
            x.AddValues(xs);
            y.AddValues(ys);
            TKxLineSeries series(nullptr);
            series.SetXData(&x);
            series.SetYData(&y);
            TKxFittedLine line(nullptr);
            line.SetMethod(fmDamped);
            auto names = TKxFormula(text).GetNames();
            std::sort(names.begin(), names.end());
            SetFormula(line, text, names);
            for (std::size_t k = 0; k < start.size(); ++k) line.SetCoefficient(int(k), start[k]);
            line.SetParentSeries(&series);
            EXPECT_EQ(line.GetConverged(), true) << text;
            for (std::size_t k = 0; k < start.size(); ++k)
                EXPECT_NEAR(line.GetCoefficient(int(k)) / expected[k], 1, 2e-9) << text << ", " << names[k];
        }
}

const std::string CFit = ReadFile(KX_SOURCE "/tests/data/fit.kxf");

TEST(Formula, BindsItselfToALineThatIsReadAndAFitLeavesTheFileAsItIs) {
    RegisterClasses();
    const auto form = FormFromText(CFit);
    auto& line = dynamic_cast<TKxFittedLine&>(*form->FindComponent("L"));
    const std::string before = FormToText(*form);
    line.Calculate();
    EXPECT_NEAR(line.GetCoefficient(0), 1.03, 1e-6);
    EXPECT_NEAR(line.GetCoefficient(1), 1.98, 1e-6);
    EXPECT_EQ(FormToText(*form), before) << "neither coefficients nor caption nor ends of axes";
    EXPECT_TRUE(Holds(before, "Coefficients = (0.5 2)\n    CoefficientNames = (\"a\" \"b\")\n"));
    EXPECT_EQ(FormToText(*FormFromText(before)), before);
    // Words of a program's own, and a formula of other coefficients, stay what they are.
    std::string other = CFit;
    for (const char* text : {"Gauss, see chapter 3", "c*x+a"}) {
        other.replace(other.find("Expression"), other.find("\n    Coef") - other.find("Expression"),
                      "Expression = \"" + std::string(text) + "\"");
        const auto kept = FormFromText(other);
        const auto& untouched = dynamic_cast<TKxFittedLine&>(*kept->FindComponent("L"));
        EXPECT_EQ(untouched.GetExpression(), text);
        EXPECT_FALSE(untouched.GetFittingFunction());
        EXPECT_EQ(untouched.GetOrder(), 2);
    }
}

TEST(Formula, FillsCellsOfAGridOfValues) {
    TForm form(nullptr);
    TKxLiveVector x(&form), y(&form);
    x.SetName("T");
    y.SetName("U");
    x.AddValues(std::vector<double>{1, 2, 4});
    TKxPlainDesignChange change;
    TKxDesignContext context{change, &form};
    std::vector<const TProperty*> rows = DesignRowsOf(y);
    const auto values = std::ranges::find(rows, "Values", &TProperty::Name);
    TKxValuesGrid grid(TKxPropertyPlace(context, {{&y, {*values}}}));
    grid.Fill(0, 0, 2, "10*T + i/n");
    grid.Fill(0, 1, 1, "-x");
    EXPECT_EQ(grid.Copy(0, 2), "10.333333333333334\n-20.666666666666668\n41\n");
    EXPECT_EQ(MessageOf([&] { grid.Fill(0, 0, 2, "V+1"); }),
              "there is no vector 'V'; a formula may have x, i, n and vectors");
    EXPECT_NE(MessageOf([&] { grid.Fill(0, 0, 2, "1+"); }), "");
    EXPECT_EQ(grid.GetText(2, 0), "41");
}

} // namespace kx::test::formula
