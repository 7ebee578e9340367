#include <kxgraph/platform/base/largememory.h>

#include <atomic>

namespace kx {

namespace {

std::atomic<TLargeMemory> LargeMemory = nullptr;

} // namespace

void SetLargeMemory(TLargeMemory Take) noexcept { LargeMemory = Take; }

void TellOfMemory(void* Begin, std::size_t Size) noexcept {
    constexpr std::size_t CLarge = std::size_t{16} << 20;
    if (Size < CLarge) return;
    if (const TLargeMemory take = LargeMemory) take(Begin, Size);
}

} // namespace kx
