#include <kxgraph/qt/Kxqtdevice.h>

#include <kxgraph/platform/drawing/reduction.h>
#include <kxgraph/platform/drawing/simplification.h>
#include <kxgraph/qt/Kxqtclip.h>
#include <kxgraph/qt/Kxqtlines.h>
#include <kxgraph/qt/Kxqtsmoothrect.h>
#include <kxgraph/qt/Kxqtvectors.h>

#include <QImage>
#include <QPaintEngine>
#include <QPen>

#include <array>
#include <cmath>

namespace kx::qt {

namespace {

// Coordinates this far around the picture are safe with the painter; its own limit is near 2^15.
constexpr double CSafeMargin = 4096;
// On a raster without antialiasing a pixel belongs to an area when its centre does. Shapes are shifted by a
// little less than half a pixel, so that left and upper edges through centres count and right and lower ones
// do not.
constexpr double CNudge = 1.0 / 64;

bool IsVisible(const TStroke& Stroke) { return Stroke.Style != psClear; }
bool IsVisible(const TFill& Fill) { return Fill.Style != bsClear; }

Qt::BrushStyle PatternOf(TBrushStyle Style) {
    switch (Style) {
    case bsSolid: return Qt::SolidPattern;
    case bsClear: return Qt::NoBrush;
    case bsHorizontal: return Qt::HorPattern;
    case bsVertical: return Qt::VerPattern;
    case bsFDiagonal: return Qt::FDiagPattern;
    case bsBDiagonal: return Qt::BDiagPattern;
    case bsCross: return Qt::CrossPattern;
    case bsDiagCross: return Qt::DiagCrossPattern;
    }
    return Qt::SolidPattern;
}

/// One period of a hatch in device pixels. (The painter's own hatches do not grow with the scale.)
QImage HatchTile(TBrushStyle Style, const QColor& Color, double Scale) {
    const int size = std::max(4, int(std::lround(8 * Scale))),
              thickness = std::max(1, int(std::lround(Scale)));
    const bool across = Style == bsHorizontal || Style == bsCross,
               along = Style == bsVertical || Style == bsCross;
    const bool down = Style == bsFDiagonal || Style == bsDiagCross,
               up = Style == bsBDiagonal || Style == bsDiagCross;
    QImage tile(size, size, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    const auto isLine = [=](int Place) { return Place % size < thickness; };
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if ((across && isLine(y + size / 2)) || (along && isLine(x + size / 2)) ||
                (down && isLine(x - y + size)) || (up && isLine(x + y + thickness)))
                tile.setPixelColor(x, y, Color);
        }
    }
    return tile;
}

/// The rectangle on whose sides the pen's middle runs when the whole line is to lie inside Rect.
TRealRect FramedInside(const TRealRect& Rect, const TStroke& Stroke) {
    if (Stroke.Style != psInsideFrame || Stroke.Width < 2) return Rect;
    const int before = Stroke.Width / 2, behind = (Stroke.Width - 1) / 2;
    return {Rect.Left + before, Rect.Top + before, Rect.Right - behind, Rect.Bottom - behind};
}

/// Of each run of points in one column the first and the last: what lies between crosses every line of pixels
/// as often as they do, or an even number of times more.
std::span<const TRealPoint> WithoutColumnDetail(std::span<const TRealPoint> Points,
                                                std::vector<TRealPoint>& Kept) {
    Kept.clear();
    for (std::size_t i = 0; i < Points.size(); ++i) {
        const bool inside = i > 0 && i + 1 < Points.size() && Points[i - 1].X == Points[i].X &&
                            Points[i + 1].X == Points[i].X;
        if (!inside) Kept.push_back(Points[i]);
    }
    return Kept;
}

/// The pixels inside a polygon of four corners with level and upright sides.
std::optional<TRect> UprightRect(std::span<const TRealPoint> Points) {
    if (Points.size() != 4) return std::nullopt;
    const auto [a, b, c, d] = std::array{Points[0], Points[1], Points[2], Points[3]};
    const bool levelFirst = a.Y == b.Y && b.X == c.X && c.Y == d.Y && d.X == a.X;
    const bool uprightFirst = a.X == b.X && b.Y == c.Y && c.X == d.X && d.Y == a.Y;
    if (!levelFirst && !uprightFirst) return std::nullopt;
    const auto [left, right] = std::minmax(a.X, c.X);
    const auto [top, bottom] = std::minmax(a.Y, c.Y);
    return RoundToPixels({left, top, right, bottom});
}

} // namespace

