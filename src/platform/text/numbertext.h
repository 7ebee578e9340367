#pragma once
// Numbers to text and back: the general and the fixed floating-point format, and Val, which reads the point
// form and says where it stopped. Independent of the C locale.

#include <cstdint>
#include <string>
#include <string_view>

namespace kx {

/// The character between integer and fraction in displayed numbers: '.' until the program sets another or
/// takes the environment's. Stored numbers never use it.
char GetDecimalSeparator();
void SetDecimalSeparator(char Separator);
/// Takes the separator of the environment (LC_ALL, LC_NUMERIC, LANG); keeps '.' when there is none.
void TakeDecimalSeparatorFromEnvironment();

/// The general format: Precision significant digits (a precision below 1 counts as 1, above 18 as 18),
/// trailing zeros dropped; scientific with at least Digits exponent digits (0..18; above 4 counts as 4) when
/// the decimal exponent E of 0.ddd x 10^E exceeds Precision or is below -3. Uses the decimal separator.
/// A NaN is "NAN", infinities are "INF" and "-INF".
std::string FloatToStrGeneral(double Value, int Precision, int Digits);

/// The fixed format: Digits decimals (0..18), of which the value contributes Precision significant digits (15
/// as a rule), the rest being zeros. A value that reads as zero has no minus sign. A magnitude of 1e18 and
/// above takes the general format. Uses the decimal separator.
std::string FloatToStrFixed(double Value, int Precision, int Digits);

/// The plain form: the general format with 15 digits.
std::string FloatToStr(double Value);

/// The scientific text of 15 significant digits, 23 characters: sign (blank or '-'), d.dddddddddddddd, 'E',
/// the exponent's sign and four digits. Rounded by the exact binary value. A NaN is " NAN", infinities " INF"
/// and "                   -INF".
std::string ScientificText(double Value);

/// Reads a real in point form from the whole of Text (leading blanks allowed). Position is 0 when all of Text
/// is a number, else the 1-based position of the first character that does not belong, length + 1 when the
/// text ends too early; the result is then 0. A value too large for a double reads as an infinity with
/// Position 0, one too small as 0.
double Val(std::string_view Text, int& Position);

/// The same for a 32-bit signed decimal integer; a number that does not fit stops at the digit too much.
std::int32_t ValInt(std::string_view Text, int& Position);

} // namespace kx
