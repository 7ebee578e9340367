#include "svg/Kxsvgdevice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace kx {
namespace {

const TFontFace CFace{"Arial", -10, 0, fpDefault, 0}; // 6 pixels a letter on the headless host

/// The text elements of a document: each one's content.
std::vector<std::string> Contents(const TSvgDevice& Device) {
    std::vector<std::string> contents;
    const std::string text = Device.Document();
    for (auto at = text.find("<text"); at != text.npos; at = text.find("<text", at + 1)) {
        const auto begin = text.find('>', at) + 1;
        contents.push_back(text.substr(begin, text.find("</text>", at) - begin));
    }
    return contents;
}

std::string AttributeOf(const TSvgDevice& Device, const std::string& Name) {
    const std::string text = Device.Document(), lead = " " + Name + "=\"";
    const auto begin = text.find(lead, text.find("<text"));
    return begin == text.npos
               ? ""
               : text.substr(begin + lead.size(), text.find('"', begin + lead.size()) - begin - lead.size());
}

void Write(TSvgDevice& Device, TPoint Pos, const TFontFace& Face, std::string_view Text) {
    const double angle = Face.Angle * std::numbers::pi / 1800;
    for (std::size_t i = 0; i < Text.size(); ++i)
        Device.Text({Pos.X + RoundToInt(6 * double(i) * std::cos(angle)),
                     Pos.Y - RoundToInt(6 * double(i) * std::sin(angle))},
                    Face, clBlack, Text.substr(i, 1));
}

TEST(SvgText, LettersDrawnOneByOneBecomeOneElementInAnyDirection) {
    for (int angle : {0, 137, 300, 450, 900, 1230, 1800, 2700, 3300, -450}) {
        TSvgDevice device({400, 400});
        TFontFace face = CFace;
        face.Angle = angle;
        Write(device, {200, 200}, face, "Frequency in kHz");
        EXPECT_EQ(Contents(device), std::vector<std::string>{"Frequency in kHz"}) << angle;
    }
    TSvgDevice device({400, 400});
    TFontFace upward = CFace;
    upward.Angle = 900;
    Write(device, {20, 200}, upward, "a b");
    EXPECT_EQ(AttributeOf(device, "x"), "20 26 32");
    EXPECT_EQ(AttributeOf(device, "y"), "209");
    EXPECT_EQ(AttributeOf(device, "transform"), "rotate(-90 20 200)");
    EXPECT_EQ(AttributeOf(device, "xml:space"), "preserve");
}

TEST(SvgText, LongerPiecesJoinWithAPositionForEveryLetterButTheLastOnes) {
    TSvgDevice device({400, 400});
    device.Text({10, 10}, CFace, clBlack, "abc");
    EXPECT_EQ(AttributeOf(device, "x"), "10");
    device.Text({29, 10}, CFace, clBlack, "\xCE\xA9x"); // a pixel off the end
    device.Text({40, 10}, CFace, clBlack, "de");
    EXPECT_EQ(Contents(device), std::vector<std::string>{"abc\xCE\xA9xde"});
    EXPECT_EQ(AttributeOf(device, "x"), "10 16 22 29 35 40");
}

TEST(SvgText, AnotherStylePlaceOrClipOrADrawingInBetweenBeginsANewElement) {
    TFontFace bold = CFace, turned = CFace;
    bold.Style = fsBold;
    turned.Angle = 1;
    const TRect clip{0, 0, 50, 50};
    const std::function<void(TSvgDevice&)> seconds[] = {
        [&](auto& D) {
            D.Text({16, 10}, bold, clBlack, "b");
        },
        [&](auto& D) {
            D.Text({16, 10}, turned, clBlack, "b");
        },
        [&](auto& D) {
            D.Text({16, 10}, CFace, clRed, "b");
        },
        [&](auto& D) {
            D.Text({16, 11}, CFace, clBlack, "b");
        },
        [&](auto& D) {
            D.Text({20, 10}, CFace, clBlack, "b");
        },
        [&](auto& D) {
            D.Text({4, 10}, CFace, clBlack, "b");
        }, // leftward is not writing order
        [&](auto& D) {
            D.SetClip(clip);
            D.Text({16, 10}, CFace, clBlack, "b");
        },
        [&](auto& D) {
            D.FillRect({0, 0, 5, 5}, {});
            D.Text({16, 10}, CFace, clBlack, "b");
        },
    };
    for (const auto& second : seconds) {
        TSvgDevice device({400, 400});
        device.Text({10, 10}, CFace, clBlack, "a");
        second(device);
        EXPECT_EQ(Contents(device), (std::vector<std::string>{"a", "b"})) << device.Document();
    }
}

TEST(SvgText, ShowsForeignBytesAsLatin1AndDropsControlCharacters) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"a<b>&\"c\"", {"a&lt;b&gt;&amp;&quot;c&quot;"}},
        {"5 \xB5m \xC2\xB5m", {"5 \xC2\xB5m \xC2\xB5m"}},
        {std::string("a\0\x01\t\x7F\xEF\xBF\xBF", 9) + "b", {"ab"}},
        {"\n", {}},
        {"", {}},
    };
    for (const auto& [text, expected] : cases) {
        TSvgDevice device({400, 400});
        device.Text({10, 10}, CFace, clBlack, text);
        EXPECT_EQ(Contents(device), expected);
    }
}

TEST(SvgText, TheFaceBecomesAFamilyListASizeAndStyles) {
    const auto family = [](const std::string& Name, TFontPitch Pitch = fpDefault) {
        TSvgDevice device({400, 400});
        device.Text({1, 1}, {Name, 12, fsBold | fsItalic | fsUnderline | fsStrikeOut, Pitch, 0}, clRed, "a");
        EXPECT_EQ(AttributeOf(device, "font-size"), "10.74");
        EXPECT_EQ(AttributeOf(device, "font-weight") + AttributeOf(device, "font-style"), "bolditalic");
        EXPECT_EQ(AttributeOf(device, "text-decoration"), "underline line-through");
        EXPECT_EQ(AttributeOf(device, "fill"), "#ff0000");
        return AttributeOf(device, "font-family");
    };
    EXPECT_EQ(family("Arial"), "'Arial',sans-serif");
    EXPECT_EQ(family("Times New Roman"), "'Times New Roman',serif");
    EXPECT_EQ(family("Noto Sans Serifless"), "'Noto Sans Serifless',sans-serif");
    EXPECT_EQ(family("Own", fpFixed), "'Own',monospace");
    EXPECT_EQ(family("Symbol"), "sans-serif");
    EXPECT_EQ(family("O'Neill <1>"), "'O\\'Neill &lt;1&gt;',sans-serif");
}

} // namespace
} // namespace kx
