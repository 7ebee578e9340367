#include "raster.h"

#include "platform/application.h"

#include <gtest/gtest.h>

#include <clocale>

namespace kx::test {
namespace {

QImage Written(const std::string& Text, int Angle, TPoint Pos = {60, 60}, double Scale = 1,
               TFontFace Face = {"Arial"}) {
    Face.Angle = Angle;
    return Painted({{120, 120}, Scale}, [&](auto& D) { D.Text(Pos, Face, clBlack, Text); });
}

TSize Measured(const TFontFace& Face, const std::string& Text) {
    return TApplication::Instance().GetHost().MeasureText(Face, Text);
}

TEST(QtText, CellTurnsAboutItsTopLeftAtAnyScale) {
    const auto [w, h] = Measured({"Arial"}, "HxHxHx");
    const struct {
        int Angle;
        TRect Cell;
    } cases[] = {{0, {60, 60, 60 + w, 60 + h}},
                 {900, {60, 60 - w, 60 + h, 60}},
                 {1800, {60 - w, 60 - h, 60, 60}},
                 {300, {60, 60 - w / 2, 60 + w * 87 / 100 + h / 2, 60 + h * 87 / 100}}};
    for (const auto& c : cases) {
        for (const int scale : {1, 2}) {
            const TRect ink = BoundsOf(Written("HxHxHx", c.Angle, {60, 60}, scale));
            const TRect cell{c.Cell.Left * scale, c.Cell.Top * scale, c.Cell.Right * scale,
                             c.Cell.Bottom * scale};
            EXPECT_EQ(ink.United(cell), cell) << c.Angle << ' ' << scale;
            EXPECT_GE(std::max(ink.Width(), ink.Height()), std::max(cell.Width(), cell.Height()) - 7 * scale);
        }
    }
}

TEST(QtText, IsAsWideAsItsCharactersTogether) {
    const std::string text = "AVAT fi 0.12 W";
    for (const TFontFace& face :
         {TFontFace{"Arial"}, {"Times New Roman", -17, fsItalic}, {"Courier New", 20, fsBold}}) {
        const auto drawn = [&](std::size_t PieceLength) {
            return Painted({{300, 40}}, [&](auto& D) {
                int x = 5;
                for (std::size_t i = 0; i < text.size(); i += PieceLength) {
                    D.Text({x, 5}, face, clBlack, text.substr(i, PieceLength));
                    x += Measured(face, text.substr(i, PieceLength)).Width;
                }
            });
        };
        EXPECT_EQ(drawn(100), drawn(1));
        EXPECT_NEAR(BoundsOf(drawn(100)).Right, 5 + Measured(face, text).Width, 3);
    }
    EXPECT_NEAR(Measured({"Courier New", 20}, "A").Height, 19, 1); // whole pixels of the em square
    EXPECT_EQ(Measured({"Courier New"}, "i").Width, Measured({"Courier New"}, "W").Width);
    EXPECT_EQ(Measured({"Arial", -13, fsUnderline, fpDefault, 900}, "A"), Measured({"Arial"}, "A"));
}

TEST(QtText, ShowsGreekMarksAndForeignBytes) {
    const QImage box = Written("\xF3\xBF\xBF\xBD", 0);
    std::vector<QImage> seen{box};
    for (const char* text :
         {"\xCE\xB1", "\xCE\x94", "\xCF\x80", "\xC2\xB7", "\xC2\xB5", "\xE2\x88\x9E", "\xE4", "e"}) {
        const QImage image = Written(text, 0);
        EXPECT_FALSE(PixelsOf(image).empty());
        for (const QImage& other : seen) EXPECT_NE(image, other) << text;
        seen.push_back(image);
    }
    EXPECT_EQ(Written("\xE4", 0), Written("\xC3\xA4", 0));
    EXPECT_EQ(BoundsOf(Written("e\xCC\x81", 0)).Right, BoundsOf(Written("e", 0)).Right);
    EXPECT_LT(BoundsOf(Written("e\xCC\x81", 0)).Top, BoundsOf(Written("e", 0)).Top);
}

TEST(QtText, StylesAndFamiliesShow) {
    const QImage plain = Written("mmm", 0);
    const auto styled = [](TFontFace Face) { return Written("mmm", 0, {60, 60}, 1, Face); };
    const std::size_t ink = PixelsOf(plain).size();
    EXPECT_GT(PixelsOf(styled({"Arial", -13, fsBold})).size(), ink);
    EXPECT_EQ(PixelsOf(styled({"Arial", -13, fsUnderline})).size(),
              ink + std::size_t(Measured({"Arial"}, "mmm").Width));
    EXPECT_GT(PixelsOf(styled({"Arial", -13, fsStrikeOut})).size(), ink);
    EXPECT_NE(styled({"Arial", -13, fsItalic}), plain);
    EXPECT_NE(styled({"Times New Roman"}), plain);
    EXPECT_EQ(styled({"No such font"}), plain);
}

TEST(QtText, IsSeenWhereItReachesIntoThePicture) {
    EXPECT_TRUE(PixelsOf(Written("far", 0, {CMaxPixel, -CMaxPixel})).empty());
    EXPECT_FALSE(PixelsOf(Written("a rather long text", 0, {-60, 60})).empty());
    EXPECT_FALSE(PixelsOf(Written("a rather long text", 900, {60, 180})).empty());
}

TEST(QtInstall, LeavesTheDecimalPointOfNumbers) { EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C"); }

} // namespace
} // namespace kx::test
