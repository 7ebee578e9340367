#include <kxgraph/qt/Kxqtraster.h>

#include <QPaintEngine>
#include <QTransform>

#include <algorithm>
#include <array>
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

/// How many of Rects, from the first on, are one pixel wide and stand side by side in one line of the cache.
std::size_t UprightsOf(const TPixels& Pixels, std::span<const QRect> Rects) {
    const auto most =
        std::min(Rects.size(), std::size_t(TPixels::CLine - Pixels.BehindLine(Rects[0].left())));
    std::size_t count = 0;
    while (count < most && Rects[count].width() == 1 && Rects[count].left() == Rects[0].left() + int(count))
        ++count;
    return count;
}

/// What of them stands between Top and Bottom: row by row where all of them do.
void FillUprights(const TPixels& Pixels, std::span<const QRect> Rects, int Top, int Bottom, QRgb Color) {
    int top = Top, bottom = Bottom;
    for (const QRect& rect : Rects) {
        top = std::max(top, rect.top());
        bottom = std::min(bottom, rect.bottom());
    }
    const auto column = [&](int X, int First, int Last) {
        for (int y = First; y <= Last; ++y) *Pixels.At(X, y) = Color;
    };
    for (int y = top; y <= bottom; ++y) std::fill_n(Pixels.At(Rects[0].left(), y), Rects.size(), Color);
    for (const QRect& rect : Rects) {
        const int first = std::max(rect.top(), Top), last = std::min(rect.bottom(), Bottom);
        column(rect.left(), first, std::min(last, top - 1));
        column(rect.left(), std::max({first, bottom + 1, top}), last);
    }
}

/// Pixels one above the other lie far apart: where many stand side by side, a band of rows at a time stays
/// near to the processor.
void FillUprights(const TPixels& Pixels, std::span<const QRect> Rects, QRgb Color) {
    constexpr int CBand = 16, CMany = 4;
    int top = Rects[0].top(), bottom = Rects[0].bottom();
    std::int64_t height = 0;
    for (const QRect& rect : Rects) {
        top = std::min(top, rect.top());
        bottom = std::max(bottom, rect.bottom());
        height += rect.height();
    }
    const int rows = bottom - top + 1, band = height >= CMany * std::int64_t(rows) ? CBand : rows;
    for (int y = top; y <= bottom; y += band)
        FillUprights(Pixels, Rects, y, std::min(y + band - 1, bottom), Color);
}

} // namespace

void TPixels::Fill(std::span<const QRect> Rects, QRgb Color, TPenMode Mode) const {
    if (Mode == pmXor) {
        const QRgb bits = Color & RGB_MASK; // opaque ones remain so
        for (const QRect& rect : Rects)
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                std::for_each_n(At(rect.left(), y), rect.width(), [bits](QRgb& Pixel) { Pixel ^= bits; });
        return;
    }
    for (std::size_t count = 0; !Rects.empty(); Rects = Rects.subspan(count)) {
        count = std::max<std::size_t>(1, UprightsOf(*this, Rects));
        if (count > 1)
            FillUprights(*this, Rects.first(count), Color);
        else
            for (int y = Rects[0].top(); y <= Rects[0].bottom(); ++y)
                std::fill_n(At(Rects[0].left(), y), Rects[0].width(), Color);
    }
}

namespace {

/// So many pixels at a time, as halves: of each, two channels in products that fit, which compilers make
/// vectors of.
constexpr std::size_t CTogether = 16;
using THalves = std::array<std::uint16_t, 2 * CTogether>;

void MixTogether(QRgb* First, const unsigned* Parts, QRgb Color) {
    // In loops of their own: what vectors write vectors read at once.
    std::array<unsigned, CTogether> twice, whole;
    for (std::size_t i = 0; i < CTogether; ++i) twice[i] = Parts[i] | Parts[i] << 16;
    for (std::size_t i = 0; i < CTogether; ++i) whole[i] = Color;
    THalves halves, parts, colors;
    std::memcpy(parts.data(), twice.data(), sizeof parts);
    std::memcpy(colors.data(), whole.data(), sizeof colors);
    std::memcpy(halves.data(), First, sizeof halves);
    for (std::size_t i = 0; i < halves.size(); ++i) {
        const std::uint16_t part = parts[i], rest = std::uint16_t(256 - part);
        const auto even = std::uint16_t((halves[i] & 255) * rest + (colors[i] & 255) * part + 128);
        const auto odd = std::uint16_t((halves[i] >> 8) * rest + (colors[i] >> 8) * part + 128);
        halves[i] = std::uint16_t(even >> 8 | (odd & 0xff00));
    }
    std::memcpy(First, halves.data(), sizeof halves);
}

} // namespace

void MixPartly(QRgb* First, std::span<const unsigned> Parts, QRgb Color) {
    std::size_t i = 0;
    for (; i + CTogether <= Parts.size(); i += CTogether) MixTogether(First + i, &Parts[i], Color);
    for (; i < Parts.size(); ++i) Mix(First[i], Color, Parts[i]);
}

void MixRow(QRgb* First, std::span<const unsigned> Parts, QRgb Color) {
    for (std::size_t i = 0; i < Parts.size(); i += CTogether) {
        const auto parts = Parts.subspan(i, std::min(CTogether, Parts.size() - i));
        unsigned any = 0, all = 256;
        for (const unsigned part : parts) any |= part, all &= part;
        if (all == 256)
            std::fill_n(First + i, parts.size(), Color);
        else if (any > 0)
            MixPartly(First + i, parts, Color);
    }
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
