#include "platform/recording.h"
#include "platform/shifting.h"
#include "qt/Kxqtdevice.h"

#include <QImage>

#include <cmath>

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
    SetMode(pmCopy, false);
    for (std::size_t i = FPixels.size(); i-- > 0;)
        FPainter.drawImage(QPoint(FPixels[i].X + bounds.Left, FPixels[i].Y + bounds.Top), picture);
}

} // namespace kx::qt
