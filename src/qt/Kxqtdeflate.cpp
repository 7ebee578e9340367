#include <kxgraph/qt/Kxqtdeflate.h>

#include <isa-l/igzip_lib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace kx::qt {

namespace {

constexpr std::size_t CBlockBytes = std::size_t(1) << 16; // rows that wait, and what comes out
constexpr int CSampled = 4;                               // one in so many blocks tells how often bytes come

using TBytes = std::vector<unsigned char>;

/// The rows in blocks.
class TBlocks {
public:
    explicit TBlocks(const TPixelRows& Rows)
        : FRows(Rows), FStride(Rows.RowBytes + 1),
          FHeight(int(std::max<std::size_t>(1, CBlockBytes / FStride))) {}

    int GetCount() const { return (FRows.Count + FHeight - 1) / FHeight; }
    /// Until the next call.
    TBytes& At(int Block) {
        const int first = Block * FHeight, count = std::min(FHeight, FRows.Count - first);
        FBytes.resize(std::size_t(count) * FStride);
        for (int i = 0; i < count; ++i) FRows.Fill(first + i, &FBytes[std::size_t(i) * FStride + 1]);
        return FBytes;
    }

private:
    const TPixelRows& FRows;
    std::size_t FStride;
    int FHeight;
    TBytes FBytes;
};

// Of the library's levels, 0 to 3, those between do not always give the same bytes.
class TDeflater {
public:
    TDeflater() : FStream(std::make_unique<isal_zstream>()) {
        isal_deflate_init(FStream.get());
        FStream->gzip_flag = IGZIP_ZLIB;
    }

    void BeSmall() {
        FWork = std::make_unique<unsigned char[]>(ISAL_DEF_LVL3_DEFAULT);
        FStream->level = 3;
        FStream->level_buf = FWork.get();
        FStream->level_buf_size = ISAL_DEF_LVL3_DEFAULT;
    }
    /// The quick level has the same codes for all blocks.
    void LearnCodes(TBlocks& Blocks) {
        isal_huff_histogram histogram{};
        for (int i = 0; i < Blocks.GetCount(); i += CSampled) {
            TBytes& bytes = Blocks.At(i);
            isal_update_histogram(bytes.data(), int(bytes.size()), &histogram);
        }
        FCodes = std::make_unique<isal_hufftables>();
        isal_create_hufftables(FCodes.get(), &histogram);
        isal_deflate_set_hufftables(FStream.get(), FCodes.get(), IGZIP_HUFFTABLE_CUSTOM);
    }
    void Append(TBytes& Bytes, bool Last) {
        FStream->next_in = Bytes.data();
        FStream->avail_in = std::uint32_t(Bytes.size());
        FStream->end_of_stream = Last;
        do {
            std::array<unsigned char, CBlockBytes> out;
            FStream->next_out = out.data();
            FStream->avail_out = std::uint32_t(out.size());
            isal_deflate(FStream.get());
            FDeflated.append(reinterpret_cast<const char*>(out.data()), out.size() - FStream->avail_out);
        } while (FStream->avail_out == 0);
    }
    std::string Take() { return std::move(FDeflated); }

private:
    std::unique_ptr<isal_zstream> FStream;
    std::unique_ptr<unsigned char[]> FWork;
    std::unique_ptr<isal_hufftables> FCodes;
    std::string FDeflated;
};

} // namespace

std::string DeflateRows(const TPixelRows& Rows, TDeflation Deflation) {
    TBlocks blocks(Rows);
    TDeflater deflater;
    if (Deflation == TDeflation::Small)
        deflater.BeSmall();
    else
        deflater.LearnCodes(blocks);
    const int count = blocks.GetCount();
    for (int i = 0; i < count; ++i) deflater.Append(blocks.At(i), i + 1 == count);
    return deflater.Take();
}

} // namespace kx::qt
