#include "kxplot/follow/follow.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <thread>

namespace kxplot {

namespace {

constexpr auto CPause = std::chrono::milliseconds(50);
constexpr std::array CSignals = {SIGINT, SIGTERM};

volatile std::sig_atomic_t WasEnded = 0;

void OnEnd(int Signal) {
    std::signal(Signal, SIG_DFL); // a second one ends the program
    WasEnded = 1;
}

} // namespace

TEndSignals::TEndSignals() {
    for (std::size_t i = 0; i < CSignals.size(); ++i) {
        FBefore[i] = std::signal(CSignals[i], OnEnd);
        if (FBefore[i] == SIG_IGN) std::signal(CSignals[i], SIG_IGN);
    }
}

TEndSignals::~TEndSignals() {
    for (std::size_t i = 0; i < CSignals.size(); ++i)
        if (FBefore[i] != SIG_ERR) std::signal(CSignals[i], FBefore[i]);
}

bool TEndSignals::HaveCome() { return WasEnded != 0; }

bool WaitForTable(TFollowedTable& Table) {
    while (!TEndSignals::HaveCome()) {
        const bool ends = Table.HasEnded();
        if (Table.Poll() == TFollowedTable::TNews::Anew) return true;
        if (ends) return false;
        std::this_thread::sleep_for(CPause);
    }
    return false;
}

std::string FollowToTheEnd(const TOptions& Options) {
    const TEndSignals signals;
    TFollowedTable table(Options);
    for (;;) {
        const bool ends = TEndSignals::HaveCome() || table.HasEnded(); // what has come until then is read
        table.Poll();
        if (ends) return table.GetText();
        if (!table.HasEnded()) std::this_thread::sleep_for(CPause);
    }
}

} // namespace kxplot
