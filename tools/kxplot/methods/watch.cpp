#include "kxplot/methods/watch.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <iostream>

#include <unistd.h>

namespace kxplot {

namespace {

volatile std::sig_atomic_t WasCalled = 0;

void OnInterrupt(int Signal) {
    std::signal(Signal, SIG_DFL);
    WasCalled = 1;
}

/// Short, and with a point whatever the locale.
std::string Rounded(double Value) {
    constexpr int digits = 6;
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, Value, std::chars_format::general, digits);
    return {buffer, end.ptr};
}

} // namespace

// Who runs kxplot with interrupts ignored means it.
TFitWatch::TFitWatch()
    : FHandlerBefore(std::signal(SIGINT, OnInterrupt)), FTerminal(isatty(STDERR_FILENO) == 1) {
    if (FHandlerBefore == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

TFitWatch::~TFitWatch() {
    if (!WasInterrupted() && FHandlerBefore != SIG_ERR) std::signal(SIGINT, FHandlerBefore);
}

bool TFitWatch::WasInterrupted() const { return WasCalled != 0; }

void TFitWatch::Show(const std::string& Text) {
    const auto blanks = std::max(FWidth, Text.size()) - Text.size();
    std::cerr << '\r' << Text << std::string(blanks, ' ') << (Text.empty() ? "\r" : "") << std::flush;
    FWidth = Text.size();
}

void TFitWatch::AfterIteration(kx::TKxFittedLine& Line, const std::string& Title) {
    constexpr auto pause = std::chrono::milliseconds(100);
    if (WasInterrupted()) Line.Stop();
    if (!FTerminal || TClock::now() - FShown < pause) return;
    FShown = TClock::now();
    if (Line.IsChecking()) return Show(Title + ": one more run as a test");
    const int done = Line.GetIterationsDone(), most = Line.GetIterations(); // of each of several searches
    const std::string of = done > most ? "" : " of " + std::to_string(most);
    Show(Title + ": iteration " + std::to_string(done) + of + ", chi-square " + Rounded(Line.GetChiSquare()));
}

void TFitWatch::Calculate(kx::TKxFittedLine& Line, const std::string& Title) {
    FShown = TClock::now(); // a short fit shows nothing
    Line.OnIteration = [&](kx::TComponent*) { AfterIteration(Line, Title); };
    Line.Calculate();
    Line.OnIteration = {};
    if (FWidth > 0) Show("");
    if (WasInterrupted())
        std::cerr << "kxplot: " << Title << ": stopped after " << Line.GetIterationsDone() << " iterations\n";
}

} // namespace kxplot