TPainterDevice::TPainterDevice(QPainter& Painter, TSize Extent, double Scale, bool Antialias)
    : FPainter(Painter), FAccess(Painter), FExtent(Extent), FScale(Scale), FAntialias(Antialias),
      FRaster(Painter.paintEngine()->type() == QPaintEngine::Raster) {
    TPainterDevice::SetClip({});
}

bool TPainterDevice::IsThin(const TStroke& Stroke) const {
    return FRaster && !FAntialias && std::max(Stroke.Width, 1) * FScale < 1.5;
}

TPoint TPainterDevice::DevicePixel(TRealPoint P) const {
    const auto mapped = [this](double V) { return RoundToInt(std::floor((V + 0.5) * FScale)); };
    return {mapped(P.X), mapped(P.Y)};
}

TRealRect TPainterDevice::Placed(const TRealRect& Rect) const {
    return IsSmooth() ? Rect : TRealRect(RoundToPixels(Rect));
}

std::span<const TRealPoint> TPainterDevice::Placed(TPointSpan Points) {
    if (IsSmooth() || !Points.IsExact()) return Points.Exact(FExact);
    return TPointSpan(Points.Whole(FPixels)).Exact(FExact);
}

QRectF TPainterDevice::DeviceRect(const TRealRect& Rect) const {
    const QRectF rect(QPointF(Rect.Left * FScale, Rect.Top * FScale),
                      QPointF(Rect.Right * FScale, Rect.Bottom * FScale));
    if (!FRaster) return rect;
    return QRectF(QPointF(std::round(rect.left()), std::round(rect.top())),
                  QPointF(std::round(rect.right()), std::round(rect.bottom())));
}

QRectF TPainterDevice::SafeArea() const {
    return QRectF(0, 0, FExtent.Width * FScale, FExtent.Height * FScale)
        .adjusted(-CSafeMargin, -CSafeMargin, CSafeMargin, CSafeMargin);
}

double TPainterDevice::PenWidth(const TStroke& Stroke) const {
    return std::max(1.0, std::max(Stroke.Width, 1) * FScale);
}

QRgb TPainterDevice::RgbOf(TColor Color, TPenMode Mode) const {
    if (Mode == pmXor && !CanXor()) Color ^= clWhite;
    return qRgb(RedOf(Color), GreenOf(Color), BlueOf(Color));
}

QPen TPainterDevice::PenOf(const TStroke& Stroke, Qt::PenJoinStyle Join) const {
    const bool dashed = !DashesOf(Stroke.Style).empty();
    const bool flat = dashed || Stroke.Width < 2; // thin lines have the ends that TrimEnds gives them
    QPen pen(ColorOf(Stroke.Color, Stroke.Mode), IsThin(Stroke) ? 0 : PenWidth(Stroke), Qt::SolidLine,
             flat ? Qt::FlatCap : Qt::RoundCap, Join);
    if (IsThin(Stroke)) pen.setCosmetic(true);
    if (!dashed) return pen;
    QList<qreal> pattern;
    for (const int length : DashesOf(Stroke.Style)) pattern.append(length);
    pen.setDashPattern(pattern);
    return pen;
}

QBrush TPainterDevice::BrushOf(const TFill& Fill) const {
    const QColor color = ColorOf(Fill.Color, Fill.Mode);
    if (!FRaster || Fill.Style == bsSolid || Fill.Style == bsClear)
        return QBrush(color, PatternOf(Fill.Style));
    return QBrush(HatchTile(Fill.Style, color, FScale));
}

void TPainterDevice::SetMode(TPenMode Mode, bool Antialias) {
    const bool invert = Mode == pmXor && CanXor(), smooth = Antialias && !invert;
    FPainter.setCompositionMode(invert ? QPainter::RasterOp_SourceXorDestination
                                       : QPainter::CompositionMode_SourceOver);
    FPainter.setRenderHint(QPainter::Antialiasing, smooth);
    FNudge = FRaster && !smooth ? CNudge : 0;
}

void TPainterDevice::SetClip(const std::optional<TRect>& Clip) {
    FClip = {0, 0, FExtent.Width, FExtent.Height};
    if (Clip) FClip = FClip.Intersected(*Clip);
    const QRectF rect = DeviceRect(FClip);
    FPainter.setClipRect(rect);
    FWindow = {int(rect.left()), int(rect.top()), int(rect.right()), int(rect.bottom())};
}

