#include <kxgraph/qt/Kxqtpng.h>

#include <kxgraph/qt/Kxqtdeflate.h>

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>

namespace kx::qt {

namespace {

struct TOutput {
    std::string Bytes;
    bool Failed = false;
};

/// Nothing is thrown through the frames of the C library; it is told by its own means, a long jump.
void Append(png_structp Png, png_bytep Bytes, std::size_t Count) {
    auto& output = *static_cast<TOutput*>(png_get_io_ptr(Png));
    try {
        output.Bytes.append(reinterpret_cast<const char*>(Bytes), Count);
    } catch (const std::bad_alloc&) {
        output.Failed = true;
    }
    if (output.Failed) png_error(Png, "out of memory");
}

/// Empty for images of other kinds.
struct TPalette {
    std::vector<png_color> Colors;
    std::vector<png_byte> Alphas;
    bool HasAlpha = false;
};

int TypeOf(const QImage& Image) {
    if (Image.format() == QImage::Format_Indexed8) return PNG_COLOR_TYPE_PALETTE;
    return Image.hasAlphaChannel() ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB;
}

void KeepQuiet(png_structp, png_const_charp) {}

/// One writer, freed whatever happens.
class TWriter {
public:
    explicit TWriter(TOutput& Output)
        : FPng(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, KeepQuiet)),
          FInfo(FPng ? png_create_info_struct(FPng) : nullptr) {
        if (FInfo) png_set_write_fn(FPng, &Output, Append, nullptr);
    }
    ~TWriter() { png_destroy_write_struct(&FPng, &FInfo); }
    TWriter(const TWriter&) = delete;
    TWriter& operator=(const TWriter&) = delete;

    explicit operator bool() const { return FInfo != nullptr; }
    /// Pixels: the compressed rows. False when memory runs out. Holds no object with a destructor: the
    /// library jumps over them.
    bool Write(const QImage& Image, const TPalette& Palette, const std::string& Title,
               const std::string& Pixels) {
        if (setjmp(png_jmpbuf(FPng))) return false;
        png_set_IHDR(FPng, FInfo, png_uint_32(Image.width()), png_uint_32(Image.height()), 8, TypeOf(Image),
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_pHYs(FPng, FInfo, png_uint_32(Image.dotsPerMeterX()), png_uint_32(Image.dotsPerMeterY()),
                     PNG_RESOLUTION_METER);
        if (!Palette.Colors.empty())
            png_set_PLTE(FPng, FInfo, Palette.Colors.data(), int(Palette.Colors.size()));
        if (Palette.HasAlpha)
            png_set_tRNS(FPng, FInfo, Palette.Alphas.data(), int(Palette.Alphas.size()), nullptr);
        if (!Title.empty()) WriteTitle(Title);
        png_write_info(FPng, FInfo);
        for (std::size_t at = 0; at < Pixels.size(); at += CChunkBytes)
            WriteChunk("IDAT", Pixels.data() + at, std::min(CChunkBytes, Pixels.size() - at));
        WriteChunk("IEND", nullptr, 0);
        return true;
    }

private:
    void WriteChunk(const char* Kind, const char* Bytes, std::size_t Count) {
        png_write_chunk(FPng, reinterpret_cast<png_const_bytep>(Kind),
                        reinterpret_cast<png_const_bytep>(Bytes), Count);
    }
    void WriteTitle(const std::string& Title) {
        char key[] = "Title";
        png_text text{};
        text.compression = PNG_ITXT_COMPRESSION_NONE;
        text.key = key;
        text.text = const_cast<char*>(Title.c_str());
        png_set_text(FPng, FInfo, &text, 1);
    }

    static constexpr std::size_t CChunkBytes = std::size_t(1) << 20;
    png_structp FPng;
    png_infop FInfo;
};

TPalette PaletteOf(const QImage& Image) {
    TPalette palette;
    for (const QRgb color : Image.colorTable()) {
        palette.Colors.push_back({png_byte(qRed(color)), png_byte(qGreen(color)), png_byte(qBlue(color))});
        palette.Alphas.push_back(png_byte(qAlpha(color)));
        palette.HasAlpha = palette.HasAlpha || qAlpha(color) < 255;
    }
    return palette;
}

/// Colours in the order of the file, the fourth byte where it lets something through.
void PackColors(const QRgb* From, int Count, bool Alphas, png_byte* To) {
    for (const QRgb* const end = From + Count; From < end; ++From) {
        *To++ = png_byte(qRed(*From));
        *To++ = png_byte(qGreen(*From));
        *To++ = png_byte(qBlue(*From));
        if (Alphas) *To++ = png_byte(qAlpha(*From));
    }
}

TPixelRows RowsOf(const QImage& Image) {
    const int width = Image.width();
    if (TypeOf(Image) == PNG_COLOR_TYPE_PALETTE)
        return {Image.height(), std::size_t(width),
                [&Image, width](int Row, png_byte* To) { std::copy_n(Image.constScanLine(Row), width, To); }};
    const bool alphas = Image.hasAlphaChannel();
    return {Image.height(), std::size_t(width) * (alphas ? 4 : 3),
            [&Image, width, alphas](int Row, png_byte* To) {
                PackColors(reinterpret_cast<const QRgb*>(Image.constScanLine(Row)), width, alphas, To);
            }};
}

} // namespace

std::string EncodePng(const QImage& Image, const std::string& Title) {
    // Colours in files stand as they are, whatever lets through what lies behind.
    const bool mixed = Image.format() == QImage::Format_ARGB32_Premultiplied;
    const QImage image = mixed ? Image.convertToFormat(QImage::Format_ARGB32) : Image;
    const TPalette palette = PaletteOf(image);
    if (image.isNull()) throw std::bad_alloc();
    const auto deflation = palette.Colors.empty() ? TDeflation::Quick : TDeflation::Small;
    const std::string pixels = DeflateRows(RowsOf(image), deflation);
    TOutput output;
    TWriter writer(output);
    if (!writer || !writer.Write(image, palette, Title, pixels)) throw std::bad_alloc();
    return std::move(output.Bytes);
}

} // namespace kx::qt
