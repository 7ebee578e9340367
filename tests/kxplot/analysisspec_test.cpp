// How fits, curves and labels are asked for.

#include "kxplot/options.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace {

using namespace kxplot;

/// Arguments are words.
TOptions Parsed(const std::string& Arguments) {
    std::istringstream stream("kxplot d.csv " + Arguments);
    std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
    std::vector<char*> pointers;
    for (auto& word : words) pointers.push_back(word.data());
    return ParseOptions(int(pointers.size()), pointers.data()).value();
}

TAnalysisSpec OfDegree(int Degree) { return {TMethod::Polynomial, TQuantity::Value, Degree, {}, {}, {}}; }
TAnalysisSpec With(TMethod Method, std::optional<double> Value, TQuantity Quantity = TQuantity::Value) {
    return {Method, Quantity, 1, Value, {}, {}};
}
TAnalysisSpec OfFormula(const std::string& Text, const std::vector<TStartValue>& Start) {
    return {TMethod::Formula, TQuantity::Value, 1, {}, Text, Start};
}

TEST(KxplotAnalysisSpec, FitsComeFirstThenCurvesThenWhatIsDerivedOfTheFirstCurve) {
    using enum TMethod;
    using enum TQuantity;
    const std::pair<const char*, std::vector<TAnalysisSpec>> cases[] = {
        {"--fit line --fit line:offset=-1.5e2", {With(Line, {}), With(Line, -150)}},
        {"--fit poly:2 --fit poly:1000000", {OfDegree(2), OfDegree(1000000)}},
        {"--curve akima --curve spline:weight=2 --fit line",
         {With(Line, {}), With(Akima, {}), With(Spline, 2)}},
        {"--integral --derivative", {With(Akima, {}, Derivative), With(Akima, {}, Integral)}},
        {"--integral --curve spline:weight=2 --curve akima:smooth=0.5",
         {With(Spline, 2), With(Akima, 0.5), With(Spline, 2, Integral)}},
        {"--start b=2,a=-1e-3 --fit a*exp(-b*x) --fit line --fit pi*c --start c=5",
         {OfFormula("a*exp(-b*x)", {{"b", 2}, {"a", -0.001}}), With(Line, {}),
          OfFormula("pi*c", {{"c", 5}})}},
        {"--fit=-a*x --start a=1", {OfFormula("-a*x", {{"a", 1}})}},
    };
    for (const auto& [arguments, analyses] : cases)
        EXPECT_EQ(Parsed(arguments).Analyses, analyses) << arguments;
}

TEST(KxplotAnalysisSpec, LabelsNameAnAnalysisAKeyAndDigits) {
    const std::tuple<const char*, std::optional<int>, const char*, int, bool> cases[] = {
        {"Slope", {}, "Slope", 8, false},
        {"Slope:0", {}, "Slope", 0, false},
        {"2.DeltaSlope%:18", 2, "DeltaSlope%", 18, false},
        {"0.Coeff(1)", 0, "Coeff(1)", 8, false},
        {"a.b:3+-", {}, "a.b", 3, true},
        {"X-Maxima(1):6", {}, "X-Maxima(1)", 6, false}};
    for (const auto& [text, number, key, digits, error] : cases) {
        const TLabelSpec label = ParseLabel(text);
        EXPECT_EQ(std::tuple(label.Number, label.Key, label.Digits, label.WithError),
                  std::tuple(number, key, digits, error))
            << text;
    }
    EXPECT_EQ(Parsed("--fit a*x --start a=1 --repeat auto").Repeat, std::nullopt);
    EXPECT_EQ(Parsed("--fit a*x --start a=1").Repeat, 1);
}

