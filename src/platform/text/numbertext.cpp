#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <stdexcept>

namespace kx {

namespace {

constexpr int CMaxDigits = 18;
constexpr double CFixedLimit = 1e18;

char DecimalSeparator = '.';

/// 0.ddd x 10^Exponent, rounded to a number of significant digits, trailing zeros included.
struct TDecimal {
    std::string Digits;
    int Exponent = 0;
};

TDecimal Decompose(double Magnitude, int Precision) {
    std::array<char, 40> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), Magnitude,
                                            std::chars_format::scientific, Precision - 1);
    const char* exponent = std::find(text.data(), end, 'e');
    TDecimal decimal;
    std::remove_copy(text.data(), const_cast<char*>(exponent), std::back_inserter(decimal.Digits), '.');
    std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end, decimal.Exponent);
    ++decimal.Exponent;
    return decimal;
}

const char* NotFiniteText(double Value) {
    if (std::isnan(Value)) return "NAN";
    return Value < 0 ? "-INF" : "INF";
}

std::string PaddedLeft(std::string_view Text, std::size_t Length) {
    return std::string(Length - std::min(Length, Text.size()), ' ').append(Text);
}

/// Integer and fraction of Decimal, with Decimals places behind the separator.
std::string PositionalText(const TDecimal& Decimal, int Decimals) {
    std::string digits = Decimal.Digits;
    int point = Decimal.Exponent;
    if (point < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - point), '0');
        point = 1;
    }
    digits.resize(static_cast<std::size_t>(point) + static_cast<std::size_t>(Decimals), '0');
    if (Decimals > 0) digits.insert(static_cast<std::size_t>(point), 1, DecimalSeparator);
    return digits;
}

std::string ExponentText(const TDecimal& Decimal, int MinDigits) {
    std::string text = Decimal.Digits.substr(0, 1);
    if (Decimal.Digits.size() > 1) (text += DecimalSeparator).append(Decimal.Digits, 1);
    const int exponent = Decimal.Exponent - 1;
    text += exponent < 0 ? "E-" : "E";
    const std::string digits = std::to_string(std::abs(exponent));
    const auto width = static_cast<std::size_t>(std::clamp(MinDigits, 0, 4));
    return text.append(width - std::min(width, digits.size()), '0') + digits;
}

} // namespace

char GetDecimalSeparator() { return DecimalSeparator; }

void SetDecimalSeparator(char Separator) { DecimalSeparator = Separator; }

void TakeDecimalSeparatorFromEnvironment() {
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* name = std::getenv(variable);
        if (!name || !*name) continue;
        try {
            const char found = std::use_facet<std::numpunct<char>>(std::locale(name)).decimal_point();
            if (found > ' ' && found < 127) DecimalSeparator = found; // not the first byte of a longer one
        } catch (const std::runtime_error&) {
            // a locale that is not installed tells nothing
        }
        return;
    }
}

std::string FloatToStrGeneral(double Value, int Precision, int Digits) {
    if (!std::isfinite(Value)) return NotFiniteText(Value);
    if (Value == 0) return "0";
    const int precision = std::clamp(Precision, 1, CMaxDigits);
    TDecimal decimal = Decompose(std::fabs(Value), precision);
    decimal.Digits.resize(decimal.Digits.find_last_not_of('0') + 1);
    const std::string sign = Value < 0 ? "-" : "";
    if (decimal.Exponent > precision || decimal.Exponent < -3) return sign + ExponentText(decimal, Digits);
    const int length = static_cast<int>(decimal.Digits.size());
    return sign + PositionalText(decimal, std::max(length - decimal.Exponent, 0));
}

std::string FloatToStrFixed(double Value, int Precision, int Digits) {
    const double magnitude = std::fabs(Value);
    if (!(magnitude < CFixedLimit)) return FloatToStrGeneral(Value, Precision, 0);
    const int decimals = std::clamp(Digits, 0, CMaxDigits);
    TDecimal decimal = Decompose(magnitude, std::clamp(Precision, 1, CMaxDigits));
    std::string text;
    if (decimal.Exponent + decimals >= static_cast<int>(decimal.Digits.size())) {
        text = PositionalText(decimal, decimals);
    } else { // the decimals are the coarser limit: rounded from the value, not from its rounded digits
        std::array<char, 64> buffer;
        const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                                std::chars_format::fixed, decimals);
        std::replace(buffer.data(), end, '.', DecimalSeparator);
        text.assign(buffer.data(), end);
    }
    const bool readsAsZero = text.find_first_of("123456789") == std::string::npos;
    return Value < 0 && !readsAsZero ? "-" + text : text;
}

