// Live data: what a point costs that is appended to a pair of vectors with a series on a graph.

#include "graphform.h"

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/series/Kxdataseries.h>

#include <benchmark/benchmark.h>

using namespace kx;

namespace {

/// A form with a graph and a series that follows two live vectors.
struct TLiveGraph : TGraphForm {
    TKxLiveVector X{&Form}, Y{&Form};
    TKxLineSeries Series{&Form};

    TLiveGraph() {
        Series.SetXAxis(&XAxis);
        Series.SetYAxis(&YAxis);
        Series.SetXData(&X);
        Series.SetYData(&Y);
    }
    void Append(int Index) {
        X.Add(Index);
        Y.Add(Index % 1000);
    }
};

void AppendToLivePair(benchmark::State& State) {
    const int count = static_cast<int>(State.range(0));
    for (auto _ : State) {
        TLiveGraph live;
        for (int i = 0; i < count; ++i) live.Append(i);
        benchmark::DoNotOptimize(live.Series.GetPointsCount());
    }
    State.SetItemsProcessed(State.iterations() * count);
    State.SetComplexityN(count);
}
BENCHMARK(AppendToLivePair)
    ->RangeMultiplier(10)
    ->Range(100000, 10000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

/// Extents, layout and all screen points of a series that has changed as a whole.
void SettleAfterChange(benchmark::State& State) {
    TLiveGraph live;
    for (int i = 0; i < State.range(0); ++i) live.Append(i);
    for (auto _ : State) {
        live.Series.RangesModified();
        SettleTree(live.Form);
    }
    State.SetItemsProcessed(State.iterations() * State.range(0));
}
BENCHMARK(SettleAfterChange)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
