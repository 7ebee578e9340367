#pragma once
// Long fits: shown while they run, and ended by Ctrl+C.

#include <kxgraph/analysis/Kxfittedline.h>

#include <chrono>
#include <string>

namespace kxplot {

/// As long as it exists Ctrl+C ends the fit that is running in place of the program; what the fit has found
/// stays. A second Ctrl+C ends the program. There is one watch at a time.
class TFitWatch {
public:
    TFitWatch();
    TFitWatch(const TFitWatch&) = delete;
    TFitWatch& operator=(const TFitWatch&) = delete;
    ~TFitWatch();

    bool WasInterrupted() const;
    /// Calculates Line. Meanwhile, where standard error is a terminal, a line there that begins with Title
    /// tells how far it is; one that stays tells of an interruption.
    void Calculate(kx::TKxFittedLine& Line, const std::string& Title);

private:
    using TClock = std::chrono::steady_clock;
    void AfterIteration(kx::TKxFittedLine& Line, const std::string& Title);
    void Show(const std::string& Text);

    void (*FHandlerBefore)(int);
    bool FTerminal;
    TClock::time_point FShown;
    std::size_t FWidth = 0; ///< of the line on the terminal
};

} // namespace kxplot
