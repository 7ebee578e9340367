#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/drawing/shifting.h>
#include <kxgraph/qt/Kxqtdevice.h>

#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

namespace kx::qt {

namespace {

constexpr std::size_t CFewPlaces = 8; // not worth a picture
constexpr int CLargestStamp = 512;

/// The pixels that a picture may touch; nothing for a picture that depends on where it is drawn or on what is
/// beneath it.
class TStampBounds {
public:
    bool Plain = true;
    TRect Bounds;

    void operator()(const TRecording::TPolyline& C) { Add(C.Points, C.Stroke); }
    void operator()(const TRecording::TPolygon& C) {
        Check(C.Fill);
        Add(C.Points, C.Stroke);
    }
    void operator()(const TRecording::TEllipse& C) { AddShape(C.Rect, C.Stroke, C.Fill); }
    void operator()(const TRecording::TRectangle& C) { AddShape(C.Rect, C.Stroke, C.Fill); }
    void operator()(const TRecording::TFillRect& C) { AddShape(C.Rect, {}, C.Fill); }
    void operator()(const TRecording::TText&) { Plain = false; }
    void operator()(const TRecording::TClip&) { Plain = false; }
    void operator()(const TRecording::TStamps&) { Plain = false; }

private:
    void Check(const TFill& Fill) {
        if (Fill.Style != bsClear && (Fill.Mode != pmCopy || Fill.Style != bsSolid)) Plain = false;
    }
    void AddShape(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
        Check(Fill);
        const TPoint corners[] = {Rect.TopLeft(), {Rect.Right, Rect.Bottom}};
        Add(corners, Stroke);
    }
    void Add(std::span<const TPoint> Points, const TStroke& Stroke) {
        if (Stroke.Style != psClear && Stroke.Mode != pmCopy) Plain = false;
        const int around = std::min(Stroke.Width, CLargestStamp) + 1;
        for (const TPoint p : Points) {
            const TPoint first = Shifted(p, {-around, -around}), last = Shifted(p, {around, around});
            Bounds = Bounds.United({first.X, first.Y, last.X, last.Y});
            if (std::max({-Bounds.Left, -Bounds.Top, Bounds.Right, Bounds.Bottom}) > CLargestStamp)
                Plain = false;
        }
    }
};

/// A run of pixels of one row of a stamp.
struct TRun {
    int X, Y, Length;
    const QRgb* Pixels;
};

/// The stamp as runs of opaque pixels; nothing if some pixel is neither opaque nor clear.
std::optional<std::vector<TRun>> OpaqueRuns(const QImage& Picture, TPoint Origin) {
    std::vector<TRun> runs;
    for (int y = 0; y < Picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(Picture.constScanLine(y));
        for (int x = 0, start; x < Picture.width(); ++x) {
            if (qAlpha(row[x]) == 0) continue;
            for (start = x; x < Picture.width() && qAlpha(row[x]) == 255; ++x) {
            }
            if (x < Picture.width() && qAlpha(row[x]) != 0) return std::nullopt;
            if (x > start) runs.push_back({Origin.X + start, Origin.Y + y, x - start, row + start});
        }
    }
    return runs;
}

/// The image that a painter writes pixel for pixel, where an opaque pixel is its colour; null for any other.
QImage* PlainImage(const QPainter& Painter) {
    auto* image = dynamic_cast<QImage*>(Painter.device());
    if (!image || image->depth() != 32 || image->devicePixelRatio() != 1 || !Painter.transform().isIdentity())
        return nullptr;
    const bool plain = image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32 ||
                       image->format() == QImage::Format_ARGB32_Premultiplied;
    return plain ? image : nullptr;
}

/// Runs are a few pixels long: a call of the general copy would cost more than it moves.
inline void CopyShort(QRgb* To, const QRgb* From, int Count) {
    constexpr int CChunk = 4;
    for (; Count >= CChunk; Count -= CChunk, To += CChunk, From += CChunk)
        std::memcpy(To, From, CChunk * sizeof(QRgb));
    if (Count & 2) {
        std::memcpy(To, From, 2 * sizeof(QRgb));
        To += 2;
        From += 2;
    }
    if (Count & 1) *To = *From;
}

/// Writes the runs at each place, the last one first seen; Clip lies inside the image.
void WriteRuns(QImage& Image, const std::vector<TRun>& Runs, const std::vector<TPoint>& Places,
               const TRect& Bounds, const TRect& Clip) {
    auto* const first =
        reinterpret_cast<QRgb*>(const_cast<uchar*>(Image.constBits())); // the painter's own: no copy
    const auto stride = Image.bytesPerLine() / qsizetype(sizeof(QRgb));
    for (std::size_t i = Places.size(); i-- > 0;) {
        const TPoint p = Places[i];
        const TRect all{p.X + Bounds.Left, p.Y + Bounds.Top, p.X + Bounds.Right, p.Y + Bounds.Bottom};
        const bool inside = all.Intersected(Clip) == all;
        for (const TRun& run : Runs) {
            int x = p.X + run.X, end = x + run.Length;
            const int y = p.Y + run.Y;
            const QRgb* pixels = run.Pixels;
            if (!inside) {
                if (y < Clip.Top || y >= Clip.Bottom) continue;
                const int cut = std::max(0, Clip.Left - x);
                x += cut;
                pixels += cut;
                end = std::min(end, Clip.Right);
                if (x >= end) continue;
            }
            CopyShort(first + y * stride + x, pixels, end - x);
        }
    }
}

} // namespace

void TPainterDevice::Stamps(std::span<const TPoint> Places, const TRecording& One) {
    TStampBounds stamp;
    for (const auto& call : One.Calls) std::visit(stamp, call);
    if (!FRaster || FAntialias || FScale != 1 || !stamp.Plain || Places.size() < CFewPlaces)
        return TCanvasDevice::Stamps(Places, One);
    const TRect bounds = stamp.Bounds;
    if (bounds.IsEmpty() || FClip.IsEmpty()) return;
    QImage picture(bounds.Width(), bounds.Height(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        TPainterDevice device(painter, bounds.Size());
        One.Replay(device, {-bounds.Left, -bounds.Top});
    }
    // From the last place to the first, so that the first one met at a pixel is the one to be seen.
    const TRect reach{FClip.Left - bounds.Right, FClip.Top - bounds.Bottom, FClip.Right - bounds.Left,
                      FClip.Bottom - bounds.Top};
    std::vector<bool> taken(std::size_t(reach.Width()) * std::size_t(reach.Height()));
    FPixels.clear();
    for (std::size_t i = Places.size(); i-- > 0;) {
        if (!reach.Contains(Places[i])) continue;
        const auto index = std::size_t(Places[i].Y - reach.Top) * std::size_t(reach.Width()) +
                           std::size_t(Places[i].X - reach.Left);
        if (taken[index]) continue;
        taken[index] = true;
        FPixels.push_back(Places[i]);
    }
    if (QImage* image = PlainImage(FPainter)) {
        const TRect clip = FClip.Intersected({0, 0, image->width(), image->height()});
        if (const auto runs = OpaqueRuns(picture, bounds.TopLeft()))
            return WriteRuns(*image, *runs, FPixels, bounds, clip);
    }
    SetMode(pmCopy, false);
    for (std::size_t i = FPixels.size(); i-- > 0;)
        FPainter.drawImage(QPoint(FPixels[i].X + bounds.Left, FPixels[i].Y + bounds.Top), picture);
}

} // namespace kx::qt
