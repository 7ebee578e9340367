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

TEST(QtText, CellTurnsAboutItsTopLeft) {
    const TSize cell = TApplication::Instance().GetHost().MeasureText({"Arial"}, "HxH");
    const int w = cell.Width, h = cell.Height;
    const struct {
        int Angle;
        TRect Cell;
    } cases[] = {{0, {60, 60, 60 + w, 60 + h}},
                 {900, {60, 60 - w, 60 + h, 60}},
                 {1800, {60 - w, 60 - h, 60, 60}},
                 {2700, {60 - h, 60, 60, 60 + w}}};
    for (const auto& c : cases) {
        const TRect ink = BoundsOf(Written("HxH", c.Angle));
        EXPECT_EQ(ink.United(c.Cell), c.Cell) << c.Angle;
        EXPECT_GE(std::max(ink.Width(), ink.Height()), w - 4) << c.Angle;
    }
    const TRect slanted = BoundsOf(Written("HxHxHx", 300));
    const double length = TApplication::Instance().GetHost().MeasureText({"Arial"}, "HxHxHx").Width;
    EXPECT_NEAR(slanted.Top, 60 - length / 2, 5);
    EXPECT_NEAR(slanted.Right, 60 + length * 0.866 + h / 2.0, 6);
    EXPECT_NEAR(slanted.Bottom, 60 + h * 0.866, 6);
}

TEST(QtText, IsAsWideAsItsCharactersTogether) {
    const THost& host = TApplication::Instance().GetHost();
    const std::string text = "AVAT fi 0.12 W\xC3\xA4\xCE\xB1";
    for (const TFontFace& face : {TFontFace{"Arial"}, TFontFace{"Times New Roman", -17, fsItalic},
                                  TFontFace{"Courier New", 20, fsBold}}) {
        int sum = 0;
        for (const char* c :
             {"A", "V", "A", "T", " ", "f", "i", " ", "0", ".", "1", "2", " ", "W", "\xC3\xA4", "\xCE\xB1"})
            sum += host.MeasureText(face, c).Width;
        EXPECT_EQ(host.MeasureText(face, text).Width, sum);
        const QImage whole = Painted({{300, 40}}, [&](auto& D) { D.Text({5, 5}, face, clBlack, text); });
        const QImage pieces = Painted({{300, 40}}, [&](auto& D) {
            D.Text({5, 5}, face, clBlack, text.substr(0, 6));
            D.Text({5 + host.MeasureText(face, text.substr(0, 6)).Width, 5}, face, clBlack, text.substr(6));
        });
        EXPECT_EQ(whole, pieces);
        EXPECT_NEAR(BoundsOf(whole).Right, 5 + sum, 3);
    }
    EXPECT_NEAR(host.MeasureText({"Courier New", 20}, "A").Height, 19, 1); // whole pixels of the em square
    EXPECT_EQ(host.MeasureText({"Courier New"}, "i").Width, host.MeasureText({"Courier New"}, "W").Width);
    EXPECT_EQ(host.MeasureText({"Arial"}, "A").Height,
              host.MeasureText({"Arial", -13, fsUnderline, fpDefault, 900}, "").Height);
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

TEST(QtText, StylesShow) {
    const auto ink = [](TFontStyles Style) {
        return PixelsOf(Written("mmm", 0, {60, 60}, 1, {"Arial", -13, Style})).size();
    };
    const int width = TApplication::Instance().GetHost().MeasureText({"Arial"}, "mmm").Width;
    EXPECT_GT(ink(fsBold), ink(0));
    EXPECT_NE(Written("mmm", 0, {60, 60}, 1, {"Arial", -13, fsItalic}), Written("mmm", 0));
    EXPECT_EQ(ink(fsUnderline), ink(0) + std::size_t(width));
    EXPECT_GT(ink(fsStrikeOut), ink(0));
    EXPECT_NE(Written("mmm", 0, {60, 60}, 1, {"Times New Roman"}), Written("mmm", 0));
    EXPECT_EQ(Written("mmm", 0, {60, 60}, 1, {"No such font"}), Written("mmm", 0));
}

TEST(QtText, KeepsItsPlaceAtOtherScales) {
    for (const int angle : {0, 900, 300}) {
        const TRect one = BoundsOf(Written("Temp [K]", angle, {50, 70})),
                    two = BoundsOf(Written("Temp [K]", angle, {50, 70}, 2));
        EXPECT_NEAR(two.Left, one.Left * 2, 3) << angle;
        EXPECT_NEAR(two.Top, one.Top * 2, 3) << angle;
        EXPECT_NEAR(two.Right, one.Right * 2, 3) << angle;
        EXPECT_NEAR(two.Bottom, one.Bottom * 2, 3) << angle;
    }
}

TEST(QtText, FarOutsideIsNotSeenAndJustOutsideIs) {
    EXPECT_TRUE(PixelsOf(Written("far", 0, {CMaxPixel, -CMaxPixel})).empty());
    EXPECT_FALSE(PixelsOf(Written("a rather long text", 0, {-60, 60})).empty());
    EXPECT_FALSE(PixelsOf(Written("a rather long text", 900, {60, 180})).empty());
}

TEST(QtInstall, LeavesTheDecimalPointOfNumbers) { EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C"); }

} // namespace
} // namespace kx::test
