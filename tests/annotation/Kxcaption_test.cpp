#include <kxgraph/annotation/Kxcaption.h>

#include "scenes/scenes.h"
#include "support/testing.h"

#include <kxgraph/platform/drawing/screentext.h>

namespace kx::test::caption {

/// A caption on a recording canvas whose font is 10 pixels high, so that each character is 6 wide.
struct TSheet {
    TRecorder Device{{400, 400}};
    TCanvas Canvas{&Device};
    TKxCaptionRec Rec;

    explicit TSheet(const std::string& Text, bool Paint = true) {
        Canvas.Font.SetHeight(-10);
        Rec.Text = Text;
        Rec.Canvas = &Canvas;
        Rec.X = 100;
        Rec.Y = 200;
        Rec.Paint = Paint;
    }
    std::vector<TRecording::TText> Run() {
        RichPaintTo(Rec);
        std::vector<TRecording::TText> texts;
        for (const auto& call : Device.Recording.Calls) texts.push_back(std::get<TRecording::TText>(call));
        return texts;
    }
};

std::string Shown(const std::string& Caption) {
    std::string shown;
    for (const auto& text : TSheet(Caption).Run()) shown += text.Text;
    return shown;
}

TEST(Captions, EscapesAreTakenOutAndSwallowOneBlank) {
    for (const auto& [caption, shown, stripped, indices] :
         Cases<TText, TText, TText, TReals>("captions", "escapes")) {
        SCOPED_TRACE(caption);
        TSheet sheet(caption, false);
        EXPECT_TRUE(sheet.Run().empty()) << "measuring draws nothing";
        EXPECT_EQ(Shown(caption), shown);
        EXPECT_EQ(sheet.Rec.Stripped, stripped);
        EXPECT_EQ(GetStrippedString(caption), stripped);
        auto index = indices;
        index.resize(std::size_t(CharacterCount(caption)) + 1);
        EXPECT_TRUE(std::ranges::equal(sheet.Rec.CharIndex, index));
        EXPECT_EQ(sheet.Rec.Width, 6 * int(indices.size()));
    }
    for (const char* text : {"a b", "\\", "\\ x", "\\  \\b\\\\ ", "C:\\sub dir\\x", "\xC3\xA4\\ \xC3\xA4"})
        EXPECT_EQ(Shown(EscapeCaption(text)), text) << "plain text shows literally";
}

/// A screen whose letters are 6.5 pixels wide by design and 6 as shown.
struct TFineScreen : TScreenText {
    TFineScreen() { SetScreenText(this); }
    ~TFineScreen() { SetScreenText(&TApplication::Instance().GetHost()); }
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override {
        return FixedTextSize(Face, Text);
    }
    double ExactTextWidth(const TFontFace&, std::string_view Text) const override {
        return 6.5 * CharacterCount(Text);
    }
};

TEST(Captions, OnSmoothDevicesRunsFollowEachOtherAndTheAnchorStays) {
    const TFineScreen screen;
    const struct {
        double Along;
        int Angle;
        TRealPoint First, Second; // of eight letters two, then six
    } cases[] = {{0, 0, {100.25, 200}, {113.25, 200}},
                 {0.5, 0, {98.25, 200}, {111.25, 200}},
                 {1, 0, {96.25, 200}, {109.25, 200}},
                 {1, 900, {100.25, 204}, {100.25, 191}}};
    for (const auto& c : cases) {
        TSheet sheet("ab\\b cdefgh");
        sheet.Device = TRecorder({400, 400}, 96, false, true);
        sheet.Rec.Angle = c.Angle;
        sheet.Rec.Anchor = {c.Along, {0.25, 0}};
        const auto texts = sheet.Run();
        ASSERT_EQ(texts.size(), 2u);
        EXPECT_EQ(texts[0].Text + "|" + texts[1].Text, "ab|cdefgh");
        EXPECT_EQ(texts[0].Exact.value_or(texts[0].Pos), c.First);
        EXPECT_EQ(texts[1].Exact.value_or(texts[1].Pos), c.Second);
        EXPECT_EQ(sheet.Rec.Width, 48);
        EXPECT_EQ(sheet.Rec.CharPos[7], 48);
    }
}

TEST(Captions, EdgesAndLevelsAreThoseThatArePainted) {
    TSheet sheet("ab\\+2\\+\\bcd", false);
    sheet.Run();
    const TKxParsedCaption caption = ParseCaption(sheet.Rec.Text);
    const std::vector<double> whole = CaptionEdges(caption, sheet.Canvas, false);
    EXPECT_EQ(whole, std::vector<double>(sheet.Rec.CharPos.begin(), sheet.Rec.CharPos.begin() + 5));
    // Letters of one run stand half a pixel closer.
    struct TKernedScreen : TFineScreen {
        double ExactTextWidth(const TFontFace& Face, std::string_view Text) const override {
            return TFineScreen::ExactTextWidth(Face, Text) - 0.5 * (CharacterCount(Text) - 1);
        }
    };
    const TKernedScreen screen;
    EXPECT_EQ(CaptionEdges(caption, sheet.Canvas, true), (std::vector{6.25, 12.5, 19.0, 25.25, 31.5}));
    EXPECT_EQ(ExactCaptionWidth(caption, sheet.Canvas), 31.5);
    sheet.Canvas.Font.SetSize(12);
    const auto level = [&](const TKxCaptionLooks& Looks) {
        const TKxCaptionLevel found = CaptionLevel(Looks, sheet.Canvas);
        return std::pair(found.Top, found.Height);
    };
    EXPECT_EQ(level({}), std::pair(0, 16));
    EXPECT_EQ(level({.Superscript = true, .Small = true}), std::pair(-2, 11));
    EXPECT_EQ(level({.Subscript = true, .Small = true}), std::pair(6, 11));
}

TEST(Captions, EveryEscapeTogglesItsOwnLookAndTheFontComesBack) {
    const unsigned all = fsItalic | fsUnderline | fsStrikeOut;
    const struct {
        unsigned Style;
        int Top, Height;
        const char* Text;
    } cases[] = {{0, 200, -16, "a"},     {fsItalic, 206, -11, "b"},   {fsItalic | fsUnderline, 200, -16, "c"},
                 {all, 198, -11, "d"},   {all, 204, -11, "\xCE\xB5"}, // epsilon
                 {fsBold, 206, -16, "f"}};                            // 12 points: up 2, down 6
    TSheet sheet("\\ba\\i\\-b\\u\\-c\\o\\+d\\s\\-e\\b\\i\\u\\o\\s\\+f");
    sheet.Canvas.Font.SetBold(true);
    sheet.Canvas.Font.SetSize(12);
    const auto texts = sheet.Run();
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(texts.at(i).Text, cases[i].Text);
        EXPECT_EQ(texts[i].Face.Style, cases[i].Style) << i;
        EXPECT_EQ(texts[i].Face.Height, cases[i].Height) << i;
        EXPECT_EQ(texts[i].Pos.Y, cases[i].Top) << i;
    }
    EXPECT_EQ(std::pair(sheet.Canvas.Font.GetStyle(), sheet.Canvas.Font.GetSize()),
              std::pair(unsigned(fsBold), 12));
}

