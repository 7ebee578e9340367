#pragma once
// Memory that runs out when a test wants it. This program's operator new, and the library's realloc, free and
// fsync, are replaced by ones that count or tell.

#include "support/testing.h"

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

/// Called with the descriptor that is flushed to the disk.
extern std::function<void(int)> OnFlush;

/// Runs Action with a failure at the first allocation, at the first but Step, ... and Check after each, until
/// there are no more. Returns how many there were.
template <class A, class C>
long ForEveryFailure(A Action, C Check, long Step = 1) {
    TFaults faults;
    for (long n = 1;; n += Step) {
        SCOPED_TRACE("failure of allocation " + std::to_string(n));
        bool failed = false;
        {
            const TFailingAllocation failing(n);
            try {
                Action();
            } catch (const std::exception&) { // std::bad_alloc, or the file that could not be read for it
            }
            failed = failing.HasFailed();
        }
        Check();
        if (!failed || testing::Test::HasFailure()) return n - 1;
    }
}

/// Expects Run, which gets the step, to leave no allocation behind but what is made once and kept: some
/// failures come before to make that.
inline void ExpectNoLeak(const std::function<void(long Step)>& Run) {
    constexpr long sample = 41;
    Run(sample);
    const long before = LiveAllocations();
    Run(1);
    EXPECT_EQ(LiveAllocations(), before);
}

} // namespace kx::test
