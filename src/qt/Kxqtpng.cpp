#include <kxgraph/qt/Kxqtpng.h>

#include <png.h>

#include <csetjmp>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>

namespace kx::qt {

namespace {

constexpr int CPaletteLevel = 7; // of 9: for files no larger than without a palette
constexpr int CColorsLevel = 3;

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
    /// False when memory runs out. Holds no object with a destructor: the library jumps over them.
    bool Write(const QImage& Image, const TPalette& Palette, const std::string& Title) {
        FRow.resize(std::size_t(Image.width()) * CColorBytes);
        if (setjmp(png_jmpbuf(FPng))) return false;
        const int type = !Palette.Colors.empty()   ? PNG_COLOR_TYPE_PALETTE
                         : Image.hasAlphaChannel() ? PNG_COLOR_TYPE_RGB_ALPHA
                                                   : PNG_COLOR_TYPE_RGB;
        png_set_filter(FPng, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        png_set_compression_level(FPng, Palette.Colors.empty() ? CColorsLevel : CPaletteLevel);
        png_set_IHDR(FPng, FInfo, png_uint_32(Image.width()), png_uint_32(Image.height()), 8, type,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_pHYs(FPng, FInfo, png_uint_32(Image.dotsPerMeterX()), png_uint_32(Image.dotsPerMeterY()),
                     PNG_RESOLUTION_METER);
        if (!Palette.Colors.empty())
            png_set_PLTE(FPng, FInfo, Palette.Colors.data(), int(Palette.Colors.size()));
        if (Palette.HasAlpha)
            png_set_tRNS(FPng, FInfo, Palette.Alphas.data(), int(Palette.Alphas.size()), nullptr);
        if (!Title.empty()) WriteTitle(Title);
        png_write_info(FPng, FInfo);
        if (type == PNG_COLOR_TYPE_RGB_ALPHA) png_set_bgr(FPng);
        for (int y = 0; y < Image.height(); ++y)
            png_write_row(FPng, type == PNG_COLOR_TYPE_RGB ? Packed(Image, y) : Image.constScanLine(y));
        png_write_end(FPng, FInfo);
        return true;
    }

private:
    /// The colours of row Y without their fourth byte, in the order of the file: the library takes two
    /// passes.
    const png_byte* Packed(const QImage& Image, int Y) {
        const auto* from = reinterpret_cast<const QRgb*>(Image.constScanLine(Y));
        png_byte* to = FRow.data();
        for (const png_byte* end = to + FRow.size(); to < end; to += CColorBytes, ++from) {
            to[0] = png_byte(qRed(*from));
            to[1] = png_byte(qGreen(*from));
            to[2] = png_byte(qBlue(*from));
        }
        return FRow.data();
    }
    void WriteTitle(const std::string& Title) {
        char key[] = "Title";
        png_text text{};
        text.compression = PNG_ITXT_COMPRESSION_NONE;
        text.key = key;
        text.text = const_cast<char*>(Title.c_str());
        png_set_text(FPng, FInfo, &text, 1);
    }

    static constexpr std::size_t CColorBytes = 3;
    png_structp FPng;
    png_infop FInfo;
    std::vector<png_byte> FRow;
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

} // namespace

std::string EncodePng(const QImage& Image, const std::string& Title) {
    // Colours in files stand as they are, whatever lets through what lies behind.
    const bool mixed = Image.format() == QImage::Format_ARGB32_Premultiplied;
    const QImage image = mixed ? Image.convertToFormat(QImage::Format_ARGB32) : Image;
    const TPalette palette = PaletteOf(image);
    TOutput output;
    TWriter writer(output);
    if (image.isNull() || !writer || !writer.Write(image, palette, Title)) throw std::bad_alloc();
    return std::move(output.Bytes);
}

} // namespace kx::qt
