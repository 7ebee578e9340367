#include <kxgraph/table/Kxtabletext.h>

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace kx {

namespace {

constexpr std::string_view CLittleEndianMark = "\xFF\xFE", CBigEndianMark = "\xFE\xFF";

/// What stands at 0x80 to 0x9F; 0 where there is nothing.
constexpr std::array<char16_t, 32> CWestern{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t Unit(std::string_view Bytes, std::size_t At, bool BigEndian) {
    const auto byte = [&](std::size_t I) { return char32_t(static_cast<unsigned char>(Bytes[At + I])); };
    return BigEndian ? byte(0) << 8 | byte(1) : byte(1) << 8 | byte(0);
}

bool IsHighSurrogate(char32_t Value) { return Value >= 0xD800 && Value < 0xDC00; }
bool IsLowSurrogate(char32_t Value) { return Value >= 0xDC00 && Value < 0xE000; }

// A surrogate that has lost its other half becomes the replacement character; an odd last byte is dropped.
std::string FromUtf16(std::string_view Bytes, bool BigEndian) {
    std::string text;
    text.reserve(Bytes.size());
    for (std::size_t at = 0; at + 1 < Bytes.size(); at += 2) {
        char32_t value = Unit(Bytes, at, BigEndian);
        const char32_t next = at + 3 < Bytes.size() ? Unit(Bytes, at + 2, BigEndian) : 0;
        if (IsHighSurrogate(value) && IsLowSurrogate(next)) {
            value = 0x10000 + ((value - 0xD800) << 10) + (next - 0xDC00);
            at += 2;
        }
        AppendUtf8(text, value);
    }
    return text;
}

bool IsAscii(std::string_view Text) {
    return std::ranges::none_of(Text, [](char C) { return static_cast<unsigned char>(C) >= 0x80; });
}

/// Whether the character is a byte that belongs to no UTF-8.
bool IsForeign(const TCodePoint& Point) { return Point.Length == 1 && Point.Value >= 0x80; }

char32_t WesternOf(char32_t Byte) {
    const char32_t value = Byte < 0xA0 ? CWestern[Byte - 0x80] : Byte;
    return value == 0 ? Byte : value;
}

} // namespace

TKxTableText::TKxTableText(std::string_view Bytes) : FText(Bytes) {
    const bool bigEndian = Bytes.starts_with(CBigEndianMark);
    if (bigEndian || Bytes.starts_with(CLittleEndianMark)) {
        FOwn = std::make_shared<const std::string>(FromUtf16(Bytes.substr(2), bigEndian));
        FText = *FOwn;
    } else if (Bytes.starts_with(CByteOrderMark)) {
        FText.remove_prefix(CByteOrderMark.size());
    }
}

std::string TableTextToUtf8(std::string_view Text) {
    if (IsAscii(Text)) return std::string(Text);
    std::string valid;
    for (std::size_t pos = 0; pos < Text.size();) {
        const TCodePoint point = DecodeAt(Text, pos);
        AppendUtf8(valid, IsForeign(point) ? WesternOf(point.Value) : point.Value);
        pos += static_cast<std::size_t>(point.Length);
    }
    return valid;
}

bool IsTableTextUtf8(std::string_view Text) {
    if (IsAscii(Text)) return true;
    for (std::size_t pos = 0; pos < Text.size();) {
        const TCodePoint point = DecodeAt(Text, pos);
        if (IsForeign(point)) return false;
        pos += static_cast<std::size_t>(point.Length);
    }
    return true;
}

} // namespace kx
