#include <kxgraph/qt/Kxqtdeflate.h>

#include <zlib.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace kx::qt {

namespace {

constexpr int CWindowBits = 15; // of the compression: references reach 32 KB back
constexpr std::size_t CWindow = std::size_t(1) << CWindowBits;
constexpr std::size_t CPartBytes = std::size_t(1) << 18; // compressed in about 0.4 ms
constexpr int CMemoryLevel = 8;                          // zlib's default

/// Rows [Begin, End) of a picture and what becomes of them.
struct TPart {
    int Begin = 0;
    int End = 0;
    std::size_t Bytes = 0; // before compression
    uLong Checksum = 0;    // of those bytes
    std::string Deflated;
};

/// Takes parts one after the other; what it works in is kept for the next.
class TDeflater {
public:
    TDeflater(const TPixelRows& Rows, int Level) : FRows(Rows) {
        if (deflateInit2(&FStream, Level, Z_DEFLATED, -CWindowBits, CMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::bad_alloc();
    }
    ~TDeflater() { deflateEnd(&FStream); }
    TDeflater(const TDeflater&) = delete;
    TDeflater& operator=(const TDeflater&) = delete;

    void Deflate(TPart& Part) {
        const std::size_t stride = FRows.RowBytes + 1;
        const int before =
            int(std::min<std::size_t>(std::size_t(Part.Begin), (CWindow + stride - 1) / stride));
        FBytes.resize(std::size_t(Part.End - Part.Begin + before) * stride);
        for (int row = Part.Begin - before; row < Part.End; ++row)
            FRows.Fill(row, &FBytes[std::size_t(row - Part.Begin + before) * stride + 1]);
        unsigned char* const own = FBytes.data() + std::size_t(before) * stride;
        Part.Bytes = std::size_t(Part.End - Part.Begin) * stride;
        Part.Checksum = adler32(1, own, uInt(Part.Bytes));
        deflateReset(&FStream);
        const std::size_t window = std::min(CWindow, std::size_t(before) * stride);
        if (window > 0) deflateSetDictionary(&FStream, own - window, uInt(window));
        Part.Deflated = Deflated(own, Part.Bytes, Part.End == FRows.Count);
    }

private:
    std::string Deflated(unsigned char* Bytes, std::size_t Count, bool Last) {
        std::string deflated;
        std::array<unsigned char, CWindow> out;
        FStream.next_in = Bytes;
        FStream.avail_in = uInt(Count);
        do {
            FStream.next_out = out.data();
            FStream.avail_out = uInt(out.size());
            deflate(&FStream, Last ? Z_FINISH : Z_SYNC_FLUSH);
            deflated.append(reinterpret_cast<const char*>(out.data()), out.size() - FStream.avail_out);
        } while (FStream.avail_out == 0);
        return deflated;
    }

    const TPixelRows& FRows;
    z_stream FStream{};
    std::vector<unsigned char> FBytes;
};

std::vector<TPart> PartsOf(const TPixelRows& Rows) {
    const int height = int(std::max<std::size_t>(1, CPartBytes / (Rows.RowBytes + 1)));
    std::vector<TPart> parts;
    for (int row = 0; row < Rows.Count; row += height)
        parts.push_back({row, row + std::min(height, Rows.Count - row), 0, 0, {}});
    return parts;
}

/// This thread takes its share, so that it goes on where no other one can be had.
void DeflateAll(const TPixelRows& Rows, int Level, std::vector<TPart>& Parts) {
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        TDeflater deflater(Rows, Level);
        for (std::size_t i = next++; i < Parts.size(); i = next++) deflater.Deflate(Parts[i]);
    };
    const std::size_t most = std::min<std::size_t>(Parts.size(), std::thread::hardware_concurrency());
    std::vector<std::future<void>> helpers;
    try {
        for (std::size_t i = 1; i < most; ++i) helpers.push_back(std::async(std::launch::async, work));
    } catch (const std::system_error&) {
        // as many as there are
    }
    work();
    for (auto& helper : helpers) helper.get();
}

} // namespace

std::string DeflateRows(const TPixelRows& Rows, int Level) {
    std::vector<TPart> parts = PartsOf(Rows);
    DeflateAll(Rows, Level, parts);
    std::string stream = "\x78\x9c";
    uLong checksum = 1;
    for (const TPart& part : parts) {
        stream += part.Deflated;
        checksum = adler32_combine(checksum, part.Checksum, z_off_t(part.Bytes));
    }
    for (int shift = 24; shift >= 0; shift -= 8) stream += char(checksum >> shift & 0xff);
    return stream;
}

} // namespace kx::qt
