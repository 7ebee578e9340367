#include "platform/graphics.h"

#include <gtest/gtest.h>

#include <tuple>

namespace kx {
namespace {

TEST(Colors, TextsReadBack) {
    const std::tuple<const char*, TColor, const char*, const char*> cases[] = {
        {"clred", 0x0000FF, "clRed", "#ff0000"},
        {"$ff0000", 0xFF0000, "clBlue", "#0000ff"},
        {"#FF8001", 0x0180FF, "$000180FF", "#ff8001"},
        {" 1 ", 1, "$00000001", "#010000"},
        {"$8000000F", clBtnFace, "clBtnFace", "#f0f0f0"},
        {"$80000063", SystemColor(99), "$80000063", "#000000"},
        {"-2147483643", clWindow, "clWindow", "#ffffff"},
        {"$020180FF", 0x020180FF, "$020180FF", "#ff8001"}};
    for (const auto& [text, color, written, html] : cases) {
        EXPECT_EQ(ColorFromText(text), color) << text;
        EXPECT_EQ(ColorToText(color), written);
        EXPECT_EQ(ColorToHtml(color), html);
        EXPECT_EQ(ColorFromText(written), color);
    }
    for (const char* bad : {"", "clNone1", "$", "$123456789", "$-1", "#fff", "#-12345", "12x", "99999999999"})
        EXPECT_EQ(ColorFromText(bad), std::nullopt) << bad;
}

TEST(Graphics, OnChangeComesOncePerChangeOfValue) {
    TPen pen, otherPen;
    TBrush brush, otherBrush;
    TFont font, otherFont;
    int pens = 0, brushes = 0, fonts = 0;
    pen.OnChange = [&] { ++pens; };
    brush.OnChange = [&] { ++brushes; };
    font.OnChange = [&] { ++fonts; };
    pen.SetWidth(1);
    pen.SetWidth(-1);
    EXPECT_EQ(pens, 0);
    otherPen.SetWidth(3);
    otherPen.SetColor(clRed);
    otherPen.SetMode(pmXor);
    for (int i = 0; i < 2; ++i) pen.Assign(otherPen);
    EXPECT_EQ(pens, 1);
    EXPECT_EQ(pen.GetMode(), pmXor);

    brush.SetStyle(bsClear);
    brush.SetColor(clWhite); // the colour it has: solid again nevertheless
    EXPECT_EQ(brush.GetStyle(), bsSolid);
    EXPECT_EQ(brushes, 2);
    otherBrush.SetStyle(bsCross);
    otherBrush.SetColor(clRed);
    for (int i = 0; i < 2; ++i) brush.Assign(otherBrush);
    EXPECT_EQ(brush.GetStyle(), bsCross);
    EXPECT_EQ(brushes, 3);

    otherFont.SetOrientation(900);
    otherFont.SetName("Symbol");
    otherFont.SetStrikeOut(true);
    for (int i = 0; i < 2; ++i) font.Assign(otherFont);
    EXPECT_TRUE(font.Equals(otherFont));
    EXPECT_EQ(fonts, 1);
}

TEST(Graphics, FontSizeAndHeightAreOneValue) {
    TFont font;
    EXPECT_EQ(font.GetSize(), 10);
    for (int size = -200; size <= 200; ++size) {
        font.SetSize(size);
        ASSERT_EQ(font.GetSize(), size);
    }
    font.SetSize(8);
    EXPECT_EQ(font.GetHeight(), -11);
    font.SetHeight(-14); // 10.5 points
    EXPECT_EQ(font.GetSize(), 11);
    font.SetSize(2147483647);
    EXPECT_LT(font.GetHeight(), 0);
}

} // namespace
} // namespace kx
