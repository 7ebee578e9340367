#include "kxplot/follow/follow.h"

#include "kxplot/follow/followedtable.h"

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

/// Hears the signals that end the following; those that are ignored stay so.
class TEndSignals {
public:
    TEndSignals() {
        for (std::size_t i = 0; i < CSignals.size(); ++i) {
            FBefore[i] = std::signal(CSignals[i], OnEnd);
            if (FBefore[i] == SIG_IGN) std::signal(CSignals[i], SIG_IGN);
        }
    }
    ~TEndSignals() {
        for (std::size_t i = 0; i < CSignals.size(); ++i)
            if (FBefore[i] != SIG_ERR) std::signal(CSignals[i], FBefore[i]);
    }
    TEndSignals(const TEndSignals&) = delete;
    TEndSignals& operator=(const TEndSignals&) = delete;

private:
    std::array<void (*)(int), CSignals.size()> FBefore;
};

} // namespace

std::string FollowToTheEnd(const TOptions& Options) {
    const TEndSignals signals;
    TFollowedTable table(Options);
    for (;;) {
        const bool ends = WasEnded != 0 || table.HasEnded(); // what has come until then is read
        table.Poll();
        if (ends) return table.GetText();
        if (!table.HasEnded()) std::this_thread::sleep_for(CPause);
    }
}

} // namespace kxplot
