#pragma once
// Signals that end the program, held back while files are being replaced.

#include <csignal>

namespace kxplot {

/// As long as it exists SIGINT, SIGTERM and SIGHUP wait; one that has come then does its work when it goes.
/// What is made after it is destroyed before.
class TSignalsHeld {
public:
    TSignalsHeld();
    TSignalsHeld(const TSignalsHeld&) = delete;
    TSignalsHeld& operator=(const TSignalsHeld&) = delete;
    ~TSignalsHeld();

    /// Whether one is waiting.
    bool ArePending() const;

private:
    sigset_t FHeld, FBefore;
};

} // namespace kxplot
