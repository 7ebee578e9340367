#pragma once
// What painting leaves in the processor.

namespace kx::qt {

/// Clears the upper halves of the vector registers where the processor has any. Painters of some releases of
/// Qt leave them in use, and every function of the mathematical library that follows takes many times as
/// long, until something clears them.
void ClearUpperVectors();

/// At the end of a block.
struct TVectorsCleared {
    TVectorsCleared() = default;
    TVectorsCleared(const TVectorsCleared&) = delete;
    TVectorsCleared& operator=(const TVectorsCleared&) = delete;
    ~TVectorsCleared() { ClearUpperVectors(); }
};

} // namespace kx::qt
