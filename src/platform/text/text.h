#pragma once
// Text is UTF-8 in std::string. Files are 8-bit clean: a byte that belongs to no UTF-8 sequence is kept as it
// is and shown as the Latin-1 character of its number.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

using AnsiString = std::string;

/// A code point and the bytes that it takes in the text.
struct TCodePoint {
    char32_t Value = 0;
    int Length = 0;
};

/// The code point that begins at Text[Pos]; Pos must lie inside the text. A foreign byte counts as one
/// Latin-1 character.
TCodePoint DecodeAt(std::string_view Text, std::size_t Pos);

/// Appends the UTF-8 form of CodePoint.
void AppendUtf8(std::string& Text, char32_t CodePoint);

/// The number of characters (code points) of Text.
int CharacterCount(std::string_view Text);

/// Text with foreign bytes replaced by the UTF-8 form of their Latin-1 characters: valid UTF-8 always.
std::string ToValidUtf8(std::string_view Text);

/// Text for a message: foreign bytes and control characters as \xNN.
std::string Escaped(std::string_view Text);

/// The same in 60 characters at most, of which the last is "…" where Text does not fit: for what others have
/// written, such as a cell, a name or a formula, in a message.
std::string Abridged(std::string_view Text);

/// Upper case of the ASCII letters; all other bytes stay.
std::string UpperCase(std::string_view Text);
/// Whether both are equal but for the case of ASCII letters.
bool SameText(std::string_view A, std::string_view B);
/// Whether Text begins with Prefix but for the case of ASCII letters.
bool StartsWithText(std::string_view Text, std::string_view Prefix);

/// Text without blanks and tabs at both ends.
std::string_view Trimmed(std::string_view Text);

} // namespace kx
