// Loaded before the C library (LD_PRELOAD): the allocation with the number that KX_FAIL says fails, and all
// after it.

#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

bool Fails() {
    static const char* const number = std::getenv("KX_FAIL");
    static const long first = number ? std::atol(number) : 0;
    static std::atomic<long> count{0};
    if (!number || ++count < first) return false;
    errno = ENOMEM;
    return true;
}

template <class F>
F Real(const char* Name) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, Name));
}

} // namespace

extern "C" {

// A program with allocation functions of its own, made of those of the C library, asks for these ...
void* __libc_malloc(std::size_t Size) {
    static const auto real = Real<void* (*)(std::size_t)>("__libc_malloc");
    return Fails() ? nullptr : real(Size);
}
void* __libc_calloc(std::size_t Count, std::size_t Size) {
    static const auto real = Real<void* (*)(std::size_t, std::size_t)>("__libc_calloc");
    return Fails() ? nullptr : real(Count, Size);
}
void* __libc_realloc(void* Block, std::size_t Size) {
    static const auto real = Real<void* (*)(void*, std::size_t)>("__libc_realloc");
    return Fails() ? nullptr : real(Block, Size);
}

// ... and any other for these.
void* malloc(std::size_t Size) { return __libc_malloc(Size); }
void* calloc(std::size_t Count, std::size_t Size) { return __libc_calloc(Count, Size); }
void* realloc(void* Block, std::size_t Size) { return __libc_realloc(Block, Size); }
}
