#include "kxplot/batch/progress.h"

#include <unistd.h>

#include <iostream>

namespace kxplot {

namespace {

constexpr std::size_t CLength = 40;
constexpr const char* CClearLine = "\r\x1b[K";

} // namespace

TProgress::TProgress(std::size_t Total) : FTotal(Total), FIsShown(isatty(STDERR_FILENO) != 0) { Show(); }

void TProgress::Step(const std::string& Said) {
    if (FIsShown && !Said.empty()) std::cerr << CClearLine;
    std::cerr << Said;
    ++FDone;
    Show();
}

void TProgress::End() {
    if (FIsShown) std::cerr << CClearLine << std::flush;
}

void TProgress::Show() const {
    if (!FIsShown) return;
    const std::size_t full = FDone * CLength / FTotal;
    std::cerr << '\r' << '[' << std::string(full, '#') << std::string(CLength - full, ' ') << "] " << FDone
              << '/' << FTotal << std::flush;
}

} // namespace kxplot
