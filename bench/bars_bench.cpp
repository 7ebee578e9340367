// Bars and arrows: redrawing many of them, and what a bar costs that is appended to a live stack.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

using namespace kx;

namespace {

constexpr TSize CSize{1200, 800};

struct TPlot {
    TForm Form{&TApplication::Instance()};
    TKx2DGraph Graph{&Form};
    TKxAxis XAxis{&Form}, YAxis{&Form};
    TKxLiveVector X{&Form};
    std::vector<std::unique_ptr<TKxLiveVector>> Values;
    std::vector<std::unique_ptr<TKxBarSeries>> Bars;

    TPlot() {
        Graph.SetParent(&Form);
        Graph.SetBounds(0, 0, CSize.Width, CSize.Height);
        XAxis.SetParent(&Graph);
        YAxis.SetParent(&Graph);
        Graph.SetPrimaryXAxis(&XAxis);
        Graph.SetPrimaryYAxis(&YAxis);
    }
    TKxBarSeries& AddBars() {
        Values.push_back(std::make_unique<TKxLiveVector>(&Form));
        Bars.push_back(std::make_unique<TKxBarSeries>(&Form));
        Bars.back()->SetXData(&X);
        Bars.back()->SetYData(Values.back().get());
        Bars.back()->GetAreaStyle().SetVisible(true);
        return *Bars.back();
    }
    void AppendBar(int Index) {
        X.Add(Index);
        for (auto& values : Values) values->Add(2 + std::sin(Index * 1e-3));
    }
    /// Frames, from the change of all of a series to the pixels.
    void Redraw(benchmark::State& State, TKxSeries& Series, int Items) {
        qt::Install(true);
        QImage image(CSize.Width, CSize.Height, QImage::Format_RGB32);
        QPainter painter(&image);
        qt::TPainterDevice device(painter, CSize);
        for (auto _ : State) {
            Series.RangesModified();
            Graph.PaintTo(device);
        }
        State.SetItemsProcessed(State.iterations() * Items);
    }
};

void RedrawBars(benchmark::State& State) {
    TPlot plot;
    auto& bars = plot.AddBars();
    bars.SetShowAs3D(State.range(1) == 2);
    bars.GetLineStyle().SetVisible(State.range(1) != 0);
    for (int i = 0; i <= State.range(0); ++i) plot.AppendBar(i);
    plot.Redraw(State, bars, int(State.range(0)));
}
BENCHMARK(RedrawBars)
    ->ArgNames({"bars", "plain_framed_boxes"})
    ->ArgsProduct({{100, 10000, 100000}, {0, 1, 2}})
    ->Unit(benchmark::kMillisecond);

void RedrawArrows(benchmark::State& State) {
    TPlot plot;
    TKxLiveVector x(&plot.Form), y(&plot.Form), dx(&plot.Form), dy(&plot.Form);
    TKxArrowSeries arrows(&plot.Form);
    arrows.SetXData(&x);
    arrows.SetYData(&y);
    arrows.SetDX(&dx);
    arrows.SetDY(&dy);
    const int count = int(State.range(0)), side = int(std::sqrt(count));
    for (int i = 0; i < count; ++i) {
        x.Add(i % side);
        y.Add(i / side);
        dx.Add(3 * std::cos(i * 1e-2));
        dy.Add(3 * std::sin(i * 1e-2));
    }
    plot.Redraw(State, arrows, count);
}
BENCHMARK(RedrawArrows)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

/// Bars that arrive one by one in every series of a stack, without a frame in between.
void AppendToLiveStack(benchmark::State& State) {
    const int count = int(State.range(0)), series = int(State.range(1));
    for (auto _ : State) {
        TPlot plot;
        for (int k = 0; k < series; ++k) plot.AddBars().SetStackOverlays(true);
        plot.AppendBar(0);
        SettleTree(plot.Form);
        for (int i = 1; i <= count; ++i) plot.AppendBar(i);
        benchmark::DoNotOptimize(plot.Bars.back()->GetYRange().GetStop());
    }
    State.SetItemsProcessed(State.iterations() * count);
}
BENCHMARK(AppendToLiveStack)
    ->ArgNames({"bars", "series"})
    ->ArgsProduct({{10000, 100000}, {1, 3}})
    ->Unit(benchmark::kMillisecond);

} // namespace
