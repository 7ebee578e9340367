#include <kxgraph/platform/base/dynarray.h>

#include <kxgraph/platform/base/largememory.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace kx {

TArrayBlock* TArrayBlock::Reallocate(TArrayBlock* Block, std::size_t Elements, std::size_t ElementSize) {
    const std::size_t size = COffset + Elements * ElementSize;
    auto* block = static_cast<TArrayBlock*>(std::realloc(Block, size));
    if (!block) throw std::bad_alloc();
    TellOfMemory(block, size);
    block->Allocated = Elements;
    return block;
}

void TArrayBlock::Free(TArrayBlock* Block) noexcept { std::free(Block); }

void TArrayBlock::MakeOwn(TArrayBlock*& Block, std::size_t Wanted, std::size_t ElementSize) {
    if (Block && Block->References == 1) {
        if (Block->Allocated < Wanted)
            Block = Reallocate(Block, std::max(Block->Allocated + Block->Allocated / 2, Wanted), ElementSize);
        return;
    }
    TArrayBlock* own = Reallocate(nullptr, Wanted, ElementSize);
    own->References = 1;
    own->Length = Block ? std::min(Block->Length, int(Wanted)) : 0;
    if (Block) {
        std::memcpy(own->Elements(), Block->Elements(), std::size_t(own->Length) * ElementSize);
        --Block->References;
    }
    Block = own;
}

void TArrayBlock::Resize(TArrayBlock*& Block, std::size_t Length, std::size_t ElementSize) {
    MakeOwn(Block, Length, ElementSize);
    const std::size_t kept = std::size_t(Block->Length);
    if (Length > kept)
        std::memset(static_cast<unsigned char*>(Block->Elements()) + kept * ElementSize, 0,
                    (Length - kept) * ElementSize);
    Block->Length = int(Length);
}

} // namespace kx
