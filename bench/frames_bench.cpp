// Frames of a graph with one long line, into a raster: nothing changed, a new range, a thousandth of it, one
// more point. Counts the values that a frame looks at.

#include "graphform.h"

#include <kxgraph/numeric/Kxextremes.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <limits>
#include <random>

using namespace kx;

namespace {

constexpr TSize CSize{800, 600};

enum TData { Walk, RandomX, Gaps };

struct TFrames : TGraphForm {
    TKxLiveVector X{&Form}, Y{&Form};
    TKxDataWithErrorSeries Series{&Form};
    QImage Image{CSize.Width, CSize.Height, QImage::Format_RGB32};
    std::mt19937 Random{1};
    double Last = 0;

    explicit TFrames(int Count, TData Data = Walk) {
        qt::Install(true);
        Form.SetBounds(0, 0, CSize.Width, CSize.Height);
        Graph.SetBounds(0, 0, CSize.Width, CSize.Height);
        Series.SetXAxis(&XAxis);
        Series.SetYAxis(&YAxis);
        Series.GetPointStyle().SetVisible(false);
        Series.SetBreakAtGaps(Data == Gaps);
        for (int i = 0; i < Count; ++i) Append(Data);
        Series.SetXData(&X);
        Series.SetYData(&Y);
        Frame();
    }
    void Append(TData Data = Walk) {
        const int index = X.GetCount();
        Last += int(Random() % 2001) - 1000;
        X.Add(Data == RandomX ? Random() % 1000000 : index);
        Y.Add(Data == Gaps && index % 10 == 9 ? std::numeric_limits<double>::quiet_NaN() : Last);
    }
    void Frame() {
        QPainter painter(&Image);
        qt::TPainterDevice device(painter, CSize);
        PaintFrame(Form, device);
    }
    void Show(double Start, double Stop) {
        XAxis.SetStartEnd(AxFixed);
        XAxis.SetStopEnd(AxFixed);
        XAxis.SetStart(Start);
        XAxis.SetStop(Stop);
    }
};

template <class F>
void Frames(benchmark::State& State, TData Data, F Change) {
    TFrames frames(int(State.range(0)), Data);
    const auto before = PointsTouched;
    double i = 0;
    for (auto _ : State) {
        Change(frames, i++);
        frames.Frame();
    }
    State.counters["touched"] =
        benchmark::Counter(double(PointsTouched - before), benchmark::Counter::kAvgIterations);
}

void FrameUnchanged(benchmark::State& State) {
    Frames(State, TData(State.range(1)), [](TFrames&, double) {});
}
void FrameOfNewRange(benchmark::State& State) {
    const double count = double(State.range(0));
    Frames(State, TData(State.range(1)), [=](TFrames& F, double i) { F.Show(0, count * (1 + i * 1e-6)); });
}
void FrameOfAThousandth(benchmark::State& State) {
    const double count = double(State.range(0));
    Frames(State, Walk, [=](TFrames& F, double i) {
        const double start = count * (0.3 + i * 1e-6);
        F.Show(start, start + count / 1000);
    });
}
void FrameAfterAnAppend(benchmark::State& State) {
    Frames(State, Walk, [](TFrames& F, double) { F.Append(); });
}
BENCHMARK(FrameUnchanged)
    ->ArgsProduct({{10000, 1000000}, {Walk, RandomX, Gaps}})
    ->Args({10000000, Walk})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FrameOfNewRange)
    ->ArgsProduct({{10000, 1000000}, {Walk, RandomX, Gaps}})
    ->Args({10000000, Walk})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FrameOfAThousandth)->Arg(1000000)->Arg(10000000)->Unit(benchmark::kMillisecond);
BENCHMARK(FrameAfterAnAppend)->Arg(10000)->Arg(1000000)->Arg(10000000)->Unit(benchmark::kMillisecond);

} // namespace
