#include <kxgraph/numeric/Kxarithm.h>

#include <kxgraph/platform/base/matherror.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>

namespace kx {

namespace {

// Where things lie in the scientific text.
constexpr std::size_t CMantissaAt = 1;
constexpr std::size_t CMantissaLength = 16;
constexpr std::size_t CExponentAt = 18;
constexpr int CDigits = 15;

double PowerOfTen(long double X) {
    if (X == 0) return 1.0;
    const long double power = std::pow(10.0L, X);
    return power <= DBL_MAX ? static_cast<double>(power) : CMaxReal;
}

int ExponentOf(const std::string& Text) {
    const std::string digits = Text.substr(CExponentAt);
    int position = 0;
    const int exponent = ValInt(digits, position);
    if (position != 0) throw EConvertError("'" + digits + "' is not a valid integer value");
    return exponent;
}

constexpr std::array<double, 23> CExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Whether X is a whole number of so few digits, and Shift so small, that a product or quotient of two exact
/// numbers is rounded only once: to the double that the text would be read as.
bool IsExactShift(double X, std::int64_t Shift) {
    return std::abs(X) < 1e15 && std::abs(Shift) < std::ssize(CExactPowers) && std::trunc(X) == X;
}

/// X with Shift added to its decimal exponent. The value goes through its text, so that its digits are kept.
double ShiftedBy(double X, std::int64_t Shift) {
    if (!std::isfinite(X)) return X;
    if (IsExactShift(X, Shift)) {
        const double power = CExactPowers[static_cast<std::size_t>(std::abs(Shift))];
        return (Shift < 0 ? X / power : X * power) + 0.0; // zero has no sign
    }
    const std::string text = ScientificText(X);
    std::string shifted = X < 0 ? "-" : "";
    shifted += text.substr(CMantissaAt, CMantissaLength) + "E" + std::to_string(ExponentOf(text) + Shift);
    int position = 0;
    const double result = Val(shifted, position);
    return position == 0 && std::isfinite(result) ? result : X;
}

/// Scaled is the value, moved so far that cutting off the fraction of its quotient by Step rounds it.
double CutToMultiple(double Scaled, double Step, int N) {
    const double quotient = Scaled / CheckedDivisor(Step);
    return ShiftedBy(CheckedResult(std::trunc(quotient) * Step), N);
}

double NearlyStep(double Step) { return Step - 0.001 * Step; }

double RoundLog(double X, double Ref, double Step, bool Up) {
    // In long double, so that the two logarithms and the power cancel to a round value.
    const long double ratio = static_cast<long double>(X) / CheckedDivisor(Ref);
    const long double logarithm = CheckedResult(std::log10(CheckedPositive(ratio)));
    const long double decade = std::floor(logarithm);
    const double mantissa = PowerOfTen(logarithm - decade);
    const double rounded = Up ? RoundUp(mantissa, Step, 0) : RoundDown(mantissa, Step, 0);
    const double result = rounded < 1.1L ? PowerOfTen(decade)
                                         : PowerOfTen(std::log10(static_cast<long double>(rounded)) + decade);
    return CheckedResult(result * Ref);
}

} // namespace

TRect OrderedRect(int X1, int Y1, int X2, int Y2) {
    return {std::min(X1, X2), std::min(Y1, Y2), std::max(X1, X2), std::max(Y1, Y2)};
}

void AssignRealArrays(const TKxRealArray& Source, const TKxRealArray& Dest) {
    if (Dest.Length() < Source.Length())
        throw ERangeError("i=" + std::to_string(Dest.Length()) + " index out of range");
    std::copy(Source.begin(), Source.end(), Dest.begin());
}

double Exp10(const double X) { return PowerOfTen(X); }

double IntExp10(const int N) { return PowerOfTen(N); }

int GetExponent(const double X) { return ExponentOf(ScientificText(X)); }

double ExpMinus(const double X, int N) { return ShiftedBy(X, -std::int64_t{N}); }

// Kept: zero goes the negative way in RoundUp and the positive way in RoundDown, so that 0 stays 0 in both.

double RoundUp(const double X, const double Step, int N) {
    const double scaled = ExpMinus(X, N);
    return CutToMultiple(X > 0 ? scaled + NearlyStep(Step) : scaled - 1e-9, Step, N);
}

double RoundDown(const double X, const double Step, int N) {
    const double scaled = ExpMinus(X, N);
    return CutToMultiple(X >= 0 ? scaled + 1e-9 : scaled - NearlyStep(Step), Step, N);
}

double RoundLogUp(const double X, const double Ref, const double Step) {
    return RoundLog(X, Ref, Step, true);
}

double RoundLogDown(const double X, const double Ref, const double Step) {
    return RoundLog(X, Ref, Step, false);
}

int LastSignificant(const double X) {
    std::string digits = ScientificText(X).substr(CMantissaAt, CMantissaLength);
    std::erase(digits, '.');
    int last = CDigits;
    while (last > 0 && digits[static_cast<std::size_t>(last - 1)] == '0') --last;
    return last;
}

double EvaluatePolynomial(const double Coeffs[], short Degree, double X) {
    if (Degree < 0) return 0;
    double result = Coeffs[Degree];
    for (int i = Degree - 1; i >= 0; --i) result = result * X + Coeffs[i];
    return result;
}

} // namespace kx
