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

// Of 0 to 3. The same rows give the same bytes, which levels 1 and 2 do not always hold.
constexpr int CLevel = 3;
constexpr std::size_t CWorkBytes = ISAL_DEF_LVL3_DEFAULT;
constexpr std::size_t CBlockBytes = std::size_t(1) << 16; // rows that wait, and what comes out

class TDeflater {
public:
    TDeflater()
        : FStream(std::make_unique<isal_zstream>()), FWork(std::make_unique<unsigned char[]>(CWorkBytes)) {
        isal_deflate_init(FStream.get());
        FStream->level = CLevel;
        FStream->level_buf = FWork.get();
        FStream->level_buf_size = std::uint32_t(CWorkBytes);
        FStream->gzip_flag = IGZIP_ZLIB;
    }

    void Append(std::vector<unsigned char>& Bytes, bool Last) {
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
    std::string FDeflated;
};

} // namespace

std::string DeflateRows(const TPixelRows& Rows) {
    const std::size_t stride = Rows.RowBytes + 1;
    const int height = int(std::max<std::size_t>(1, CBlockBytes / stride));
    std::vector<unsigned char> block;
    TDeflater deflater;
    for (int row = 0; row < Rows.Count; row += height) {
        const int rows = std::min(height, Rows.Count - row);
        block.resize(std::size_t(rows) * stride);
        for (int i = 0; i < rows; ++i) Rows.Fill(row + i, &block[std::size_t(i) * stride + 1]);
        deflater.Append(block, row + rows == Rows.Count);
    }
    return deflater.Take();
}

} // namespace kx::qt