void TPainterDevice::Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) {
    const TVectorsCleared afterwards;
    if (!IsSmooth() && PaintRepeated(TRepeatedShape::Polygon, Points.Whole(FPixels), Stroke, Fill)) return;
    PaintShape(Points, Stroke, Fill, Qt::RoundJoin);
}

void TPainterDevice::Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TVectorsCleared afterwards;
    const TRealRect frame = FramedInside(Placed(Rect), Stroke);
    if (frame.IsEmpty()) return;
    if (WriteFramed(frame, Stroke, Fill)) return;
    // An outline runs along the last pixels; an area alone ends behind them.
    const int outline = IsVisible(Stroke) ? 1 : 0;
    const double right = frame.Right - outline, bottom = frame.Bottom - outline;
    const std::array<TRealPoint, 4> corners{
        {frame.TopLeft(), {right, frame.Top}, {right, bottom}, {frame.Left, bottom}}};
    PaintShape(corners, Stroke, Fill, Qt::MiterJoin);
}

/// Writes an antialiased rectangle with a solid outline past the painter; false if the painter has to.
bool TPainterDevice::WriteFramed(const TRealRect& Frame, const TStroke& Stroke, const TFill& Fill) {
    const bool isSolid = (Stroke.Style == psSolid || Stroke.Style == psInsideFrame) && !Stroke.Crisp &&
                         Stroke.Mode == pmCopy && (!IsVisible(Fill) || Fill.Style == bsSolid);
    if (!FRaster || !FAntialias || !isSolid || Fill.Mode != pmCopy || FClip.IsEmpty()) return false;
    const auto image = FAccess.MixedPixels(FWindow);
    if (!image) return false;
    SetMode(Stroke.Mode, true);
    const QRectF outline(DevicePoint(Frame.Left, Frame.Top), DevicePoint(Frame.Right - 1, Frame.Bottom - 1));
    const double half = PenWidth(Stroke) / 2;
    const QRectF inner = outline.adjusted(half, half, -half, -half);
    if (IsVisible(Fill) && !inner.isEmpty()) // else the outline covers all of it
        MixFrame(*image, FWindow, outline, {}, RgbOf(Fill.Color, Fill.Mode));
    MixFrame(*image, FWindow, outline.adjusted(-half, -half, half, half), inner,
             RgbOf(Stroke.Color, Stroke.Mode));
    return true;
}

void TPainterDevice::PaintShape(TPointSpan Points, const TStroke& Stroke, const TFill& Fill,
                                Qt::PenJoinStyle Join) {
    if (FClip.IsEmpty() || Points.IsEmpty()) return;
    const bool thin = IsVisible(Stroke) && IsThin(Stroke);
    if (IsVisible(Fill)) PaintArea(Points, Fill, FAntialias && !thin);
    if (IsVisible(Stroke)) PaintOutline(Points, Stroke, true, Join);
}

void TPainterDevice::PaintArea(TPointSpan Points, const TFill& Fill, bool Antialias) {
    SetMode(Fill.Mode, Antialias);
    const auto points = Placed(Points);
    if (const auto rect = UprightRect(points); rect && !IsSmooth() && WriteArea(*rect, Fill)) return;
    SetCurve(WithoutDetail(points));
    if (!AllInside(FCurve, SafeArea())) CutPolygon(FCurve, FSpare, SafeArea());
    FPainter.setPen(Qt::NoPen);
    FPainter.setBrush(BrushOf(Fill));
    FillCurve();
}

/// Fills the area in FCurve. On a raster, what the painter does for one of its rows grows with the square of
/// the points there: an area of many is filled in bands of whole columns.
void TPainterDevice::FillCurve() {
    constexpr int CBand = 16;
    const auto fill = [this](const std::vector<QPointF>& Corners) {
        FPainter.drawPolygon(Corners.data(), int(Corners.size()), Qt::OddEvenFill);
    };
    if (!FRaster || !IsSmooth() || FCurve.size() < std::size_t(CReductionThreshold)) return fill(FCurve);
    for (int left = FWindow.Left; left < FWindow.Right; left += CBand) {
        FBand = FCurve;
        CutPolygon(FBand, FSpare,
                   QRectF(left, FWindow.Top, std::min(CBand, FWindow.Right - left), FWindow.Height()));
        fill(FBand);
    }
}

