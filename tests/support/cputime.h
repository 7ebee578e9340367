#pragma once
// How much of the processor something takes, whatever else the machine does.

#include <ctime>

namespace kx::test {

/// Seconds of processor time. For ratios alone: machines and sanitizers differ.
double CpuSeconds(const auto& Action) {
    const std::clock_t begin = std::clock();
    Action();
    return double(std::clock() - begin) / CLOCKS_PER_SEC;
}

} // namespace kx::test
