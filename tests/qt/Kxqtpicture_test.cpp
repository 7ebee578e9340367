#include <kxgraph/qt/Kxqtpicture.h>

#include "support/testing.h"

#include <QImage>

namespace kx::test::qtpicture {

using qt::TPictureOptions;

void Scene(TCanvasDevice& Device) {
    Device.FillRect({0, 0, 10, 10}, {clRed, bsSolid, pmCopy});
    Device.Text({20, 20}, {"Arial"}, clBlack, "Label \xCE\xB1");
    Device.Polyline(std::vector<TPoint>{{0, 0}, {90, 50}}, {clBlue, 1, psDash, pmCopy});
}

QImage Decoded(const std::string& Png) {
    return QImage::fromData(reinterpret_cast<const uchar*>(Png.data()), int(Png.size()), "PNG");
}

TEST(QtPicture, HasItsSizeGroundAndTitleAsPng) {
    const TPictureOptions options{{100, 60}, 2, false, clAqua, "A title"};
    const QImage image = Decoded(qt::PngBytes(options, Scene));
    EXPECT_EQ(std::tuple(image.size(), image.pixelColor(199, 119), image.pixelColor(19, 1)),
              std::tuple(QSize(200, 120), QColor(Qt::cyan), QColor(Qt::red)));
    EXPECT_EQ(image.text("Title"), "A title");
    EXPECT_NEAR(image.dotsPerMeterX(), 2 * 96 / 0.0254, 1);
}

TEST(QtPicture, WithoutAGroundShowsWhatLiesBehindIt) {
    for (const bool many : {false, true}) {
        const QImage image =
            Decoded(qt::PngBytes({{100, 60}, 2.5, true, {}, "", 100.3, 60.5}, [=](auto& Device) {
                Device.FillRect({0, 0, 10, 10}, {clRed, bsSolid, pmCopy});
                for (int i = 0; many && i < 300; ++i)
                    Device.FillRect(TRect::Bounds(i % 60, 20 + i / 60, 1, 1), {TColor(i * 5003)});
            }));
        EXPECT_EQ(std::tuple(image.size(), image.pixelColor(3, 3), image.pixelColor(200, 100).alpha()),
                  std::tuple(QSize(251, 151), QColor(Qt::red), 0));
    }
}

TEST(QtPicture, OfFewColorsHasAPaletteAndOfManyEveryColorAsPng) {
    for (const int colors : {1, 255, 256, 257, 3000}) {
        const QImage image = Decoded(qt::PngBytes({{60, 50}}, [colors](auto& Device) {
            for (int i = 0; i < 3000; ++i)
                Device.FillRect(TRect::Bounds(i % 60, i / 60, 1, 1), {TColor(i % colors * 5003)});
        }));
        EXPECT_EQ(image.depth() <= 8, colors <= 256) << colors;
        for (int i = 0; i < 3000; ++i) {
            const TColor c = TColor(i % colors * 5003);
            ASSERT_EQ(image.pixel(i % 60, i / 60), qRgb(RedOf(c), GreenOf(c), BlueOf(c)))
                << colors << ' ' << i;
        }
    }
}

TEST(QtPicture, IsOnePageOfItsSizeWithTextAndNoTimeAsPdf) {
    const std::string pdf = qt::PdfBytes({{400, 200}, 1, false, clWhite, "A title"}, [](auto& Device) {
        EXPECT_FALSE(Device.CanXor());
        Scene(Device);
    });
    EXPECT_TRUE(Holds(pdf, "/MediaBox [0 0 300"));
    EXPECT_TRUE(Holds(pdf, "/FontFile2"));
    EXPECT_FALSE(Holds(pdf, "CreationDate"));
}

TEST(QtPicture, NamesTheFileInAFailureAndLeavesItAsItWas) {
    const TTemporaryDirectory directory;
    const std::string file = directory / "p.png";
    qt::WritePng(file, {{100, 60}}, Scene);
    const std::string before = ReadFile(file);
    const struct {
        TSize Size;
        double Scale;
        const char* Reason;
    } cases[] = {{{0, 5}, 1, "a picture of 0 x 5 pixels is empty"},
                 {{30000, 10}, 2, "a picture of 60000 x 20 pixels is too large"},
                 {{32767, 32767}, 1e6, "a picture of 32767000000 x 32767000000 pixels is too large"}};
    for (const auto& c : cases) {
        const auto write = [&] { qt::WritePng(file, {c.Size, c.Scale}, Scene); };
        EXPECT_EQ(MessageOf<EFileError>(write), file + ": " + c.Reason);
    }
    EXPECT_THROW(qt::WritePdf(directory / "no/such.pdf", {{100, 60}}, Scene), EFileError);
    EXPECT_THROW(qt::WritePng(file, {{9, 9}}, [](auto&) { throw ERangeError("half way"); }), ERangeError);
    EXPECT_EQ(ReadFile(file), before);
}

} // namespace kx::test::qtpicture
