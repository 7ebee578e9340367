#include <kxgraph/numeric/Kxdecimal.h>

#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>

namespace kx {

namespace {

constexpr int CDigits = 15;

/// Those that a double holds exactly.
constexpr std::array<double, 23> CPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// A whole number that a double holds, moved by a power of ten that it holds as well: rounded only once, to
/// the nearest double.
std::optional<double> Exactly(std::int64_t Digits, std::int64_t Exponent) {
    constexpr std::int64_t CExact = std::int64_t{1} << 53;
    if (std::abs(Digits) > CExact || std::abs(Exponent) >= std::ssize(CPowers)) return {};
    const double digits = static_cast<double>(Digits),
                 power = CPowers[static_cast<std::size_t>(std::abs(Exponent))];
    return Exponent < 0 ? digits / power : digits * power;
}

TKxDecimal WithoutZeros(TKxDecimal Decimal) {
    if (Decimal.Digits == 0) return {};
    while (Decimal.Digits % 10 == 0) {
        Decimal.Digits /= 10;
        ++Decimal.Exponent;
    }
    return Decimal;
}

/// The digits of most values that people write: if a decimal of 15 digits reads as Value, it is the one.
std::optional<TKxDecimal> ByArithmetic(double Value) {
    const double magnitude = std::abs(Value);
    if (!(magnitude >= 1e-7 && magnitude < 1e22)) return {};
    const int exponent = static_cast<int>(std::floor(std::log10(magnitude))) - CDigits + 1;
    const double digits = std::nearbyint(exponent < 0 ? Value * CPowers[static_cast<std::size_t>(-exponent)]
                                                      : Value / CPowers[static_cast<std::size_t>(exponent)]);
    const TKxDecimal decimal{static_cast<std::int64_t>(digits), exponent};
    if (std::abs(digits) > CPowers[CDigits] || Exactly(decimal.Digits, exponent) != Value) return {};
    return WithoutZeros(decimal);
}

/// From the text d.dddddddddddddde+xx.
TKxDecimal ByText(double Value) {
    std::array<char, 32> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), std::abs(Value),
                                    std::chars_format::scientific, CDigits - 1)
                          .ptr;
    TKxDecimal decimal;
    const char* at = text.data();
    for (; *at != 'e'; ++at)
        if (*at != '.') decimal.Digits = decimal.Digits * 10 + (*at - '0');
    std::from_chars(at + (at[1] == '+' ? 2 : 1), end, decimal.Exponent);
    decimal.Exponent -= CDigits - 1;
    if (Value < 0) decimal.Digits = -decimal.Digits;
    return WithoutZeros(decimal);
}

} // namespace

TKxDecimal TKxDecimal::Of(double Value) {
    if (Value == 0) return {};
    if (const auto decimal = ByArithmetic(Value)) return *decimal;
    return ByText(Value);
}

double TKxDecimal::Value() const {
    if (const auto value = Exactly(Digits, Exponent)) return *value;
    constexpr std::int64_t CBeyondAll = 9999;
    int position = 0;
    const std::int64_t exponent = std::clamp(Exponent, -CBeyondAll, CBeyondAll);
    return Val(std::to_string(Digits) + "E" + std::to_string(exponent), position);
}

int TKxDecimal::Significant() const {
    int count = 0;
    for (std::int64_t rest = Digits; rest != 0; rest /= 10) ++count;
    return count;
}

} // namespace kx
