#include "memory/allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

long Live = 0, Countdown = 0;
bool Failed = false;

bool Fails() {
    if (Countdown == 0 || --Countdown > 0) return false;
    Failed = true;
    return true;
}

void* Counted(void* Block) {
    if (!Block) throw std::bad_alloc();
    ++Live;
    return Block;
}

extern "C" void* __real_malloc(std::size_t Size);
extern "C" void __real_free(void* Block);

void* Allocated(std::size_t Size) { return Fails() ? nullptr : __real_malloc(Size ? Size : 1); }

void Release(void* Block) {
    if (!Block) return;
    --Live;
    __real_free(Block);
}

} // namespace

namespace kx::test {

TFailingAllocation::TFailingAllocation(long N) {
    Failed = false;
    Countdown = N;
}
TFailingAllocation::~TFailingAllocation() { Countdown = 0; }
bool TFailingAllocation::HasFailed() const { return Failed; }
long LiveAllocations() { return Live; }
std::function<void(int)> OnFlush;

} // namespace kx::test

void* operator new(std::size_t Size) { return Counted(Allocated(Size)); }
void* operator new[](std::size_t Size) { return operator new(Size); }
void* operator new(std::size_t Size, const std::nothrow_t&) noexcept {
    void* block = Allocated(Size);
    if (block) ++Live;
    return block;
}
void* operator new[](std::size_t Size, const std::nothrow_t& Tag) noexcept { return operator new(Size, Tag); }
void operator delete(void* Block) noexcept { Release(Block); }
void operator delete[](void* Block) noexcept { Release(Block); }
void operator delete(void* Block, std::size_t) noexcept { Release(Block); }
void operator delete[](void* Block, std::size_t) noexcept { Release(Block); }
void operator delete(void* Block, const std::nothrow_t&) noexcept { Release(Block); }
void operator delete[](void* Block, const std::nothrow_t&) noexcept { Release(Block); }

// Shared arrays grow in place by realloc, of which optimisers make malloc for new ones; the linker leads the
// calls here (--wrap).
extern "C" {
void* __real_realloc(void* Block, std::size_t Size);
void* __wrap_malloc(std::size_t Size);
void* __wrap_realloc(void* Block, std::size_t Size);
void __wrap_free(void* Block);
int __real_fsync(int File);
int __wrap_fsync(int File);

void* __wrap_malloc(std::size_t Size) {
    void* block = Allocated(Size);
    if (block) ++Live;
    return block;
}
void __wrap_free(void* Block) { Release(Block); }
void* __wrap_realloc(void* Block, std::size_t Size) {
    if (Fails()) return nullptr;
    void* moved = __real_realloc(Block, Size);
    if (moved && !Block) ++Live;
    return moved;
}
int __wrap_fsync(int File) {
    if (kx::test::OnFlush) kx::test::OnFlush(File);
    return __real_fsync(File);
}
}
