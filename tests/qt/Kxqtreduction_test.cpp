#include "raster.h"

#include "platform/reduction.h"

#include <gtest/gtest.h>

#include <random>

namespace kx::test {
namespace {

using TPoints = std::vector<TPoint>;
constexpr TSize CSize{1200, 800};

int Uniform(std::mt19937& Random, int Low, int High) {
    return Low + int(Random() % unsigned(High - Low + 1));
}

/// A place X and the point before to the next point.
using TShape = TPoint (*)(std::mt19937& Random, int X, TPoint Before);
const std::pair<const char*, TShape> CShapes[] = {
    {"noise",
     [](auto& R, int X, TPoint) {
         return TPoint{X, Uniform(R, 0, 799)};
     }},
    {"walk",
     [](auto& R, int X, TPoint P) {
         return TPoint{X, std::clamp(P.Y + Uniform(R, -2, 2), 100, 700)};
     }},
    {"spikes",
     [](auto& R, int X, TPoint) {
         return TPoint{X, R() % 97 == 0 ? Uniform(R, -4000, 4000) : 400};
     }},
    {"back",
     [](auto& R, int X, TPoint) {
         return TPoint{1199 - X, Uniform(R, 300, 500)};
     }},
    {"to and fro",
     [](auto& R, int X, TPoint) {
         return TPoint{std::abs(X % 100 - 50) * 20, Uniform(R, -99, 900)};
     }},
    {"off screen",
     [](auto& R, int X, TPoint) {
         const int far = R() % 50 == 0 ? 1000000 : 1;
         return TPoint{X * 2 - 600 + far, Uniform(R, -300, 1100) * far};
     }},
};

TPoints LineOf(TShape Shape, int Count) {
    std::mt19937 random(11);
    TPoints points{{0, 400}};
    for (int i = 1; i < Count; ++i)
        points.push_back(Shape(random, int(std::int64_t(i) * CSize.Width / Count), points.back()));
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
        << "width " << Width << " scale " << Options.Scale << " smooth " << Options.Antialias;
    EXPECT_GT(PixelsOf(reduced).size(), 400u);
}

TEST(QtReduction, ChangesNoPixelOfALongLine) {
    for (const auto& [name, shape] : CShapes) {
        SCOPED_TRACE(name);
        ExpectSamePicture(LineOf(shape, 200000), 0, {CSize});
    }
    TPoints repeated; // ends where it has been before
    for (int i = 0; i < 1000; ++i) repeated.push_back({5, i == 500 || i == 999 ? 700 : i % 600});
    ExpectSamePicture(repeated, 0, {CSize});
    ExpectSamePicture(LineOf(CShapes[0].second, 1000000), 1, {CSize, 1, true});
}

TEST(QtReduction, ChangesNoPixelOfAWideOrFinerLine) {
    for (const auto& [name, shape] : CShapes) {
        SCOPED_TRACE(name);
        ExpectSamePicture(LineOf(shape, 5000), 3, {CSize});
        ExpectSamePicture(LineOf(shape, 20000), 3, {CSize});
        ExpectSamePicture(LineOf(shape, 5000), 1, {CSize, 2});
        ExpectSamePicture(LineOf(shape, 20000), 0, {CSize, 1.5});
    }
}

TEST(QtReduction, ChangesNoPixelOfALargeArea) {
    for (const auto& [name, shape] : CShapes) {
        if (shape == std::end(CShapes)[-1].second) continue; // too far for the painter
        SCOPED_TRACE(name);
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

} // namespace
} // namespace kx::test
