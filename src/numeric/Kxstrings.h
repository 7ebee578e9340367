#pragma once
// Numbers as text and back, and text helpers for formulas. A real has two forms of text: the local one with
// the decimal separator that the user sees, and the American one with a point, used for all that is stored.
// Positions are bytes; letters ignore case in ASCII only.

#include <cstdint>
#include <string>
#include <string_view>

namespace kx {

/// 14 significant digits, local form. Never raises; an empty text if formatting fails.
std::string RealToStr(double X);
/// The most precise text of at most Digits characters that was found by lowering the precision from Digits
/// on, or the shortest one if none fits; 15 digits for Digits 0 or below. Local form.
std::string RealToStrDigits(double X, std::int32_t Digits);
/// Digits significant digits, 15 for 0; trailing zeros are dropped. Local form.
std::string RealToStrSignificant(double X, std::int32_t Digits);
/// A value and its standard error rounded to the same place, "0.876 ± 0.014" or "(1.23 ± 0.05)E-7": Digits
/// significant digits of the larger one (15 for 0), and at least one of the error. Where one number has no
/// place for both, as with an error 1E-20 times the value, each has its own Digits. Local form, UTF-8.
std::string RealWithErrorToStr(double X, double Error, std::int32_t Digits);
std::string RealToAmericanStr(double X);
std::string RealToAmericanStrDigits(double X, std::int32_t Digits);
/// Eight significant digits, an exponent of at least four: 1.5E0020. Local form.
std::string Float8_4(double X);
/// Whether all of S is a real in point form.
bool IsNumber(std::string_view S);

/// Replaces every decimal separator by a point. S as it is while the separator is the point.
std::string Americanize(std::string S);
/// Replaces every point by the decimal separator.
std::string DeAmericanize(std::string S);

/// Zeros are put in front up to Digits characters, also in front of a minus sign: -5 with 3 digits is "0-5".
std::string IntToStrDigits(std::int32_t Value, std::int16_t Digits);
/// "mm:ss", "hh:mm:ss" from one hour on, with "1d" in front from one day on; the hour field is missing when
/// the hour is 0, with days too. For times from 0.
std::string SecondsToStr(std::int32_t Seconds);
/// 1 is "A", 26 "Z", 27 "AA"; empty for 0 and below.
std::string ColumnToCharHeader(std::int32_t Column);

/// S without blanks; tabs stay.
std::string StripBlanks(std::string S);

// Number characters are + - . E e and the digits.

/// Erases from the front up to the first number character.
void EraseToNumber(std::string& S);
/// Erases the number at the front too, and what follows it up to the next number.
void EraseToNextNumber(std::string& S);
/// Takes the first number, and the one character behind it, out of S. Raises Exception "Error during integer
/// extraction" (for reals too) when there is none; S has lost what was read until then. A list of numbers may
/// be separated by any character that is no number character. If the rest of S is the number and nothing
/// else, ExtractOneInt leaves it there; ExtractOneReal empties S, and else goes on to the next number, also
/// when it raises.
std::int32_t ExtractOneInt(std::string& S);
double ExtractOneReal(std::string& S);

// A token is a letter (or another character) that stands alone between delimiters ( ) * + - / ^ or the ends
// of the text. A blank is no delimiter.

bool ContainsToken(std::string_view S, char Token);
/// Replaces tokens at the places they have in S: with a Replacement that is not one character long, all but
/// the first land at places that have moved by then. For longer ones use ReplaceTokenWithBracket.
std::string ReplaceTokenWith(std::string S, char Token, std::string_view Replacement);
/// Replaces tokens but those followed by "(" (names of functions), by a Replacement of any length.
std::string ReplaceTokenWithBracket(std::string S, char Token, std::string_view Replacement);

} // namespace kx
