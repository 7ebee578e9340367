#include "raster.h"

#include <kxgraph/qt/Kxqtraster.h>

#include <QPixmap>

namespace kx::test::qtraster {

class TScene {
public:
    explicit TScene(unsigned Seed) : FRandom(Seed) {}

    void DrawOn(TCanvasDevice& Device) {
        for (int i = 0; i < 40; ++i) {
            if (Below(6) == 0) Device.SetClip(Below(2) ? std::optional(Box()) : std::nullopt);
            const TStroke stroke = Stroke();
            const TFill fill = Fill();
            switch (Below(7)) {
            case 0: Device.Polyline(Points(2 + Below(5)), stroke); break;
            case 1: Device.Polyline(Points(Below(2) ? 2 : 700), {stroke.Color, 1}); break;
            case 2: Device.Polygon(Points(3 + Below(3)), stroke, fill); break;
            case 3: Device.Rectangle(Box(), stroke, fill); break;
            case 4: Device.FillRect(Box(), fill); break;
            case 5: Repeat(Device, stroke, fill); break;
            default: Device.Polygon(Corners(Box()), stroke, fill);
            }
        }
    }

private:
    int Below(int Most) { return int(FRandom() % unsigned(Most)); }
    TPoint Place() { return {Below(90) - 20, Below(80) - 20}; }
    TPoints Points(int Count) {
        TPoints points;
        for (int i = 0; i < Count; ++i) points.push_back(Place());
        return points;
    }
    TRect Box() {
        const TPoint p = Place();
        return {p.X, p.Y, p.X + Below(30), p.Y + Below(30)};
    }
    static TPoints Corners(const TRect& R) {
        return {{R.Left, R.Top}, {R.Left, R.Bottom}, {R.Right, R.Bottom}, {R.Right, R.Top}};
    }
    TColor Color() { return TColor(FRandom() & 0xFFFFFF); }
    TPenMode Mode() { return Below(3) ? pmCopy : pmXor; }
    /// Where the painter's dots end depends on the place: those of thin lines alone are ours.
    TStroke Stroke() {
        const int style = Below(3);
        return {Color(), style == 1 ? 0 : Below(3), std::array{psSolid, psDot, psClear}[std::size_t(style)],
                Mode()};
    }
    TFill Fill() { return {Color(), std::array{bsSolid, bsClear, bsCross}[Below(3)], Mode()}; }
    /// One shape at several places, as symbols are drawn. (Dots of a painter's ellipse change with the
    /// place.)
    void Repeat(TCanvasDevice& Device, TStroke Stroke, const TFill& Fill) {
        const bool ellipse = Below(2);
        if (ellipse && Stroke.Style == psDot) Stroke.Style = psSolid;
        const TPoints shape = Points(3 + Below(3));
        const TSize size{1 + Below(20), 1 + Below(20)};
        for (const TPoint p : Points(4)) {
            TPoints there = shape;
            for (TPoint& corner : there) corner = corner + p;
            if (ellipse)
                Device.Ellipse(TRect::Bounds(p.X, p.Y, size.Width, size.Height), Stroke, Fill);
            else
                Device.Polygon(there, Stroke, Fill);
        }
    }
    std::mt19937 FRandom;
};

/// Noise with the scene on it; painted by a painter that is moved to there from Origin, or stands there.
QImage Drawn(unsigned Seed, QImage::Format Format, double Scale, QPoint Origin) {
    constexpr TSize size{53, 41};
    const QRect part(Origin, QSize(int(size.Width * Scale), int(size.Height * Scale)));
    QImage image(part.right() + 1, part.bottom() + 1, QImage::Format_ARGB32);
    std::mt19937 noise(Seed);
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) image.setPixel(x, y, unsigned(noise()));
    image = image.convertToFormat(Format);
    {
        QPainter painter(&image);
        painter.translate(Origin);
        qt::TPainterDevice device(painter, size, Scale);
        TScene(Seed).DrawOn(device);
    }
    return image.copy(part);
}

TEST(QtRasterAccess, WritesThePixelsThatThePainterPaints) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        const auto format = std::array{QImage::Format_RGB32, QImage::Format_ARGB32,
                                       QImage::Format_ARGB32_Premultiplied}[seed % 3];
        const double scale = std::array{1.0, 1.0, 1.25, 1.4, 0.7}[seed % 5];
        ASSERT_EQ(Drawn(seed, format, scale, {}), Drawn(seed, format, scale, {3, 2})) << seed;
    }
}

TEST(QtRasterAccess, IsForAPainterThatStandsDirectlyOnAnImageOf32Bits) {
    const TRect whole{0, 0, 20, 10};
    const struct {
        const char* Case;
        bool Copies, Inverts;
        QImage::Format Format = QImage::Format_RGB32;
        std::function<void(QPainter&)> Change = [](QPainter&) {};
        TRect Window = {2, 2, 20, 10};
    } cases[] = {
        {"opaque", true, true},
        {"premultiplied", true, true, QImage::Format_ARGB32_Premultiplied},
        {"translucent", true, false, QImage::Format_ARGB32},
        {"16 bits", false, false, QImage::Format_RGB16},
        {"other order", false, false, QImage::Format_RGBA8888},
        {"moved", false, false, QImage::Format_RGB32, [](QPainter& P) { P.translate(1, 0); }},
        {"scaled view", false, false, QImage::Format_RGB32, [](QPainter& P) { P.setWindow(0, 0, 9, 9); }},
        {"faint", false, false, QImage::Format_RGB32, [](QPainter& P) { P.setOpacity(0.5); }},
        {"beyond", false, false, QImage::Format_RGB32, [](QPainter&) {}, {0, 0, 21, 10}}};
    for (const auto& c : cases) {
        QImage image(whole.Width(), whole.Height(), c.Format);
        QPainter painter(&image);
        c.Change(painter);
        const qt::TRasterAccess access(painter);
        EXPECT_EQ(bool(access.Pixels(c.Window, pmCopy)), c.Copies) << c.Case;
        EXPECT_EQ(bool(access.Pixels(c.Window, pmXor)), c.Inverts) << c.Case;
    }
    QPixmap pixmap(20, 10);
    QPainter painter(&pixmap);
    EXPECT_FALSE(qt::TRasterAccess(painter).Pixels(whole, pmCopy)) << "another kind of device";
}

} // namespace kx::test::qtraster
