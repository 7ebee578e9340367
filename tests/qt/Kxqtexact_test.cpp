// Where points and ticks stand on smooth devices, against the maps of the axes.

#include "raster.h"

#include "support/graphfixture.h"

#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <QByteArray>
#include <QTransform>

namespace kx::test::qtexact {

using TPlaces = std::vector<TRealPoint>;
using TPaths = std::vector<TPlaces>; // in edges: 0.5 is the middle of pixel 0

TPlaces PathOf(const std::string& Data) {
    TPlaces path;
    TRealPoint at, way;
    std::istringstream data(Data);
    for (char letter = 0; data >> letter;) {
        way = {};
        switch (letter) {
        case 'M': at = {}; [[fallthrough]];
        case 'l': data >> way.X >> way.Y; break;
        case 'h': data >> way.X; break;
        case 'v': data >> way.Y; break;
        default: continue;
        }
        at = at + way;
        path.push_back(at);
    }
    return path;
}

TPaths PathsOfSvg(const std::string& Document) {
    TPaths paths;
    for (auto at = Document.find("<path d=\""); at != std::string::npos;
         at = Document.find("<path d=\"", at + 1))
        paths.push_back(PathOf(Document.substr(at + 9, Document.find('"', at + 9) - at - 9)));
    return paths;
}

/// The page: points of 1/72 inch from its lower edge, or what its matrices make of them.
TPaths PathsOfPdf(const std::string& Pdf, double Height) {
    const auto begin = Pdf.find("stream\n") + 7, end = Pdf.find("endstream", begin);
    const QByteArray packed = QByteArray(4, '\x7F') + QByteArray(Pdf.data() + begin, qsizetype(end - begin));
    std::istringstream page(qUncompress(packed).toStdString());
    TPaths paths;
    QTransform matrix;
    std::vector<QTransform> saved;
    std::vector<double> numbers;
    for (std::string word; page >> word;) {
        char* behind;
        const double number = std::strtod(word.c_str(), &behind);
        if (*behind == 0) {
            numbers.push_back(number);
            continue;
        }
        const auto n = [&](std::size_t FromEnd) { return numbers.at(numbers.size() - FromEnd); };
        if (word == "q") saved.push_back(matrix);
        if (word == "Q") matrix = saved.back(), saved.pop_back();
        if (word == "cm") matrix = QTransform(n(6), n(5), n(4), n(3), n(2), n(1)) * matrix;
        if (word == "m") paths.emplace_back();
        if (word == "m" || word == "l") {
            const QPointF at = matrix.map(QPointF(n(2), n(1)));
            paths.back().push_back({at.x() / 0.75, Height - at.y() / 0.75});
        }
        numbers.clear();
    }
    return paths;
}

double Nearest(const TPaths& Paths, TRealPoint To) {
    double nearest = 1e9;
    for (const auto& path : Paths)
        for (const TRealPoint p : path) nearest = std::min(nearest, std::hypot(p.X - To.X, p.Y - To.Y));
    return nearest;
}

TEST(QtExact, PointsAndTicksStandWhereTheirValuesAre) {
    TGraphForm f;
    auto* series = f.AddSeries<TKxDataSeries>();
    series->GetPointStyle().SetStyle(SyX);
    f.Fill({{0, 0}, {1, 3.3}, {2.7, -1}, {3.1, 2}, {5.9, 7.7}, {7, 0.1}});
    f.Fix(0, 7, -2, 8);
    f.Draw();
    const TSize size = f.Form->GetBoundsRect().Size();
    const auto paint = [&](TCanvasDevice& Device) { PaintFrame(*f.Form, Device); };
    TSvgDevice svg(size);
    paint(svg);
    qt::Install(true);
    const TPaths bySvg = PathsOfSvg(svg.Document()),
                 byPdf = PathsOfPdf(qt::PdfBytes({size}, paint), size.Height);
    const TPoint world = f.World();
    for (const TPaths* paths : {&bySvg, &byPdf}) {
        for (int i = 0; i < f.XV->GetCount(); ++i) {
            const TRealPoint place{world.X + f.X->GetMap().RealToPlace(f.XV->GetValue(i)) + 0.5,
                                   world.Y + f.Y->GetMap().RealToPlace(f.YV->GetValue(i)) + 0.5};
            EXPECT_LT(Nearest(*paths, place), 0.02) << "point " << i;
            for (const int arm : {-5, 5}) // of the symbol
                EXPECT_LT(Nearest(*paths, place + TRealPoint{arm, arm}), 0.02) << "symbol " << i;
        }
        const double step = double(f.X->GetAxisLength()) / (f.X->GetTickCount() - 1), end = f.World().Y;
        for (int i = 0; i < f.X->GetTickCount(); ++i) {
            double off = 1e9;
            for (const auto& path : *paths)
                if (path.size() == 2 && std::abs(path[0].X - path[1].X) < 1e-9 && path[0].Y > end)
                    off = std::min(off, std::abs(path[0].X - (world.X + i * step + 0.5)));
            EXPECT_LT(off, 0.02) << "tick " << i;
        }
    }
}

TEST(QtExact, AMetafileShowsWhatPaintingShows) {
    TGraphForm f;
    auto* series = f.AddSeries();
    series->SetdYPlus(f.DY);
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) f.Fill({{i * 0.77, double(random() % 1000)}});
    for (int i = 0; i < 90; ++i) f.DY->Add(i % 60);
    f.Graph->PaintToMetafile();
    const TSize size = f.Graph->GetBoundsRect().Size();
    for (const TRasterOptions& options :
         {TRasterOptions{size}, TRasterOptions{size, 1, true}, TRasterOptions{size, 2}})
        EXPECT_EQ(Painted(options, [&](auto& D) { f.Graph->GetMetafile().Draw(D); }),
                  Painted(options, [&](auto& D) { f.Graph->PaintTo(D); }))
            << options.Scale << options.Antialias;
}

