#include "kxplot/write/signals.h"

namespace kxplot {

namespace {

constexpr int CSignals[] = {SIGINT, SIGTERM, SIGHUP};

} // namespace

TSignalsHeld::TSignalsHeld() {
    sigemptyset(&FHeld);
    for (const int signal : CSignals) sigaddset(&FHeld, signal);
    sigprocmask(SIG_BLOCK, &FHeld, &FBefore);
}

TSignalsHeld::~TSignalsHeld() { sigprocmask(SIG_SETMASK, &FBefore, nullptr); }

bool TSignalsHeld::ArePending() const {
    sigset_t pending;
    sigpending(&pending);
    for (const int signal : CSignals)
        if (sigismember(&pending, signal) == 1) return true;
    return false;
}

} // namespace kxplot