std::string FloatToStr(double Value) { return FloatToStrGeneral(Value, 15, 0); }

std::string ScientificText(double Value) {
    constexpr std::size_t length = 23, exponentAt = 17;
    if (!std::isfinite(Value)) return PaddedLeft(NotFiniteText(Value), length);
    std::array<char, 40> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(Value),
                                            std::chars_format::scientific, 14);
    std::string text(length, '0');
    text[0] = Value < 0 ? '-' : ' ';
    std::copy_n(buffer.data(), exponentAt, text.begin() + 1); // up to the 'e'
    text[exponentAt] = 'E';
    text[exponentAt + 1] = buffer[exponentAt];
    const char* exponent = buffer.data() + exponentAt + 1;
    std::copy_backward(exponent, static_cast<const char*>(end), text.data() + length);
    return text;
}

namespace {

/// Reads a number from left to right and remembers where it stopped.
class TNumberReader {
public:
    explicit TNumberReader(std::string_view Text) : FText(Text) {
        while (Take(' ')) {
        }
        FNegative = Take('-');
        if (!FNegative) Take('+');
        FBegin = FPos;
    }
    bool Negative() const { return FNegative; }
    bool AtEnd() const { return FPos == FText.size(); }
    int Position() const { return static_cast<int>(FPos) + 1; }
    const char* Begin() const { return FText.data() + FBegin; }
    const char* Here() const { return FText.data() + FPos; }

    bool Take(char Wanted) {
        if (AtEnd() || FText[FPos] != Wanted) return false;
        ++FPos;
        return true;
    }
    /// Takes one digit; -1 when there is none.
    int TakeDigit() {
        if (AtEnd() || FText[FPos] < '0' || FText[FPos] > '9') return -1;
        return FText[FPos++] - '0';
    }
    void PutBack() { --FPos; }

private:
    std::string_view FText;
    std::size_t FPos = 0, FBegin = 0;
    bool FNegative = false;
};

/// Where the first digit but 0 stands, seen from the decimal point: tells too large from too small.
struct TMagnitude {
    long long Exponent = 0;
    bool Found = false;
};

/// Takes the digits before or behind the point; returns how many there are.
int TakeDigits(TNumberReader& Reader, TMagnitude& Magnitude, bool Fraction) {
    int count = 0;
    for (int digit; (digit = Reader.TakeDigit()) >= 0; ++count) {
        if (Fraction ? digit == 0 && !Magnitude.Found : Magnitude.Found || digit != 0)
            Magnitude.Exponent += Fraction ? -1 : 1;
        Magnitude.Found |= digit != 0;
    }
    return count;
}

/// Takes an exponent if one begins here; false when it is incomplete.
bool TakeExponent(TNumberReader& Reader, TMagnitude& Magnitude) {
    if (!Reader.Take('E') && !Reader.Take('e')) return true;
    const bool negative = Reader.Take('-');
    if (!negative) Reader.Take('+');
    int digit = Reader.TakeDigit();
    if (digit < 0) return false;
    constexpr long long limit = std::numeric_limits<long long>::max() / 100;
    long long exponent = 0;
    for (; digit >= 0; digit = Reader.TakeDigit()) exponent = std::min(exponent * 10 + digit, limit);
    Magnitude.Exponent += negative ? -exponent : exponent;
    return true;
}

} // namespace

double Val(std::string_view Text, int& Position) {
    TNumberReader reader(Text);
    TMagnitude magnitude;
    int digits = TakeDigits(reader, magnitude, false);
    if (reader.Take('.')) digits += TakeDigits(reader, magnitude, true);
    if (digits == 0 || !TakeExponent(reader, magnitude) || !reader.AtEnd()) {
        Position = reader.Position();
        return 0;
    }
    Position = 0;
    double value = 0;
    if (std::from_chars(reader.Begin(), reader.Here(), value).ec == std::errc::result_out_of_range)
        value = magnitude.Exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
    return reader.Negative() ? -value : value;
}

std::int32_t ValInt(std::string_view Text, int& Position) {
    TNumberReader reader(Text);
    const std::int64_t limit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + reader.Negative();
    std::int64_t value = 0;
    int digits = 0;
    for (int digit; (digit = reader.TakeDigit()) >= 0; ++digits) {
        value = value * 10 + digit;
        if (value <= limit) continue;
        reader.PutBack();
        digits = 0;
        break;
    }
    Position = digits > 0 && reader.AtEnd() ? 0 : reader.Position();
    if (Position != 0) return 0;
    return static_cast<std::int32_t>(reader.Negative() ? -value : value);
}

} // namespace kx
