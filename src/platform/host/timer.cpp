#include <kxgraph/platform/host/timer.h>

#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>

namespace kx {

TTimer::TTimer(TComponent* Owner) : TComponent(Owner) { Restart(); }

TTimer::~TTimer() { FTimer.reset(); }

void TTimer::SetInterval(int Interval) {
    if (FInterval == std::max(Interval, 0)) return;
    FInterval = std::max(Interval, 0);
    Restart();
}

void TTimer::SetEnabled(bool Enabled) {
    if (FEnabled == Enabled) return;
    FEnabled = Enabled;
    Restart();
}

void TTimer::Restart() {
    FTimer.reset();
    if (!FEnabled || FInterval == 0) return;
    FTimer = TApplication::Instance().GetHost().StartTimer(FInterval, TEvent<>::Of<&TTimer::Tick>(this));
}

void TTimer::Tick() {
    Guarded([this] { OnTimer(); });
}

const TPropertyTable& TTimer::Properties() {
    using C = TTimer;
    static const TPropertyTable table(
        "TTimer", &TComponent::Properties(),
        {Published<&C::GetInterval, &C::SetInterval>("Interval", 1000, "Milliseconds between calls; 0 stops"),
         Published<&C::GetEnabled, &C::SetEnabled>("Enabled", true, "Whether the timer runs")});
    return table;
}

} // namespace kx
