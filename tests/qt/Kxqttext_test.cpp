#include "raster.h"

#include <kxgraph/platform/host/headlesshost.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>

#include <QFontMetricsF>

#include <clocale>

namespace kx::test::qttext {

QImage Written(const std::string& Text, const TFontFace& Face = {"Arial"}, TPoint Pos = {60, 60},
               double Scale = 1) {
    return Painted({{120, 120}, Scale}, [&](auto& D) { D.Text(Pos, Face, clBlack, Text); });
}

TSize Measured(const TFontFace& Face, const std::string& Text) {
    return TApplication::Instance().GetHost().MeasureText(Face, Text);
}

TEST(QtText, NeedsTheHostAndSaysSo) {
    TApplication::Instance().SetHost(std::make_unique<THeadlessHost>());
    const std::string expected = "Painting with Qt needs its fonts: call kx::qt::Install() first";
    EXPECT_EQ(MessageOf([] { Written("A"); }), expected);
    EXPECT_EQ(MessageOf([] { qt::PngBytes({{9, 9}}, [](auto&) {}); }), expected);
    qt::Install(true);
    EXPECT_EQ(MessageOf([] { Written("A"); }), "");
}

TEST(QtText, TurnsItsCellAboutTheTopLeftAtAnyScale) {
    const auto [w, h] = Measured({"Arial"}, "HxHxHx");
    const struct {
        int Angle;
        TRect Cell;
    } cases[] = {{0, {60, 60, 60 + w, 60 + h}},
                 {900, {60, 60 - w, 60 + h, 60}},
                 {300, {60, 60 - w / 2, 60 + w * 87 / 100 + h / 2, 60 + h * 87 / 100}}};
    for (const auto& c : cases) {
        for (const int scale : {1, 2}) {
            const TRect ink =
                BoundsOf(Written("HxHxHx", {"Arial", -13, 0, fpDefault, c.Angle}, {60, 60}, scale));
            const TRect cell{c.Cell.Left * scale, c.Cell.Top * scale, c.Cell.Right * scale,
                             c.Cell.Bottom * scale};
            EXPECT_EQ(ink.United(cell), cell) << c.Angle << ' ' << scale;
            EXPECT_GE(std::max(ink.Width(), ink.Height()), std::max(cell.Width(), cell.Height()) - 7 * scale);
        }
    }
}

TEST(QtText, IsAsWideAsItsCharactersTogether) {
    const std::string text = "AVAT fi 0.12 W";
    for (const TFontFace& face : {TFontFace{"Arial"}, {"Times New Roman", -17, fsItalic}}) {
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
    EXPECT_EQ(Measured({"Arial", -13, fsUnderline, fpDefault, 900}, "A"), Measured({"Arial"}, "A"));
}

TEST(QtText, IsWhatThePainterWouldWrite) {
    const TFontFace face{"Times New Roman", -15, fsItalic};
    const TRealPoint place{7.3, 4.8};
    for (const char* text :
         {"-12.5E+3", "0.30 V", "fi AVAT, W", "e\xCC\x81t\xE4 \xCE\xB1 \xE2\x88\x9E", "\xE6\xBC\xA2 1"}) {
        for (const double scale : {1.0, 1.75}) {
            const auto drawn = [&](auto Draw) { return Painted({{150, 40}, scale, true}, Draw); };
            const QImage glyphs = drawn([&](auto& D) { D.Text(place, face, clBlack, text); });
            QImage written = drawn([](auto&) {});
            QPainter painter(&written);
            qt::TQtFont& font = qt::TQtFont::Of(face);
            painter.setFont(font.Exact().Font());
            painter.scale(scale, scale);
            painter.drawText(QPointF(place.X, place.Y + font.Ascent()), font.Shown(text));
            EXPECT_EQ(glyphs, written) << text << ' ' << scale;
        }
        EXPECT_DOUBLE_EQ(qt::TQtFont::Of(face).ExactWidth(text),
                         QFontMetricsF(qt::TQtFont::Of(face).Exact().Font())
                             .horizontalAdvance(qt::TQtFont::Of(face).Shown(text)))
            << text;
    }
}

TEST(QtText, ShowsGreekMarksAndForeignBytes) {
    std::vector<QImage> seen{Written("\xF3\xBF\xBF\xBD"), Written("")}; // the box of a missing glyph, nothing
    for (const char* text : {"\xCE\xB1", "\xCE\x94", "\xC2\xB7", "\xE2\x88\x9E", "\xE4", "e"}) {
        const QImage image = Written(text);
        for (const QImage& other : seen) EXPECT_NE(image, other) << text;
        seen.push_back(image);
    }
    EXPECT_EQ(Written("\xE4"), Written("\xC3\xA4"));
    EXPECT_EQ(BoundsOf(Written("e\xCC\x81")).Right, BoundsOf(Written("e")).Right);
}

TEST(QtText, ShowsFamiliesStylesAndWhatReachesIntoThePicture) {
    const QImage plain = Written("mmm");
    EXPECT_EQ(PixelsOf(Written("mmm", {"Arial", -13, fsUnderline})).size(),
              PixelsOf(plain).size() + std::size_t(Measured({"Arial"}, "mmm").Width));
    EXPECT_NE(Written("mmm", {"Times New Roman"}), plain);
    EXPECT_EQ(Written("mmm", {"No such font"}), plain);
    EXPECT_TRUE(PixelsOf(Written("far", {"Arial"}, {CMaxPixel, -CMaxPixel})).empty());
    EXPECT_FALSE(PixelsOf(Written("a rather long text", {"Arial"}, {-60, 60})).empty());
}

TEST(QtInstall, LeavesTheDecimalPointOfNumbers) { EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C"); }

} // namespace kx::test::qttext
