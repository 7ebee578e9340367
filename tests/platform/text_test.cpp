#include <kxgraph/platform/text/text.h>

#include <gtest/gtest.h>

#include <tuple>

namespace kx {

TEST(Text, EveryCodePointSurvivesEncodingAndDecoding) {
    for (char32_t value = 0; value <= 0x10FFFF; value += value < 0x900 ? 1 : 251) {
        if (value >= 0xD800 && value <= 0xDFFF) continue;
        std::string text;
        AppendUtf8(text, value);
        const TCodePoint point = DecodeAt(text, 0);
        ASSERT_EQ(point.Value, value);
        ASSERT_EQ(point.Length, static_cast<int>(text.size()));
    }
}

TEST(Text, AbridgedHasSixtyCharactersAtMost) {
    const std::string fifty(50, 'a');
    const std::tuple<std::string, std::string> cases[] = {
        {fifty + "0123456789", fifty + "0123456789"},
        {fifty + "0123456789x", fifty + "012345678…"},
        {fifty + "012345678ü", fifty + "012345678ü"},
        {fifty + "01234567\n", fifty + "01234567…"},
        {fifty + "012345\n", fifty + "012345\\x0A"},
        {std::string(1000000, '\n'), std::string("\\x0A") + Abridged(std::string(1000, '\n')).substr(4)},
    };
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(Abridged(text), shown);
        EXPECT_LE(CharacterCount(Abridged(text)), 60);
    }
}

/// Sequences that are cut off, longer than needed, half a surrogate pair, beyond the last code point.
TEST(Text, ForeignBytesCountAsLatin1Characters) {
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        {"a\xC2\xB7z", "a\xC2\xB7z", "a\xC2\xB7z", 3},
        {"\xC3", "\xC3\x83", "\\xC3", 1},
        {"\xC0\xAF", "\xC3\x80\xC2\xAF", "\\xC0\\xAF", 2},
        {"\xE0\x81\x81", "\xC3\xA0\xC2\x81\xC2\x81", "\\xE0\\x81\\x81", 3},
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80", "\\xED\\xA0\\x80", 3},
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80", "\\xF4\\x90\\x80\\x80", 4},
        {"a\n\x7F\xC2\x85", "a\n\x7F\xC2\x85", "a\\x0A\\x7F\\xC2\\x85", 4}};
    for (const auto& [bytes, valid, escaped, count] : cases) {
        EXPECT_EQ(ToValidUtf8(bytes), valid);
        EXPECT_EQ(Escaped(bytes), escaped);
        EXPECT_EQ(CharacterCount(bytes), count);
    }
}

TEST(Text, CaseIsThatOfAsciiLettersOnly) {
    EXPECT_EQ(UpperCase("az[\xC3\xA4{"), "AZ[\xC3\xA4{");
    EXPECT_TRUE(SameText("Axis1", "aXIS1") && !SameText("Axis1", "Axis") && !SameText("@", "`"));
    EXPECT_TRUE(StartsWithText("Axis1", "AXIS") && !StartsWithText("Ax", "Axis"));
}

} // namespace kx
