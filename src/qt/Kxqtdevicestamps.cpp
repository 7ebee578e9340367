#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/drawing/visible.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtsmoothstamp.h>
#include <kxgraph/qt/Kxqtvectors.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kx::qt {

namespace {

constexpr std::size_t CFewPlaces = 8;     // not worth a picture
constexpr std::size_t CManyPlaces = 2000; // worth one for each part of a pixel

} // namespace

void TPainterDevice::PaintStamp(QImage& Picture, const TRecording& One, TPoint Offset) {
    QPainter painter(&Picture);
    TPainterDevice device(painter, {Picture.width(), Picture.height()});
    One.Replay(device, Offset);
}

/// Very many at exact places; false if the painter has to.
bool TPainterDevice::MixStamps(TPointSpan Points, const TRecording& One) {
    if (Points.Size() < CManyPlaces) return false;
    const auto image = FAccess.Pixels(FWindow, pmCopy);
    const auto* target = dynamic_cast<const QImage*>(FPainter.device());
    if (!image || !target || target->format() == QImage::Format_ARGB32) return false;
    const auto plain = TStamp::Of(One, PaintStamp);
    if (!plain) return false;
    const TRect bounds = plain->Bounds();
    const int most = std::max({-bounds.Left, -bounds.Top, bounds.Right, bounds.Bottom});
    const int reach = int(std::ceil(most * FScale)) + 2;
    TSmoothStamp stamp(reach, [&](QImage& Picture, QPointF Origin) {
        QPainter painter(&Picture);
        const int extent = int(std::ceil(Picture.width() / FScale));
        TPainterDevice device(painter, {extent, extent}, FScale, FAntialias);
        One.Replay(device, TRealPoint(Origin.x() / FScale, Origin.y() / FScale));
    });
    std::vector<TRealPoint> storage;
    for (const TRealPoint place : Points.Exact(storage))
        stamp.Mix(*image, QPointF(place.X * FScale, place.Y * FScale), FWindow);
    return true;
}

void TPainterDevice::Stamps(TPointSpan Points, const TRecording& One) {
    const TVectorsCleared afterwards;
    if (!FRaster) return PaintEach(VisiblePlaces(Points, One, FExtent), One);
    if (IsSmooth() && MixStamps(Points, One)) return;
    if (IsSmooth()) return TCanvasDevice::Stamps(Points, One);
    std::vector<TPoint> rounded;
    const auto places = Points.Whole(rounded);
    const auto stamp = places.size() >= CFewPlaces ? TStamp::Of(One, PaintStamp) : std::nullopt;
    if (!stamp) return TCanvasDevice::Stamps(places, One);
    const TRect bounds = stamp->Bounds();
    if (bounds.IsEmpty() || FClip.IsEmpty()) return;
    // From the last place to the first, so that the first one met at a pixel is the one to be seen.
    const TRect reach{FClip.Left - bounds.Right, FClip.Top - bounds.Bottom, FClip.Right - bounds.Left,
                      FClip.Bottom - bounds.Top};
    std::vector<bool> taken(std::size_t(reach.Width()) * std::size_t(reach.Height()));
    FPixels.clear();
    for (std::size_t i = places.size(); i-- > 0;) {
        if (!reach.Contains(places[i])) continue;
        const auto index = std::size_t(places[i].Y - reach.Top) * std::size_t(reach.Width()) +
                           std::size_t(places[i].X - reach.Left);
        if (taken[index]) continue;
        taken[index] = true;
        FPixels.push_back(places[i]);
    }
    const auto image = FAccess.Pixels(FWindow, pmCopy);
    if (!image) SetMode(pmCopy, false);
    for (std::size_t i = FPixels.size(); i-- > 0;) {
        if (image)
            stamp->Write(*image, FPixels[i], FWindow);
        else
            stamp->Paint(FPainter, FPixels[i]);
    }
}

/// On a vector device: discs as dots of a thick pen, many in one path.
void TPainterDevice::PaintEach(TPointSpan Points, const TRecording& One) {
    const auto disc = DiscOf(One);
    if (!disc) return TCanvasDevice::Stamps(Points, One);
    if (FClip.IsEmpty()) return;
    SetMode(pmCopy, FAntialias);
    FPainter.setPen(QPen(ColorOf(disc->Color, pmCopy), disc->Diameter * FScale, Qt::SolidLine, Qt::RoundCap,
                         Qt::RoundJoin));
    auto places = Points.Exact(FExact);
    for (; !places.empty(); places = places.subspan(std::min(places.size(), CDiscsTogether))) {
        FCurve.clear();
        for (const TRealPoint p : places.first(std::min(places.size(), CDiscsTogether)))
            FCurve.emplace_back((p.X + disc->X) * FScale, (p.Y + disc->Y) * FScale);
        FPainter.drawPoints(FCurve.data(), int(FCurve.size()));
    }
}

/// Paints a symbol that was just drawn before, in the same way elsewhere; false if it is something else.
bool TPainterDevice::PaintRepeated(TRepeatedShape::TKind Kind, std::span<const TPoint> Corners,
                                   const TStroke& Stroke, const TFill& Fill) {
    const auto image = FAccess.Pixels(FWindow, pmCopy);
    const TStamp* stamp = image ? FShape.Stamp(Kind, Corners, Stroke, Fill) : nullptr;
    if (!stamp) return false;
    const TPoint place = Corners[0];
    stamp->Write(*image, place, FWindow);
    return true;
}

} // namespace kx::qt