TEST(Captions, SwitchesAreMarkedWhereTheyStand) {
    TSheet sheet("a\\b\\b\\s\\sb\\ic\\i\\+", false);
    sheet.Run();
    const auto start = [](const auto& Array) { return std::vector<int>(Array.begin(), Array.begin() + 4); };
    EXPECT_EQ(start(sheet.Rec.SymbolFontAt), (std::vector{0, 1, 0, 0}));
    EXPECT_EQ(start(sheet.Rec.ItalicAt), (std::vector{0, 0, 1, 1}));
    EXPECT_EQ(start(sheet.Rec.CharPos), (std::vector{6, 12, 18, 0}));
}

TEST(Captions, TextRunsInTheDirectionOfTheAngle) {
    const struct {
        int Angle;
        TPoint Second, Raised;
    } cases[] = {
        {0, {106, 200}, {112, 199}},    {-2700, {100, 194}, {99, 188}}, {1800, {94, 200}, {88, 201}},
        {2700, {100, 206}, {101, 212}}, {300, {105, 197}, {110, 193}},
    };
    for (const auto& c : cases) {
        TSheet sheet("ab\\+c");
        sheet.Rec.Angle = c.Angle;
        const auto texts = sheet.Run();
        EXPECT_EQ(texts.at(0).Pos, (TPoint{100, 200})) << c.Angle;
        EXPECT_EQ(texts.at(1).Pos, c.Second) << c.Angle;
        EXPECT_EQ(texts.at(2).Pos, c.Raised) << c.Angle;
        EXPECT_EQ(texts.at(1).Face.Angle, c.Angle);
        EXPECT_EQ(sheet.Rec.CharPos[1], 12) << "positions are unrotated";
    }
}

TEST(Captions, TheSymbolSheetIsDrawnAsRecorded) {
    TRecorder device(scenes::CSymbolSheetSize);
    TCanvas canvas(&device);
    scenes::PaintSymbolSheet(canvas);
    ExpectRecording("symbolsheet", device.Recording.ToText());
}

} // namespace kx::test::caption
