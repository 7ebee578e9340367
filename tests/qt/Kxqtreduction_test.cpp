#include "raster.h"

#include <kxgraph/platform/drawing/reduction.h>

namespace kx::test::qtreduction {

constexpr TSize CSize{1200, 800};

/// From a place X, a random number and the point before to the next point.
using TShape = TPoint (*)(int X, unsigned Random, TPoint Before);
TPoint Noise(int X, unsigned Random, TPoint) { return {X, int(Random % 800)}; }
TPoint Walk(int X, unsigned Random, TPoint Before) { return {X, Before.Y + int(Random % 5) - 2}; }
TPoint Spikes(int X, unsigned Random, TPoint) {
    return {X, Random % 97 == 0 ? int(Random % 8000) - 4000 : 400};
}
TPoint ToAndFro(int X, unsigned Random, TPoint) {
    return {std::abs(X % 100 - 50) * 20, int(Random % 1000) - 99};
}
TPoint OffScreen(int X, unsigned Random, TPoint) {
    const int far = Random % 50 == 0 ? 1000000 : 1;
    return {X * 2 - 600 + far, (int(Random % 1400) - 300) * far};
}
const TShape CShapes[] = {Noise, Walk, Spikes, ToAndFro, OffScreen};

TPoints LineOf(TShape Shape, int Count) {
    std::mt19937 random(11);
    TPoints points{{0, 400}};
    for (int i = 1; i < Count; ++i)
        points.push_back(
            Shape(int(std::int64_t(i) * CSize.Width / Count), unsigned(random()), points.back()));
    return points;
}

/// The line drawn in runs of 2000 points, each beginning at the last point of the one before.
QImage Drawn(const TPoints& Line, int Width, const TRasterOptions& Options) {
    return Painted(Options, [&](auto& Device) {
        constexpr std::size_t run = 2000;
        for (std::size_t begin = 0; begin + 1 < Line.size(); begin += run - 1)
            Device.Polyline(std::span(Line).subspan(begin, std::min(run, Line.size() - begin)),
                            {clNavy, Width, psSolid, pmCopy});
    });
}

void ExpectSamePicture(const TPoints& Line, int Width, TRasterOptions Options) {
    Options.Reduction = true;
    const QImage reduced = Drawn(Line, Width, Options);
    Options.Reduction = false;
    EXPECT_EQ(reduced, Drawn(Line, Width, Options))
        << "from " << Line[1].X << ',' << Line[1].Y << " width " << Width << " scale " << Options.Scale;
    EXPECT_GT(PixelsOf(reduced).size(), 400u);
}

TEST(QtReduction, ChangesNoPixelOfALine) {
    for (const TShape shape : CShapes) {
        ExpectSamePicture(LineOf(shape, 200000), 0, {CSize});
        ExpectSamePicture(LineOf(shape, 20000), 3, {CSize});
        ExpectSamePicture(LineOf(shape, 5000), 1, {CSize, 2});
        ExpectSamePicture(LineOf(shape, 20000), 0, {CSize, 1.5});
    }
    TPoints repeated; // ends where it has been before
    for (int i = 0; i < 1000; ++i) repeated.push_back({5, i == 500 || i == 999 ? 700 : i % 600});
    ExpectSamePicture(repeated, 0, {CSize});
    ExpectSamePicture(LineOf(Noise, 1000000), 1, {CSize, 1, true});
}

TEST(QtReduction, ChangesNoPixelOfALargeArea) {
    for (const TShape shape : CShapes) {
        if (shape == OffScreen) continue; // too far for the painter
        TPoints area = LineOf(shape, 2000);
        area.push_back({1199, 400});
        area.push_back({0, 400});
        QImage expected(CSize.Width, CSize.Height, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.translate(0.5 - 1.0 / 64, 0.5 - 1.0 / 64);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::red);
        QPolygonF polygon;
        for (const TPoint p : area) polygon << QPointF(p.X, p.Y);
        painter.drawPolygon(polygon);
        painter.end();
        EXPECT_EQ(Painted({CSize}, [&](auto& D) { D.Polygon(area, CNoStroke, CRed); }), expected);
    }
}

} // namespace kx::test::qtreduction
