// A minute of a measurement: 1000 points a second over a long history, 60 frames a second, a line fitted to
// all points and a legend; the window moves with the data. Each frame is timed, and what memory it took.

#include "livewindow.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxlegend.h>

#include <unistd.h>

#include <fstream>

using namespace kx;

namespace {

constexpr int CFrames = 60 * 60, CPoints = 60 * 1000;

/// In megabytes.
double MemoryInUse() {
    long all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return double(resident) * double(::sysconf(_SC_PAGESIZE)) / 1e6;
}

/// With Most points at the most (0: all are kept).
void LiveMinute(benchmark::State& State) {
    for (auto _ : State) {
        const int history = int(State.range(0));
        TLive live(history, true);
        TKxLinearRegressionLine fit(&live.Form);
        fit.SetParentSeries(&live.Series);
        TKxLegend legend(&live.Form);
        legend.SetParent(&live.Graph);
        legend.SetGraph(&live.Graph);
        for (TKxLiveVector* vector : {&live.X, &live.Y}) vector->SetMaxCount(int(State.range(1)));
        live.Frame();
        const double memory = MemoryInUse();
        TFrameTimes times;
        for (int frame = 0, point = 0; frame < CFrames; ++frame)
            times.Take([&] {
                for (; point < int(std::int64_t(frame + 1) * CPoints / CFrames); ++point) {
                    live.X.Add(history + point);
                    live.Y.Add(TLive::ValueAt(history + point));
                }
                live.Show(point, history + point);
                live.Frame();
            });
        times.Tell(State);
        State.counters["grownMB"] = MemoryInUse() - memory;
    }
}
BENCHMARK(LiveMinute)
    ->ArgNames({"history", "most"})
    ->Args({1000000, 0})
    ->Args({1000000, 1000000})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
