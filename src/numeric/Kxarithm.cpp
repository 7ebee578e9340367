#include <kxgraph/numeric/Kxarithm.h>

#include <kxgraph/numeric/Kxdecimal.h>
#include <kxgraph/platform/base/matherror.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace kx {

namespace {

double PowerOfTen(long double X) {
    if (X == 0) return 1.0;
    const long double power = std::pow(10.0L, X);
    return power <= DBL_MAX ? static_cast<double>(power) : CMaxReal;
}

/// X with Shift added to its decimal exponent.
double ShiftedBy(double X, std::int64_t Shift) {
    if (!std::isfinite(X)) return X;
    const double result = TKxDecimal::Of(X).Shifted(Shift).Value();
    return std::isfinite(result) ? result : X;
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

int GetExponent(const double X) {
    constexpr std::size_t CExponentAt = 18;
    if (!std::isfinite(X))
        throw EConvertError("'" + ScientificText(X).substr(CExponentAt) + "' is not a valid integer value");
    return static_cast<int>(TKxDecimal::Of(X).Magnitude());
}

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
    constexpr int CDigits = 15;
    return std::isfinite(X) ? TKxDecimal::Of(X).Significant() : CDigits;
}

double EvaluatePolynomial(const double Coeffs[], short Degree, double X) {
    if (Degree < 0) return 0;
    double result = Coeffs[Degree];
    for (int i = Degree - 1; i >= 0; --i) result = result * X + Coeffs[i];
    return result;
}

} // namespace kx
