#include <kxgraph/numeric/Kxstrings.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kx {

namespace {

constexpr int CRealPrecision = 14;
constexpr std::string_view CNumberCharacters = "+-.0123456789Ee";
constexpr std::string_view CDelimiters = "()*+-/^";

/// Reads the whole of Text by Read or raises. The words are those for integers with reals too.
template <class T>
T ReadWhole(std::string_view Text, T (*Read)(std::string_view, int&)) {
    int position = 0;
    const T value = Read(Text, position);
    if (position != 0) throw Exception("Error during integer extraction");
    return value;
}

/// Takes the number that S begins with, and one character behind it, out of S. When S holds nothing else, it
/// is left as it is.
template <class T>
std::string TakeNumber(std::string& S, T (*Read)(std::string_view, int&)) {
    EraseToNumber(S);
    int position = 0;
    Read(S, position);
    if (position == 0) return S;
    const auto length = static_cast<std::size_t>(position);
    std::string number = S.substr(0, length - 1);
    S.erase(0, length);
    return number;
}

constexpr std::int32_t CDefaultDigits = 15, CDigitsOfADouble = 17;

/// E of 0.ddd x 10^E after rounding to Digits digits.
int PlaceOf(double X, std::int32_t Digits) {
    int position = 0;
    return GetExponent(Val(Americanize(RealToStrSignificant(X, Digits)), position)) + 1;
}

char UpperCase(char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; }

bool IsDelimiter(char C) { return CDelimiters.find(C) != std::string_view::npos; }

/// Zero-based positions of the tokens, ascending. An occurrence that was looked at is no delimiter any more,
/// which matters for a token that is itself one of the delimiters.
std::vector<std::size_t> FindTokens(std::string_view S, char Token, bool FunctionsToo) {
    std::string text(S);
    std::transform(text.begin(), text.end(), text.begin(), UpperCase);
    const char token = UpperCase(Token);
    std::vector<std::size_t> found;
    for (auto p = text.find(token); p != std::string::npos; p = text.find(token, p + 1)) {
        text[p] = '\b';
        const bool last = p + 1 == text.size();
        if (p > 0 && !IsDelimiter(text[p - 1])) continue;
        if (!last && !IsDelimiter(text[p + 1])) continue;
        if (!last && !FunctionsToo && text[p + 1] == '(') continue;
        found.push_back(p);
    }
    return found;
}

/// Puts Replacement in the place of the character at Position; behind the end it is appended.
void ReplaceAt(std::string& S, std::size_t Position, std::string_view Replacement) {
    S.replace(std::min(Position, S.size()), 1, Replacement);
}

} // namespace

std::string RealToStr(double X) {
    try {
        return FloatToStrGeneral(X, CRealPrecision, 0);
    } catch (const Exception&) { // not of memory: an empty text would stand for the value
        return {};
    }
}

std::string RealToStrDigits(double X, std::int32_t Digits) {
    if (Digits <= 0) return FloatToStr(X);
    std::int32_t n = Digits;
    std::string text = FloatToStrGeneral(X, n, n);
    while (n > 0 && text.size() > static_cast<std::size_t>(Digits)) text = FloatToStrGeneral(X, --n, 0);
    return text;
}

std::string RealToStrSignificant(double X, std::int32_t Digits) {
    return FloatToStrGeneral(X, Digits == 0 ? CDefaultDigits : Digits, 0);
}

std::string RealWithErrorToStr(double X, double Error, std::int32_t Digits) {
    constexpr const char* plusMinus = " \u00B1 ";
    const double larger = std::max(std::abs(X), std::abs(Error));
    const auto apart = [&] {
        return RealToStrSignificant(X, Digits) + plusMinus + RealToStrSignificant(Error, Digits);
    };
    const std::int32_t digits = Digits == 0 ? CDefaultDigits : std::clamp(Digits, 1, CDigitsOfADouble);
    if (!std::isfinite(X) || !std::isfinite(Error) || larger == 0) return apart();
    const int place = PlaceOf(larger, digits);
    int decimals = digits - place;
    if (Error != 0) decimals = std::max(decimals, 1 - PlaceOf(Error, 1));
    if (place + decimals > CDigitsOfADouble) return apart();
    if (decimals >= 0 && place >= -3)
        return FloatToStrFixed(X, CDigitsOfADouble, decimals) + plusMinus +
               FloatToStrFixed(Error, CDigitsOfADouble, decimals);
    const int exponent = place - 1;
    return "(" + RealWithErrorToStr(ExpMinus(X, exponent), ExpMinus(Error, exponent), place + decimals) +
           ")E" + std::to_string(exponent);
}

