// What a raster costs for the calls of one frame: lines, gaps, error bars, bars and a grid, as a graph makes
// them; and what a fit costs after it.

#include <kxgraph/analysis/Kxsimplex.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <span>
#include <vector>

using namespace kx;

namespace {

constexpr TSize CSize{1200, 800};

/// A graph that its calls are taken from.
class TFrame {
public:
    TFrame() {
        qt::Install(true);
        FGraph.SetParent(&FForm);
        FGraph.SetBounds(0, 0, CSize.Width, CSize.Height);
        for (TKxAxis* axis : {&FXAxis, &FYAxis}) axis->SetParent(&FGraph);
        FGraph.SetPrimaryXAxis(&FXAxis);
        FGraph.SetPrimaryYAxis(&FYAxis);
    }
    TKxLiveVector& Vector() {
        FVectors.push_back(std::make_unique<TKxLiveVector>(&FForm));
        return *FVectors.back();
    }
    template <class T>
    T& Series(TKxLiveVector& X, TKxLiveVector& Y) {
        auto series = std::make_unique<T>(&FForm);
        T& made = *series;
        FSeries.push_back(std::move(series));
        made.SetXData(&X);
        made.SetYData(&Y);
        return made;
    }
    TKx2DGraph& Graph() { return FGraph; }

private:
    TForm FForm{&TApplication::Instance()};
    TKx2DGraph FGraph{&FForm};
    TKxAxis FXAxis{&FForm}, FYAxis{&FForm};
    std::vector<std::unique_ptr<TKxLiveVector>> FVectors;
    std::vector<std::unique_ptr<TKxSeries>> FSeries;
};

using TNoise = std::normal_distribution<double>;

/// Y of a wave with noise over X = 0, 1, ...; a gap at every tenth place where so asked.
void FillNoise(TKxLiveVector& X, TKxLiveVector& Y, int Count, std::mt19937& Random, bool Gaps = false) {
    TNoise noise;
    const double phase = 3 * noise(Random);
    for (int i = 0; i < Count; ++i) {
        X.Add(i);
        const double y = std::sin(6.28 * i / Count + phase) + 0.02 * noise(Random);
        Y.Add(Gaps && i % 10 == 9 ? std::numeric_limits<double>::quiet_NaN() : y);
    }
}

void Lines(TFrame& Frame, int Series, int Points, bool Gaps) {
    std::mt19937 random(1);
    for (int i = 0; i < Series; ++i) {
        auto &x = Frame.Vector(), &y = Frame.Vector();
        FillNoise(x, y, Points, random, Gaps);
        Frame.Series<TKxLineSeries>(x, y).SetBreakAtGaps(Gaps);
    }
}

void HundredSeries(TFrame& Frame) { Lines(Frame, 100, 1000, false); }
void ThousandSeries(TFrame& Frame) { Lines(Frame, 1000, 100, false); }
void OneLine(TFrame& Frame) { Lines(Frame, 1, 10000, false); }
void LineWithGaps(TFrame& Frame) { Lines(Frame, 1, 100000, true); }

void RandomX(TFrame& Frame) {
    std::mt19937 random(1);
    TNoise noise;
    auto &x = Frame.Vector(), &y = Frame.Vector();
    for (int i = 0; i < 1000; ++i) {
        x.Add(noise(random));
        y.Add(noise(random));
    }
    Frame.Series<TKxLineSeries>(x, y);
}

void ErrorBars(TFrame& Frame) {
    std::mt19937 random(1);
    auto &x = Frame.Vector(), &y = Frame.Vector(), &dy = Frame.Vector();
    FillNoise(x, y, 10000, random);
    for (int i = 0; i < 10000; ++i) dy.Add(0.1);
    auto& series = Frame.Series<TKxDataWithErrorSeries>(x, y);
    series.SetdYPlus(&dy);
    series.SetdYMinus(&dy);
    series.GetLineStyle().SetVisible(false);
}

void Bars(TFrame& Frame) {
    std::mt19937 random(1);
    auto &x = Frame.Vector(), &y = Frame.Vector();
    FillNoise(x, y, 1001, random);
    Frame.Series<TKxBarSeries>(x, y).GetAreaStyle().SetVisible(true);
}

void Grid(TFrame& Frame) {
    OneLine(Frame);
    for (auto* lines : {&Frame.Graph().GetMajorGridX(), &Frame.Graph().GetMajorGridY()})
        lines->SetVisible(true);
    for (auto* lines : {&Frame.Graph().GetMinorGridX(), &Frame.Graph().GetMinorGridY()}) {
        lines->SetVisible(true);
        lines->SetStyle(psDot);
    }
}

template <void (*Fill)(TFrame&)>
void PaintCalls(benchmark::State& State) {
    TFrame frame;
    Fill(frame);
    TRecorder recorder(CSize, 96, true);
    frame.Graph().PaintTo(recorder);
    QImage image(CSize.Width, CSize.Height, QImage::Format_RGB32);
    QPainter painter(&image);
    qt::TPainterDevice device(painter, CSize);
    for (auto _ : State) recorder.Recording.Replay(device);
}
BENCHMARK(PaintCalls<HundredSeries>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<ThousandSeries>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<OneLine>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<LineWithGaps>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<RandomX>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<ErrorBars>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<Bars>)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCalls<Grid>)->Unit(benchmark::kMillisecond);

/// A nonlinear fit, before anything was painted (0) and after each frame (1): both take the same time.
void FitAfterPaint(benchmark::State& State) {
    TFrame frame;
    Grid(frame);
    QImage image(CSize.Width, CSize.Height, QImage::Format_RGB32);
    QPainter painter(&image);
    qt::TPainterDevice device(painter, CSize);
    constexpr double CStart[] = {3, 0.5, 0.7};
    const auto sum = [](std::span<const double> C) {
        double sum = 0;
        for (int i = 1; i <= 1000; ++i) {
            const double rest = std::log10(i) - C[0] * std::exp(-C[1] * i) - C[2];
            sum += rest * rest;
        }
        return sum;
    };
    for (auto _ : State) {
        State.PauseTiming();
        if (State.range(0) != 0) frame.Graph().PaintTo(device);
        State.ResumeTiming();
        TKxSimplex simplex(sum);
        simplex.Run(CStart, 100);
        benchmark::DoNotOptimize(simplex.BestValue());
    }
}
BENCHMARK(FitAfterPaint)->ArgName("painted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
