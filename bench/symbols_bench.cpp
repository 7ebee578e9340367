// A cloud of filled circles: one picture stamped at many places, against drawing each circle. Both draw on
// the same raster at the same places; the pictures are the same (tests/qt).

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <random>

using namespace kx;

namespace {

constexpr TSize CSize{1200, 800};

/// A settled graph with one series of symbols, normally distributed, and a raster to draw on.
struct TCloud {
    explicit TCloud(int Count) {
        qt::Install(true);
        Graph.SetParent(&Form);
        Graph.SetBounds(0, 0, CSize.Width, CSize.Height);
        XAxis.SetParent(&Graph);
        YAxis.SetParent(&Graph);
        Graph.SetPrimaryXAxis(&XAxis);
        Graph.SetPrimaryYAxis(&YAxis);
        std::mt19937 random(1);
        std::normal_distribution<double> normal;
        for (int i = 0; i < Count; ++i) {
            X.Add(normal(random));
            Y.Add(normal(random));
        }
        Series.SetXAxis(&XAxis);
        Series.SetYAxis(&YAxis);
        Series.SetXData(&X);
        Series.SetYData(&Y);
        Series.GetLineStyle().SetVisible(false);
        Series.GetPointStyle().SetStyle(SyCircleFilled);
        Graph.PaintTo(Device);
    }
    TForm Form{&TApplication::Instance()};
    TKx2DGraph Graph{&Form};
    TKxAxis XAxis{&Form}, YAxis{&Form};
    TKxLiveVector X{&Form}, Y{&Form};
    TKxDataSeries Series{&Form};
    QImage Image{CSize.Width, CSize.Height, QImage::Format_RGB32};
    QPainter Painter{&Image};
    qt::TPainterDevice Device{Painter, CSize};
};

void SymbolsStamped(benchmark::State& State) {
    TCloud cloud(int(State.range(0)));
    TCanvas canvas(&cloud.Device);
    for (auto _ : State) cloud.Series.DrawPoints(canvas);
    State.SetItemsProcessed(State.iterations() * State.range(0));
}
BENCHMARK(SymbolsStamped)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void SymbolsDrawnEach(benchmark::State& State) {
    TCloud cloud(int(State.range(0)));
    TCanvas canvas(&cloud.Device);
    const auto& style = cloud.Series.GetPointStyle();
    canvas.Pen.SetColor(style.GetColor());
    for (auto _ : State)
        for (const TPoint p : cloud.Series.GetPoints().Values())
            DrawPointSymbol(p.X, p.Y, style.GetSize(), style.GetStyle(), canvas);
    State.SetItemsProcessed(State.iterations() * State.range(0));
}
BENCHMARK(SymbolsDrawnEach)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
