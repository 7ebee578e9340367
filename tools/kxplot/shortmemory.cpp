#include "kxplot/shortmemory.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <string_view>

namespace kxplot {

namespace {

std::atomic<bool> MayFail{false}; // other threads allocate, too

} // namespace

void EndOutOfMemory() {
    constexpr std::string_view line = "kxplot: out of memory\n";
    if (write(STDERR_FILENO, line.data(), line.size()) < 0) std::_Exit(1); // nobody is there to be told
    std::_Exit(1);
}

bool DoFailedAllocationsEnd() { return !MayFail; }

void LetAllocationsFail() { MayFail = true; }

} // namespace kxplot
