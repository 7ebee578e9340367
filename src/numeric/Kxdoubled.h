#pragma once
// Numbers as the unevaluated sum of two doubles, about 106 bits, for sums and systems that lose more digits
// on their way than a double has to spare. What a double holds besides, its range, stays the same.
//
// The building blocks are exact as long as nothing overflows or underflows: a product, and each factor of it,
// must stay below about 2^996, and its rounding error above 2^-1074. The compiler must not contract a product
// and a sum into one operation (-ffp-contract=off).
//
// Sources: T. J. Dekker, Numerische Mathematik 18 (1971) 224 (split, product); D. E. Knuth, The Art of
// Computer Programming, vol. 2, 4.2.2 (sum); Y. Hida, X. S. Li, D. H. Bailey, Proc. ARITH-15 (2001) 155
// (quotient).
//
// All but Sqrt is written for a double and for a vector of doubles that the compiler knows arithmetic for.

#include <kxgraph/platform/base/matherror.h>

#include <cmath>
#include <compare>

namespace kx {

/// Hi + Lo, where Lo is at most half a unit in the last place of Hi, so that Hi is the sum rounded.
template <class T>
struct TKxDoubledOf {
    T Hi;
    T Lo;
    constexpr TKxDoubledOf(T Hi = T{}, T Lo = T{}) : Hi(Hi), Lo(Lo) {}

    inline friend TKxDoubledOf operator-(TKxDoubledOf A) { return {-A.Hi, -A.Lo}; }
    inline friend TKxDoubledOf operator+(TKxDoubledOf A, TKxDoubledOf B) { return Plus(A, B); }
    inline friend TKxDoubledOf operator-(TKxDoubledOf A, TKxDoubledOf B) { return Plus(A, -B); }
    inline friend TKxDoubledOf operator*(TKxDoubledOf A, TKxDoubledOf B) { return Times(A, B); }
    inline friend TKxDoubledOf operator/(TKxDoubledOf A, TKxDoubledOf B) { return Over(A, B); }
    inline friend TKxDoubledOf& operator+=(TKxDoubledOf& A, TKxDoubledOf B) { return A = Plus(A, B); }
    inline friend TKxDoubledOf& operator-=(TKxDoubledOf& A, TKxDoubledOf B) { return A = Plus(A, -B); }
};

using TKxDoubled = TKxDoubledOf<double>;

inline std::partial_ordering operator<=>(TKxDoubled A, TKxDoubled B) {
    return A.Hi == B.Hi ? A.Lo <=> B.Lo : A.Hi <=> B.Hi;
}
inline bool operator==(TKxDoubled A, TKxDoubled B) { return A.Hi == B.Hi && A.Lo == B.Lo; }

/// A + B without error.
template <class T>
inline TKxDoubledOf<T> TwoSum(T A, T B) {
    const T sum = A + B;
    const T part = sum - A;
    return {sum, (A - (sum - part)) + (B - part)};
}

/// A + B without error, for |A| >= |B| or A = 0.
template <class T>
inline TKxDoubledOf<T> FastTwoSum(T A, T B) {
    const T sum = A + B;
    return {sum, B - (sum - A)};
}

/// A as Hi + Lo with at most 26 bits in each, so that products of such halves are exact.
template <class T>
inline TKxDoubledOf<T> SplitHalves(T A) {
    const T shifted = A * 134217729.0; // 2 to the power 27, plus 1
    const T head = shifted - (shifted - A);
    return {head, A - head};
}

/// A * B without error, with the halves of the factors known.
template <class T>
inline TKxDoubledOf<T> TwoProduct(T A, TKxDoubledOf<T> HalvesA, T B, TKxDoubledOf<T> HalvesB) {
    const T product = A * B;
    const T high = HalvesA.Hi * HalvesB.Hi - product;
    return {product, ((high + HalvesA.Hi * HalvesB.Lo) + HalvesA.Lo * HalvesB.Hi) + HalvesA.Lo * HalvesB.Lo};
}

/// A * B without error.
template <class T>
inline TKxDoubledOf<T> TwoProduct(T A, T B) {
    return TwoProduct(A, SplitHalves(A), B, SplitHalves(B));
}

/// The same where std::fma is one instruction.
inline TKxDoubled FusedProduct(double A, double B) {
    const double product = A * B;
    return {product, std::fma(A, B, -product)};
}

// What the operators do. The error of a sum, product and quotient is a few units of 2^-104 of the result.

template <class T>
inline TKxDoubledOf<T> Plus(TKxDoubledOf<T> A, TKxDoubledOf<T> B) {
    const TKxDoubledOf<T> high = TwoSum(A.Hi, B.Hi);
    const TKxDoubledOf<T> low = TwoSum(A.Lo, B.Lo);
    const TKxDoubledOf<T> sum = FastTwoSum<T>(high.Hi, high.Lo + low.Hi);
    return FastTwoSum<T>(sum.Hi, sum.Lo + low.Lo);
}

template <class T>
inline TKxDoubledOf<T> Times(TKxDoubledOf<T> A, TKxDoubledOf<T> B) {
    const TKxDoubledOf<T> high = TwoProduct(A.Hi, B.Hi);
    return FastTwoSum<T>(high.Hi, high.Lo + (A.Hi * B.Lo + A.Lo * B.Hi));
}

template <class T>
inline TKxDoubledOf<T> Over(TKxDoubledOf<T> A, TKxDoubledOf<T> B) {
    const T first = A.Hi / B.Hi;
    const TKxDoubledOf<T> rest = Plus(A, -Times(B, {first}));
    const T second = rest.Hi / B.Hi;
    const TKxDoubledOf<T> remainder = Plus(rest, -Times(B, {second}));
    return Plus(FastTwoSum<T>(first, second), {remainder.Hi / B.Hi});
}

inline TKxDoubled Abs(TKxDoubled A) { return A.Hi < 0 ? -A : A; }

/// A times 2 to the power Exponent.
inline TKxDoubled Scaled(TKxDoubled A, int Exponent) {
    return {std::ldexp(A.Hi, Exponent), std::ldexp(A.Lo, Exponent)};
}

/// One step of Newton's method from the square root of Hi. Raises EInvalidOp for a negative A.
inline TKxDoubled Sqrt(TKxDoubled A) {
    if (A == TKxDoubled{}) return {};
    const double root = std::sqrt(CheckedPositive(A.Hi));
    return FastTwoSum(root, (A - TwoProduct(root, root)).Hi / (2 * root));
}

} // namespace kx
