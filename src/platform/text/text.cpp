#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <iterator>

namespace kx {

namespace {

constexpr char32_t CReplacement = 0xFFFD;

unsigned ByteAt(std::string_view Text, std::size_t Pos) { return static_cast<unsigned char>(Text[Pos]); }

bool IsScalar(char32_t Value) { return Value < 0xD800 || (Value > 0xDFFF && Value <= 0x10FFFF); }

/// The length that a first byte promises; 0 for a byte that begins no sequence.
int SequenceLength(unsigned First) {
    if (First < 0x80) return 1;
    if (First < 0xC2) return 0;
    if (First < 0xE0) return 2;
    if (First < 0xF0) return 3;
    return First < 0xF5 ? 4 : 0;
}

/// Whether the value needs that many bytes; a longer form than needed is no UTF-8.
bool NeedsLength(char32_t Value, int Length) {
    return Length == 1 || (Length == 2 && Value >= 0x80) || (Length == 3 && Value >= 0x800) ||
           (Length == 4 && Value >= 0x10000);
}

bool IsForeign(const TCodePoint& Point) { return Point.Length == 1 && Point.Value >= 0x80; }

bool IsControl(char32_t Value) { return Value < 0x20 || (Value >= 0x7F && Value < 0xA0); }

char UpperOf(char Letter) {
    return Letter >= 'a' && Letter <= 'z' ? static_cast<char>(Letter - 'a' + 'A') : Letter;
}

/// Calls Action(code point, its bytes) for each character.
template <class F>
void ForEachCharacter(std::string_view Text, F Action) {
    for (std::size_t pos = 0; pos < Text.size();) {
        const TCodePoint point = DecodeAt(Text, pos);
        Action(point, Text.substr(pos, static_cast<std::size_t>(point.Length)));
        pos += static_cast<std::size_t>(point.Length);
    }
}

} // namespace

TCodePoint DecodeAt(std::string_view Text, std::size_t Pos) {
    const unsigned first = ByteAt(Text, Pos);
    const int length = SequenceLength(first);
    const TCodePoint single{first, 1};
    if (length <= 1 || Text.size() - Pos < static_cast<std::size_t>(length)) return single;
    char32_t value = first & (0x7Fu >> length);
    for (int i = 1; i < length; ++i) {
        const unsigned byte = ByteAt(Text, Pos + static_cast<std::size_t>(i));
        if ((byte & 0xC0) != 0x80) return single;
        value = (value << 6) | (byte & 0x3F);
    }
    return IsScalar(value) && NeedsLength(value, length) ? TCodePoint{value, length} : single;
}

void AppendUtf8(std::string& Text, char32_t CodePoint) {
    const char32_t value = IsScalar(CodePoint) ? CodePoint : CReplacement;
    if (value < 0x80) {
        Text += static_cast<char>(value);
        return;
    }
    const int length = value < 0x800 ? 2 : value < 0x10000 ? 3 : 4;
    const char32_t mark = (0xF00u >> length) & 0xFF; // as many leading ones as there are bytes
    Text += static_cast<char>(mark | (value >> (6 * (length - 1))));
    for (int i = length - 2; i >= 0; --i) Text += static_cast<char>(0x80 | ((value >> (6 * i)) & 0x3F));
}

int CharacterCount(std::string_view Text) {
    int count = 0;
    ForEachCharacter(Text, [&](const TCodePoint&, std::string_view) { ++count; });
    return count;
}

std::string ToValidUtf8(std::string_view Text) {
    std::string valid;
    valid.reserve(Text.size());
    ForEachCharacter(Text,
                     [&](const TCodePoint& Point, std::string_view) { AppendUtf8(valid, Point.Value); });
    return valid;
}

std::string Escaped(std::string_view Text) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    ForEachCharacter(Text, [&](const TCodePoint& Point, std::string_view Bytes) {
        if (!IsForeign(Point) && !IsControl(Point.Value)) {
            escaped += Bytes;
            return;
        }
        for (std::size_t i = 0; i < Bytes.size(); ++i)
            ((escaped += "\\x") += digits[ByteAt(Bytes, i) >> 4]) += digits[ByteAt(Bytes, i) & 15];
    });
    return escaped;
}

std::string Abridged(std::string_view Text) {
    constexpr int most = 60;
    std::string shown;
    std::size_t fits = 0; // so much of it leaves room for the ellipsis
    int count = 0;
    for (std::size_t pos = 0; pos < Text.size();) {
        const auto length = static_cast<std::size_t>(DecodeAt(Text, pos).Length);
        const std::string next = Escaped(Text.substr(pos, length));
        count += CharacterCount(next);
        if (count > most) return shown.substr(0, fits) + "…";
        shown += next;
        if (count < most) fits = shown.size();
        pos += length;
    }
    return shown;
}

std::string UpperCase(std::string_view Text) {
    std::string upper;
    upper.reserve(Text.size());
    std::transform(Text.begin(), Text.end(), std::back_inserter(upper), UpperOf);
    return upper;
}

bool SameText(std::string_view A, std::string_view B) {
    return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                      [](char X, char Y) { return UpperOf(X) == UpperOf(Y); });
}

bool StartsWithText(std::string_view Text, std::string_view Prefix) {
    return SameText(Text.substr(0, Prefix.size()), Prefix);
}

std::string_view Trimmed(std::string_view Text) {
    const std::size_t first = Text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return Text.substr(first, Text.find_last_not_of(" \t") - first + 1);
}

} // namespace kx
