#include <kxgraph/svg/Kxsvgdevice.h>

#include "support/testing.h"

#include <numbers>

namespace kx::test::svgtext {

const TFontFace CFace{"Arial", -10, 0, fpDefault, 0}; // 6 pixels a letter on the headless host

const TRect CBox{0, 0, 50, 50};

/// The contents of a document's text elements.
std::vector<std::string> Contents(const TSvgDevice& Device) {
    const std::string text = Device.Document();
    std::vector<std::string> contents;
    for (auto at = text.find("<text"); at != text.npos; at = text.find("<text", at + 1)) {
        const auto begin = text.find('>', at) + 1;
        contents.push_back(text.substr(begin, text.find("</text>", begin) - begin));
    }
    return contents;
}

void Write(TSvgDevice& Device, TPoint Pos, const TFontFace& Face, std::string_view Text) {
    const double angle = Face.Angle * std::numbers::pi / 1800, dx = 6 * std::cos(angle),
                 dy = -6 * std::sin(angle);
    for (int i = 0; i < int(Text.size()); ++i)
        Device.Text(Pos + TPoint{RoundToInt(i * dx), RoundToInt(i * dy)}, Face, clBlack, Text.substr(i, 1));
}

TEST(SvgText, MakesOneElementOfLettersInAnyDirection) {
    for (int angle : {0, 137, 900, 1230, 1800, 2700, -450}) {
        TSvgDevice device({400, 400});
        TFontFace face = CFace;
        face.Angle = angle;
        Write(device, {200, 200}, face, "Frequency in kHz");
        EXPECT_EQ(Contents(device), std::vector<std::string>{"Frequency in kHz"}) << angle;
    }
}

TEST(SvgText, BeginsANewElementForAnotherStylePlaceOrClip) {
    TFontFace bold = CFace;
    bold.Style = fsBold;
    const struct {
        TPoint Pos{16, 10};
        TFontFace Face = CFace;
        TColor Color = clBlack;
        void (*Before)(TCanvasDevice&) = [](TCanvasDevice&) {};
    } seconds[] = {{.Face = bold},
                   {.Color = clRed},
                   {.Pos = {16, 11}},
                   {.Pos = {20, 10}},
                   {.Pos = {4, 10}}, // leftward is not writing order
                   {.Before = [](TCanvasDevice& D) { D.SetClip(CBox); }},
                   {.Before = [](TCanvasDevice& D) { D.FillRect(CBox, {}); }}};
    for (const auto& second : seconds) {
        TSvgDevice device({400, 400});
        device.Text({10, 10}, CFace, clBlack, "a");
        second.Before(device);
        device.Text(second.Pos, second.Face, second.Color, "b");
        EXPECT_EQ(Contents(device), (std::vector<std::string>{"a", "b"})) << device.Document();
    }
}

TEST(SvgText, ShowsForeignBytesAsLatin1AndDropsControlCharacters) {
    TSvgDevice device({400, 400});
    int y = 0;
    for (const std::string text : {"a<b>&\"c\"", "5 \xB5m \xC2\xB5m",
                                   "a\x01\t\x7F\xEF\xBF\xBF"
                                   "b",
                                   "\n", ""})
        device.Text({10, y += 20}, CFace, clBlack, text);
    EXPECT_EQ(Contents(device),
              (std::vector<std::string>{"a&lt;b&gt;&amp;&quot;c&quot;", "5 \xC2\xB5m \xC2\xB5m", "ab"}));
}

TEST(SvgText, WritesFacesDirectionsAndPositions) {
    TSvgDevice device({400, 400});
    for (const char* name :
         {"Arial", "Times New Roman", "Noto Sans Serifless", "Mono", "Symbol", "O'Neill <1>"})
        device.Text({1, 1}, {name, 12, 0, fpDefault, 0}, clRed, "a");
    for (unsigned style = 0; style < 16; style += 5)
        device.Text({1, 1}, {"Own", -12, style, fpFixed, 0}, clNavy, "a");
    Write(device, {20, 200}, {"Arial", -10, 0, fpDefault, 900}, "a b");
    // Nothing goes on with a run of letters.
    device.Text({10, 10}, CFace, clBlack, "abc");
    device.Text({29, 10}, CFace, clBlack, "\xCE\xA9x");
    device.Text({40, 10}, CFace, clBlack, "de");
    ExpectRecording("svgtext", device.Document());
}

} // namespace kx::test::svgtext
