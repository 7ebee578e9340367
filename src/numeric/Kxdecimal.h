#pragma once
// Decimal numbers as values: what a double means to somebody who reads fifteen digits of it.

#include <cstdint>

namespace kx {

/// Digits times 10 to the power Exponent. As made of a double: without zeros at the end of Digits, which are
/// fifteen at most; 0 is {0, 0}.
struct TKxDecimal {
    std::int64_t Digits = 0;
    std::int64_t Exponent = 0;

    /// Value rounded to 15 significant digits, by its exact binary value. Value must be finite.
    static TKxDecimal Of(double Value);
    /// The double next to it; an infinity beyond those.
    double Value() const;

    /// How many digits there are; 0 of zero.
    int Significant() const;
    /// The exponent of the first digit; 0 of zero.
    std::int64_t Magnitude() const { return Digits == 0 ? 0 : Exponent + Significant() - 1; }
    TKxDecimal Shifted(std::int64_t By) const { return {Digits, Digits == 0 ? 0 : Exponent + By}; }
    /// Rounded to 15 digits as Of does. A multiple is the decimal that is meant: no error adds up.
    TKxDecimal Times(std::int64_t N) const {
        return Of(static_cast<double>(Digits) * static_cast<double>(N)).Shifted(Exponent);
    }

    friend bool operator==(const TKxDecimal&, const TKxDecimal&) = default;
};

} // namespace kx
