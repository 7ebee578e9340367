// Redrawing a line of a million points that lie in the columns of one picture: what reduction saves.

#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace kx {
namespace {

constexpr TSize CSize{1200, 800};
constexpr std::size_t CPoints = 1000000, CRun = 2000;

enum TShape { Noise, RandomWalk };

std::vector<TPoint> LineOf(TShape Shape) {
    std::mt19937 random(1);
    std::normal_distribution<double> normal;
    std::vector<TPoint> points;
    double walk = 0;
    for (std::size_t i = 0; i < CPoints; ++i) {
        walk += normal(random);
        const double y = Shape == Noise ? 400 + 100 * normal(random) : 400 + walk * 0.3;
        points.push_back({int(i * CSize.Width / CPoints), RoundToInt(y)});
    }
    return points;
}

/// A redraw: the line in runs, each beginning at the last point of the one before.
void Redraw(benchmark::State& State) {
    qt::Install(true);
    const std::vector<TPoint> line = LineOf(TShape(State.range(0)));
    QImage image(CSize.Width, CSize.Height, QImage::Format_RGB32);
    QPainter painter(&image);
    qt::TPainterDevice device(painter, CSize);
    device.SetReduction(State.range(1) != 0);
    for (auto _ : State) {
        device.FillRect({0, 0, CSize.Width, CSize.Height}, {clWhite, bsSolid, pmCopy});
        for (std::size_t begin = 0; begin + 1 < line.size(); begin += CRun - 1)
            device.Polyline(std::span(line).subspan(begin, std::min(CRun, line.size() - begin)),
                            {clBlue, 0, psSolid, pmCopy});
    }
    State.SetItemsProcessed(State.iterations() * std::int64_t(CPoints));
}
BENCHMARK(Redraw)
    ->ArgNames({"walk", "reduced"})
    ->ArgsProduct({{Noise, RandomWalk}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

/// The same without the device: every point to the painter, under a rectangular clip or without one.
void RedrawByPainter(benchmark::State& State) {
    qt::Install(true);
    QList<QPoint> line;
    for (const TPoint p : LineOf(TShape(State.range(0)))) line.append({p.X, p.Y});
    QImage image(CSize.Width, CSize.Height, QImage::Format_RGB32);
    QPainter painter(&image);
    if (State.range(1) != 0) painter.setClipRect(image.rect());
    painter.setPen(QPen(Qt::blue, 0));
    for (auto _ : State) {
        painter.fillRect(image.rect(), Qt::white);
        for (std::size_t begin = 0; begin + 1 < CPoints; begin += CRun - 1)
            painter.drawPolyline(line.data() + begin, int(std::min(CRun, CPoints - begin)));
    }
    State.SetItemsProcessed(State.iterations() * std::int64_t(CPoints));
}
BENCHMARK(RedrawByPainter)
    ->ArgNames({"walk", "clipped"})
    ->ArgsProduct({{Noise, RandomWalk}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kx
