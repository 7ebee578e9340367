#include <kxgraph/platform/text/text.h>

#include "support/testing.h"

namespace kx::test::text {

TEST(Text, EncodesAndDecodesEveryCodePoint) {
    for (char32_t value = 0; value <= 0x10FFFF; value += value < 0x900 ? 1 : 251) {
        if (value >= 0xD800 && value <= 0xDFFF) continue;
        std::string text;
        AppendUtf8(text, value);
        const TCodePoint point = DecodeAt(text, 0);
        ASSERT_EQ(point.Value, value);
        ASSERT_EQ(point.Length, static_cast<int>(text.size()));
    }
}

TEST(Text, AbridgesToSixtyCharacters) {
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

TEST(Text, CountsForeignBytesAsLatin1Characters) {
    for (const auto& [bytes, valid, escaped, count] :
         Cases<TText, TText, TText, int>("texts", "foreign bytes")) {
        EXPECT_EQ(ToValidUtf8(bytes), valid);
        EXPECT_EQ(Escaped(bytes), escaped);
        EXPECT_EQ(CharacterCount(bytes), count);
    }
}

TEST(Text, KnowsTheCaseOfAsciiLettersOnly) {
    EXPECT_EQ(UpperCase("az[\xC3\xA4{"), "AZ[\xC3\xA4{");
    EXPECT_TRUE(SameText("Axis1", "aXIS1") && !SameText("Axis1", "Axis") && !SameText("@", "`"));
    EXPECT_TRUE(StartsWithText("Axis1", "AXIS") && !StartsWithText("Ax", "Axis"));
}

} // namespace kx::test::text
