// Appending to vectors, and moving a window over values: the cost of a value must not depend on how many
// there are.

#include <kxgraph/numeric/Kxvector.h>

#include <benchmark/benchmark.h>

namespace kx {
namespace {

struct TSum {
    TKxCustomRealVector& Vector;
    double Total = 0;
    void Changed(int Index, bool) { Total += Vector.GetValue(Index); }
};

template <class V>
void AppendAll(V& Vector, std::int64_t Count) {
    for (std::int64_t i = 0; i < Count; ++i) Vector.Add(static_cast<double>(i));
}

void Report(benchmark::State& State) {
    State.SetItemsProcessed(State.iterations() * State.range(0));
    State.SetComplexityN(State.range(0));
}

void AppendToRealVector(benchmark::State& State) {
    for (auto _ : State) {
        TKxRealVector vector(nullptr);
        AppendAll(vector, State.range(0));
        benchmark::DoNotOptimize(vector.Values().data());
    }
    Report(State);
}
BENCHMARK(AppendToRealVector)->RangeMultiplier(10)->Range(100000, 10000000)->Complexity();

void AppendToLiveVectorWithListener(benchmark::State& State) {
    for (auto _ : State) {
        TKxLiveVector vector(nullptr);
        TSum sum{vector};
        vector.Listeners().Add(TKxValueIChangedEvent::Of<&TSum::Changed>(&sum));
        AppendAll(vector, State.range(0));
        benchmark::DoNotOptimize(sum.Total);
    }
    Report(State);
}
BENCHMARK(AppendToLiveVectorWithListener)->RangeMultiplier(10)->Range(100000, 10000000)->Complexity();

/// One value leaves at the front for each that comes.
void MoveWindowOverLiveValues(benchmark::State& State) {
    TKxLiveVector vector(nullptr);
    TSum sum{vector};
    vector.Listeners().Add(TKxValueIChangedEvent::Of<&TSum::Changed>(&sum));
    AppendAll(vector, State.range(0));
    for (auto _ : State) {
        vector.Delete(0);
        vector.Add(1);
    }
    benchmark::DoNotOptimize(sum.Total);
    State.SetItemsProcessed(State.iterations());
}
BENCHMARK(MoveWindowOverLiveValues)->RangeMultiplier(10)->Range(1000, 1000000);

} // namespace
} // namespace kx
