// The allocation functions of the program and of every library that it loads: those of the C library, but for
// what happens when they fail.

#include "kxplot/shortmemory.h"

#include <cstddef>

#ifdef __GLIBC__

// The C library's own names. NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t Size);
void* __libc_calloc(std::size_t Count, std::size_t Size);
void* __libc_realloc(void* Block, std::size_t Size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

/// Who asks for so much at once looks at what he gets: a picture may be too large.
constexpr std::size_t CLarge = std::size_t(1) << 20;

void* Checked(void* Block, std::size_t Size) {
    if (!Block && Size > 0 && Size < CLarge && kxplot::DoFailedAllocationsEnd()) kxplot::EndOutOfMemory();
    return Block;
}

} // namespace

extern "C" {

void* malloc(std::size_t Size) { return Checked(__libc_malloc(Size), Size); }

void* calloc(std::size_t Count, std::size_t Size) {
    void* block = __libc_calloc(Count, Size);
    return Checked(block, Count > CLarge || Size > CLarge ? CLarge : Count * Size);
}

void* realloc(void* Block, std::size_t Size) { return Checked(__libc_realloc(Block, Size), Size); }
}

#endif
