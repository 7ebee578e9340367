#include <kxgraph/qt/Kxqtpages.h>

#ifdef __linux__

#include <kxgraph/platform/base/largememory.h>

#include <cstddef>
#include <cstdint>

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace kx::qt {

namespace {

/// For all of the mapping that the piece is in: one that is advised in part is two, and cannot be moved when
/// the array grows. A system that has no large pages to give refuses, and nothing is lost.
void AskForLargePages(void* Begin, std::size_t) noexcept {
    static const auto page = std::size_t(sysconf(_SC_PAGESIZE));
    const std::size_t before = reinterpret_cast<std::uintptr_t>(Begin) % page;
    const std::size_t size = before + malloc_usable_size(Begin);
    madvise(static_cast<char*>(Begin) - before, (size + page - 1) / page * page, MADV_HUGEPAGE);
}

} // namespace

void UseLargePages() noexcept { SetLargeMemory(AskForLargePages); }

} // namespace kx::qt

#else

namespace kx::qt {

void UseLargePages() noexcept {}

} // namespace kx::qt

#endif
