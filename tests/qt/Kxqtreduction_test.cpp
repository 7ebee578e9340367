#include "raster.h"

#include "platform/reduction.h"

#include <gtest/gtest.h>

#include <random>

namespace kx::test {
namespace {

using TPoints = std::vector<TPoint>;
using TLineShape = TPoint (*)(std::mt19937& Random, int Index, int Count, TPoint Before);

constexpr TSize CSize{1200, 800};

int Column(int Index, int Count) { return int(std::int64_t(Index) * CSize.Width / Count); }
int Uniform(std::mt19937& Random, int Low, int High) {
    return Low + int(Random() % unsigned(High - Low + 1));
}

struct TCase {
    const char* Name;
    TLineShape Shape;
    int Count = 200000;
};

const TCase CCases[] = {
    {"noise",
     [](std::mt19937& R, int I, int N, TPoint) {
         return TPoint{Column(I, N), Uniform(R, 0, 799)};
     }},
    {"random walk",
     [](std::mt19937& R, int I, int N, TPoint Before) {
         return TPoint{Column(I, N), std::clamp(Before.Y + Uniform(R, -2, 2), 100, 700)};
     }},
    {"spikes",
     [](std::mt19937& R, int I, int N, TPoint) {
         return TPoint{Column(I, N), R() % 97 == 0 ? Uniform(R, -4000, 4000) : 400};
     }},
    {"backwards",
     [](std::mt19937& R, int I, int N, TPoint) {
         return TPoint{1199 - Column(I, N), Uniform(R, 300, 500)};
     }},
    {"to and fro",
     [](std::mt19937& R, int I, int N, TPoint) {
         return TPoint{std::abs(Column(I, N) % 100 - 50) * 20, Uniform(R, -100, 900)};
     }},
    {"off the screen",
     [](std::mt19937& R, int I, int N, TPoint) {
         const TPoint far{Uniform(R, -CMaxPixel, CMaxPixel - 1), Uniform(R, -CMaxPixel, CMaxPixel - 1)};
         return R() % 50 == 0 ? far : TPoint{Column(I, N) * 2 - 600, Uniform(R, -300, 1100)};
     }},
    {"everywhere",
     [](std::mt19937& R, int, int, TPoint) {
         return TPoint{Uniform(R, -20, 1220), Uniform(R, -20, 820)};
     },
     10000},
};

TPoints LineOf(const TCase& Case, int Count) {
    std::mt19937 random(11);
    TPoints points{{0, 400}};
    for (int i = 1; i < Count; ++i) points.push_back(Case.Shape(random, i, Count, points.back()));
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
    for (const TCase& c : CCases) {
        SCOPED_TRACE(c.Name);
        ExpectSamePicture(LineOf(c, c.Count), 0, {CSize});
    }
    ExpectSamePicture(LineOf(CCases[0], 1000000), 1, {CSize, 1, true});
}

TEST(QtReduction, ChangesNoPixelOfAWideOrFinerLine) {
    for (const TCase& c : CCases) {
        SCOPED_TRACE(c.Name);
        ExpectSamePicture(LineOf(c, 5000), 3, {CSize});
        ExpectSamePicture(LineOf(c, 20000), 3, {CSize});
        ExpectSamePicture(LineOf(c, 5000), 1, {CSize, 2});
        ExpectSamePicture(LineOf(c, 20000), 0, {CSize, 1.5});
    }
}

TEST(QtReduction, ChangesNoPixelOfALargeArea) {
    for (const TCase& c : CCases) {
        SCOPED_TRACE(c.Name);
        TPoints area = LineOf(c, 2000);
        area.push_back({1199, 400});
        area.push_back({0, 400});
        for (const TStroke& stroke : {CNoStroke, CThin}) {
            const QImage whole = Painted({CSize}, [&](auto& D) { D.Polygon(area, stroke, CRed); });
            QImage expected(CSize.Width, CSize.Height, QImage::Format_RGB32);
            expected.fill(Qt::white);
            {
                QPainter painter(&expected);
                painter.translate(0.5 - 1.0 / 64, 0.5 - 1.0 / 64);
                painter.setPen(Qt::NoPen);
                painter.setBrush(Qt::red);
                QPolygonF polygon;
                for (const TPoint p : area)
                    polygon << QPointF(std::clamp(p.X, -9000, 9000), std::clamp(p.Y, -9000, 9000));
                painter.drawPolygon(polygon);
            }
            if (stroke.Style == psClear && std::string(c.Name) != "off the screen")
                EXPECT_EQ(whole, expected);
            else
                EXPECT_FALSE(PixelsOf(whole).empty());
        }
    }
}

} // namespace
} // namespace kx::test
