#include <kxgraph/platform/drawing/reduction.h>
#include <kxgraph/platform/drawing/simplification.h>
#include <kxgraph/qt/Kxqtclip.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtlines.h>
#include <kxgraph/qt/Kxqtvectors.h>

#include <QPen>

#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

namespace kx::qt {

namespace {

// The painter's time for one path grows much faster than the path; so long ones are painted in pieces.
constexpr std::size_t CPiecePoints = 32;
constexpr double CPieceLength = 256;
constexpr std::size_t CPathPoints = 2000; // of a page; viewers take long for longer ones

double Distance(const QPointF& A, const QPointF& B) { return std::hypot(B.x() - A.x(), B.y() - A.y()); }

/// Calls Add(begin, end) for what is drawn between From and To of a line, all of it without Dashes. Those
/// begin with the line and are in widths of the pen.
template <class F>
void ForDashes(std::span<const int> Dashes, double Width, double From, double To, F Add) {
    if (From >= To) return;
    if (Dashes.empty()) return Add(From, To);
    const double period = Width * std::accumulate(Dashes.begin(), Dashes.end(), 0);
    double begin = std::floor(From / period) * period;
    for (std::size_t i = 0; begin < To; i = (i + 1) % Dashes.size()) {
        const double end = begin + Width * Dashes[i];
        if (i % 2 == 0 && end > From) Add(std::max(begin, From), std::min(end, To));
        begin = end;
    }
}

QPointF Direction(double Angle) { return {std::cos(Angle), std::sin(Angle)}; }

} // namespace

// Antialiased wide lines are always reduced: painted over each other, the rims of lines that coincide would
// add up to jagged ones.
bool TPainterDevice::IsReduced(std::size_t Count, const TStroke& Stroke, bool Exact) const {
    const bool smooth = FRaster && FAntialias && !IsThin(Stroke);
    const bool dashed = !DashesOf(Stroke.Style).empty();
    return (FReduction || smooth) && Count >= std::size_t(CReductionThreshold) && Stroke.Mode == pmCopy &&
           (!dashed || (Exact && IsSmooth()));
}

std::span<const TRealPoint> TPainterDevice::Reduced(TPointSpan Points, const TStroke& Stroke) {
    const auto points = Placed(Points);
    if (!IsReduced(points.size(), Stroke, Points.IsExact())) return points;
    if (Points.IsExact() && IsSmooth())
        SimplifyLine(points, DashesOf(Stroke.Style).empty() ? FColumnsPerPixel : 0, FExactKept);
    else
        ReducePolyline(points, FExactKept);
    return FExactKept;
}

/// The pixels that a thin line runs through.
std::span<const TPoint> TPainterDevice::DevicePixels(TPointSpan Points, const TStroke& Stroke) {
    auto pixels = Points.Whole(FPixels);
    if (IsSmooth()) {
        const auto places = Points.Exact(FExact);
        FPixels.resize(places.size());
        std::ranges::transform(places, FPixels.begin(), [this](TRealPoint P) { return DevicePixel(P); });
        pixels = FPixels;
    }
    if (!IsReduced(pixels.size(), Stroke, false)) return pixels;
    ReducePolyline(pixels, FKept);
    return FKept;
}

void TPainterDevice::Polyline(TPointSpan Points, const TStroke& Stroke) {
    const TVectorsCleared afterwards;
    if (Stroke.Style == psClear || FClip.IsEmpty() || Points.Size() < 2) return;
    PaintOutline(Points, Stroke, false, Qt::RoundJoin);
}

void TPainterDevice::PaintOutline(TPointSpan Points, const TStroke& Stroke, bool Closed,
                                  Qt::PenJoinStyle Join) {
    if (IsThin(Stroke))
        PaintThin(DevicePixels(Points, Stroke), Stroke, Closed);
    else
        PaintWide(Points, Stroke, Closed, Join);
}

void TPainterDevice::PaintThin(std::span<const TPoint> Pixels, const TStroke& Stroke, bool Closed) {
    FRuns.clear();
    TLineScanner scanner(FWindow, Stroke.Style, FReduction && Stroke.Mode == pmCopy, FRuns);
    if (Closed)
        scanner.Polygon(Pixels);
    else
        scanner.Polyline(Pixels);
    if (FRuns.empty()) return;
    if (const auto image = FAccess.Pixels(FWindow, Stroke.Mode))
        return image->Fill(FRuns, RgbOf(Stroke.Color, Stroke.Mode), Stroke.Mode);
    SetMode(Stroke.Mode, false);
    FPainter.setPen(Qt::NoPen);
    FPainter.setBrush(ColorOf(Stroke.Color, Stroke.Mode));
    FPainter.drawRects(FRuns.data(), int(FRuns.size()));
}

void TPainterDevice::PaintWide(TPointSpan Points, const TStroke& Stroke, bool Closed, Qt::PenJoinStyle Join) {
    SetMode(Stroke.Mode, FAntialias);
    const bool isExact = IsSmooth() && Points.IsExact();
    QPen pen = PenOf(Stroke, Join);
    // A line through exact places is one of several that follow one another, as a rule: round ends join them.
    if (isExact && Points.Size() > 2 && pen.style() != Qt::CustomDashLine) pen.setCapStyle(Qt::RoundCap);
    if (isExact && Stroke.Crisp) pen.setCapStyle(Qt::FlatCap); // whoever draws it knows where it ends
    if (isExact && !Closed && WriteCoverage(Placed(Points), pen, Stroke.Mode)) return;
    SetCurve(Reduced(Points, Stroke));
    if (Stroke.Crisp && FRaster) MakeCrisp(pen);
    FPainter.setBrush(Qt::NoBrush);
    if (Closed && FCurve.size() < std::size_t(CReductionThreshold) && AllInside(FCurve, SafeArea())) {
        FPainter.setPen(pen);
        FPainter.drawPolygon(FCurve.data(), int(FCurve.size()));
        return;
    }
    if (Closed)
        FCurve.push_back(FCurve.front());
    else if (Stroke.Width < 2 && !isExact)
        TrimEnds();
    if (Stroke.Crisp && FRaster && FCurve.size() == 2) {
        RoundEnds();
        if (WriteCrisp(pen, Stroke)) return;
    }
    ForPiecesInside(FCurve, SafeArea(), FSpare, [&](std::span<const QPointF> Piece, double LengthBefore) {
        const bool whole = !FRaster || Stroke.Mode == pmXor; // no pixel twice, no path more than needed
        if (whole || FAntialias || pen.style() == Qt::CustomDashLine)
            PaintStroke(Piece, pen, LengthBefore, !whole);
        else
            PaintBars(Piece, pen, Closed || Stroke.Width > 1);
    });
}

/// Writes a smooth line past the painter, all of its points; false if the painter has to.
bool TPainterDevice::WriteCoverage(std::span<const TRealPoint> Line, const QPen& Pen, TPenMode Mode) {
    const bool isSolid = Pen.capStyle() == Qt::RoundCap && Mode == pmCopy;
    if (!FRaster || !FAntialias || !isSolid) return false;
    const bool runsOneWay = TLineCoverage::IsFor(Line);
    if (!runsOneWay && !TLineMask::IsFor(Line.size(), Pen.widthF())) return false;
    const auto image = FAccess.MixedPixels(FWindow);
    if (!image) return false;
    SetCurve(Line);
    const int columns = int(std::ceil(FColumnsPerPixel / FScale));
    if (runsOneWay)
        FCoverage.Paint(*image, FWindow, FCurve, columns, Pen.widthF(), Pen.color().rgb());
    else
        FMask.Paint(*image, FWindow, FCurve, Pen.widthF(), Pen.color().rgb());
    return true;
}

void TPainterDevice::SetCurve(std::span<const TRealPoint> Points) {
    FCurve.resize(Points.size());
    std::ranges::transform(Points, FCurve.begin(), [this](TRealPoint P) { return DevicePoint(P.X, P.Y); });
}

/// A pen of whole pixels, and the line where its edges are whole ones, if it is level and upright throughout.
void TPainterDevice::MakeCrisp(QPen& Pen) {
    const auto isSlanted = [](const QPointF& A, const QPointF& B) {
        return std::abs(A.x() - B.x()) > 1e-6 && std::abs(A.y() - B.y()) > 1e-6;
    };
    if (std::ranges::adjacent_find(FCurve, isSlanted) != FCurve.end()) return;
    const double half = std::round(Pen.widthF()) / 2;
    Pen.setWidthF(2 * half);
    const auto middle = [half](double Place) { return std::round(Place - half) + half; };
    const bool isUpright = FCurve.front().x() == FCurve.back().x();
    for (QPointF& p : FCurve) {
        if (FCurve.size() > 2 || isUpright) p.setX(middle(p.x()));
        if (FCurve.size() > 2 || !isUpright) p.setY(middle(p.y()));
    }
}

/// Writes a level or upright line of whole pixels past the painter; false if the painter has to.
bool TPainterDevice::WriteCrisp(const QPen& Pen, const TStroke& Stroke) {
    const bool isLevel = FCurve[0].y() == FCurve[1].y(), isUpright = FCurve[0].x() == FCurve[1].x();
    if (isLevel == isUpright || Pen.capStyle() != Qt::FlatCap || Stroke.Mode != pmCopy) return false;
    const auto image = FAccess.Pixels(FWindow, Stroke.Mode);
    if (!image) return false;
    const auto along = [isLevel](const QPointF& P) { return isLevel ? P.x() : P.y(); };
    const double start = along(FCurve[0]), way = along(FCurve[1]) - start, sign = way < 0 ? -1 : 1;
    const double low = isLevel ? FWindow.Left : FWindow.Top, high = isLevel ? FWindow.Right : FWindow.Bottom;
    const double enters = std::max(0.0, sign > 0 ? low - start : start - high),
                 leaves = std::min(std::abs(way), sign > 0 ? high - start : start - low);
    const double side = (isLevel ? FCurve[0].y() : FCurve[0].x()) - Pen.widthF() / 2;
    const double before = isLevel ? FWindow.Top : FWindow.Left,
                 behind = isLevel ? FWindow.Bottom : FWindow.Right;
    if (side + Pen.widthF() <= before || side >= behind) return true; // places far away are no pixels
    FRuns.clear();
    const auto add = [&](double Begin, double End) {
        QRectF run(start + (sign > 0 ? Begin : -End), side, End - Begin, Pen.widthF());
        if (!isLevel) run = QRectF(run.y(), run.x(), run.height(), run.width());
        const QRect window(FWindow.Left, FWindow.Top, FWindow.Width(), FWindow.Height());
        if (const QRect inside = run.toRect() & window; !inside.isEmpty()) FRuns.push_back(inside);
    };
    ForDashes(DashesOf(Stroke.Style), Pen.widthF(), enters, leaves, add);
    image->Fill(FRuns, RgbOf(Stroke.Color, Stroke.Mode), Stroke.Mode);
    return true;
}

/// The ends of a crisp line, along it.
void TPainterDevice::RoundEnds() {
    const bool isUpright = FCurve[0].x() == FCurve[1].x(), isLevel = FCurve[0].y() == FCurve[1].y();
    for (QPointF& p : FCurve) {
        if (isUpright) p.setY(std::round(p.y()));
        if (isLevel) p.setX(std::round(p.x()));
    }
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
        const std::size_t most = begin + (InPieces                                    ? CPiecePoints
                                          : !dashed && Pen.capStyle() == Qt::RoundCap ? CPathPoints
                                                                                      : Line.size());
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

} // namespace kx::qt