/// Darkness by oversampling: the share of parts of each pixel that lie near the line.
double DarknessAt(TPoint Pixel, const TPlaces& Line, double Radius) {
    constexpr int CParts = 16;
    int dark = 0;
    for (int i = 0; i < CParts * CParts; ++i) {
        const TRealPoint p{Pixel.X + (i % CParts + 0.5) / CParts - 0.5,
                           Pixel.Y + (i / CParts + 0.5) / CParts - 0.5};
        for (std::size_t k = 1; k < Line.size(); ++k) {
            const TRealPoint way = Line[k] - Line[k - 1], to = p - Line[k - 1];
            const double square = way.X * way.X + way.Y * way.Y;
            const double t = square > 0 ? std::clamp((to.X * way.X + to.Y * way.Y) / square, 0.0, 1.0) : 0;
            if (std::hypot(to.X - t * way.X, to.Y - t * way.Y) > Radius) continue;
            ++dark;
            break;
        }
    }
    return double(dark) / (CParts * CParts);
}

TEST(QtExact, AnAntialiasedLineCoversWhatARoundPenCovers) {
    std::mt19937 random(2);
    const auto any = [&](double Low, double High) {
        return std::uniform_real_distribution(Low, High)(random);
    };
    struct TCase {
        double Low, High, Off; // of steps along x, and what is allowed
    };
    for (const auto& [low, high, off] : {TCase{0, 0, 0.07},
                                         {0, 0.05, 0.07},
                                         {0, 0.7, 0.07},
                                         {0, 9, 0.07},
                                         {-0.4, 0, 0.07}, // one way
                                         {-0.3, 0.3, 0.15},
                                         {-5, 5.5, 0.15},
                                         {-30, 34, 0.15}})
        for (const int width : {1, off < 0.1 ? 4 : 2}) {
            TPlaces line{{20, 20}};
            while (line.size() < 100) line.push_back({line.back().X + any(low, high), any(5, 35)});
            const QImage image = Painted({{40, 40}, 1, true}, [&](auto& D) {
                D.Polyline(line, {clBlack, width});
            });
            double sum = 0;
            for (int y = 0; y < 40; ++y)
                for (int x = 0; x < 40; ++x) {
                    const double is = 1 - qRed(image.pixel(x, y)) / 255.0;
                    const double should = DarknessAt({x, y}, line, width / 2.0);
                    sum += is - should;
                    ASSERT_NEAR(is, should, off)
                        << x << ' ' << y << " steps " << low << " to " << high << " width " << width;
                }
            EXPECT_NEAR(sum / 1600, 0, 0.01) << "steps " << low << " to " << high << " width " << width;
        }
}

// Very many places are painted by pictures at sixteenths of a pixel: next to what the painter does for each.
TEST(QtExact, ManyPicturesStandWhereEachWouldStand) {
    std::mt19937 random(4);
    std::uniform_real_distribution<> across(-3, 63);
    TPlaces places(2500);
    for (TRealPoint& place : places) place = {across(random), across(random)};
    TRecorder disc({}), cross({});
    disc.Ellipse({-3, -3, 4, 4}, {clBlue, 1}, {clAqua});
    cross.Polyline(std::vector<TPoint>{{-4, -4}, {5, 5}}, {clRed, 1});
    cross.Polyline(std::vector<TPoint>{{-4, 4}, {5, -5}}, {clRed, 2});
    for (const TRecording* one : {&disc.Recording, &cross.Recording})
        for (const TRasterOptions& options :
             {TRasterOptions{{60, 60}, 1, true}, TRasterOptions{{60, 60}, 2.5, true}}) {
            const QImage together = Painted(options, [&](auto& D) {
                D.SetClip(TRect{0, 0, 50, 60});
                D.Stamps(places, *one);
            });
            const QImage each = Painted(options, [&](auto& D) {
                D.SetClip(TRect{0, 0, 50, 60});
                for (const TRealPoint place : places) one->Replay(D, place);
            });
            double sum = 0;
            for (int y = 0; y < each.height(); ++y)
                for (int x = 0; x < each.width(); ++x) {
                    const int off = std::abs(qRed(each.pixel(x, y)) - qRed(together.pixel(x, y)));
                    ASSERT_LE(off, 60) << x << ' ' << y; // where many rims lie upon one another
                    sum += off;
                }
            EXPECT_LT(sum / (each.width() * each.height()), 4);
        }
}

} // namespace kx::test::qtexact
