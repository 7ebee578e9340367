// A window that lives: a point more, a turn of the wheel, a pan.

#include "livewindow.h"

#include <kxgraph/numeric/Kxextremes.h>

using namespace kx;

namespace {

template <class F>
void Frames(benchmark::State& State, F Change) {
    TLive live(int(State.range(0)), State.range(1) != 0);
    TFrameTimes times;
    const auto before = PointsTouched;
    double pixels = 0;
    int i = 0;
    for (auto _ : State)
        times.Take([&] {
            Change(live, i++);
            pixels += live.Frame();
        });
    times.Tell(State);
    State.counters["pixels"] = pixels / i;
    State.counters["touched"] = double(PointsTouched - before) / i;
}

void LiveStandingStill(benchmark::State& State) {
    Frames(State, [](TLive& Live, int) { Live.Append(); });
}
void LiveMoving(benchmark::State& State) {
    const double count = double(State.range(0));
    Frames(State, [=](TLive& Live, int) {
        Live.Append();
        const int last = Live.X.GetCount();
        Live.Show(last - count, last);
    });
}
void LiveWheel(benchmark::State& State) {
    Frames(State, [](TLive& Live, int i) {
        Live.Form.AsHostClient().HostWheel({.Up = (i / 40) % 2 == 0 ? 1.0 : -1.0}, 0, {400, 300});
    });
}
void LivePan(benchmark::State& State) {
    Frames(State, [](TLive& Live, int i) {
        THostClient& client = Live.Form.AsHostClient();
        if (i == 0) client.HostMouse(TMouseKind::Down, mbMiddle, ssMiddle, {400, 300});
        client.HostMouse(TMouseKind::Move, mbMiddle, ssMiddle,
                         {400 + (i * 7) % 301 - 150, 300 + (i * 3) % 101});
    });
}
void LiveCrossHair(benchmark::State& State) {
    Frames(State, [](TLive& Live, int i) {
        Live.Graph.SetReadout(true);
        Live.Graph.SetCrossHair(true);
        Live.Form.AsHostClient().HostMouse(TMouseKind::Move, mbLeft, 0,
                                           {200 + (i * 7) % 301, 200 + (i * 3) % 101});
    });
}
BENCHMARK(LiveStandingStill)
    ->ArgNames({"n", "smooth"})
    ->ArgsProduct({{1000000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(LiveMoving)
    ->ArgNames({"n", "smooth"})
    ->ArgsProduct({{1000000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(LiveWheel)
    ->ArgNames({"n", "smooth"})
    ->ArgsProduct({{10000000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(LivePan)
    ->ArgNames({"n", "smooth"})
    ->ArgsProduct({{10000000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(LiveCrossHair)
    ->ArgNames({"n", "smooth"})
    ->ArgsProduct({{10000000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

} // namespace
