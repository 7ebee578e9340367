#include <kxgraph/numeric/Kxstudent.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <numbers>

namespace kx {

namespace {

constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double CPrecision = 1e-16;
constexpr double CMany = 2e5; // degrees of freedom: the continued fraction would be long and lose digits

/// Gamma(A + 1/2) / Gamma(A): the asymptotic series from 60 on, below it by recursion. Differences of
/// logarithms of the gamma function would lose what they have in common.
double GammaRatio(double A) {
    double factor = 1;
    while (A < 60) {
        factor *= A / (A + 0.5);
        ++A;
    }
    const double u = 1 / A;
    const double series =
        1 + u * (-1.0 / 8 + u * (1.0 / 128 + u * (5.0 / 1024 + u * (-21.0 / 32768 + u * (-399.0 / 262144)))));
    return factor * std::sqrt(A) * series;
}

double AwayFromZero(double Value) { return std::abs(Value) < 1e-300 ? 1e-300 : Value; }

/// The continued fraction of the incomplete beta function of A, B at X.
double BetaFraction(double A, double B, double X) {
    double c = 1, d = 1 / AwayFromZero(1 - (A + B) * X / (A + 1)), fraction = d;
    for (int m = 1; m < 100000; ++m) {
        const double even = m * (B - m) * X / ((A + 2 * m - 1) * (A + 2 * m));
        const double odd = -(A + m) * (A + B + m) * X / ((A + 2 * m) * (A + 2 * m + 1));
        double step = 1;
        for (const double term : {even, odd}) {
            d = 1 / AwayFromZero(1 + term * d);
            c = AwayFromZero(1 + term / c);
            fraction *= step = c * d;
        }
        if (std::abs(step - 1) < CPrecision) break;
    }
    return fraction;
}

/// Probability density times |t|, of both sides.
double Slope(double T, double Freedom) {
    const double square = T * T / Freedom;
    return 2 * T * GammaRatio(Freedom / 2) / std::sqrt(Freedom * std::numbers::pi) *
           std::exp(-(Freedom + 1) / 2 * std::log1p(square));
}

/// D. L. Wallace, Annals of Mathematical Statistics 30 (1959) 1124: by the normal distribution, with an error
/// of the order of 1 / Freedom^2.
double NormalExcess(double T, double Freedom) {
    const double u = (8 * Freedom + 1) / (8 * Freedom + 3) * std::sqrt(Freedom * std::log1p(T * T / Freedom));
    return std::erfc(u / std::numbers::sqrt2);
}

} // namespace

double StudentExcess(double T, double Freedom) {
    if (!(T >= 0 && Freedom > 0)) return CNaN;
    if (T == 0) return 1;
    if (Freedom > CMany) return NormalExcess(T, Freedom);
    const double a = Freedom / 2, b = 0.5, square = T * T / Freedom;
    const double inner = square / (1 + square), outer = 1 / (1 + square); // they add up to 1
    // Both sides of the distribution times outer^a inner^b / B(a, b).
    const double front =
        GammaRatio(a) / std::sqrt(std::numbers::pi) * std::exp(-a * std::log1p(square)) * std::sqrt(inner);
    if (outer < (a + 1) / (a + b + 2)) return front * BetaFraction(a, b, outer) / a;
    return 1 - front * BetaFraction(b, a, inner) / b;
}

// Newton's rule for the logarithm of the excess over that of t, within bounds that close in.
double StudentLimit(double Level, double Freedom) {
    if (!(Level >= 0 && Level < 1 && Freedom > 0)) return CNaN;
    if (Level == 0) return 0;
    const double wanted = 1 - Level;
    double low = 0, high = 1;
    while (StudentExcess(high, Freedom) > wanted) {
        low = high;
        high *= 2;
        if (!std::isfinite(high * high)) return std::numeric_limits<double>::infinity();
    }
    double t = (low + high) / 2;
    for (int i = 0; i < 200; ++i) {
        const double excess = StudentExcess(t, Freedom);
        (excess > wanted ? low : high) = t;
        double next = t * std::exp(std::log(excess / wanted) * excess / Slope(t, Freedom));
        if (!(low < next && next < high)) next = (low + high) / 2;
        if (std::abs(next - t) <= 4e-16 * t) return next;
        t = next;
    }
    return t;
}

} // namespace kx
