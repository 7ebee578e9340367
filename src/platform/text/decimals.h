#pragma once
// Numbers as tables have them: short decimals, millions of them.

#include <array>
#include <cfloat>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace kx {

/// Reads what std::from_chars reads, to the same bits, in a third of the time where the number is short and
/// has no exponent: digits below 2^53 and powers of ten up to 10^22 are exact doubles, so that their quotient
/// is rounded once.
inline std::from_chars_result ReadDecimal(const char* Begin, const char* End, double& Value) {
    static constexpr std::array CPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::ptrdiff_t CMostDigits = 15; // of any number below 2^53
    constexpr std::uint64_t CTooLarge = 1'000'000'000'000'000;
    const char* at = Begin;
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        const char* first = at;
        for (; at != End && static_cast<unsigned char>(*at - '0') < 10 && digits < CTooLarge; ++at)
            digits = digits * 10 + static_cast<unsigned char>(*at - '0');
        return at - first;
    };
    const bool negative = at != End && *at == '-';
    at += negative;
    const std::ptrdiff_t whole = takeDigits();
    const bool pointed = at != End && *at == '.';
    at += pointed;
    const std::ptrdiff_t decimals = pointed ? takeDigits() : 0, count = whole + decimals;
    const bool goesOn = at != End && (*at == 'e' || *at == 'E');
    if (count == 0 || count > CMostDigits || goesOn || FLT_EVAL_METHOD != 0)
        return std::from_chars(Begin, End, Value);
    const double size = static_cast<double>(digits) / CPowers[static_cast<std::size_t>(decimals)];
    Value = negative ? -size : size;
    return {at, std::errc()};
}

} // namespace kx
