#pragma once
// Memory that runs out when a test wants it. This program's operator new, and the library's realloc and free,
// are replaced by ones that count.

namespace kx::test {

/// Lets the N-th allocation (from 1) fail while it lives, once.
class TFailingAllocation {
public:
    explicit TFailingAllocation(long N);
    ~TFailingAllocation();
    TFailingAllocation(const TFailingAllocation&) = delete;
    TFailingAllocation& operator=(const TFailingAllocation&) = delete;
    /// Whether there were so many.
    bool HasFailed() const;
};

/// Blocks that are allocated at the moment.
long LiveAllocations();

} // namespace kx::test
