#include <kxgraph/platform/drawing/graphics.h>

#include "support/testing.h"

namespace kx::test::graphics {

TEST(Colors, ReadTheirTextsBack) {
    const auto cases = Cases<TText, TColor, TText, TText>("texts", "colours");
    for (const auto& [text, color, written, html] : cases) {
        EXPECT_EQ(ColorFromText(text), color) << text;
        EXPECT_EQ(ColorToText(color), written);
        EXPECT_EQ(ColorToHtml(color), html);
        EXPECT_EQ(ColorFromText(written), color);
    }
    for (const char* bad : {"", "clNone1", "$", "$123456789", "$-1", "#fff", "#-12345", "12x", "99999999999"})
        EXPECT_EQ(ColorFromText(bad), std::nullopt) << bad;
}

TEST(Graphics, TellOnceOfAChangeOfValue) {
    TBrush brush, other;
    int changes = 0;
    brush.OnChange = [&] { ++changes; };
    brush.SetStyle(bsClear);
    brush.SetColor(clWhite); // the colour it has: solid again nevertheless
    EXPECT_EQ(brush.GetStyle(), bsSolid);
    other.SetColor(clRed);
    other.SetStyle(bsCross);
    for (int i = 0; i < 2; ++i) brush.Assign(other);
    EXPECT_EQ(brush.GetStyle(), bsCross);
    EXPECT_EQ(changes, 3);
}

TEST(Graphics, KeepSizeAndHeightOfAFontAsOneValue) {
    TFont font;
    for (int size = -200; size <= 200; ++size) {
        font.SetSize(size);
        ASSERT_EQ(font.GetSize(), size);
    }
    font.SetHeight(-14); // 10.5 points
    EXPECT_EQ(font.GetSize(), 11);
    font.SetSize(2147483647);
    EXPECT_LT(font.GetHeight(), 0);
}

} // namespace kx::test::graphics
