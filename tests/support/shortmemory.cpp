#include "support/shortmemory.h"

#include <cstdlib>
#include <new>

namespace {

long Remaining = -1; // allocations until the one that fails; below 0: none does

void* Allocated(std::size_t Size) {
    if (Remaining == 0) {
        Remaining = -1;
        throw std::bad_alloc();
    }
    if (Remaining > 0) --Remaining;
    if (void* memory = std::malloc(Size ? Size : 1)) return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t Size) { return Allocated(Size); }
void* operator new[](std::size_t Size) { return Allocated(Size); }
void* operator new(std::size_t Size, const std::nothrow_t&) noexcept {
    try {
        return Allocated(Size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* Memory) noexcept { std::free(Memory); }
void operator delete[](void* Memory) noexcept { std::free(Memory); }
void operator delete(void* Memory, const std::nothrow_t&) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::size_t) noexcept { std::free(Memory); }
void operator delete[](void* Memory, std::size_t) noexcept { std::free(Memory); }

int kx::test::WithEveryAllocationFailing(const std::function<void()>& Prepare,
                                         const std::function<void()>& Action) {
    for (int failures = 0;; ++failures) {
        Prepare();
        Remaining = failures;
        try {
            Action();
        } catch (const std::bad_alloc&) {
        }
        const bool failed = Remaining < 0;
        Remaining = -1;
        if (!failed) return failures;
    }
}
