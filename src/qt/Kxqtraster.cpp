#include <kxgraph/qt/Kxqtraster.h>

#include <QPaintEngine>
#include <QTransform>

#include <algorithm>

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
