#include <kxgraph/qt/Kxqtstamp.h>

#include <kxgraph/platform/drawing/shifting.h>
#include <kxgraph/qt/Kxqtlines.h>

#include <algorithm>
#include <cstring>

namespace kx::qt {

namespace {

constexpr int CLargestStamp = 512;
constexpr std::size_t CMostCorners = 16; // of a symbol

/// The pixels that a picture may touch; not plain when it depends on where it is drawn or on what is beneath
/// it.
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
        const bool dashed = !DashesOf(Stroke.Style).empty(); // where dashes end is a matter of rounding
        if (Stroke.Mode != pmCopy || dashed) Plain = false;
        const int around = std::min(Stroke.Width, CLargestStamp) + 1;
        for (const TPoint p : Points) {
            const TPoint first = Shifted(p, {-around, -around}), last = Shifted(p, {around, around});
            Bounds = Bounds.United({first.X, first.Y, last.X, last.Y});
            if (std::max({-Bounds.Left, -Bounds.Top, Bounds.Right, Bounds.Bottom}) > CLargestStamp)
                Plain = false;
        }
    }
};

/// From one point to another, saturated.
TPoint Way(TPoint From, TPoint To) {
    const auto way = [](long long A, long long B) {
        return int(std::clamp<long long>(B - A, -CMaxPixel, CMaxPixel));
    };
    return {way(From.X, To.X), way(From.Y, To.Y)};
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

} // namespace

std::optional<TStamp> TStamp::Of(const TRecording& One, TPaintStamp Paint) {
    TStampBounds stamp;
    for (const auto& call : One.Calls) std::visit(stamp, call);
    if (!stamp.Plain) return std::nullopt;
    return TStamp(One, stamp.Bounds, Paint);
}

TStamp::TStamp(const TRecording& One, const TRect& Bounds, TPaintStamp Paint)
    : FBounds(Bounds), FPicture(Bounds.Width(), Bounds.Height(), QImage::Format_ARGB32_Premultiplied) {
    if (Bounds.IsEmpty()) return;
    FPicture.fill(Qt::transparent);
    Paint(FPicture, One, {-Bounds.Left, -Bounds.Top});
    for (int y = 0; y < FPicture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(FPicture.constScanLine(y));
        for (int x = 0, start; x < FPicture.width(); ++x) {
            for (start = x; x < FPicture.width() && qAlpha(row[x]) != 0; ++x) {
            }
            if (x > start) FRuns.push_back({Bounds.Left + start, Bounds.Top + y, x - start, row + start});
        }
    }
}

void TStamp::Write(const TPixels& Image, TPoint Place, const TRect& Clip) const {
    const TRect all = FBounds.MovedBy(Place);
    const bool inside = all.Intersected(Clip) == all;
    for (const TRun& run : FRuns) {
        int x = Place.X + run.X, end = x + run.Length;
        const int y = Place.Y + run.Y;
        const QRgb* pixels = run.Pixels;
        if (!inside) {
            if (y < Clip.Top || y >= Clip.Bottom) continue;
            const int cut = std::max(0, Clip.Left - x);
            x += cut;
            pixels += cut;
            end = std::min(end, Clip.Right);
            if (x >= end) continue;
        }
        CopyShort(Image.At(x, y), pixels, end - x);
    }
}

void TStamp::Paint(QPainter& Painter, TPoint Place) const {
    Painter.drawImage(QPoint(Place.X + FBounds.Left, Place.Y + FBounds.Top), FPicture);
}

const TStamp* TRepeatedShape::Stamp(TKind Kind, std::span<const TPoint> Corners, const TStroke& Stroke,
                                    const TFill& Fill) {
    if (Corners.empty() || Corners.size() > CMostCorners) return nullptr;
    if (!IsRepeated(Kind, Corners, Stroke, Fill)) {
        FKind = Kind;
        FStroke = Stroke;
        FFill = Fill;
        FCorners.resize(Corners.size());
        std::ranges::transform(Corners, FCorners.begin(), [&](TPoint P) { return Way(Corners[0], P); });
        FPainted = false;
        return nullptr;
    }
    if (!FPainted) FStamp = TStamp::Of(Picture(), FPaint);
    FPainted = true;
    return FStamp ? &*FStamp : nullptr;
}

bool TRepeatedShape::IsRepeated(TKind Kind, std::span<const TPoint> Corners, const TStroke& Stroke,
                                const TFill& Fill) const {
    return Kind == FKind && Stroke == FStroke && Fill == FFill &&
           std::ranges::equal(Corners, FCorners, {}, [&](TPoint P) { return Way(Corners[0], P); });
}

TRecording TRepeatedShape::Picture() const {
    TRecording picture;
    if (FKind == Polygon)
        picture.Calls.push_back(TRecording::TPolygon{FCorners, FStroke, FFill});
    else
        picture.Calls.push_back(TRecording::TEllipse{
            {FCorners[0].X, FCorners[0].Y, FCorners[1].X, FCorners[1].Y}, FStroke, FFill});
    return picture;
}

} // namespace kx::qt