std::string RealToAmericanStr(double X) { return Americanize(RealToStr(X)); }

std::string RealToAmericanStrDigits(double X, std::int32_t Digits) {
    return Americanize(RealToStrDigits(X, Digits));
}

std::string Float8_4(double X) { return FloatToStrGeneral(X, 8, 4); }

bool IsNumber(std::string_view S) {
    int position = 0;
    Val(S, position);
    return position == 0;
}

std::string Americanize(std::string S) {
    std::replace(S.begin(), S.end(), GetDecimalSeparator(), '.');
    return S;
}

std::string DeAmericanize(std::string S) {
    std::replace(S.begin(), S.end(), '.', GetDecimalSeparator());
    return S;
}

std::string IntToStrDigits(std::int32_t Value, std::int16_t Digits) {
    std::string text = std::to_string(Value);
    const auto length = static_cast<std::size_t>(std::max<std::int16_t>(Digits, 0));
    // Kept: in front of a minus sign too; fixed-width columns count on it.
    if (text.size() < length) text.insert(0, length - text.size(), '0');
    return text;
}

std::string SecondsToStr(std::int32_t Seconds) {
    const int hours = Seconds / 3600 % 24;
    const int days = Seconds / 86400;
    std::string text = IntToStrDigits(Seconds / 60 % 60, 2) + ":" + IntToStrDigits(Seconds % 60, 2);
    if (hours > 0) text = IntToStrDigits(hours, 2) + ":" + text;
    if (days > 0) text = std::to_string(days) + "d" + text;
    return text;
}

std::string ColumnToCharHeader(std::int32_t Column) {
    std::string text;
    for (; Column > 0; Column = (Column - 1) / 26)
        text.insert(0, 1, static_cast<char>('A' + (Column - 1) % 26));
    return text;
}

std::string StripBlanks(std::string S) {
    std::erase(S, ' ');
    return S;
}

void EraseToNumber(std::string& S) { S.erase(0, std::min(S.find_first_of(CNumberCharacters), S.size())); }

void EraseToNextNumber(std::string& S) {
    EraseToNumber(S);
    S.erase(0, std::min(S.find_first_not_of(CNumberCharacters), S.size()));
    EraseToNumber(S);
}

std::int32_t ExtractOneInt(std::string& S) {
    // Kept: a number that is all of S stays there and is read again by the next call.
    return ReadWhole(TakeNumber(S, &ValInt), &ValInt);
}

double ExtractOneReal(std::string& S) {
    EraseToNumber(S);
    const std::size_t length = S.size();
    const std::string number = TakeNumber(S, &Val);
    if (number.size() == length)
        S.clear();
    else
        EraseToNumber(S);
    return ReadWhole(number, &Val);
}

bool ContainsToken(std::string_view S, char Token) { return !FindTokens(S, Token, true).empty(); }

std::string ReplaceTokenWith(std::string S, char Token, std::string_view Replacement) {
    // Kept: no shift for what was inserted before; formulas that replace letter by letter are the use of it.
    for (const auto position : FindTokens(S, Token, true)) ReplaceAt(S, position, Replacement);
    return S;
}

std::string ReplaceTokenWithBracket(std::string S, char Token, std::string_view Replacement) {
    const auto positions = FindTokens(S, Token, false);
    std::for_each(positions.rbegin(), positions.rend(), [&](auto p) { ReplaceAt(S, p, Replacement); });
    return S;
}

} // namespace kx