TEST(KxplotAnalysisSpec, TellsWhatIsWrongAndWhere) {
    const std::string degree =
        "is not poly:DEGREE with a degree from 2 to 1000000 (a straight line is --fit line)";
    const std::string kind = "is neither line, line:offset=VALUE, poly:DEGREE nor a formula with --start";
    const std::string start = "is not NAME=NUMBER (several are a=1,b=0.5)";
    const std::string curve = "is not akima, akima:smooth=WIDTH, spline or spline:weight=FACTOR";
    const std::string count = "is not a whole number from 1 to 1000000000";
    const std::string none = "there is no --fit, --curve, --derivative or --integral that it could be for";
    const std::string label = "is not KEY:DIGITS or KEY:DIGITS+- with 0 to 18 digits";
    const std::string noFormula = "there is no --fit with a formula that it could be for";
    const std::pair<const char*, std::string> cases[] = {
        {"--fit line:foo=1", "--fit: 'line:foo=1' is not line, line:offset=VALUE or poly:DEGREE"},
        {"--fit line:offset=inf", "--fit: 'line:offset=inf' is not line:offset=VALUE with a number"},
        {"--fit poly:x", "--fit: 'poly:x' " + degree},
        {"--fit poly:1", "--fit: 'poly:1' " + degree},
        {"--fit poly:99999999999", "--fit: 'poly:99999999999' " + degree},
        {"--fit cubic", "--fit: 'cubic' " + kind},
        {"--fit Poly3:4", "--fit: 'Poly3:4' " + kind},
        {"--fit a*exp(-b*x)+d --start a=1,b=2",
         "--fit: 'a*exp(-b*x)+d': 'd' at character 13 has no start value (--start d=...)"},
        {"--fit a*b --fit b*x+aa*a --start a=1,b=2 --start b=1,aa=1",
         "--fit: 'b*x+aa*a': 'a' at character 8 has no start value (--start a=...)"},
        {"--fit a*x", "--fit: 'a*x': 'a' at character 1 has no start value (--start a=...)"},
        {"--fit a*foo(x) --start a=1", "--fit: 'a*foo(x)': there is no function 'foo' at character 3"},
        {"--fit a*x)+1 --start a=1", "--fit: 'a*x)+1': ')' is not expected here at character 4"},
        {"--fit sin(x)", "--fit: 'sin(x)' has no coefficient to fit"},
        {"--fit a*x --start a=1,c=2", "--start: 'c' is no coefficient of 'a*x'"},
        {"--fit a*x --start a=1,x=2", "--start: 'x' is no coefficient of 'a*x'"},
        {"--fit a*x --start a=-0",
         "--start: 'a=-0': 'a' would stay 0 for ever; another start value is needed"},
        {"--fit a*x --start a=1,b=2,a=3", "--start: 'a=1,b=2,a=3' gives 'a' twice"},
        {"--fit a*x+A --start a=1,A=2",
         "--start: 'a=1,A=2' gives 'A' twice (results do not tell case apart)"},
        {"--fit a*x --start a", "--start: 'a' " + start},
        {"--fit a*x --start a=1,", "--start: '' " + start},
        {"--fit a*x --start =1", "--start: '=1' " + start},
        {"--fit a*x --start a=1.5x", "--start: 'a=1.5x' " + start},
        {"--fit a*x --start a=inf", "--start: 'a=inf' " + start},
        {"--fit a*x --start a=1 --start b=2", "--start: there is no formula for 'b=2'"},
        {"--fit line --start a=1", "--start: there is no formula for 'a=1'"},
        {"--fit a*x --start a=1 --iterations 0", "--iterations: '0' " + count},
        {"--fit a*x --start a=1 --repeat 1.5", "--repeat: '1.5' " + count + " or auto"},
        {"--fit a*x --start a=1 --repeat 1000000001", "--repeat: '1000000001' " + count + " or auto"},
        {"--fit line --iterations 5", "--iterations: " + noFormula},
        {"--curve akima --repeat 5", "--repeat: " + noFormula},
        {"--covariance", "--covariance: " + noFormula},
        {"--curve bezier", "--curve: 'bezier' " + curve},
        {"--curve akima:weight=1", "--curve: 'akima:weight=1' " + curve},
        {"--curve akima:smooth=0",
         "--curve: 'akima:smooth=0' is not akima:smooth=VALUE with a number above 0"},
        {"--curve spline:weight=x",
         "--curve: 'spline:weight=x' is not spline:weight=VALUE with a number above 0"},
        {"--fit line --from abc", "--from: 'abc' is not a number"},
        {"--derivative --to nan", "--to: 'nan' is not a number"},
        {"--curve akima --from 3 --to 2", "--from: 3 lies above --to 2"},
        {"--label Slope", "--label: " + none},
        {"--results -", "--results: " + none},
        {"--weight w", "--weight: " + none},
        {"--fit line --label Slope:+-", "--label: 'Slope:+-' " + label},
        {"--fit line --label Slope:19", "--label: 'Slope:19' " + label},
        {"--fit line --label 1.:3", "--label: '1.:3' has no key"},
    };
    for (const auto& [arguments, message] : cases) {
        SCOPED_TRACE(arguments);
        try {
            Parsed(arguments);
            ADD_FAILURE() << "nothing was raised";
        } catch (const TUsageError& error) {
            EXPECT_EQ(error.what(), message);
        }
    }
}

} // namespace
