#pragma once
// Decimal exponents and rounding to round values, on a linear or a logarithmic scale. Free of state.

#include <kxgraph/numeric/Kxconsts.h>

#include <utility>

namespace kx {

TRect OrderedRect(int X1, int Y1, int X2, int Y2);

/// Copies the elements of Source into Dest, which is not resized. Raises ERangeError "i=%d index out of
/// range", with nothing copied, when Dest is the shorter one.
void AssignRealArrays(const TKxRealArray& Source, const TKxRealArray& Dest);

inline void SwapReal(double& A, double& B) { std::swap(A, B); }
inline void SwapInteger(int& A, int& B) { std::swap(A, B); }

/// 10 to the power X; CMaxReal where a double does not hold it, and for a NaN.
double Exp10(const double X);
double IntExp10(const int N);

/// The decimal exponent of X after rounding to 15 significant digits; 0 for 0.
/// Raises EConvertError for a NaN or an infinity.
int GetExponent(const double X);

/// X times 10 to the power -N: the 15 significant digits of X are kept and only the exponent moves, so no
/// binary error of a division enters. X unchanged when the result is too large for a double or X is not
/// finite.
double ExpMinus(const double X, int N);

/// X rounded up (down) to a multiple of Step times 10 to the power N; Step > 0. What lies beyond a multiple,
/// away from zero, by less than a thousandth of Step is rounded to that multiple. Towards zero the tolerance
/// is 1e-9. Raises EZeroDivide for Step 0, EOverflow and EInvalidOp where there is no result.
double RoundUp(const double X, const double Step, int N);
double RoundDown(const double X, const double Step, int N);

/// X rounded up (down) to a multiple of Step times a power of ten times Ref: 1, 2, 3, ... 9, 10 for Step 1.
/// X / Ref must be positive, else EMathError is raised. The result is round to 15 digits where long double is
/// wider than double.
double RoundLogUp(const double X, const double Ref, const double Step);
double RoundLogDown(const double X, const double Ref, const double Step);

/// Number of significant decimal digits, 0 (for 0) to 15 (also for a NaN or an infinity).
int LastSignificant(const double X);

/// Coeffs[0] + Coeffs[1] X + ... + Coeffs[Degree] X^Degree; 0 for a negative degree.
double EvaluatePolynomial(const double Coeffs[], short Degree, double X);

} // namespace kx
