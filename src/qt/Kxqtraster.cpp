#include <kxgraph/qt/Kxqtraster.h>

#include <QPaintEngine>
#include <QTransform>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace kx::qt {

namespace {

bool IsOpaqueOnWriting(const QImage& Image) {
    return Image.format() == QImage::Format_RGB32 || Image.format() == QImage::Format_ARGB32 ||
           Image.format() == QImage::Format_ARGB32_Premultiplied;
}

/// The image under Painter; null when it is none whose pixels are colours. A system clip belongs to a window.
QImage* PlainImage(const QPainter& Painter) {
    auto* image = dynamic_cast<QImage*>(Painter.device());
    return image && IsOpaqueOnWriting(*image) && Painter.paintEngine()->systemClip().isEmpty() ? image
                                                                                               : nullptr;
}

/// Most runs are upright: those go pixel by pixel, all others row by row.
template <class FOne, class FRow>
void ForEachPixel(const TPixels& Pixels, const QRect& Rect, FOne One, FRow Row) {
    QRgb* at = Pixels.At(Rect.left(), Rect.top());
    const int width = Rect.width(), height = Rect.height();
    if (width == 1)
        for (int i = 0; i < height; ++i, at += Pixels.Stride) One(*at);
    else
        for (int i = 0; i < height; ++i, at += Pixels.Stride) Row(at, at + width);
}

} // namespace

void TPixels::Fill(std::span<const QRect> Rects, QRgb Color, TPenMode Mode) const {
    const auto set = [Color](QRgb& Pixel) { Pixel = Color; };
    const auto invert = [bits = Color & RGB_MASK](QRgb& Pixel) { Pixel ^= bits; }; // opaque ones remain so
    for (const QRect& rect : Rects) {
        if (Mode == pmXor)
            ForEachPixel(*this, rect, invert,
                         [invert](QRgb* Begin, QRgb* End) { std::for_each(Begin, End, invert); });
        else
            ForEachPixel(*this, rect, set, [Color](QRgb* Begin, QRgb* End) { std::fill(Begin, End, Color); });
    }
}

namespace {

/// So many pixels at a time, as halves: of each, two channels in products that fit, which compilers make
/// vectors of.
constexpr std::size_t CTogether = 16;
using THalves = std::array<std::uint16_t, 2 * CTogether>;

void MixTogether(QRgb* First, const unsigned* Parts, QRgb Color) {
    std::array<unsigned, CTogether> twice;
    unsigned any = 0, all = 256;
    for (std::size_t i = 0; i < CTogether; ++i) {
        twice[i] = Parts[i] | Parts[i] << 16;
        any |= Parts[i];
        all &= Parts[i];
    }
    if (any == 0) return;
    if (all == 256) return void(std::fill_n(First, CTogether, Color));
    THalves halves, parts;
    std::memcpy(parts.data(), twice.data(), sizeof parts);
    std::memcpy(halves.data(), First, sizeof halves);
    THalves colors;
    for (std::size_t i = 0; i < colors.size(); i += 2) {
        const std::array both{std::uint16_t(Color), std::uint16_t(Color >> 16)};
        const bool low = std::endian::native == std::endian::little;
        colors[i] = both[low ? 0 : 1];
        colors[i + 1] = both[low ? 1 : 0];
    }
    for (std::size_t i = 0; i < halves.size(); ++i) {
        const std::uint16_t part = parts[i], rest = std::uint16_t(256 - part);
        const auto even = std::uint16_t((halves[i] & 255) * rest + (colors[i] & 255) * part + 128);
        const auto odd = std::uint16_t((halves[i] >> 8) * rest + (colors[i] >> 8) * part + 128);
        halves[i] = std::uint16_t(even >> 8 | (odd & 0xff00));
    }
    std::memcpy(First, halves.data(), sizeof halves);
}

} // namespace

void MixRow(QRgb* First, std::span<const unsigned> Parts, QRgb Color) {
    std::size_t i = 0;
    for (; i + CTogether <= Parts.size(); i += CTogether) MixTogether(First + i, &Parts[i], Color);
    for (; i < Parts.size(); ++i) Mix(First[i], Color, Parts[i]);
}

TRasterAccess::TRasterAccess(const QPainter& Painter) : FPainter(Painter), FImage(PlainImage(Painter)) {}

std::optional<TPixels> TRasterAccess::Pixels(const TRect& Window, TPenMode Mode) const {
    if (!FImage || !FPainter.deviceTransform().isIdentity() || FPainter.opacity() != 1) return std::nullopt;
    if (Mode == pmXor && FImage->format() == QImage::Format_ARGB32) return std::nullopt; // mixes by alpha
    const TRect all{0, 0, FImage->width(), FImage->height()};
    if (Window.Intersected(all) != Window) return std::nullopt;
    // The painter's own pixels: nothing to detach from.
    auto* const first = reinterpret_cast<QRgb*>(const_cast<uchar*>(FImage->constBits()));
    return TPixels{first, FImage->bytesPerLine() / qsizetype(sizeof(QRgb))};
}

} // namespace kx::qt
