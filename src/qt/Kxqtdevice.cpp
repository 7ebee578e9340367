#include "qt/Kxqtdevice.h"

#include "platform/reduction.h"
#include "qt/Kxqtclip.h"
#include "qt/Kxqtlines.h"

#include <QPaintEngine>
#include <QPen>

#include <array>
#include <cmath>
#include <numbers>

namespace kx::qt {

namespace {

// Coordinates this far around the picture are safe with the painter; its own limit is near 2^15.
constexpr double CSafeMargin = 4096;
// On a raster without antialiasing a pixel belongs to an area when its centre does. Shapes are shifted by a
// little less than half a pixel, so that left and upper edges through centres count and right and lower ones
// do not.
constexpr double CNudge = 1.0 / 64;

// The painter's time for one path grows much faster than the path; so long ones are painted in pieces.
constexpr std::size_t CPiecePoints = 32;
constexpr double CPieceLength = 256;

double Distance(const QPointF& A, const QPointF& B) { return std::hypot(B.x() - A.x(), B.y() - A.y()); }
QPointF Direction(double Angle) { return {std::cos(Angle), std::sin(Angle)}; }

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

/// The rectangle on whose sides the pen's middle runs when the whole line is to lie inside Rect.
TRect FramedInside(const TRect& Rect, const TStroke& Stroke) {
    if (Stroke.Style != psInsideFrame || Stroke.Width < 2) return Rect;
    const int before = Stroke.Width / 2, behind = (Stroke.Width - 1) / 2;
    return {Rect.Left + before, Rect.Top + before, Rect.Right - behind, Rect.Bottom - behind};
}

/// Of each run of points in one column the first and the last: what lies between crosses every line of pixels
/// as often as they do, or an even number of times more.
std::span<const TPoint> WithoutColumnDetail(std::span<const TPoint> Points, std::vector<TPoint>& Kept) {
    if (Points.size() < std::size_t(CReductionThreshold)) return Points;
    Kept.clear();
    for (std::size_t i = 0; i < Points.size(); ++i) {
        const bool inside = i > 0 && i + 1 < Points.size() && Points[i - 1].X == Points[i].X &&
                            Points[i + 1].X == Points[i].X;
        if (!inside) Kept.push_back(Points[i]);
    }
    return Kept;
}

} // namespace

TPainterDevice::TPainterDevice(QPainter& Painter, TSize Extent, double Scale, bool Antialias)
    : FPainter(Painter), FExtent(Extent), FScale(Scale), FAntialias(Antialias),
      FRaster(Painter.paintEngine()->type() == QPaintEngine::Raster) {
    SetClip({});
}

bool TPainterDevice::IsThin(const TStroke& Stroke) const {
    return FRaster && std::max(Stroke.Width, 1) * FScale < 1.5;
}

TPoint TPainterDevice::DevicePixel(TPoint P) const {
    const auto mapped = [this](int V) { return RoundToInt(std::floor((V + 0.5) * FScale)); };
    return {mapped(P.X), mapped(P.Y)};
}

QPointF TPainterDevice::DevicePoint(double X, double Y) const {
    return {(X + 0.5) * FScale - FNudge, (Y + 0.5) * FScale - FNudge};
}

QRectF TPainterDevice::DeviceRect(const TRect& Rect) const {
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

QColor TPainterDevice::ColorOf(TColor Color, TPenMode Mode) const {
    if (Mode == pmXor && !FRaster) Color ^= clWhite;
    return QColor(RedOf(Color), GreenOf(Color), BlueOf(Color));
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
    QBrush brush(ColorOf(Fill.Color, Fill.Mode), PatternOf(Fill.Style));
    if (Fill.Style != bsSolid && FScale != 1) brush.setTransform(QTransform::fromScale(FScale, FScale));
    return brush;
}

void TPainterDevice::SetMode(TPenMode Mode, bool Antialias) {
    const bool invert = Mode == pmXor && FRaster;
    const bool smooth = Antialias && !invert;
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

// Antialiased wide lines are always reduced: painted over each other, the rims of lines that coincide would
// add up to jagged ones.
bool TPainterDevice::IsReduced(std::span<const TPoint> Points, const TStroke& Stroke) const {
    const bool smooth = FRaster && FAntialias && !IsThin(Stroke);
    return (FReduction || smooth) && Points.size() >= std::size_t(CReductionThreshold) &&
           Stroke.Mode == pmCopy && DashesOf(Stroke.Style).empty();
}

std::span<const TPoint> TPainterDevice::Reduced(std::span<const TPoint> Points, const TStroke& Stroke) {
    if (!IsReduced(Points, Stroke)) return Points;
    ReducePolyline(Points, FKept);
    return FKept;
}

void TPainterDevice::Polyline(std::span<const TPoint> Points, const TStroke& Stroke) {
    if (!IsVisible(Stroke) || FClip.IsEmpty() || Points.size() < 2) return;
    const auto points = Reduced(Points, Stroke);
    if (IsThin(Stroke))
        PaintThin(points, Stroke, false);
    else
        PaintWide(points, Stroke, false, Qt::RoundJoin);
}

void TPainterDevice::Polygon(std::span<const TPoint> Points, const TStroke& Stroke, const TFill& Fill) {
    PaintShape(Points, Stroke, Fill, Qt::RoundJoin);
}

void TPainterDevice::Rectangle(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TRect frame = FramedInside(Rect, Stroke);
    if (frame.IsEmpty()) return;
    const int right = frame.Right - 1, bottom = frame.Bottom - 1;
    const std::array<TPoint, 4> corners{
        {frame.TopLeft(), {right, frame.Top}, {right, bottom}, {frame.Left, bottom}}};
    PaintShape(corners, Stroke, Fill, Qt::MiterJoin);
}

void TPainterDevice::PaintShape(std::span<const TPoint> Points, const TStroke& Stroke, const TFill& Fill,
                                Qt::PenJoinStyle Join) {
    if (FClip.IsEmpty() || Points.empty()) return;
    const bool thin = IsVisible(Stroke) && IsThin(Stroke);
    if (IsVisible(Fill)) PaintArea(Points, Fill, FAntialias && !thin);
    if (!IsVisible(Stroke)) return;
    const auto points = Reduced(Points, Stroke);
    if (thin)
        PaintThin(points, Stroke, true);
    else
        PaintWide(points, Stroke, true, Join);
}

void TPainterDevice::PaintThin(std::span<const TPoint> Points, const TStroke& Stroke, bool Closed) {
    if (FScale != 1) {
        FPixels.resize(Points.size());
        std::ranges::transform(Points, FPixels.begin(), [this](TPoint P) { return DevicePixel(P); });
        Points = FPixels;
    }
    FRuns.clear();
    TLineScanner scanner(FWindow, Stroke.Style, FReduction && Stroke.Mode == pmCopy, FRuns);
    if (Closed)
        scanner.Polygon(Points);
    else
        scanner.Polyline(Points);
    if (FRuns.empty()) return;
    SetMode(Stroke.Mode, false);
    FPainter.setPen(Qt::NoPen);
    FPainter.setBrush(ColorOf(Stroke.Color, Stroke.Mode));
    FPainter.drawRects(FRuns.data(), int(FRuns.size()));
}

void TPainterDevice::PaintWide(std::span<const TPoint> Points, const TStroke& Stroke, bool Closed,
                               Qt::PenJoinStyle Join) {
    SetMode(Stroke.Mode, FAntialias);
    FCurve.clear();
    for (const TPoint p : Points) FCurve.push_back(DevicePoint(p.X, p.Y));
    const QPen pen = PenOf(Stroke, Join);
    FPainter.setBrush(Qt::NoBrush);
    if (Closed && Points.size() < std::size_t(CReductionThreshold) && AllInside(FCurve, SafeArea())) {
        FPainter.setPen(pen);
        FPainter.drawPolygon(FCurve.data(), int(FCurve.size()));
        return;
    }
    if (Closed)
        FCurve.push_back(FCurve.front());
    else if (Stroke.Width < 2)
        TrimEnds();
    ForPiecesInside(FCurve, SafeArea(), FSpare, [&](std::span<const QPointF> Piece, double LengthBefore) {
        const bool whole = !FRaster || Stroke.Mode == pmXor; // no pixel twice, no path more than needed
        if (whole || FAntialias || pen.style() == Qt::CustomDashLine)
            PaintStroke(Piece, pen, LengthBefore, !whole);
        else
            PaintBars(Piece, pen, Closed || Stroke.Width > 1);
    });
}

/// Moves both ends half a pixel against the line's direction, so that the line begins with the whole of its
/// first pixel and ends before its last one.
void TPainterDevice::TrimEnds() {
    const auto second =
        std::ranges::find_if(FCurve, [this](const QPointF& P) { return P != FCurve.front(); });
    if (second == FCurve.end()) return FCurve.clear();
    while (FCurve[FCurve.size() - 2] == FCurve.back()) FCurve.pop_back();
    const auto half = [this](const QPointF& From, const QPointF& To) {
        const QPointF way = To - From;
        return way * (FScale / 2 / std::max(std::abs(way.x()), std::abs(way.y())));
    };
    const QPointF begin = half(FCurve.front(), *second), end = half(FCurve[FCurve.size() - 2], FCurve.back());
    FCurve.front() -= begin;
    FCurve.back() -= end;
}

/// Paints a line as the painter does, in pieces if so asked, with discs for the joints between them.
void TPainterDevice::PaintStroke(std::span<const QPointF> Line, QPen Pen, double LengthBefore,
                                 bool InPieces) {
    const bool dashed = Pen.style() == Qt::CustomDashLine;
    for (std::size_t begin = 0, end = 1; end < Line.size(); begin = end - 1) {
        double length = 0;
        const std::size_t most = InPieces ? begin + CPiecePoints : Line.size();
        for (end = begin + 1; end < Line.size() && end < most && (!InPieces || length < CPieceLength); ++end)
            length += Distance(Line[end - 1], Line[end]);
        if (dashed) Pen.setDashOffset(LengthBefore / Pen.widthF());
        LengthBefore += length;
        FPainter.setPen(Pen);
        FPainter.drawPolyline(Line.data() + begin, int(end - begin));
        if (dashed || Pen.capStyle() == Qt::RoundCap || end == Line.size()) continue;
        FPainter.setPen(Qt::NoPen);
        FPainter.setBrush(Pen.color());
        PaintDisc(Line[end - 1], Pen.widthF() / 2);
    }
}

/// Paints a line as bars with discs at the joints: the same pixels however many of them there are, in a time
/// that grows with their number only.
void TPainterDevice::PaintBars(std::span<const QPointF> Line, const QPen& Pen, bool RoundEnds) {
    const double radius = Pen.widthF() / 2;
    FPainter.setPen(Qt::NoPen);
    FPainter.setBrush(Pen.color());
    for (std::size_t i = 0; i < Line.size(); ++i) {
        if (RoundEnds || (i > 0 && i + 1 < Line.size())) PaintDisc(Line[i], radius);
        if (i == 0 || Line[i] == Line[i - 1]) continue;
        const QPointF way = Line[i] - Line[i - 1];
        const QPointF aside = QPointF(-way.y(), way.x()) * (radius / Distance({}, way));
        const std::array bar{Line[i - 1] + aside, Line[i] + aside, Line[i] - aside, Line[i - 1] - aside};
        FPainter.drawConvexPolygon(bar.data(), int(bar.size()));
    }
}

void TPainterDevice::PaintDisc(const QPointF& Middle, double Radius) {
    static const auto circle = [] {
        std::array<QPointF, 32> points;
        for (std::size_t i = 0; i < points.size(); ++i)
            points[i] = Direction(2 * std::numbers::pi * double(i) / points.size());
        return points;
    }();
    std::array<QPointF, circle.size()> disc;
    std::ranges::transform(circle, disc.begin(), [&](const QPointF& P) { return Middle + Radius * P; });
    FPainter.drawConvexPolygon(disc.data(), int(disc.size()));
}

void TPainterDevice::PaintArea(std::span<const TPoint> Points, const TFill& Fill, bool Antialias) {
    SetMode(Fill.Mode, Antialias);
    FCurve.clear();
    for (const TPoint p : WithoutColumnDetail(Points, FKept)) FCurve.push_back(DevicePoint(p.X, p.Y));
    if (!AllInside(FCurve, SafeArea())) CutPolygon(FCurve, FSpare, SafeArea());
    FPainter.setPen(Qt::NoPen);
    FPainter.setBrush(BrushOf(Fill));
    FPainter.drawPolygon(FCurve.data(), int(FCurve.size()), Qt::OddEvenFill);
}

void TPainterDevice::FillRect(const TRect& Rect, const TFill& Fill) {
    const TRect inside = FClip.Intersected(Rect);
    if (inside.IsEmpty() || !IsVisible(Fill)) return;
    SetMode(Fill.Mode, false);
    FPainter.fillRect(DeviceRect(inside), BrushOf(Fill));
}

void TPainterDevice::Ellipse(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TRect frame = FramedInside(Rect, Stroke);
    if (frame.IsEmpty() || FClip.IsEmpty()) return;
    if (frame.Width() == 1 || frame.Height() == 1) return Rectangle(frame, Stroke, Fill);
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
void TPainterDevice::PaintHugeEllipse(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const double midX = (Rect.Left + (Rect.Right - 1.0)) / 2, midY = (Rect.Top + (Rect.Bottom - 1.0)) / 2;
    const double halfX = Rect.Right - 1 - midX, halfY = Rect.Bottom - 1 - midY;
    const int margin = Stroke.Width + 8;
    const int left = std::max(Rect.Left, -margin), right = std::min(Rect.Right - 1, FExtent.Width + margin);
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