std::span<const TRealPoint> TPainterDevice::WithoutDetail(std::span<const TRealPoint> Points) {
    if (Points.size() < std::size_t(CReductionThreshold)) return Points;
    if (!IsSmooth()) return WithoutColumnDetail(Points, FExactKept);
    SimplifyLine(Points, FColumnsPerPixel, FExactKept);
    return FExactKept;
}

void TPainterDevice::FillRect(const TRealRect& Rect, const TFill& Fill) {
    const TVectorsCleared afterwards;
    const TRealRect inside = Placed(Rect).Intersected(FClip);
    if (inside.IsEmpty() || !IsVisible(Fill)) return;
    const QRectF area = DeviceRect(inside);
    if (WriteArea({int(area.left()), int(area.top()), int(area.right()), int(area.bottom())}, Fill)) return;
    SetMode(Fill.Mode, false);
    FPainter.fillRect(area, BrushOf(Fill));
}

/// Fills whole device pixels past the painter; false if the painter has to.
bool TPainterDevice::WriteArea(const TRect& Area, const TFill& Fill) {
    const auto image = Fill.Style == bsSolid ? FAccess.Pixels(FWindow, Fill.Mode) : std::nullopt;
    if (!image) return false;
    const TRect part = Area.Intersected(FWindow);
    const QRect inside(part.Left, part.Top, part.Width(), part.Height());
    image->Fill(std::span(&inside, 1), RgbOf(Fill.Color, Fill.Mode), Fill.Mode);
    return true;
}

void TPainterDevice::Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TVectorsCleared afterwards;
    const TRealRect frame = FramedInside(Placed(Rect), Stroke);
    if (frame.IsEmpty() || FClip.IsEmpty()) return;
    if (frame.Right <= frame.Left + 1 || frame.Bottom <= frame.Top + 1) return Rectangle(frame, Stroke, Fill);
    if (!IsSmooth()) {
        const TRect whole = RoundToPixels(frame);
        const std::array box{whole.TopLeft(), TPoint{whole.Right, whole.Bottom}};
        if (PaintRepeated(TRepeatedShape::Ellipse, box, Stroke, Fill)) return;
    }
    const bool thin = IsThin(Stroke);
    SetMode(Stroke.Mode, FAntialias && !thin);
    const QRectF curve(DevicePoint(frame.Left, frame.Top), DevicePoint(frame.Right - 1, frame.Bottom - 1));
    const std::array corners{curve.topLeft(), curve.bottomRight()};
    if (!AllInside(corners, SafeArea())) return PaintHugeEllipse(frame, Stroke, Fill);
    FPainter.setPen(IsVisible(Stroke) ? PenOf(Stroke, Qt::RoundJoin) : QPen(Qt::NoPen));
    FPainter.setBrush(BrushOf(Fill));
    if (thin) {
        const TPoint first = DevicePixel(frame.TopLeft()),
                     last = DevicePixel({frame.Right - 1, frame.Bottom - 1});
        FPainter.drawEllipse(QRect(first.X, first.Y, last.X - first.X, last.Y - first.Y));
    } else {
        FPainter.drawEllipse(curve);
    }
}

/// Of an ellipse that reaches far outside, a polygon with a point in every column of the picture.
void TPainterDevice::PaintHugeEllipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const double midX = (Rect.Left + (Rect.Right - 1.0)) / 2, midY = (Rect.Top + (Rect.Bottom - 1.0)) / 2;
    const double halfX = Rect.Right - 1 - midX, halfY = Rect.Bottom - 1 - midY;
    const int margin = Stroke.Width + 8;
    const int left = std::max(RoundToInt(Rect.Left), -margin),
              right = std::min(RoundToInt(Rect.Right) - 1, FExtent.Width + margin);
    std::vector<TPoint> points;
    const auto add = [&](int X, double Side) {
        const double along = (X - midX) / halfX;
        points.push_back({X, RoundToInt(midY + Side * halfY * std::sqrt(std::max(0.0, 1 - along * along)))});
    };
    for (int x = left; x <= right; ++x) add(x, -1);
    for (int x = right; x >= left; --x) add(x, 1);
    Polygon(points, Stroke, Fill);
}

} // namespace kx::qt
